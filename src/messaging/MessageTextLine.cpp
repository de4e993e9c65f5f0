#include "messaging/MessageTextLine.h"

#include <algorithm>
#include <array>

#include "messaging/ems/Ems.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr char16_t quote = u'"';
constexpr size_t longestNumber = 256;
constexpr size_t longestTime = 64;

constexpr std::u16string_view lostPart = u"(.....)";
constexpr size_t longestHeader = 140;

/// The text of one part as the EMS layer reads it.
std::u16string TextOfPart(std::string_view part, bool hasHeader, bool isUcs2) {
    part = part.substr(0, emsSegmentBuffer);
    const size_t header = hasHeader && !part.empty() ? static_cast<uint8_t>(part[0]) : 0;
    if (header >= longestHeader) return std::u16string(lostPart);
    if (header > 0) part.remove_prefix(std::min(header + 1, part.size()));
    if (!isUcs2) return WidenBytes(part);
    std::u16string text;
    for (size_t i = 0; i + 1 < part.size(); i += 2)
        text += static_cast<char16_t>(static_cast<uint8_t>(part[i]) << 8 | static_cast<uint8_t>(part[i + 1]));
    return text;
}

/// The text that the EmsMessage holds or would hold. A record in a list has none, and there are more records
/// than slots.
std::u16string TextOf(const SmsRecord& record) {
    if (record.emsMessage) return EmsText(*record.emsMessage.Get());
    const bool isUcs2 = record.dcs == 8;
    if (record.rawParts.empty()) return isUcs2 ? record.text16 : WidenBytes(record.text8);
    std::u16string text;
    for (const std::string& part : record.rawParts)
        text += TextOfPart(part, record.hasHeader != 0, isUcs2);
    return text;
}

std::u16string_view UpToZero(std::u16string_view text) {
    return text.substr(0, text.find(u'\0'));
}

/// Finishes a record out of a text. Its EmsMessage is there for the moment only.
MessageLineFault FillContent(SmsRecord& record, std::u16string_view text) {
    record.emsMessage = EmsHandle::Make(record.dcs);
    if (!record.emsMessage) return MessageLineFault::NoSlot;
    EmsMessage* const message = record.emsMessage.Get();
    const EmsTextFormat plain;
    if (!text.empty() && AddText(message, text, &plain) != EmsResult::Done) return MessageLineFault::TooLong;
    // Coded only now, so that a text that becomes UCS2 loses the marks 0x1B, which mean nothing there.
    record.dcs = std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 127; }) ? 8 : 0;
    if (EmsSetDcs(message, static_cast<uint8_t>(record.dcs)) != EmsResult::Done || !record.PrepareParts())
        return MessageLineFault::TooLong;
    record.hasHeader = record.emsMessage.HasHeader() ? 1 : 0;
    if (record.dcs == 8)
        record.text16 = EmsText(*message);
    else
        record.text8.assign(text.begin(), text.end());
    record.emsMessage = {};
    return MessageLineFault::None;
}

}  // namespace

std::u16string MessageLineOf(const SmsRecord& record, const CodePage& page) {
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
    append(UpToZero(page.ToText(record.address.number)), 0);
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
