#include "messaging/MessageRemoval.h"

#include <utility>

#include "link/HandsetLink.h"

namespace tarnbridge {

MessageRemoval::MessageRemoval(BackgroundWorker& worker, MessageTree tree, MessageKeeper& keeper,
                               MessageFolder& folder, std::vector<SmsRecord*> records)
    : MemoryTask(worker),
      tree_(tree),
      keeper_(keeper),
      folder_(folder),
      records_(std::move(records)),
      outcomes_(records_.size()) {}

void MessageRemoval::Begin() {
    for (size_t i = 0; i < outcomes_.size(); ++i) {
        if (Holds(folder_, records_[i])) outcomes_[i].title = TitleOf(*records_[i]);
    }
    if (tree_.IsOnHandset(folder_))
        Enter([this](int, int) { Next(); });
    else
        RemoveOnPc();
}

void MessageRemoval::RemoveOnPc() {
    MessageFolder::RecordList taken = TakeRecords(folder_, records_);
    if (!tree_.IsInTrash(folder_)) {
        for (auto& record : taken)
            tree_.OnPc(messageTrashPlace).Append(std::move(record));
    }
    for (MessageOutcome& outcome : outcomes_)
        outcome.state = MessageOutcome::State::Done;
    keeper_.PcFoldersChanged();
    End();
}

void MessageRemoval::Next() {
    while (current_ < outcomes_.size() && !Holds(folder_, records_[current_]))
        ++current_;
    if (current_ == outcomes_.size() || WasCancelled() || LostHandset()) {
        Leave();
        return;
    }
    MessageOutcome& outcome = outcomes_[current_];
    if (records_[current_]->unreadable && records_.size() > 1) {
        outcome.Fail(Word::MessageUnreadable);
        ++current_;
        Next();
        return;
    }
    SmsRecord& source = *records_[current_];
    Show({static_cast<int>(current_), static_cast<int>(outcomes_.size()), outcome.title});
    const auto work = std::make_shared<SmsRecord>(source);
    Do(OrLose([work](HandsetLink& link, int& error) { return work->Remove(link, error) ? 1 : 0; }),
       [this, work, &source, &outcome](int done, int error) {
           if (done && work->leftBehind.empty()) {
               TakeRecords(folder_, {&source});
               outcome.state = MessageOutcome::State::Done;
           } else {
               source.handsetIndices = work->handsetIndices;
               source.handsetPdus = work->handsetPdus;
               outcome.Fail(work->replaced ? Word::MessageReplaced : Word::MessageNotDeleted, error,
                            work->leftBehind);
           }
           ++current_;
           Next();
       });
}

}  // namespace tarnbridge
