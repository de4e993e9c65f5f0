// The seam between a record and its EmsMessage.

#include <algorithm>
#include <utility>

#include "messaging/SmsRecord.h"
#include "messaging/ems/Ems.h"
#include "platform/Text.h"

namespace tarnbridge {

bool SmsRecord::PrepareParts() {
    if (!emsMessage || emsMessage.Get()->segmentsUsed > emsSegments) return false;
    std::array<std::array<uint8_t, emsSegmentBuffer>, emsSegments> areas{};
    std::array<uint8_t*, emsSegments> buffers{};
    std::array<int, emsSegments> lengths{};
    std::transform(areas.begin(), areas.end(), buffers.begin(), [](auto& area) { return area.data(); });
    int count = 0;
    if (Generate(emsMessage.Get(), true, &count, buffers.data(), lengths.data()) != EmsResult::Done)
        return false;
    rawParts.clear();
    for (int i = 0; i < count; ++i)
        rawParts.emplace_back(areas[i].begin(), areas[i].begin() + lengths[i]);
    return true;
}

bool SmsRecord::RebuildFromParts() {
    emsMessage = {};
    const bool fits = rawParts.size() <= emsSegments &&
                      std::all_of(rawParts.begin(), rawParts.end(),
                                  [](const std::string& part) { return part.size() <= emsSegmentBuffer; });
    if (!fits) return false;
    emsMessage = EmsHandle::Make(dcs);
    if (!emsMessage) return false;
    std::vector<const uint8_t*> buffers;
    std::vector<int> lengths;
    for (const std::string& part : rawParts) {
        buffers.push_back(reinterpret_cast<const uint8_t*>(part.data()));
        lengths.push_back(static_cast<int>(part.size()));
    }
    const auto coding = static_cast<uint8_t>(emsMessage.Get()->dcs);
    partDcs.fill(coding);
    const std::vector<uint8_t> codings(rawParts.size(), coding);
    const EmsResult result = Parse(emsMessage.Get(), hasHeader != 0, static_cast<int>(rawParts.size()),
                                   buffers.data(), lengths.data(), codings.data());
    TakeTextFromEms();
    return result == EmsResult::Done;
}

void SmsRecord::SetEmsMessage(EmsHandle message) {
    emsMessage = std::move(message);
    dcs = emsMessage.Get()->dcs;
    hasHeader = emsMessage.HasHeader() ? 1 : 0;
    userDataHeader.clear();
    rawParts.clear();
    TakeTextFromEms();
}

bool SmsRecord::EnsureEmsMessage(const CodePage& page) {
    if (emsMessage) return true;
    if (!rawParts.empty()) {
        RebuildFromParts();
        return static_cast<bool>(emsMessage);
    }
    emsMessage = EmsHandle::Make(dcs);
    if (!emsMessage) return false;
    const std::u16string text = dcs == 8 ? TextAsWide(page) : WidenBytes(TextAsBytes(page));
    if (text.empty() || AddText(emsMessage.Get(), text) == EmsResult::Done) return true;
    emsMessage = {};
    return false;
}

bool SmsRecord::SettleParts() {
    if (!emsMessage) return true;
    const bool header = emsMessage.HasHeader();
    if (PrepareParts())
        hasHeader = header ? 1 : 0;
    else if (rawParts.empty())
        return false;
    emsMessage = {};
    return true;
}

/// The layer holds a text that isn't UCS2 byte by byte, as the parts have it.
void SmsRecord::TakeTextFromEms() {
    const std::u16string text = EmsText(*emsMessage.Get());
    text8.clear();
    text16.clear();
    if (dcs == 8) {
        text16 = text;
        return;
    }
    for (const char16_t unit : text)
        text8.push_back(static_cast<char>(unit & 0xFF));
}

}  // namespace tarnbridge
