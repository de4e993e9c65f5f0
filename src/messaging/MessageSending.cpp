#include "messaging/MessageSending.h"

#include <utility>

#include "link/HandsetLink.h"
#include "messaging/Arrival.h"
#include "messaging/MessageQuestions.h"
#include "messaging/Recipients.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

std::string Join(const std::vector<std::string>& numbers) {
    std::string text;
    for (const std::string& number : numbers)
        text += (text.empty() ? "" : ",") + number;
    return text;
}

}  // namespace

MessageSending::MessageSending(BackgroundWorker& worker, MessageTree tree, MessageKeeper& keeper,
                               Clock& clock, const std::vector<Waiting>& messages)
    : HandsetTask(worker), tree_(tree), keeper_(keeper), clock_(clock) {
    for (const Waiting& message : messages) {
        if (!Holds(*message.folder, message.record)) continue;
        const std::vector<std::string> numbers = NumbersOf(*message.record);
        for (const std::string& number : numbers) {
            items_.push_back({message.record, message.folder, number});
            items_.back().outcome.title = WidenBytes(number);
        }
        if (!numbers.empty()) continue;
        items_.push_back({message.record, message.folder, {}});
        items_.back().outcome.title = TitleOf(*message.record);
        items_.back().outcome.Fail(Word::NoRecipient);
    }
}

void MessageSending::Begin() {
    Next();
}

void MessageSending::Next() {
    if (current_ == items_.size() || WasCancelled() || LostHandset()) {
        End();
        return;
    }
    Show({static_cast<int>(current_), static_cast<int>(items_.size()), items_[current_].outcome.title});
    const Item& item = items_[current_];
    if (item.record != items_[first_].record) {
        first_ = current_;
        partly_ = nullptr;
    }
    if (item.number.empty()) {
        ++current_;
        Next();
        return;
    }
    const auto work = std::make_shared<SmsRecord>(RecordForNumber(*item.record, item.number));
    Do(OrLose([work](HandsetLink& link, int& error) {
           return work->EnsureEmsMessage() && work->Send(link, error) ? 1 : 0;
       }),
       [this, work](int sent, int error) {
           items_[current_].outcome.unconfirmed = work->unconfirmed;
           Sent(sent != 0, error);
       });
}

void MessageSending::Sent(bool done, int error) {
    MessageOutcome& outcome = items_[current_].outcome;
    if (done) {
        outcome.state = MessageOutcome::State::Done;
        KeepSent();
    } else {
        outcome.Fail(Word::SendFailed, error);
    }
    ++current_;
    Next();
}

/// Divides the record under way between the numbers that it has reached and the others.
void MessageSending::KeepSent() {
    std::vector<std::string> sent;
    std::vector<std::string> left;
    for (size_t i = first_; i < items_.size() && items_[i].record == items_[first_].record; ++i)
        (items_[i].outcome.state == MessageOutcome::State::Done ? sent : left).push_back(items_[i].number);
    MessageFolder& folder = *items_[first_].folder;
    MessageFolder& sentFolder = tree_.OnPc(sentPlace);
    SmsRecord& record = *items_[first_].record;
    const bool atOnce = left.empty() && !partly_;
    if (left.empty() && !tree_.IsOnHandset(folder)) {
        MessageFolder::RecordList taken = TakeRecords(folder, {&record});
        if (partly_) TakeRecords(sentFolder, {partly_});
        if (!taken.empty()) partly_ = &sentFolder.Append(std::move(taken.front()));
    } else {
        if (!partly_) partly_ = &sentFolder.Append(std::make_unique<SmsRecord>(record));
        if (!tree_.IsOnHandset(folder)) record.address.number = Join(left);
    }
    if (!partly_) return;
    KeepAsSent(*partly_);
    if (!atOnce) partly_->address.number = Join(sent);
    partly_->storage = u"PC";
    partly_->status = smsSentFromHere;
    partly_->timestamp = SmsTimestamp::FromLocal(clock_.Local());
    keeper_.PcFoldersChanged();
    keeper_.SaveNow();
}

std::optional<std::vector<MessageSending::Waiting>> CollectOutbox(const MessageTree& tree,
                                                                  UserInteraction& user) {
    MessageFolder& outbox = tree.OnPc(outboxPlace);
    std::vector<MessageSending::Waiting> messages;
    {
        const std::lock_guard guard(outbox.lock);
        for (const auto& record : outbox.records)
            messages.push_back({&outbox, record.get()});
    }
    if (user.Ask(SendQuestion(Word::SendAllOutbox, messages)) != Answer::Yes) return std::nullopt;
    if (messages.size() <= mostMessagesToSend) return messages;
    user.Tell(Words(Word::TooManyMessages));
    return std::nullopt;
}

}  // namespace tarnbridge
