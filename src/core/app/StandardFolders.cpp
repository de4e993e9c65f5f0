#include "core/app/StandardFolders.h"

#include "core/base/StringTable.h"

namespace tarnbridge {
namespace {

constexpr FolderAttributes Row(FolderKind kind, uint8_t allowsSubfolders, uint8_t flag3) {
    return {.folderKind = kind,
            .imageIndex = kind,
            .allowsSubfolders = allowsSubfolders,
            .flag2 = 1,
            .flag3 = flag3,
            .flag4 = 1};
}

constexpr FolderAttributes handsetRow = Row(handsetFolder, 0, 0);
constexpr FolderAttributes pcMessageRow = Row(pcFolder, 0, 1);
constexpr FolderAttributes personalRow = Row(pcFolder, 1, 1);
constexpr FolderAttributes messageTrashRow = Row(trashFolder, 0, 1);
constexpr FolderAttributes pcContactRow = Row(pcFolder, 1, 1);
constexpr FolderAttributes contactTrashRow = Row(trashFolder, 1, 1);

/// Makes the next folder below `parent`, or takes the one that is there.
template <typename Folder>
Folder& Ensure(Folder& parent, size_t place, const std::u16string& name, const FolderAttributes& row) {
    Folder* folder = parent.Child(place);
    if (!folder) folder = &parent.Append(std::make_unique<Folder>());
    const std::lock_guard guard(folder->lock);
    folder->name = name;
    if (folder->attributes == FolderAttributes()) folder->attributes = row;
    return *folder;
}

void EnsureBoxes(MessageFolder& parent, const FolderNames& names, const FolderAttributes& row) {
    Ensure(parent, inboxPlace, names.inbox, row);
    Ensure(parent, outboxPlace, names.outbox, row);
    Ensure(parent, sentPlace, names.sent, row);
    Ensure(parent, draftPlace, names.draft, row);
}

}  // namespace

FolderNames FolderNames::OfProgram() {
    return {.handsetMessages = Words(Word::MessageHandsetFolder),
            .pcMessages = Words(Word::MessagePcFolder),
            .inbox = Words(Word::Inbox),
            .outbox = Words(Word::Outbox),
            .sent = Words(Word::SentMessage),
            .draft = Words(Word::Draft),
            .personal = Words(Word::PersonalFolder),
            .messageTrash = Words(Word::MessageTrashCan),
            .handsetContacts = Words(Word::ContactHandsetFolder),
            .pcContacts = Words(Word::ContactPcFolder),
            .contactTrash = Words(Word::ContactTrashCan)};
}

void EnsureStandardFolders(Profile& profile, const FolderNames& names) {
    MessageFolder& messages = profile.messageRoot;
    EnsureBoxes(Ensure(messages, handsetPlace, names.handsetMessages, handsetRow), names, handsetRow);
    MessageFolder& pc = Ensure(messages, pcPlace, names.pcMessages, pcMessageRow);
    EnsureBoxes(pc, names, pcMessageRow);
    Ensure(pc, personalPlace, names.personal, personalRow);
    Ensure(pc, messageTrashPlace, names.messageTrash, messageTrashRow);

    ContactFolder& contacts = profile.contactRoot;
    Ensure(contacts, handsetPlace, names.handsetContacts, handsetRow);
    Ensure(contacts, pcPlace, names.pcContacts, pcContactRow);
    Ensure(contacts, contactTrashPlace, names.contactTrash, contactTrashRow);
}

}  // namespace tarnbridge
