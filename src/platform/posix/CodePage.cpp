#include "platform/CodePage.h"

#include <cstdint>

#include <iconv.h>

namespace tarnbridge {
namespace {

/// Owns an iconv descriptor from a code page to UTF-16 in the machine's order.
class Decoder {
public:
    explicit Decoder(const std::string& name) : descriptor_(iconv_open("UTF-16LE", name.c_str())) {}
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    ~Decoder() {
        if (Valid()) iconv_close(descriptor_);
    }

    bool Valid() const { return descriptor_ != reinterpret_cast<iconv_t>(-1); }

    /// The one unit that these bytes stand for, or nothing if they are not exactly one character of one unit.
    std::optional<char16_t> Decode(std::string bytes) const {
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        std::array<char, 8> out{};
        char* from = bytes.data();
        size_t fromLeft = bytes.size();
        char* to = out.data();
        size_t toLeft = out.size();
        if (iconv(descriptor_, &from, &fromLeft, &to, &toLeft) == static_cast<size_t>(-1))
            return std::nullopt;
        iconv(descriptor_, nullptr, nullptr, &to, &toLeft);
        if (fromLeft != 0 || out.size() - toLeft != 2) return std::nullopt;
        return static_cast<char16_t>(static_cast<uint8_t>(out[0]) | static_cast<uint8_t>(out[1]) << 8);
    }

private:
    iconv_t descriptor_;
};

bool IsKnown(int number) {
    return number == 874 || number == 932 || number == 936 || number == 949 ||
           (number >= 1250 && number <= 1258);
}

bool IsDoubleByte(int number) {
    return number == 932 || number == 936 || number == 949;
}

}  // namespace

struct CodePage::Tables {
    std::array<char16_t, 256> single{};
    std::array<bool, 256> isLead{};
    std::unordered_map<uint16_t, char16_t> pairs;    // lead << 8 | second
    std::unordered_map<char16_t, uint16_t> toBytes;  // above 255: two bytes
};

CodePage::CodePage(int number, std::shared_ptr<const Tables> tables)
    : number_(number), tables_(std::move(tables)) {}

std::optional<CodePage> CodePage::Find(int number) {
    if (!IsKnown(number)) return std::nullopt;
    const Decoder decoder("CP" + std::to_string(number));
    if (!decoder.Valid()) return std::nullopt;

    auto tables = std::make_shared<Tables>();
    for (int byte = 0; byte < 256; ++byte) {
        const auto unit = decoder.Decode(std::string(1, static_cast<char>(byte)));
        tables->single[byte] = unit.value_or(static_cast<char16_t>(byte));
        if (unit) tables->toBytes.emplace(*unit, static_cast<uint16_t>(byte));
    }
    for (int lead = 0x81; IsDoubleByte(number) && lead < 0xFF; ++lead) {
        for (int second = 0x40; second < 0xFF; ++second) {
            const auto unit = decoder.Decode({static_cast<char>(lead), static_cast<char>(second)});
            if (!unit) continue;
            const auto pair = static_cast<uint16_t>(lead << 8 | second);
            tables->isLead[lead] = true;
            tables->pairs.emplace(pair, *unit);
            tables->toBytes.emplace(*unit, pair);
        }
    }
    for (int byte = 0x80; byte < 256; ++byte) {
        if (!tables->isLead[byte]) tables->toBytes.emplace(tables->single[byte], static_cast<uint16_t>(byte));
    }
    return CodePage(number, std::move(tables));
}

const CodePage& CodePage::System() {
    static const CodePage page = *Find(1252);
    return page;
}

std::u16string CodePage::ToText(std::string_view bytes) const {
    std::u16string text;
    text.reserve(bytes.size());
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<uint8_t>(bytes[i]);
        if (!tables_->isLead[byte]) {
            text.push_back(tables_->single[byte]);
            continue;
        }
        const uint8_t second = i + 1 < bytes.size() ? static_cast<uint8_t>(bytes[i + 1]) : 0;
        const auto found = tables_->pairs.find(static_cast<uint16_t>(byte << 8 | second));
        if (found == tables_->pairs.end()) {
            text.push_back(u'\uFFFD');
        } else {
            text.push_back(found->second);
            ++i;
        }
    }
    return text;
}

std::string CodePage::ToBytes(std::u16string_view text) const {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t unit : text) {
        const auto found = tables_->toBytes.find(unit);
        const uint16_t code = found == tables_->toBytes.end() ? '?' : found->second;
        if (code > 0xFF) bytes.push_back(static_cast<char>(code >> 8));
        bytes.push_back(static_cast<char>(code & 0xFF));
    }
    return bytes;
}

}  // namespace tarnbridge
