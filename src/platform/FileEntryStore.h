#pragma once

#include <filesystem>
#include <memory>
#include <mutex>

#include "platform/EntryStore.h"

namespace tarnbridge {

/// An ini file as a store. Each change takes a lock beside the file, reads it anew, and replaces it
/// atomically, so that two processes don't undo each other's changes. A file that can't be read or understood
/// is never replaced.
class FileEntryStore : public EntryStore {
public:
    /// The file and its folders are made by the first change.
    explicit FileEntryStore(std::filesystem::path path);
    ~FileEntryStore() override;

    std::optional<std::u16string> GetText(const std::string& section,
                                          const std::string& entry) const override;
    Outcome SetText(const std::string& section, const std::string& entry, std::u16string_view text) override;
    Outcome Remove(const std::string& section, const std::string& entry) override;
    std::vector<std::string> Entries(const std::string& section) const override;

private:
    class Document;

    template <typename Change>
    Outcome ChangeDocument(Change change);
    Outcome Refresh() const;

    const std::filesystem::path path_;
    mutable std::mutex mutex_;
    mutable std::unique_ptr<Document> document_;
};

}  // namespace tarnbridge
