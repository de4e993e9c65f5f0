#include "messaging/Arrival.h"

#include <algorithm>

#include "messaging/GsmAlphabet.h"
#include "messaging/ems/Ems.h"

namespace tarnbridge {

ArrivingText ArrivingTextOf(const EmsMessage& message, const ShownMessage& shown) {
    ArrivingText arriving{shown.Text(), {}};
    if (!IsSeptetCoding(message.dcs)) return arriving;
    const std::u16string text = EmsText(message);
    std::string part;
    for (const char16_t unit : text)
        part.push_back(static_cast<char>(unit));
    part = AsItArrives(part);
    for (int position = 0; position < shown.Length(); ++position) {
        char16_t& character = arriving.text[static_cast<size_t>(position)];
        if (character == objectCharacter || character == u'\n') continue;
        auto place = static_cast<size_t>(shown.PlaceOf(position).character);
        while (place < text.size() && text[place] == gsmEscape)
            ++place;
        if (place == text.size()) break;
        const char16_t arrives = CharacterOfPart(static_cast<uint8_t>(part[place]));
        if (arrives != character) arriving.differing.push_back(position);
        character = arrives;
    }
    return arriving;
}

void KeepAsSent(SmsRecord& record) {
    if (!IsSeptetCoding(record.dcs) || !record.SettleParts()) return;
    record.text8 = AsItArrives(record.text8);
    for (std::string& part : record.rawParts) {
        const size_t header =
            record.hasHeader && !part.empty() ? 1 + static_cast<size_t>(static_cast<uint8_t>(part[0])) : 0;
        if (header < part.size()) part.replace(header, part.npos, AsItArrives(part.substr(header)));
    }
}

}  // namespace tarnbridge
