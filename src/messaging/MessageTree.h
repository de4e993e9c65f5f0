#pragma once

#include <memory>
#include <vector>

#include "core/base/UserInteraction.h"
#include "messaging/FolderPlaces.h"
#include "messaging/MessageFolder.h"

namespace tarnbridge {

/// The fixed folders of a tree of messages, which must all be there: the mirror of the handset and what is
/// kept on the PC. Holds nothing itself.
class MessageTree {
public:
    /// `root` must outlive the tree.
    explicit MessageTree(MessageFolder& root) : root_(&root) {}

    MessageFolder& Root() const { return *root_; }
    MessageFolder& HandsetRoot() const { return *root_->Child(handsetPlace); }
    MessageFolder& PcRoot() const { return *root_->Child(pcPlace); }
    MessageFolder& OnHandset(MessagePlace place) const { return *HandsetRoot().Child(place); }
    MessageFolder& OnPc(MessagePlace place) const { return *PcRoot().Child(place); }

    /// The mirror's root or one of its folders.
    bool IsOnHandset(const MessageFolder& folder) const;
    /// The trash can or a folder in it, at any depth.
    bool IsInTrash(const MessageFolder& folder) const;
    /// The place of a folder of the mirror; draftPlace for any other.
    MessagePlace PlaceOnHandset(const MessageFolder& folder) const;
    /// Whether records may lie in it: not in the two roots, nor in their root.
    bool HoldsMessages(const MessageFolder& folder) const;
    FolderLook LookOf(const MessageFolder& folder) const;

private:
    MessageFolder* root_;
};

/// The folder of the handset in which a message of this status lies.
MessagePlace PlaceOfStatus(int status);

/// The status with which a message is written into a folder of the handset. What the handset can't store as
/// received goes to its drafts.
int StatusForPlace(MessagePlace place, int status, bool canStoreReceived);

// Records are told by their address; one that isn't in the folder any more is passed over. Each takes the
// folder's lock.

bool Holds(const MessageFolder& folder, const SmsRecord* record);

/// Takes these records out of the folder, in the folder's order. One pass, however many they are.
MessageFolder::RecordList TakeRecords(MessageFolder& folder, const std::vector<SmsRecord*>& records);

/// Who keeps the PC folders on the disk.
class MessageKeeper {
public:
    virtual ~MessageKeeper() = default;

    /// A PC folder has changed: it is to be saved soon.
    virtual void PcFoldersChanged() = 0;

    /// Whether the folders are on the disk now, as they are.
    virtual bool SaveNow() = 0;
};

}  // namespace tarnbridge
