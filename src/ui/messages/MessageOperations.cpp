#include "ui/messages/MessageOperations.h"

#include <algorithm>
#include <utility>

#include "core/app/CTarnbridgeDoc.h"
#include "core/base/StringTable.h"
#include "messaging/DownloadWords.h"
#include "messaging/HandsetMemories.h"
#include "messaging/MessageQuestions.h"
#include "messaging/MessageRemoval.h"
#include "messaging/MessageTextFile.h"
#include "messaging/MessageTransfer.h"
#include "messaging/Recipients.h"
#include "platform/Text.h"
#include "ui/messages/CSmsReadDialog.h"
#include "ui/messages/SendingDialog.h"

namespace tarnbridge {
namespace {

FileQuestion MessageFile(FilePurpose purpose, Word title) {
    return {.purpose = purpose,
            .title = Words(title),
            .suggestedName = purpose == FilePurpose::Save ? Words(Word::MessageFileName) : u"",
            .filters = {{Words(Word::MessageFiles), {"*.csv"}}}};
}

void AddLine(std::u16string& words, const std::u16string& line) {
    if (!line.empty()) words += (words.empty() ? u"" : u"\n") + line;
}

}  // namespace

MessageOperations::MessageOperations(CTarnbridgeDoc& document, QWidget* owner)
    : QObject(owner),
      document_(document),
      owner_(owner),
      tree_(document.Content().messageRoot),
      folders_(tree_, document.User(), Keeper(),
               document.Preferences().GetText(SettingIndex::AskTrash) != u"FALSE"),
      runner_(document, this) {
    connect(&runner_, &HandsetTaskRunner::busyChanged, this, &MessageOperations::busyChanged);
}

void MessageOperations::PcFoldersChanged() {
    document_.NoteChange();
}

bool MessageOperations::SaveNow() {
    return document_.Save();
}

/// One note for all that has gone wrong.
void MessageOperations::Report(const HandsetTask& task, const std::vector<MessageOutcome>& outcomes,
                               std::u16string words) {
    AddLine(words, FailureWords(outcomes));
    if (std::any_of(outcomes.begin(), outcomes.end(),
                    [](const MessageOutcome& outcome) { return outcome.words == Word::MessageReplaced; })) {
        document_.Mirror().refuted = true;
        Q_EMIT changed();
    }
    const auto left = std::count_if(outcomes.begin(), outcomes.end(), [](const MessageOutcome& outcome) {
        return outcome.state == MessageOutcome::State::NotTried;
    });
    if (task.LostHandset()) AddLine(words, Words(Word::HandsetLost));
    if (left > 0)
        AddLine(words, Words(Word::MessagesNotTried,
                             {static_cast<int64_t>(left), static_cast<int64_t>(outcomes.size())}));
    if (!words.empty()) document_.User().Tell(words);
}

std::u16string MessageOperations::PreferredMemory() const {
    return document_.Preferences().GetText(SettingIndex::SmsMemory);
}

void MessageOperations::Read() {
    if (runner_.IsBusy() || document_.User().Ask(ReadQuestion()) != Answer::Yes) return;
    for (const KeptSelections::Kept& kept : kept_.AllIn(tree_.HandsetRoot()))
        kept->records.clear();
    auto dialog = std::make_unique<CSmsReadDialog>(
        std::make_unique<MessageDownload>(document_.Worker(), tree_), owner_->window());
    const MessageDownload& download = dialog->Download();
    runner_.Run(std::move(dialog), [this, &download] {
        NoteRead(download);
        Q_EMIT changed();
    });
}

void MessageOperations::NoteRead(const MessageDownload& download) {
    // The mirror stays as it was unless the handset has told its memories.
    const MessageDownload::Report& report = download.GetReport();
    const bool lost = download.LostHandset();
    const bool hasBegun = report.messages > 0 || (!report.noMemory && !lost);
    if (!hasBegun) return;
    document_.Mirror() = {.read = true,
                          .readAt = document_.Time().Local(),
                          .session = document_.Link().SessionNumber(),
                          .whole = IsWhole(report, lost, download.WasCancelled())};
}

/// Asks the handset, then goes on. Without a handset there are none. False, and the user has been told, when
/// another task runs; then it doesn't go on.
bool MessageOperations::WithMemories(std::function<void(const std::vector<std::u16string>&)> use) {
    if (!document_.Watch().IsConnected()) {
        use({});
        return true;
    }
    const auto memories = std::make_shared<HandsetMemories>(document_.Worker());
    return runner_.Run(memories, {}, [memories, use = std::move(use)] { use(memories->Names()); });
}

void MessageOperations::TransferAsking(const MessageSelection& selection, bool move) {
    if (selection.IsEmpty()) return;
    WithMemories([this, kept = kept_.Keep(selection), move](const std::vector<std::u16string>& memories) {
        const auto target = AskSaveTarget(
            tree_, {.memories = memories, .preferredMemory = PreferredMemory(), .suggested = kept->folder},
            document_.User());
        if (target) TransferTo(*kept, *target, move);
    });
}

void MessageOperations::Transfer(const MessageSelection& selection, MessageFolder& to, bool move) {
    if (selection.IsEmpty() || !folders_.MayTransfer(*selection.folder, to, move)) return;
    if (!tree_.IsOnHandset(to)) {
        TransferTo(selection, {&to}, move);
        return;
    }
    WithMemories(
        [this, kept = kept_.Keep(selection), &to, move](const std::vector<std::u16string>& memories) {
            std::optional<SaveTarget> target;
            if (memories.empty())
                document_.User().Tell(Words(Word::ObstacleNoHandset));
            else if (memories.size() == 1)
                target = SaveTarget{&to, memories.front()};
            else
                target = AskSaveTarget(
                    tree_, {.memories = memories, .preferredMemory = PreferredMemory(), .suggested = &to},
                    document_.User());
            if (target) TransferTo(*kept, *target, move);
        });
}

void MessageOperations::TransferTo(const MessageSelection& selection, const SaveTarget& target, bool move,
                                   const std::function<void(const MessageTransfer&)>& ended) {
    if (selection.IsEmpty() || !folders_.MayTransfer(*selection.folder, *target.folder, move)) return;
    const auto transfer = std::make_shared<MessageTransfer>(
        document_.Worker(), tree_, Keeper(),
        MessageTransfer::Request{selection.folder, selection.records, target.folder, target.memory, move});
    const std::vector<SmsRecord*> records = selection.records;
    const bool begun = runner_.Run(transfer, Words(Word::CopyingMessages), [this, transfer, ended] {
        Q_EMIT changed();
        Report(*transfer, transfer->Outcomes(),
               transfer->WentToDraft() ? Words(Word::StoredAsDraft) : std::u16string());
        if (ended) ended(*transfer);
    });
    if (begun && move) kept_.Forget(records);
}

void MessageOperations::Remember(const MessageSelection& selection, bool move) {
    if (selection.IsEmpty()) return;
    remembered_ = kept_.Keep(selection);
    rememberedToMove_ = move;
    Q_EMIT busyChanged();
}

void MessageOperations::Paste(MessageFolder& to) {
    if (!CanPaste()) return;
    const MessageSelection selection = *remembered_;
    if (rememberedToMove_ && !folders_.MayTransfer(*selection.folder, to, true)) return;
    // What was cut can be pasted once.
    if (rememberedToMove_) remembered_ = nullptr;
    Transfer(selection, to, rememberedToMove_);
}

void MessageOperations::Delete(const MessageSelection& selection) {
    std::vector<SmsRecord*> records = selection.StillThere().records;
    if (runner_.IsBusy() || !folders_.ConfirmDelete(*selection.folder, records)) return;
    kept_.Forget(records);
    const auto removal =
        std::make_shared<MessageRemoval>(document_.Worker(), tree_, Keeper(), *selection.folder, records);
    runner_.Run(removal, Words(Word::DeletingMessages), [this, removal] {
        Q_EMIT changed();
        Report(*removal, removal->Outcomes());
    });
}

bool MessageOperations::MarkRead(const MessageSelection& selection) {
    if (selection.IsEmpty() || !Holds(*selection.folder, selection.records.front())) return false;
    SmsRecord& record = *selection.records.front();
    {
        const std::lock_guard guard(selection.folder->lock);
        if (record.status != smsUnread) return false;
        record.status = smsRead;
    }
    if (!tree_.IsOnHandset(*selection.folder)) PcFoldersChanged();
    return true;
}

void MessageOperations::Send(const MessageSelection& selection) {
    if (selection.IsEmpty() || runner_.IsBusy()) return;
    UserInteraction& user = document_.User();
    const std::vector<SmsRecord*> chosen = selection.StillThere().records;
    std::vector<MessageSending::Waiting> messages;
    for (SmsRecord* const record : chosen) {
        if (IsSendable(*record)) messages.push_back({selection.folder, record});
    }
    if (messages.empty()) {
        user.Tell(Words(Word::OnlyReceived));
    } else if (messages.size() > mostMessagesToSend) {
        user.Tell(Words(Word::TooManyMessages));
    } else if (chosen.size() == 1 || user.Ask(SendQuestion(Word::SendSeveral, messages,
                                                           chosen.size() - messages.size())) == Answer::Yes) {
        SendAllOf(messages);
    }
}

void MessageOperations::SendAll() {
    if (runner_.IsBusy()) return;
    if (const auto messages = CollectOutbox(tree_, document_.User())) SendAllOf(*messages);
}

void MessageOperations::SendAllOf(const std::vector<MessageSending::Waiting>& messages) {
    if (messages.empty()) return;
    std::vector<SmsRecord*> records;
    for (const MessageSending::Waiting& message : messages)
        records.push_back(message.record);
    auto sending =
        std::make_unique<MessageSending>(document_.Worker(), tree_, Keeper(), document_.Time(), messages);
    const bool begun = runner_.Run(std::make_unique<SendingDialog>(std::move(sending), owner_->window()),
                                   [this] { Q_EMIT changed(); });
    if (begun) kept_.Forget(records);
}

void MessageOperations::Export(const MessageSelection& selection) {
    std::vector<const SmsRecord*> records;
    for (const SmsRecord* const record : selection.records) {
        if (Holds(*selection.folder, record)) records.push_back(record);
    }
    if (records.empty()) return;
    const auto files = document_.User().ChooseFiles(MessageFile(FilePurpose::Save, Word::ExportTitle));
    if (files.empty()) return;
    const auto done = ExportMessages(files.front(), records);
    if (!done) {
        document_.User().Tell(Words(Word::MessagesNotExported) + u"\n" + Utf8ToText(done.Failure().text));
    } else if (done->skipped > 0) {
        document_.User().Tell(Words(Word::MessagesWithoutText, {static_cast<int64_t>(done->skipped)}));
    }
    if (done && done->unreadable > 0)
        document_.User().Tell(Words(Word::MessagesUnreadable, {static_cast<int64_t>(done->unreadable)}));
}

void MessageOperations::Import(MessageFolder& folder) {
    const auto files = document_.User().ChooseFiles(MessageFile(FilePurpose::Open, Word::ImportTitle));
    if (files.empty()) return;
    const bool takes = tree_.HoldsMessages(folder) && !tree_.IsOnHandset(folder);
    MessageFolder& to = takes ? folder : tree_.OnPc(inboxPlace);
    const auto done =
        ImportMessages(files.front(), document_.Time().Local().minutesEastOfUtc,
                       [&to](std::unique_ptr<SmsRecord> record) { to.Append(std::move(record)); });
    PcFoldersChanged();
    Q_EMIT changed();
    if (!done) {
        document_.User().Tell(Words(Word::MessagesNotImported) + u"\n" + Utf8ToText(done.Failure().text));
    } else if (done->refused > 0) {
        document_.User().Tell(Words(
            Word::LinesRefused, {static_cast<int64_t>(done->taken), static_cast<int64_t>(done->refused)}));
    }
}

/// Null, and the user has been told, where the disk doesn't take it; then the message is nowhere.
SmsRecord* MessageOperations::KeepSafe(const SmsRecord& record, MessageFolder& folder) {
    SmsRecord& kept = folder.Append(std::make_unique<SmsRecord>(record));
    kept.storage = u"PC";
    kept.handsetIndices.clear();
    if (SaveNow()) return &kept;
    TakeRecords(folder, {&kept});
    document_.User().Tell(Words(Word::MessageNotSaved));
    return nullptr;
}

/// What takes its place is safe.
void MessageOperations::RemoveReplaced(const KeptSelections::Kept& replaced) {
    const MessageSelection old = *replaced;
    kept_.Forget(old.records);
    if (!tree_.IsOnHandset(*old.folder)) {
        TakeRecords(*old.folder, old.records);
        PcFoldersChanged();
        return;
    }
    const auto removal =
        std::make_shared<MessageRemoval>(document_.Worker(), tree_, Keeper(), *old.folder, old.records);
    runner_.Run(removal, Words(Word::DeletingMessages), [this, removal] {
        Q_EMIT changed();
        Report(*removal, removal->Outcomes());
    });
}

void MessageOperations::SaveComposed(const SmsRecord& record, KeptSelections::Kept origin,
                                     std::function<void(bool)> saved) {
    const auto save = [this, composed = std::make_shared<SmsRecord>(record), origin = std::move(origin),
                       saved](const std::vector<std::u16string>& memories) {
        const MessageFolder* const suggested = origin->IsEmpty() ? &tree_.OnPc(draftPlace) : origin->folder;
        const auto target = AskSaveTarget(
            tree_, {.memories = memories, .preferredMemory = PreferredMemory(), .suggested = suggested},
            document_.User());
        const bool needsNumber = target && tree_.IsOnHandset(*target->folder);
        if (needsNumber && NumbersOf(*composed).empty()) {
            document_.User().Tell(Words(Word::NoRecipientForPhone));
            saved(false);
        } else if (target) {
            SaveTo(*composed, *target, origin, saved);
        } else {
            saved(false);
        }
    };
    if (!WithMemories(save)) saved(false);
}

/// What goes to the handset goes by way of the PC's drafts, where it stays if it can't be written.
void MessageOperations::SaveTo(const SmsRecord& record, const SaveTarget& target,
                               const KeptSelections::Kept& origin, const std::function<void(bool)>& saved) {
    const bool toHandset = tree_.IsOnHandset(*target.folder);
    MessageFolder& first = toHandset ? tree_.OnPc(draftPlace) : *target.folder;
    SmsRecord* const kept = KeepSafe(record, first);
    if (!kept) {
        saved(false);
        return;
    }
    const bool replaces = !origin->IsEmpty() && origin->folder == target.folder;
    if (!toHandset) {
        if (replaces) RemoveReplaced(origin);
        *origin = {&first, {kept}};
        Q_EMIT changed();
        saved(true);
        return;
    }
    saved(true);
    TransferTo({&first, {kept}}, target, true, [=, this, &first](const MessageTransfer& transfer) {
        if (transfer.Stored().empty()) {
            *origin = {&first, {kept}};
            return;
        }
        if (replaces && !origin->IsEmpty()) RemoveReplaced(origin);
        SmsRecord* const stored = transfer.Stored().front();
        *origin = {&tree_.OnHandset(PlaceOfStatus(stored->status)), {stored}};
    });
}

void MessageOperations::SendComposed(const SmsRecord& record, const KeptSelections::Kept& origin,
                                     const std::function<void()>& safe) {
    MessageFolder& outbox = tree_.OnPc(outboxPlace);
    SmsRecord* const waiting = KeepSafe(record, outbox);
    if (!waiting) return;
    if (!origin->IsEmpty() && !tree_.IsOnHandset(*origin->folder)) {
        // A draft has become the message; one that was received or sent stays.
        const int status = origin->records.front()->status;
        if (status == smsComposed || status == smsDraft || status == smsOutbox) RemoveReplaced(origin);
    }
    Q_EMIT changed();
    safe();
    if (document_.Watch().IsConnected())
        SendAllOf({{&outbox, waiting}});
    else
        document_.User().Tell(Words(Word::WaitsInOutbox));
}

MessageFolder* MessageOperations::MakeFolder(MessageFolder& under) {
    MessageFolder* const made = folders_.Make(under, {});
    Q_EMIT changed();
    return made;
}

void MessageOperations::RemoveFolder(MessageFolder& folder) {
    const auto inside = kept_.AllIn(folder);
    if (!folders_.Remove(folder)) return;
    for (const KeptSelections::Kept& kept : inside)
        kept->records.clear();
    Q_EMIT changed();
}

void MessageOperations::MoveFolder(MessageFolder& folder, MessageFolder& under) {
    if (folders_.Move(folder, under)) Q_EMIT changed();
}

void MessageOperations::CleanTrash() {
    const auto inside = kept_.AllIn(tree_.OnPc(messageTrashPlace));
    if (!folders_.CleanTrash()) return;
    for (const KeptSelections::Kept& kept : inside)
        kept->records.clear();
    Q_EMIT changed();
}

}  // namespace tarnbridge
