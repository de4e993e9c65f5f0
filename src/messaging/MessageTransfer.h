#pragma once

#include <memory>
#include <string>
#include <vector>

#include "messaging/MemoryTask.h"
#include "messaging/MessageOutcome.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

/// Copies or moves messages from one folder to another, on the handset, on the PC, or between them. Between
/// folders of the PC it needs no handset and has ended when Start returns.
///
/// Nothing is deleted before what replaces it is safe: a message that leaves the handset is first on the
/// PC's disk, and one that is stored anew on the handset is kept in the PC's Draft until that has succeeded;
/// after a failure that copy stays. What has been done is on the disk before the next message is begun. What
/// wasn't tried because of a cancel, or because the handset stopped answering, is as it was. So is what can't
/// be read as a message, and what would leave the handset while a part of it may still stand there unread.
class MessageTransfer : public MemoryTask {
public:
    struct Request {
        MessageFolder* from = nullptr;
        std::vector<SmsRecord*> records;  ///< in `from`; others are passed over
        MessageFolder* to = nullptr;      ///< one that holds messages, and for a move not `from`
        std::u16string memory;            ///< "SM" or "ME", for a folder of the handset
        bool move = false;
    };

    /// The folders stay where they are until the end, and nobody else destroys the records.
    MessageTransfer(BackgroundWorker& worker, MessageTree tree, MessageKeeper& keeper, Request request);

    /// One for each record of the request, in its order.
    const std::vector<MessageOutcome>& Outcomes() const { return outcomes_; }

    /// Where the messages are now, as far as they were copied or moved.
    const std::vector<SmsRecord*>& Stored() const { return stored_; }

    /// Whether messages went to the handset's Draft, since it can't store received ones.
    bool WentToDraft() const { return wentToDraft_; }

private:
    /// A record on its way to the handset, shared with the job that writes it.
    struct Work {
        SmsRecord record;
        SmsRecord old{};  ///< its source on the handset, with the locations that it still has
        bool wentToDraft = false;
        bool written = false;
    };

    void Begin() override;
    void TransferOnPc();
    void CopyToPc();
    void Next();
    bool MayGo(const SmsRecord& source);
    void MoveToPc(SmsRecord& source);
    void WriteToHandset(SmsRecord& source);
    void UpdateOnHandset(SmsRecord& source);
    void Updated(SmsRecord& source, SmsRecord& kept, Work& work, int error);
    static bool Prepare(Work& work, MessagePlace place, HandsetLink& link);
    void KeepInMirror(Work& work);
    void Done();
    void FailAll(Word words);
    void Failed(Word words, int error, std::vector<int> leftBehind = {});
    void GoOn();
    void Finish();

    const MessageTree tree_;
    MessageKeeper& keeper_;
    const Request request_;
    const bool fromHandset_;
    const bool toHandset_;
    std::vector<MessageOutcome> outcomes_;
    MessagePlace place_ = draftPlace;  // on the handset, where they go
    std::vector<SmsRecord*> stored_;
    size_t current_ = 0;
    bool pcChanged_ = false;
    bool wentToDraft_ = false;
};

}  // namespace tarnbridge
