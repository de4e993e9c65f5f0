#include "messaging/RecordText.h"

#include <algorithm>

#include "messaging/GsmAlphabet.h"
#include "messaging/ems/Ems.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr std::u16string_view lostPart = u"(.....)";
constexpr size_t longestHeader = 140;

void AppendPart(std::u16string& text, std::string_view part, const SmsRecord& record) {
    if (record.hasHeader && !part.empty()) {
        const size_t header = static_cast<uint8_t>(part.front());
        if (header >= longestHeader) {
            text += lostPart;
            return;
        }
        part.remove_prefix(std::min(header + 1, part.size()));
    }
    if (IsSeptetCoding(record.dcs)) {
        text += TextOfPart(part);
    } else if (record.dcs != 8) {
        text += WidenBytes(part);
    } else {
        for (size_t i = 0; i + 1 < part.size(); i += 2)
            text +=
                static_cast<char16_t>(static_cast<uint8_t>(part[i]) << 8 | static_cast<uint8_t>(part[i + 1]));
    }
}

}  // namespace

std::u16string TextOfRawParts(const SmsRecord& record) {
    std::u16string text;
    for (const std::string& part : record.rawParts)
        AppendPart(text, part, record);
    if (record.dcs == 8) std::erase(text, static_cast<char16_t>(gsmEscape));
    return text;
}

std::u16string ShownText(const SmsRecord& record, const CodePage& page) {
    if (record.unreadable) return WidenBytes(*record.unreadable);
    std::u16string text;
    if (!IsSeptetCoding(record.dcs)) {
        text = record.TextAsWide(page);
    } else if (record.emsMessage) {
        text = EmsText(*record.emsMessage.Get());
        std::transform(text.begin(), text.end(), text.begin(), CharacterOfPart);
    } else if (!record.rawParts.empty()) {
        return TextOfRawParts(record);
    } else {
        return TextOfPart(record.text8);
    }
    std::erase(text, static_cast<char16_t>(gsmEscape));
    return text;
}

}  // namespace tarnbridge
