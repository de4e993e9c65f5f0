#include "simulator/NameCoding.h"

#include <algorithm>

#include <fmt/format.h>

#include "platform/Text.h"
#include "simulator/GsmAlphabet.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

constexpr char16_t noPage = 0xffff;

/// The page of 128 characters that holds all of the name that isn't ASCII.
char16_t PageOf(std::u16string_view name) {
    char16_t page = noPage;
    for (const char16_t unit : name) {
        if (unit < 0x80) continue;
        const auto itsPage = static_cast<char16_t>(unit & ~0x7f);
        if (itsPage > 0x7f80 || (page != noPage && page != itsPage)) return noPage;
        page = itsPage;
    }
    return page;
}

std::string ToUnits(std::u16string_view name) {
    std::string hex;
    for (const char16_t unit : name) {
        hex += fmt::format("{:04X}", static_cast<unsigned>(unit));
    }
    return hex;
}

std::optional<std::u16string> FromUnits(std::string_view hex) {
    const auto bytes = BytesOfHex(hex);
    if (!bytes || bytes->size() % 2 != 0) return std::nullopt;
    std::u16string text;
    for (size_t i = 0; i < bytes->size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>((*bytes)[i]) << 8 |
                                      static_cast<unsigned char>((*bytes)[i + 1]));
    }
    return text;
}

std::optional<std::u16string> FromPacked(std::string_view hex) {
    const auto bytes = BytesOfHex(hex);
    if (!bytes || bytes->size() < 4 || (*bytes)[0] != '\x81') return std::nullopt;
    if (static_cast<unsigned char>((*bytes)[1]) != bytes->size() - 3) return std::nullopt;
    const auto page = static_cast<char16_t>(static_cast<unsigned char>((*bytes)[2]) << 7);
    std::u16string text;
    for (const char c : bytes->substr(3)) {
        const auto octet = static_cast<unsigned char>(c);
        text += static_cast<char16_t>(octet < 0x80 ? octet : page + (octet - 0x80));
    }
    return text;
}

std::string ToPacked(std::u16string_view name, char16_t page) {
    std::string bytes{'\x81', static_cast<char>(name.size()), static_cast<char>(page >> 7)};
    for (const char16_t unit : name) {
        bytes += static_cast<char>(unit < 0x80 ? unit : unit - page + 0x80);
    }
    return BytesToHex(bytes);
}

}  // namespace

std::optional<std::u16string> NameFromWire(std::string_view charset, std::string_view wire) {
    if (charset == "UCS2") return FromUnits(wire);
    if (charset == "UCS2_0x81") {
        const auto packed = FromPacked(wire);
        return packed ? packed : FromUnits(wire);
    }
    const bool ascii = std::all_of(wire.begin(), wire.end(), [](char c) { return (c & 0x80) == 0; });
    if (!ascii) return std::nullopt;
    return charset == "GSM" ? SeptetsToText(wire) : WidenBytes(wire);
}

std::string NameToWire(std::string_view charset, std::u16string_view name) {
    if (charset == "UCS2") return ToUnits(name);
    if (charset == "UCS2_0x81") {
        const char16_t page = PageOf(name);
        return page == noPage || name.size() > 255 ? ToUnits(name) : ToPacked(name, page);
    }
    std::string wire;
    for (const char16_t unit : name) {
        if (charset == "GSM") {
            wire += TextToSeptets({&unit, 1}).value_or("?");
        } else {
            wire += unit < 0x80 ? static_cast<char>(unit) : '?';
        }
    }
    std::string quoted;
    for (const char c : wire) {
        const bool special = c == '"' || c == '\\' || c == '\r' || c == '\n' || c == '\0';
        quoted += special ? fmt::format("\\{:02X}", static_cast<unsigned>(c)) : std::string(1, c);
    }
    return quoted;
}

size_t StoredLength(std::u16string_view name) {
    if (const auto septets = TextToSeptets(name)) return septets->size();
    const size_t plain = 1 + 2 * name.size();
    return PageOf(name) == noPage ? plain : std::min(plain, 3 + name.size());
}

}  // namespace tarnbridge::simulator
