#include "messaging/MessageFolders.h"

#include <algorithm>

#include "core/base/StringTable.h"
#include "messaging/MessageQuestions.h"

namespace tarnbridge {
namespace {

std::unique_ptr<MessageFolder> TakeFolder(MessageFolder& folder) {
    MessageFolder& parent = *folder.parent;
    const std::lock_guard guard(parent.lock);
    const auto found = std::find_if(parent.children.begin(), parent.children.end(),
                                    [&](const auto& child) { return child.get() == &folder; });
    if (found == parent.children.end()) return nullptr;
    std::unique_ptr<MessageFolder> taken = std::move(*found);
    parent.children.erase(found);
    return taken;
}

FolderAttributes AttributesOf(const MessageFolder& folder) {
    const std::lock_guard guard(folder.lock);
    return folder.attributes;
}

}  // namespace

bool MessageFolders::MayMakeFolder(const MessageFolder& under) {
    return AttributesOf(under).allowsSubfolders != 0;
}

bool MessageFolders::MayChange(const MessageFolder& folder) {
    return folder.parent != nullptr && AttributesOf(folder).userFolder != 0;
}

MessageFolder* MessageFolders::Make(MessageFolder& under, const std::u16string& name) {
    if (!MayMakeFolder(under)) {
        user_.Tell(Words(Word::FolderNotCreated));
        return nullptr;
    }
    auto folder = std::make_unique<MessageFolder>();
    folder->name = name.empty() ? Words(Word::NewFolder) : name;
    folder->attributes = AttributesOf(under).OfUserFolder();
    MessageFolder& made = under.Append(std::move(folder));
    keeper_.PcFoldersChanged();
    return &made;
}

bool MessageFolders::Rename(MessageFolder& folder, const std::u16string& name) {
    if (!MayChange(folder) || name.empty()) return false;
    {
        const std::lock_guard guard(folder.lock);
        if (folder.name == name) return false;
        folder.name = name;
    }
    keeper_.PcFoldersChanged();
    return true;
}

bool MessageFolders::Remove(MessageFolder& folder) {
    if (!MayChange(folder)) return false;
    MessageFolder& trash = tree_.OnPc(messageTrashPlace);
    bool keep = false;
    if (!tree_.IsInTrash(folder)) {
        const Answer answer = asksAboutTrash_ ? user_.Ask(FolderToTrashQuestion(tree_, folder)) : Answer::Yes;
        if (answer == Answer::Cancel) return false;
        keep = answer == Answer::Yes;
    }
    // A No to the trash can may have meant that the folder stays.
    if (!keep && user_.Ask(FolderForGoodQuestion(folder)) != Answer::Yes) return false;
    auto taken = TakeFolder(folder);
    if (!taken) return false;
    if (keep) trash.Append(std::move(taken));
    keeper_.PcFoldersChanged();
    return true;
}

bool MessageFolders::MayMove(const MessageFolder& folder, const MessageFolder& under) const {
    if (!MayChange(folder) || folder.parent == &under) return false;
    for (const MessageFolder* level = &under; level; level = level->parent) {
        if (level == &folder) return false;
    }
    return MayMakeFolder(under) || &under == &tree_.OnPc(messageTrashPlace);
}

bool MessageFolders::Move(MessageFolder& folder, MessageFolder& under) {
    if (!MayMove(folder, under)) return false;
    auto taken = TakeFolder(folder);
    if (!taken) return false;
    under.Append(std::move(taken));
    keeper_.PcFoldersChanged();
    return true;
}

bool MessageFolders::CleanTrash() {
    MessageFolder& trash = tree_.OnPc(messageTrashPlace);
    if (user_.Ask(FolderForGoodQuestion(trash)) != Answer::Yes) return false;
    trash.RemoveRecords();
    trash.RemoveChildren();
    keeper_.PcFoldersChanged();
    return true;
}

bool MessageFolders::MayTransfer(const MessageFolder& from, const MessageFolder& to, bool move) {
    if (!tree_.HoldsMessages(to)) {
        user_.Tell(Words(Word::ChooseFolderToSave));
        return false;
    }
    if (!move || &from != &to) return true;
    user_.Tell(Words(Word::MoveToSameFolder));
    return false;
}

bool MessageFolders::ConfirmDelete(const MessageFolder& folder, std::vector<SmsRecord*>& records) {
    if (records.empty()) return false;
    const auto isUnreadable = [](const SmsRecord* record) { return record->unreadable.has_value(); };
    const size_t leftOut = records.size() > 1 ? std::erase_if(records, isUnreadable) : 0;
    if (records.empty()) {
        user_.Tell(Words(Word::UnreadableGoAlone));
        return false;
    }
    const bool toTrash = !tree_.IsOnHandset(folder) && !tree_.IsInTrash(folder);
    if (toTrash && !asksAboutTrash_) return true;
    return user_.Ask(DeleteQuestion(tree_, folder, records, leftOut)) == Answer::Yes;
}

}  // namespace tarnbridge
