#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

#include "messaging/MessageFolders.h"
#include "messaging/MessageOutcome.h"
#include "messaging/MessageSending.h"
#include "messaging/SaveTarget.h"
#include "ui/HandsetTaskRunner.h"
#include "ui/messages/MessageSelection.h"

namespace tarnbridge {

class CTarnbridgeDoc;
class MessageDownload;
class MessageTransfer;

/// What the commands of the messages do, apart from what is seen of it: it asks the user, has one task after
/// the other run, and tells him what has failed. For the interface thread. What changes folders or records
/// ends with `changed`; between the call and that signal a picture of them is old.
class MessageOperations : public QObject, private MessageKeeper {
    Q_OBJECT

public:
    /// `owner` is the view, over whose window dialogs stand.
    MessageOperations(CTarnbridgeDoc& document, QWidget* owner);

    MessageTree Tree() const { return tree_; }
    MessageFolders& Folders() { return folders_; }
    bool IsBusy() const { return runner_.IsBusy(); }
    void Cancel() { runner_.Cancel(); }

    // Messages. An empty selection does nothing.

    /// Reads all of the handset, if the user says Yes.
    void Read();

    /// Moves or copies to a folder; for one of the handset the user is asked which memory, if it has several.
    void Transfer(const MessageSelection& selection, MessageFolder& to, bool move);
    /// The same to a folder that the user chooses.
    void TransferAsking(const MessageSelection& selection, bool move);

    /// What Paste will move or copy.
    void Remember(const MessageSelection& selection, bool move);
    bool CanPaste() const { return remembered_ && !remembered_->IsEmpty(); }
    void Paste(MessageFolder& to);

    void Delete(const MessageSelection& selection);
    /// Those that were written; the user is told where there is none, and asked where several are chosen.
    void Send(const MessageSelection& selection);
    void SendAll();

    /// Writes the messages to a file that the user chooses.
    void Export(const MessageSelection& selection);
    /// Reads such a file into a folder, or into the PC's Inbox where that one is the handset's.
    void Import(MessageFolder& folder);

    /// Whether the message was unread.
    bool MarkRead(const MessageSelection& selection);

    // Messages that were just composed: each is on the PC's disk before anything else is done with it.

    /// What an editor was opened on, if anything, as long as it isn't something else.
    KeptSelections::Kept Keep(MessageSelection selection) { return kept_.Keep(std::move(selection)); }

    /// Saves to a folder that the user chooses, and sends. `origin` is what the editor was opened on; it is
    /// replaced where the message is saved into its folder, and where it is a draft and the message is sent,
    /// and becomes the saved message. `saved` is called with true when the message can't be lost any more, or
    /// with false when it won't be saved; `safe` as the former.
    void SaveComposed(const SmsRecord& record, KeptSelections::Kept origin, std::function<void(bool)> saved);
    void SendComposed(const SmsRecord& record, const KeptSelections::Kept& origin,
                      const std::function<void()>& safe);

    // Folders.

    /// Null where there may be none, which the user has been told.
    MessageFolder* MakeFolder(MessageFolder& under);
    void RemoveFolder(MessageFolder& folder);
    void MoveFolder(MessageFolder& folder, MessageFolder& under);
    void CleanTrash();

Q_SIGNALS:
    void changed();
    void busyChanged();

private:
    MessageKeeper& Keeper() { return *this; }
    void PcFoldersChanged() override;
    bool SaveNow() override;

    void NoteRead(const MessageDownload& download);
    bool WithMemories(std::function<void(const std::vector<std::u16string>&)> use);
    void TransferTo(const MessageSelection& selection, const SaveTarget& target, bool move,
                    const std::function<void(const MessageTransfer&)>& ended = {});
    void SaveTo(const SmsRecord& record, const SaveTarget& target, const KeptSelections::Kept& origin,
                const std::function<void(bool)>& saved);
    void SendAllOf(const std::vector<MessageSending::Waiting>& messages);
    SmsRecord* KeepSafe(const SmsRecord& record, MessageFolder& folder);
    void RemoveReplaced(const KeptSelections::Kept& replaced);
    void Report(const HandsetTask& task, const std::vector<MessageOutcome>& outcomes,
                std::u16string words = {});
    std::u16string PreferredMemory() const;

    CTarnbridgeDoc& document_;
    QWidget* const owner_;
    const MessageTree tree_;
    MessageFolders folders_;
    KeptSelections kept_;
    KeptSelections::Kept remembered_;
    bool rememberedToMove_ = false;
    HandsetTaskRunner runner_;
};

}  // namespace tarnbridge
