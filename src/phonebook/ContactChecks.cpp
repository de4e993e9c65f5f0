#include "phonebook/ContactChecks.h"

#include <algorithm>

#include "link/WireText.h"
#include "phonebook/Contact.h"

namespace tarnbridge {
namespace {

constexpr std::u16string_view numberCharacters = u"0123456789+*#pwPW";

bool IsPause(char16_t unit) {
    return unit == u'p' || unit == u'P' || unit == u'w' || unit == u'W';
}

bool IsOneOf(char16_t unit, std::u16string_view set) {
    return set.find(unit) != std::u16string_view::npos;
}

bool IsLetterOrDigit(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9');
}

/// One side of the `@` of an address.
bool IsEmailPartOk(std::u16string_view part, std::u16string_view otherCharacters) {
    return !part.empty() && !part.starts_with(u'.') && !part.ends_with(u'.') &&
           std::all_of(part.begin(), part.end(), [&](char16_t unit) {
               return IsLetterOrDigit(unit) || IsOneOf(unit, otherCharacters);
           });
}

}  // namespace

bool IsNameCharsOk(std::u16string_view name) {
    return name.find_first_of(u"\\/`;") == std::u16string_view::npos;
}

uint8_t ClassifyName(std::u16string_view name, int& length) {
    length = static_cast<int>(name.size());
    uint8_t encoding = plainName;
    uint16_t page = 0;
    for (const char16_t unit : name) {
        if (unit < 0x80) continue;
        const uint16_t own = HalfPageOf(unit);
        if (own == 0 || (page != 0 && own != page)) return ucs2Name;
        page = own;
        encoding = packedUcs2Name;
    }
    if (encoding == plainName)
        length += static_cast<int>(std::count_if(name.begin(), name.end(),
                                                 [](char16_t unit) { return IsOneOf(unit, u"\\|[]{}^~"); }));
    return encoding;
}

bool FitNameToHandset(std::u16string& name, bool isSim, uint8_t& encoding, bool toHandset, int& maxLength,
                      const HandsetNameLimits& limits) {
    int length = 0;
    encoding = ClassifyName(name, length);
    if (!toHandset) return true;
    if (encoding == packedUcs2Name && !limits.hasPackedUcs2) encoding = ucs2Name;
    const auto reported = limits.textLength ? limits.textLength(isSim) : std::nullopt;
    maxLength = reported.value_or(isSim ? 14 : 30);
    const int limit = encoding == plainName  ? maxLength
                      : encoding == ucs2Name ? (maxLength - 1) / 2
                                             : maxLength - 3;
    if (length <= limit) return true;
    if (const size_t kept = std::max(limit, 0); kept < name.size()) name.resize(kept);
    return false;
}

bool IsNumberCharsOk(std::u16string_view number) {
    if (number == u"+" || number.find(u'+', 1) != std::u16string_view::npos) return false;
    if (!number.empty() && IsPause(number.front())) return false;
    for (size_t i = 0; i < number.size(); ++i) {
        if (!IsOneOf(number[i], numberCharacters)) return false;
        if (IsPause(number[i]) && i + 1 < number.size() && IsOneOf(number[i + 1], u"*#")) return false;
    }
    return true;
}

bool IsNumberLengthOk(std::u16string_view number) {
    if (std::any_of(number.begin(), number.end(), [](char16_t unit) { return unit >= 0x80; })) return false;
    return number.size() <= (number.starts_with(u'+') ? 41u : 40u);
}

bool IsEmailOk(std::u16string_view email) {
    if (email.empty()) return true;
    if (email.size() < 3 || email.size() > 60) return false;
    const size_t at = email.find(u'@');
    if (at == std::u16string_view::npos) return false;
    return IsEmailPartOk(email.substr(0, at), u".!#$%&\\*+-/=?^_`{|}~") &&
           IsEmailPartOk(email.substr(at + 1), u"-.");
}

std::u16string CleanNumber(std::u16string_view text) {
    std::u16string number;
    for (const char16_t unit : text) {
        if (!IsOneOf(unit, numberCharacters)) continue;
        if (unit == u'+' ? !number.empty() : IsPause(unit) && number.empty()) continue;
        number.push_back(unit);
    }
    return number == u"+" ? std::u16string() : number;
}

}  // namespace tarnbridge
