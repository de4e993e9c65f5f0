#include "platform/EntryStore.h"

#include <charconv>

#include "platform/Text.h"

namespace tarnbridge {
namespace {

template <typename Number>
std::optional<Number> ParseWhole(std::string_view text, int base) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

std::optional<int32_t> EntryStore::GetNumber(const std::string& section, const std::string& entry) const {
    const auto text = GetText(section, entry);
    if (!text) return std::nullopt;
    return ParseWhole<int32_t>(TextToUtf8(*text), 10);
}

Outcome EntryStore::SetNumber(const std::string& section, const std::string& entry, int32_t value) {
    return SetText(section, entry, WidenBytes(std::to_string(value)));
}

std::optional<std::string> EntryStore::GetBytes(const std::string& section, const std::string& entry) const {
    const auto text = GetText(section, entry);
    if (!text || text->size() % 2 != 0) return std::nullopt;
    const std::string hex = TextToUtf8(*text);
    std::string bytes;
    for (size_t i = 0; i < hex.size(); i += 2) {
        const auto byte = ParseWhole<uint8_t>(std::string_view(hex).substr(i, 2), 16);
        if (!byte) return std::nullopt;
        bytes.push_back(static_cast<char>(*byte));
    }
    return bytes;
}

Outcome EntryStore::SetBytes(const std::string& section, const std::string& entry, std::string_view bytes) {
    return SetText(section, entry, WidenBytes(BytesToHex(bytes)));
}

}  // namespace tarnbridge
