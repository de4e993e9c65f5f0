#include "messaging/MessageTextLine.h"

#include <algorithm>
#include <array>

#include "messaging/GsmAlphabet.h"
#include "messaging/RecordText.h"
#include "messaging/ems/Ems.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr char16_t quote = u'"';
constexpr size_t longestNumber = 256;
constexpr size_t longestTime = 64;

/// The text that the EmsMessage holds or would hold.
std::u16string TextOf(const SmsRecord& record) {
    const bool fromParts = !record.emsMessage && !record.rawParts.empty();
    return fromParts ? TextOfRawParts(record) : ShownText(record);
}

std::u16string_view UpToZero(std::u16string_view text) {
    return text.substr(0, text.find(u'\0'));
}

/// The text with a mark 0x1B in front of each character that needs one, or with none in front of these.
/// Files have both: a mark may have been written by another program.
std::u16string Marked(std::u16string_view text, bool isUcs2) {
    std::u16string marked;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isMark = text[i] == gsmEscape && i + 1 < text.size() && IsGsmExtension(text[i + 1]);
        // Control characters that stand for Greek letters in a part would arrive as these.
        const bool isControl = !isUcs2 && CharacterOfPart(text[i]) != text[i];
        if (isMark || isControl) continue;
        if (!isUcs2 && IsGsmExtension(text[i])) marked += gsmEscape;
        marked += text[i];
    }
    return marked;
}

/// Finishes a record out of a text. Its EmsMessage is there for the moment only.
MessageLineFault FillContent(SmsRecord& record, std::u16string_view text) {
    record.dcs = std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 127; }) ? 8 : 0;
    record.emsMessage = EmsHandle::Make(record.dcs);
    if (!record.emsMessage) return MessageLineFault::NoSlot;
    EmsMessage* const message = record.emsMessage.Get();
    const EmsTextFormat plain;
    const std::u16string marked = Marked(text, record.dcs == 8);
    if (!text.empty() && AddText(message, marked, &plain) != EmsResult::Done)
        return MessageLineFault::TooLong;
    if (!record.PrepareParts()) return MessageLineFault::TooLong;
    record.hasHeader = record.emsMessage.HasHeader() ? 1 : 0;
    if (record.dcs == 8)
        record.text16 = EmsText(*message);
    else
        record.text8.assign(marked.begin(), marked.end());
    record.emsMessage = {};
    return MessageLineFault::None;
}

}  // namespace

std::u16string MessageLineOf(const SmsRecord& record, const CodePage& page) {
    if (record.unreadable) return {};
    const std::u16string whole = TextOf(record);
    const std::u16string_view text = UpToZero(whole);
    if (text.empty()) return {};
    std::u16string line(1, quote);
    const auto append = [&line](std::u16string_view field, size_t marks) {
        for (const char16_t unit : field) {
            if (unit != u'\r' && unit != u'\n') line.append(unit == quote ? marks : 1, unit);
        }
    };
    // Doubled in the number, quotation marks would move the fields behind it.
    std::u16string number = page.ToText(record.address.number);
    std::erase(number, static_cast<char16_t>(gsmEscape));
    append(UpToZero(number), 0);
    line += u"\"\t\"";
    line += WidenBytes(record.timestamp.ToFileText());
    line += u"\"\t\"";
    append(text, 2);
    line += u"\"\r\n";
    return line;
}

MessageLineFault ReadMessageLine(std::u16string_view line, int minutesEastOfUtc, SmsRecord& record,
                                 const CodePage& page) {
    std::array<size_t, 5> quotes{};
    for (size_t i = 0, from = 0; i < quotes.size(); from = quotes[i++] + 1) {
        quotes[i] = line.find(quote, from);
        if (quotes[i] == std::u16string_view::npos) return MessageLineFault::Malformed;
    }
    const size_t last = line.rfind(quote);
    if (last == quotes[4] || !line.ends_with(u'\n') || line.find(u'\0') != std::u16string_view::npos)
        return MessageLineFault::Malformed;
    const auto between = [&](size_t first, size_t second) {
        return line.substr(first + 1, second - first - 1);
    };

    record.address =
        SmsAddress(page.ToBytes(between(quotes[0], quotes[1]).substr(0, longestNumber)), SmsAddress::unknown);
    record.timestamp = SmsTimestamp::FromText(
        page.ToBytes(between(quotes[2], quotes[3]).substr(0, longestTime)), minutesEastOfUtc);
    record.storage = u"PC";
    // The line doesn't tell what the message was. Composed is the one status that claims neither that it was
    // received nor that it was sent, and nothing is written from it with a time that a PDU can't hold.
    record.status = smsComposed;
    record.messageType = SmsRecord::submit;

    std::u16string text;
    const std::u16string_view field = between(quotes[4], last);
    for (size_t i = 0; i < field.size(); ++i) {
        text += field[i];
        if (field.substr(i, 2) == u"\"\"") ++i;
    }
    return FillContent(record, text);
}

}  // namespace tarnbridge
