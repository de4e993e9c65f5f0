#include "messaging/Recipients.h"

#include <algorithm>

namespace tarnbridge {
namespace {

constexpr std::u16string_view blanks = u" \t\r\n\u00A0";
constexpr std::u16string_view separators = u",;";

template <typename View>
View Trimmed(View text, View outside) {
    const size_t first = text.find_first_not_of(outside);
    if (first == View::npos) return {};
    return text.substr(first, text.find_last_not_of(outside) - first + 1);
}

/// What stands between separators, trimmed; each piece goes to `take` with the separator in front of it, 0
/// for the first.
template <typename View, typename Take>
void ForEachPiece(View text, View marks, View outside, Take take) {
    typename View::value_type separator = 0;
    for (;;) {
        const size_t end = std::min(text.find_first_of(marks), text.size());
        take(separator, Trimmed(text.substr(0, end), outside));
        if (end == text.size()) return;
        separator = text[end];
        text.remove_prefix(end + 1);
    }
}

bool IsNumber(std::u16string_view text) {
    const std::u16string_view digits = text.substr(text.starts_with(u'+') ? 1 : 0);
    return !text.empty() && digits.find_first_not_of(u"0123456789*#") == std::u16string_view::npos;
}

CheckedRecipients Fault(Word word) {
    return {.fault = word};
}

}  // namespace

CheckedRecipients CheckRecipients(std::u16string_view text, const RecipientMatcher& matcher) {
    const std::optional<std::u16string> matched = matcher.NamesToNumbers(text);
    if (!matched) return Fault(Word::InvalidRecipient);
    if (std::max(text.size(), matched->size()) > longestRecipientsToSend)
        return Fault(Word::TooManyRecipientCharacters);
    CheckedRecipients checked;
    ForEachPiece<std::u16string_view>(*matched, separators, blanks,
                                      [&checked](char16_t separator, std::u16string_view number) {
                                          if (separator != 0) checked.text.push_back(separator);
                                          checked.text += number;
                                          checked.numbers.emplace_back(number);
                                      });
    const auto isEmpty = [](const std::u16string& number) { return number.empty(); };
    if (std::all_of(checked.numbers.begin(), checked.numbers.end(), isEmpty)) return Fault(Word::NoRecipient);
    if (!std::all_of(checked.numbers.begin(), checked.numbers.end(), IsNumber))
        return Fault(Word::InvalidPhoneNumber);
    return checked;
}

CheckedRecipients CheckDraftRecipients(std::u16string_view text, const RecipientMatcher& matcher) {
    CheckedRecipients checked = CheckRecipients(text, matcher);
    return checked.fault == Word::NoRecipient ? CheckedRecipients() : checked;
}

std::optional<Word> AddRecipient(std::u16string& text, std::u16string_view recipient) {
    const std::u16string_view before = Trimmed<std::u16string_view>(text, blanks);
    const bool isSeparated = before.empty() || separators.find(before.back()) != std::u16string_view::npos;
    std::u16string longer = text;
    if (!isSeparated) longer += u';';
    longer += recipient;
    if (longer.size() > longestRecipientsToEdit) return Word::RecipientsTextTooLong;
    text = std::move(longer);
    return std::nullopt;
}

std::vector<std::string> NumbersOf(const SmsRecord& record) {
    std::vector<std::string> numbers;
    ForEachPiece<std::string_view>(record.address.number, ",;", " \t\r\n",
                                   [&numbers](char, std::string_view number) {
                                       if (!number.empty()) numbers.emplace_back(number);
                                   });
    return numbers;
}

bool IsSendable(const SmsRecord& record) {
    return record.messageType == SmsRecord::submit && !record.unreadable;
}

SmsRecord RecordForNumber(const SmsRecord& record, std::string_view number) {
    SmsRecord copy = record;
    copy.address = SmsAddress(number, SmsAddress::unknown);
    return copy;
}

}  // namespace tarnbridge
