#pragma once

#include <iterator>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "messaging/FolderAttributes.h"

namespace tarnbridge {

/// A folder of a tree of records, which owns its records and the folders below it. Whoever reads or changes a
/// field takes `lock`, copies what it needs and releases it: the lock is never held across an exchange with
/// the handset, and no two folders are locked at once. The operations here take it themselves.
template <typename Record>
class FolderNode {
public:
    using RecordList = std::vector<std::unique_ptr<Record>>;
    using FolderList = std::vector<std::unique_ptr<FolderNode>>;

    FolderNode() = default;
    FolderNode(const FolderNode&) = delete;
    FolderNode& operator=(const FolderNode&) = delete;

    /// A tree may be of any depth, so nothing here goes down it by recursion: each folder goes with an empty
    /// list of children.
    ~FolderNode() {
        FolderList doomed = std::move(children);
        while (!doomed.empty()) {
            const std::unique_ptr<FolderNode> folder = std::move(doomed.back());
            doomed.pop_back();
            std::move(folder->children.begin(), folder->children.end(), std::back_inserter(doomed));
            folder->children.clear();
        }
    }

    /// Takes a record over, at the end of the list.
    Record& Append(std::unique_ptr<Record> record) {
        const std::lock_guard guard(lock);
        records.push_back(std::move(record));
        return *records.back();
    }

    /// Takes a folder over, at the end of the list, and becomes its parent.
    FolderNode& Append(std::unique_ptr<FolderNode> child) {
        child->parent = this;
        const std::lock_guard guard(lock);
        children.push_back(std::move(child));
        return *children.back();
    }

    /// The child of this place, counted from 0; none where there are fewer.
    FolderNode* Child(size_t place) const {
        const std::lock_guard guard(lock);
        return place < children.size() ? children[place].get() : nullptr;
    }

    /// Destroys all records, or all folders below.
    void RemoveRecords() { Exchange(records); }
    void RemoveChildren() { Exchange(children); }

    std::u16string name;
    FolderAttributes attributes;
    mutable std::mutex lock;
    RecordList records;
    FolderList children;
    FolderNode* parent = nullptr;  ///< none at a root

private:
    /// What is destroyed is destroyed after the lock has been released.
    template <typename List>
    void Exchange(List& list) {
        List taken;
        const std::lock_guard guard(lock);
        list.swap(taken);
    }
};

}  // namespace tarnbridge
