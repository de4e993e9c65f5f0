#include "messaging/MessageFragment.h"

#include <algorithm>

#include "messaging/GsmAlphabet.h"
#include "messaging/ShownMessage.h"

namespace tarnbridge {
namespace {

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::u16string PlainText(const MessageFragment& fragment) {
    std::u16string text;
    for (const auto& piece : fragment) {
        if (const auto* const formatted = std::get_if<FormattedText>(&piece)) text += formatted->text;
    }
    return text;
}

std::u16string CleanText(std::u16string_view text, bool latinOnly) {
    std::u16string clean;
    clean.reserve(text.size());
    for (size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        const bool isPairLeft = at + 1 < text.size();
        if (unit == u'\r' && isPairLeft && text[at + 1] == u'\n') continue;
        if (unit == u'\r' || unit == u'\n' || unit == u'\u2028' || unit == u'\u2029') {
            clean.push_back(u'\n');
        } else if (unit == u'\t') {
            clean.push_back(u' ');
        } else if (!IsUnshowable(unit)) {
            clean.push_back(latinOnly && PartOfCharacter(unit) > 0xFF ? u'?' : unit);
            if (latinOnly && IsHighSurrogate(unit) && isPairLeft && IsLowSurrogate(text[at + 1])) ++at;
        }
    }
    return clean;
}

bool IsSevenBit(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit <= 127; });
}

std::u16string MessageText(std::u16string_view clean, bool ucs2) {
    std::u16string text;
    text.reserve(clean.size());
    for (const char16_t unit : clean) {
        if (unit == u'\n') text.push_back(u'\r');
        if (!ucs2 && IsGsmExtension(unit)) text.push_back(gsmEscape);
        text.push_back(ucs2 ? unit : PartOfCharacter(unit));
    }
    return text;
}

}  // namespace tarnbridge
