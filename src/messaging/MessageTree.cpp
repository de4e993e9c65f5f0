#include "messaging/MessageTree.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace tarnbridge {

bool MessageTree::IsOnHandset(const MessageFolder& folder) const {
    const MessageFolder* const handset = &HandsetRoot();
    return &folder == handset || folder.parent == handset;
}

bool MessageTree::IsInTrash(const MessageFolder& folder) const {
    const MessageFolder* const trash = &OnPc(messageTrashPlace);
    for (const MessageFolder* level = &folder; level; level = level->parent) {
        if (level == trash) return true;
    }
    return false;
}

FolderLook MessageTree::LookOf(const MessageFolder& folder) const {
    constexpr FolderLook looks[] = {FolderLook::Inbox, FolderLook::Outbox,   FolderLook::Sent,
                                    FolderLook::Draft, FolderLook::Personal, FolderLook::Trash};
    if (&folder == &HandsetRoot()) return FolderLook::Handset;
    if (&folder == &PcRoot()) return FolderLook::Computer;
    if (folder.parent == &HandsetRoot() || folder.parent == &PcRoot()) {
        for (size_t place = 0; place < std::size(looks); ++place) {
            if (folder.parent->Child(place) == &folder) return looks[place];
        }
    }
    return FolderLook::Own;
}

MessagePlace MessageTree::PlaceOnHandset(const MessageFolder& folder) const {
    for (const MessagePlace place : handsetPlaces) {
        if (&OnHandset(place) == &folder) return place;
    }
    return draftPlace;
}

bool MessageTree::HoldsMessages(const MessageFolder& folder) const {
    return folder.parent != nullptr && folder.parent != root_;
}

MessagePlace PlaceOfStatus(int status) {
    switch (status) {
        case smsUnread:
        case smsRead:
            return inboxPlace;
        case smsSent:
            return sentPlace;
        case smsOutbox:
            return outboxPlace;
        default:
            return draftPlace;
    }
}

int StatusForPlace(MessagePlace place, int status, bool canStoreReceived) {
    switch (place) {
        case inboxPlace:
            if (!canStoreReceived) return smsDraft;
            return status == smsUnread ? smsUnread : smsRead;
        case outboxPlace:
            return smsOutbox;
        case sentPlace:
            return smsSent;
        default:
            return smsDraft;
    }
}

bool Holds(const MessageFolder& folder, const SmsRecord* record) {
    const std::lock_guard guard(folder.lock);
    return std::any_of(folder.records.begin(), folder.records.end(),
                       [record](const auto& own) { return own.get() == record; });
}

MessageFolder::RecordList TakeRecords(MessageFolder& folder, const std::vector<SmsRecord*>& records) {
    const std::unordered_set<const SmsRecord*> wanted(records.begin(), records.end());
    const std::lock_guard guard(folder.lock);
    const auto first = std::stable_partition(folder.records.begin(), folder.records.end(),
                                             [&](const auto& own) { return !wanted.contains(own.get()); });
    MessageFolder::RecordList taken(std::make_move_iterator(first),
                                    std::make_move_iterator(folder.records.end()));
    folder.records.erase(first, folder.records.end());
    return taken;
}

}  // namespace tarnbridge
