#include "link/WireText.h"

#include <algorithm>

namespace tarnbridge {
namespace {

constexpr size_t longestHexText = 512;       // units
constexpr size_t longestNarrowInput = 4096;  // units
constexpr size_t longestNarrow = 1023;       // bytes
constexpr size_t longestWideFromUtf8 = 2047;
constexpr size_t longestUtf8 = 4096;
constexpr size_t longestPacked = 117;  // characters

char16_t Swapped(char16_t unit) {
    return static_cast<char16_t>(unit << 8 | unit >> 8);
}

uint8_t HexDigitValue(char digit) {
    if (digit >= '0' && digit <= '9') return static_cast<uint8_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F') return static_cast<uint8_t>(digit - 'A' + 10);
    throw WireTextError();
}

std::u16string_view UpToZero(std::u16string_view text) {
    return text.substr(0, text.find(u'\0'));
}

}  // namespace

std::string WideToHexUcs2(std::u16string_view text, bool bigEndian) {
    static constexpr char digits[] = "0123456789ABCDEF";
    text = text.substr(0, longestHexText);
    std::string hex;
    hex.reserve(text.size() * 4);
    for (char16_t unit : text) {
        if (!bigEndian) unit = Swapped(unit);
        for (int shift = 12; shift >= 0; shift -= 4)
            hex.push_back(digits[(unit >> shift) & 15]);
    }
    return hex;
}

std::u16string HexUcs2ToWide(std::string_view hex, bool bigEndian) {
    const size_t byteCount = hex.size() / 2;
    std::u16string text;
    text.reserve(std::min(byteCount / 2 + 1, longestHexText));
    bool ended = false;
    for (size_t i = 0; i < byteCount; i += 2) {
        const auto byteAt = [&](size_t index) {
            return HexDigitValue(hex[index * 2]) << 4 | HexDigitValue(hex[index * 2 + 1]);
        };
        char16_t unit = static_cast<char16_t>(byteAt(i));
        if (i + 1 < byteCount) {
            unit = static_cast<char16_t>(unit << 8 | byteAt(i + 1));
            if (!bigEndian) unit = Swapped(unit);
        }
        if (unit == 0 || text.size() == longestHexText) ended = true;
        if (!ended) text.push_back(unit);
    }
    return text;
}

std::string WideToNarrow(std::u16string_view text, bool swap, const CodePage& page) {
    std::u16string units(UpToZero(text).substr(0, longestNarrowInput));
    if (swap) std::transform(units.begin(), units.end(), units.begin(), Swapped);
    std::string bytes = page.ToBytes(units);
    bytes.resize(std::min(bytes.size(), longestNarrow));
    return bytes;
}

std::u16string Utf8ToWide(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0'));
    std::u16string text;
    text.reserve(std::min(bytes.size(), longestWideFromUtf8));
    for (size_t position = 0; position < bytes.size() && text.size() < longestWideFromUtf8;) {
        const auto lead = static_cast<uint8_t>(bytes[position]);
        const size_t length = lead < 0x80                   ? 1
                              : lead >= 0xC0 && lead < 0xE0 ? 2
                              : lead >= 0xE0 && lead < 0xF0 ? 3
                                                            : 0;
        if (length == 0 || position + length > bytes.size()) break;
        unsigned unit = length == 1 ? lead : length == 2 ? lead & 0x1F : lead & 0x0F;
        for (size_t i = 1; i < length; ++i) {
            unit = unit << 6 | ((static_cast<uint8_t>(bytes[position + i]) ^ 0x80) & 0x3F);
        }
        if (unit == 0) break;
        text.push_back(static_cast<char16_t>(unit));
        position += length;
    }
    return text;
}

std::string WideToUtf8(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : UpToZero(text)) {
        const size_t length = unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3;
        if (bytes.size() + length > longestUtf8) break;
        if (length == 1) {
            bytes.push_back(static_cast<char>(unit));
            continue;
        }
        if (length == 2) {
            bytes.push_back(static_cast<char>(0xC0 | unit >> 6));
        } else {
            bytes.push_back(static_cast<char>(0xE0 | unit >> 12));
            bytes.push_back(static_cast<char>(0x80 | (unit >> 6 & 0x3F)));
        }
        bytes.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
    }
    return bytes;
}

int PackUcs2Alpha(std::u16string_view text, std::string& packed) {
    packed.clear();
    const auto first = std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit >= 0x80; });
    const uint16_t base = first == text.end() ? 0 : HalfPageOf(*first);
    if (base == 0 || text.size() > longestPacked) return 0;

    std::string bytes{'\x81', static_cast<char>(text.size()), static_cast<char>(base / 128)};
    for (const char16_t unit : text) {
        if (unit >= 0x80 && HalfPageOf(unit) != base) return 0;
        bytes.push_back(static_cast<char>(unit < 0x80 ? unit : unit - base + 0x80));
    }
    packed = std::move(bytes);
    return static_cast<int>(packed.size());
}

uint16_t HalfPageOf(char16_t unit) {
    struct Range {
        char16_t first;
        char16_t last;
    };
    // Thai stops short of its half page, and scripts that aren't listed can't be packed.
    static constexpr Range ranges[] = {{0x0E00, 0x0E5F}, {0x0080, 0x00FF}, {0x0100, 0x017F}, {0x0180, 0x01FF},
                                       {0x0400, 0x047F}, {0x0600, 0x067F}, {0x0980, 0x09FF}, {0x0A00, 0x0A7F},
                                       {0x0B00, 0x0B7F}, {0x0B80, 0x0BFF}, {0x0C00, 0x0C7F}};
    for (const Range& range : ranges) {
        if (unit >= range.first && unit <= range.last) return range.first;
    }
    return 0;
}

}  // namespace tarnbridge
