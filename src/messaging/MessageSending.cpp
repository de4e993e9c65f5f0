#include "messaging/MessageSending.h"

#include <utility>

#include "link/HandsetLink.h"
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
        FinishAll();
        return;
    }
    Show({static_cast<int>(current_), static_cast<int>(items_.size()), items_[current_].outcome.title});
    const Item& item = items_[current_];
    if (item.number.empty()) {
        first_ = ++current_;
        Next();
        return;
    }
    const auto work = std::make_shared<SmsRecord>(RecordForNumber(*item.record, item.number));
    Do(OrLose([work](HandsetLink& link, int& error) {
           return work->EnsureEmsMessage() && work->Send(link, error) ? 1 : 0;
       }),
       [this](int sent, int error) { Sent(sent != 0, error); });
}

void MessageSending::Sent(bool done, int error) {
    MessageOutcome& outcome = items_[current_].outcome;
    if (done)
        outcome.state = MessageOutcome::State::Done;
    else
        outcome.Fail(Word::SendFailed, error);
    ++current_;
    if (current_ == items_.size() || items_[current_].record != items_[first_].record) {
        FinishRecord(first_, current_);
        first_ = current_;
    }
    Next();
}

void MessageSending::FinishRecord(size_t first, size_t end) {
    std::vector<std::string> sent;
    std::vector<std::string> left;
    for (size_t i = first; i < end; ++i)
        (items_[i].outcome.state == MessageOutcome::State::Done ? sent : left).push_back(items_[i].number);
    if (sent.empty()) return;
    MessageFolder& folder = *items_[first].folder;
    SmsRecord& record = *items_[first].record;
    const bool whole = left.empty() && !tree_.IsOnHandset(folder);
    MessageFolder::RecordList taken;
    if (whole)
        taken = TakeRecords(folder, {&record});
    else
        taken.push_back(std::make_unique<SmsRecord>(record));
    if (taken.empty()) return;
    SmsRecord& kept = *taken.front();
    kept.storage = u"PC";
    kept.status = smsSentFromHere;
    kept.timestamp = SmsTimestamp::FromLocal(clock_.Local());
    if (!whole) kept.address.number = Join(sent);
    if (!whole && !tree_.IsOnHandset(folder)) record.address.number = Join(left);
    tree_.OnPc(sentPlace).Append(std::move(taken.front()));
    keeper_.PcFoldersChanged();
}

void MessageSending::FinishAll() {
    if (current_ < items_.size() && first_ < current_) {
        size_t end = current_;
        while (end < items_.size() && items_[end].record == items_[first_].record)
            ++end;
        FinishRecord(first_, end);
    }
    End();
}

std::optional<std::vector<MessageSending::Waiting>> CollectOutbox(const MessageTree& tree,
                                                                  UserInteraction& user) {
    if (user.Ask(Words(Word::SendAllOutbox)) != Answer::Yes) return std::nullopt;
    MessageFolder& outbox = tree.OnPc(outboxPlace);
    std::vector<MessageSending::Waiting> messages;
    {
        const std::lock_guard guard(outbox.lock);
        for (const auto& record : outbox.records)
            messages.push_back({&outbox, record.get()});
    }
    if (messages.size() <= mostMessagesToSend) return messages;
    user.Tell(Words(Word::TooManyMessages));
    return std::nullopt;
}

}  // namespace tarnbridge
