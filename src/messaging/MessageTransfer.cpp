#include "messaging/MessageTransfer.h"

#include <algorithm>
#include <utility>

#include "link/HandsetLink.h"
#include "messaging/ems/EmsMessage.h"

namespace tarnbridge {
namespace {

constexpr const char16_t* pcStorage = u"PC";

std::unique_ptr<SmsRecord> PcCopy(const SmsRecord& record) {
    auto copy = std::make_unique<SmsRecord>(record);
    copy->storage = pcStorage;
    return copy;
}

}  // namespace

MessageTransfer::MessageTransfer(BackgroundWorker& worker, MessageTree tree, MessageKeeper& keeper,
                                 Request request)
    : MemoryTask(worker),
      tree_(tree),
      keeper_(keeper),
      request_(std::move(request)),
      fromHandset_(tree.IsOnHandset(*request_.from)),
      toHandset_(tree.IsOnHandset(*request_.to)),
      outcomes_(request_.records.size()),
      place_(tree.PlaceOnHandset(*request_.to)) {}

void MessageTransfer::Begin() {
    for (size_t i = 0; i < outcomes_.size(); ++i) {
        if (Holds(*request_.from, request_.records[i])) outcomes_[i].title = TitleOf(*request_.records[i]);
    }
    if (!fromHandset_ && !toHandset_) {
        TransferOnPc();
        Finish();
        return;
    }
    if (!toHandset_ && !request_.move) {
        CopyToPc();
        Finish();
        return;
    }
    Enter([this](int ready, int) {
        if (ready)
            Next();
        else
            FailAll(Word::HandsetLost);
    });
}

void MessageTransfer::TransferOnPc() {
    MessageFolder::RecordList records;
    if (request_.move) {
        records = TakeRecords(*request_.from, request_.records);
    } else {
        for (const SmsRecord* const record : request_.records) {
            if (Holds(*request_.from, record)) records.push_back(PcCopy(*record));
        }
    }
    for (auto& record : records) {
        record->storage = pcStorage;
        stored_.push_back(&request_.to->Append(std::move(record)));
    }
    for (MessageOutcome& outcome : outcomes_)
        outcome.state = MessageOutcome::State::Done;
    pcChanged_ = true;
}

void MessageTransfer::CopyToPc() {
    for (current_ = 0; current_ < outcomes_.size(); ++current_) {
        const SmsRecord* const source = request_.records[current_];
        if (!Holds(*request_.from, source) || !MayGo(*source)) continue;
        stored_.push_back(&request_.to->Append(PcCopy(*source)));
        outcomes_[current_].state = MessageOutcome::State::Done;
    }
    pcChanged_ = true;
}

/// Whether the message can be copied or moved; its outcome says why it can't.
bool MessageTransfer::MayGo(const SmsRecord& source) {
    if (source.unreadable)
        outcomes_[current_].Fail(Word::MessageUnreadable);
    else if (request_.move && source.mayHaveMoreParts)
        outcomes_[current_].Fail(Word::MessageIncomplete);
    else
        return true;
    return false;
}

void MessageTransfer::Next() {
    while (current_ < outcomes_.size() && !Holds(*request_.from, request_.records[current_]))
        ++current_;
    if (current_ == outcomes_.size() || WasCancelled() || LostHandset()) {
        Finish();
        return;
    }
    Show({static_cast<int>(current_), static_cast<int>(outcomes_.size()), outcomes_[current_].title});
    SmsRecord& source = *request_.records[current_];
    if (!MayGo(source))
        GoOn();
    else if (!toHandset_)
        MoveToPc(source);
    else if (fromHandset_ && request_.move)
        UpdateOnHandset(source);
    else
        WriteToHandset(source);
}

void MessageTransfer::MoveToPc(SmsRecord& source) {
    SmsRecord& copy = request_.to->Append(PcCopy(source));
    if (!keeper_.SaveNow()) {
        TakeRecords(*request_.to, {&copy});
        Failed(Word::MessageNotSaved, -1);
        return;
    }
    stored_.push_back(&copy);
    const auto work = std::make_shared<SmsRecord>(source);
    Do(OrLose([work](HandsetLink& link, int& error) { return work->Remove(link, error) ? 1 : 0; }),
       [this, work, &source](int done, int error) {
           if (done && work->leftBehind.empty()) {
               TakeRecords(*request_.from, {&source});
               Done();
               return;
           }
           source.handsetIndices = work->handsetIndices;
           source.handsetPdus = work->handsetPdus;
           Failed(work->replaced ? Word::MessageReplaced : Word::MessageNotDeleted, error, work->leftBehind);
       });
}

/// Makes what is written: as the folder has it, and with an EmsMessage, since only such a one goes to the
/// memory that is asked for. One that can't be read whole isn't written, since its source may go then.
bool MessageTransfer::Prepare(Work& work, MessagePlace place, HandsetLink& link) {
    const bool canStoreReceived = link.Features().canStoreReceived;
    work.wentToDraft = place == inboxPlace && !canStoreReceived;
    work.record.status = StatusForPlace(place, work.record.status, canStoreReceived);
    if (!work.record.emsMessage && !work.record.rawParts.empty() && !work.record.RebuildFromParts())
        return false;
    return work.record.EnsureEmsMessage() && work.record.emsMessage.Get()->segmentsUsed <= emsSegments;
}

void MessageTransfer::WriteToHandset(SmsRecord& source) {
    const auto work = std::make_shared<Work>(Work{source});
    Do(OrLose([work, place = place_, memory = request_.memory](HandsetLink& link, int& error) {
           work->written = Prepare(*work, place, link) && work->record.Write(link, memory, error);
           work->record.SettleParts();
           return work->written ? 1 : 0;
       }),
       [this, work, &source](int written, int error) {
           if (!written) {
               outcomes_[current_].unconfirmed = work->record.unconfirmed;
               Failed(Word::MessageNotWritten, error, work->record.leftBehind);
               return;
           }
           KeepInMirror(*work);
           if (request_.move) {
               TakeRecords(*request_.from, {&source});
               pcChanged_ = true;
               keeper_.SaveNow();
           }
           Done();
       });
}

void MessageTransfer::UpdateOnHandset(SmsRecord& source) {
    MessageFolder& draft = tree_.OnPc(draftPlace);
    SmsRecord& kept = draft.Append(PcCopy(source));
    pcChanged_ = true;
    if (!keeper_.SaveNow()) {
        TakeRecords(draft, {&kept});
        Failed(Word::MessageNotSaved, -1);
        return;
    }
    const auto work = std::make_shared<Work>(Work{source, source});
    Do(OrLose([work, place = place_, memory = request_.memory](HandsetLink& link, int& error) {
           SmsRecord& record = work->record;
           SmsRecord& old = work->old;
           if (!Prepare(*work, place, link)) return 0;
           if (memory.empty() || memory == record.storage) {
               work->written = record.Update(link, old, error);
           } else {
               // There is room for both elsewhere: nothing is deleted before it is written.
               work->written = record.Write(link, memory, error);
               if (work->written) old.Remove(link, error);
           }
           record.SettleParts();
           return work->written && old.handsetIndices.empty() ? 1 : 0;
       }),
       [this, work, &source, &kept](int, int error) { Updated(source, kept, *work, error); });
}

void MessageTransfer::Updated(SmsRecord& source, SmsRecord& kept, Work& work, int error) {
    const bool deleted = work.old.handsetIndices.empty();
    const bool written = work.written;
    std::vector<int> leftBehind = work.old.handsetIndices;
    leftBehind.insert(leftBehind.end(), work.record.leftBehind.begin(), work.record.leftBehind.end());
    outcomes_[current_].unconfirmed = work.record.unconfirmed;
    if (written) {
        KeepInMirror(work);
        TakeRecords(tree_.OnPc(draftPlace), {&kept});
    } else {
        outcomes_[current_].keptInDraft = true;
    }
    if (deleted) {
        TakeRecords(*request_.from, {&source});
    } else {
        source.handsetIndices = std::move(work.old.handsetIndices);
        source.handsetPdus = std::move(work.old.handsetPdus);
    }
    const Word failure = work.old.replaced ? Word::MessageReplaced
                         : written         ? Word::MessageNotDeleted
                                           : Word::MessageNotUpdated;
    if (written && deleted)
        Done();
    else
        Failed(failure, error, std::move(leftBehind));
}

void MessageTransfer::KeepInMirror(Work& work) {
    wentToDraft_ = wentToDraft_ || work.wentToDraft;
    MessageFolder& folder = tree_.OnHandset(PlaceOfStatus(work.record.status));
    stored_.push_back(&folder.Append(std::make_unique<SmsRecord>(std::move(work.record))));
}

void MessageTransfer::Done() {
    outcomes_[current_].state = MessageOutcome::State::Done;
    GoOn();
}

void MessageTransfer::FailAll(Word words) {
    for (MessageOutcome& outcome : outcomes_)
        outcome.Fail(words);
    Finish();
}

void MessageTransfer::Failed(Word words, int error, std::vector<int> leftBehind) {
    outcomes_[current_].Fail(words, error, std::move(leftBehind));
    GoOn();
}

void MessageTransfer::GoOn() {
    ++current_;
    Next();
}

void MessageTransfer::Finish() {
    if (pcChanged_) keeper_.PcFoldersChanged();
    Leave();
}

}  // namespace tarnbridge
