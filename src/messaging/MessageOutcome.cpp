#include "messaging/MessageOutcome.h"

#include <algorithm>

#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr int mostLines = 10;

std::u16string ListOf(const std::vector<int>& locations) {
    std::string list;
    for (const int location : locations)
        list += (list.empty() ? "" : ", ") + std::to_string(location);
    return WidenBytes(list);
}

std::u16string Line(const MessageOutcome& outcome) {
    std::u16string line = u"\n" + outcome.title;
    if (outcome.error >= 0) line += u"\n" + Words(Word::HandsetError, {outcome.error});
    if (!outcome.leftBehind.empty()) line += u"\n" + Words(Word::LocationsLeft, {ListOf(outcome.leftBehind)});
    if (outcome.unconfirmed)
        line += u"\n" + Words(outcome.words == Word::SendFailed ? Word::MayBeSent : Word::MayBeStored);
    if (outcome.keptInDraft) line += u"\n" + Words(Word::CopyKeptInDraft);
    return line;
}

}  // namespace

std::u16string TitleOf(const SmsRecord& record) {
    const bool known = !record.address.number.empty() || record.timestamp.IsSet();
    if (!known && !record.handsetIndices.empty())
        return record.storage + u" " + ListOf(record.handsetIndices);
    if (!record.timestamp.IsSet()) return WidenBytes(record.address.number);
    const Word word = record.messageType == SmsRecord::deliver ? Word::MessageFrom : Word::MessageTo;
    return Words(word, {WidenBytes(record.address.number), WidenBytes(record.timestamp.ToText())});
}

void MessageOutcome::Fail(Word why, int handsetError, std::vector<int> locations) {
    state = State::Failed;
    words = why;
    error = handsetError;
    leftBehind = std::move(locations);
}

std::u16string FailureWords(const std::vector<MessageOutcome>& outcomes) {
    std::u16string words;
    Word last = Word::Count;
    int lines = 0;
    for (const MessageOutcome& outcome : outcomes) {
        if (outcome.state != MessageOutcome::State::Failed) continue;
        if (++lines > mostLines) return words + u"\n...";
        if (outcome.words != last) words += (words.empty() ? u"" : u"\n") + Words(outcome.words);
        last = outcome.words;
        words += Line(outcome);
    }
    return words;
}

bool AllDone(const std::vector<MessageOutcome>& outcomes) {
    return std::all_of(outcomes.begin(), outcomes.end(),
                       [](const auto& outcome) { return outcome.state == MessageOutcome::State::Done; });
}

}  // namespace tarnbridge
