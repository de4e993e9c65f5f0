#include "phonebook/HandsetVcard.h"

#include <optional>

#include <fmt/format.h>

#include "link/WireText.h"
#include "platform/Files.h"

namespace tarnbridge {
namespace {

constexpr uint64_t largestFile = 1 << 20;

std::string EscapedUtf8(std::u16string_view text) {
    std::u16string escaped;
    for (const char16_t unit : text) {
        if (unit == u'\\' || unit == u';') escaped.push_back(u'\\');
        escaped.push_back(unit);
    }
    return WideToUtf8(escaped);
}

/// The bytes as a reader gets them that takes 256 at a time and stops in each block at a zero byte.
std::string WithoutBlockTails(std::string_view bytes) {
    constexpr size_t blockSize = 256;
    std::string kept;
    for (size_t start = 0; start < bytes.size(); start += blockSize) {
        const std::string_view block = bytes.substr(start, blockSize);
        kept += block.substr(0, block.find('\0'));
    }
    return kept;
}

/// The value behind the first place of a key. It ends at a CR LF, which a `=` after it takes back, and leaves
/// the last two bytes of the text out.
std::string ValueOf(std::string_view key, std::string_view text) {
    const size_t found = text.find(key);
    if (found == std::string_view::npos) return {};
    std::string value;
    for (size_t i = found + key.size(); i + 2 < text.size(); ++i) {
        if (text[i] == '\r' && text[i + 1] == '\n') {
            if (text[i + 2] != '=') break;
            i += 2;
        } else {
            value.push_back(text[i]);
        }
    }
    return value;
}

int HexDigit(char digit) {
    return digit >= '0' && digit <= '9' ? digit - '0' : digit - '7';
}

std::string DecodeQuotedPrintable(std::string_view bytes) {
    std::string decoded;
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '=' || i + 2 >= bytes.size()) {
            decoded.push_back(bytes[i]);
            continue;
        }
        decoded.push_back(static_cast<char>(HexDigit(bytes[i + 1]) * 16 + HexDigit(bytes[i + 2])));
        i += 2;
    }
    return decoded;
}

/// A number of at most `width` characters, its blanks left out and its sign counted, as scanf reads "%0Nd".
std::optional<int> TakeNumber(std::string_view& text, size_t width) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    size_t place = 0;
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) place = 1;
    const size_t firstDigit = place;
    int value = 0;
    for (; place < width && place < text.size() && text[place] >= '0' && text[place] <= '9'; ++place)
        value = value * 10 + (text[place] - '0');
    if (place == firstDigit) return std::nullopt;
    text.remove_prefix(place);
    return negative ? -value : value;
}

void ReadBirthday(std::string_view text, ContactDate& date) {
    const auto year = TakeNumber(text, 4);
    if (!year) return;
    date.year = static_cast<uint16_t>(*year);
    const auto month = TakeNumber(text, 2);
    if (!month) return;
    date.month = static_cast<uint8_t>(*month);
    const auto day = TakeNumber(text, 2);
    if (day) date.day = static_cast<uint8_t>(*day);
}

}  // namespace

std::string HandsetVcardOf(const Contact& contact, const CodePage& page) {
    const ContactDetails& details = contact.details;
    const std::string name = EscapedUtf8(contact.name);
    std::string card = fmt::format(
        "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8:{}\r\nFN;CHARSET=UTF-8:{}\r\nTEL;CELL;VOICE:{}\r\n",
        name, name, contact.number.number);
    const auto add = [&](std::string_view key, std::u16string_view value) {
        if (!value.empty()) card += fmt::format("{}{}\r\n", key, WideToNarrow(value, false, page));
    };
    add("TEL;HOME;VOICE:", details.home);
    add("TEL;WORK;VOICE:", details.office);
    add("TEL;FAX;VOICE:", details.fax);
    add("EMAIL:", details.email);
    const ContactDate& birthday = details.birthday;
    if (birthday != ContactDate{1900, 1, 1})
        card += fmt::format("BDAY:{:04}{:02}{:02}\r\n", birthday.year, birthday.month, birthday.day);
    if (!details.memo.empty()) card += fmt::format("MEMO;CHARSET=UTF-8:{}\r\n", EscapedUtf8(details.memo));
    return card + "END:VCARD\r\n";
}

bool WriteHandsetVcard(const Contact& contact, const std::filesystem::path& path, const CodePage& page) {
    return static_cast<bool>(WriteFileAtomically(path, HandsetVcardOf(contact, page)));
}

bool ParseHandsetVcard(Contact& contact, std::string_view bytes, const CodePage& page) {
    const std::string text = WithoutBlockTails(bytes);
    if (!text.starts_with("BEGIN:VCARD")) return false;
    const auto value = [&](std::string_view key, std::string_view otherwise) {
        const std::string first = ValueOf(key, text);
        return page.ToText(first.empty() ? ValueOf(otherwise, text) : first);
    };
    ContactDetails& details = contact.details;
    details.home = value("TEL;HOME;VOICE:", "TEL;HOME:");
    details.office = value("TEL;WORK;VOICE:", "TEL;WORK:");
    details.fax = value("TEL;FAX;VOICE:", "TEL;FAX:");
    details.email = value("EMAIL:", "EMAIL;INTERNET:");
    ReadBirthday(ValueOf("BDAY:", text), details.birthday);
    details.memo =
        Utf8ToWide(DecodeQuotedPrintable(ValueOf("MEMO;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:", text)));
    contact.detailsLoaded = true;
    return true;
}

bool ReadHandsetVcard(Contact& contact, const std::filesystem::path& path, const CodePage& page) {
    const auto bytes = ReadFile(path, largestFile);
    return bytes && ParseHandsetVcard(contact, *bytes, page);
}

}  // namespace tarnbridge
