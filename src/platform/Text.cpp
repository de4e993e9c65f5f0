#include "platform/Text.h"

#include <algorithm>
#include <cstdint>

namespace tarnbridge {
namespace {

constexpr char32_t replacement = 0xFFFD;

void AppendUnits(std::u16string& text, char32_t point) {
    if (point < 0x10000) {
        text.push_back(static_cast<char16_t>(point));
        return;
    }
    point -= 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
}

void AppendUtf8(std::string& utf8, char32_t point) {
    const auto put = [&](char32_t byte) { utf8.push_back(static_cast<char>(byte)); };
    const auto putContinuation = [&](int shift) { put(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        putContinuation(0);
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        putContinuation(6);
        putContinuation(0);
    } else {
        put(0xF0 | (point >> 18));
        putContinuation(12);
        putContinuation(6);
        putContinuation(0);
    }
}

/// Decodes the sequence that starts at `position` and moves past it; one byte is passed when it is malformed.
char32_t NextPoint(std::string_view utf8, size_t& position) {
    const auto lead = static_cast<uint8_t>(utf8[position++]);
    if (lead < 0x80) return lead;
    const int following = lead >= 0xF0 && lead <= 0xF4  ? 3
                          : lead >= 0xE0 && lead < 0xF0 ? 2
                          : lead >= 0xC2 && lead < 0xE0 ? 1
                                                        : 0;
    if (following == 0 || position + following > utf8.size()) return replacement;
    char32_t point = lead & (0x3F >> following);
    for (int i = 0; i < following; ++i) {
        const auto byte = static_cast<uint8_t>(utf8[position + i]);
        if ((byte & 0xC0) != 0x80) return replacement;
        point = (point << 6) | (byte & 0x3F);
    }
    const char32_t smallest = following == 3 ? 0x10000 : following == 2 ? 0x800 : 0x80;
    if (point < smallest || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) return replacement;
    position += following;
    return point;
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::u16string Utf8ToText(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    for (size_t position = 0; position < utf8.size();)
        AppendUnits(text, NextPoint(utf8, position));
    return text;
}

std::string TextToUtf8(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (point >= 0xD800 && point < 0xE000) {
            const bool paired =
                point < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
            point = paired ? 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00) : replacement;
        }
        AppendUtf8(utf8, point);
    }
    return utf8;
}

std::u16string WidenBytes(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char c) { return static_cast<char16_t>(static_cast<uint8_t>(c)); });
    return text;
}

bool EqualIgnoringCase(std::string_view first, std::string_view second) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

std::string BytesToHex(std::string_view bytes) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const auto byte = static_cast<uint8_t>(c);
        hex.push_back(digits[byte >> 4]);
        hex.push_back(digits[byte & 15]);
    }
    return hex;
}

}  // namespace tarnbridge
