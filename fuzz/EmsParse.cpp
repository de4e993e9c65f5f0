// The reader of messages. The first octet says whether there are headers (bit 0), which coding (bits 1 and 2)
// and what is done to the message afterwards (the rest); segments follow, each behind its length. What can be
// written is read again and must be the same text.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "messaging/ems/Ems.h"

namespace {

using namespace tarnbridge;

void RequireOrder(const EmsMessage& message) {
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (node->position + node->format.length > message.textLength) std::abort();
        if (node->next && (node->next->position < node->position || node->next->prev != node)) std::abort();
    }
}

void WriteAndReadAgain(EmsMessage& message) {
    std::array<std::array<uint8_t, emsSegmentBuffer>, emsSegments> areas{};
    std::array<uint8_t*, emsSegments> buffers{};
    std::array<int, emsSegments> lengths{};
    std::transform(areas.begin(), areas.end(), buffers.begin(), [](auto& area) { return area.data(); });
    int count = 0;
    if (Generate(&message, true, &count, buffers.data(), lengths.data()) != EmsResult::Done) return;
    std::array<uint8_t, emsSegments> codings{};
    codings.fill(message.dcs);
    EmsMessage again;
    EmsCreate(&again, 0);
    const EmsResult result =
        Parse(&again, message.hasHeader != 0, count, buffers.data(), lengths.data(), codings.data());
    std::u16string text = EmsText(message);
    if (message.dcs != 8) {
        for (char16_t& unit : text)
            unit &= 0xFF;
    }
    if (result != EmsResult::Done || EmsText(again) != text) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    EmsInit(uint8_t{0});
    if (size == 0) return 0;
    const uint8_t how = data[0];
    static constexpr uint8_t codings[] = {0, 8, 4, 16};
    std::vector<const uint8_t*> buffers;
    std::vector<int> lengths;
    for (size_t at = 1; at < size && buffers.size() < 24;) {
        const size_t length = std::min<size_t>(data[at], size - at - 1);
        buffers.push_back(data + at + 1);
        lengths.push_back(static_cast<int>(length));
        at += 1 + length;
    }
    const std::vector<uint8_t> dcsList(buffers.size(), codings[how >> 1 & 3]);
    EmsMessage message;
    EmsCreate(&message, 0);
    Parse(&message, (how & 1) != 0, static_cast<int>(buffers.size()), buffers.data(), lengths.data(),
          dcsList.data());
    RequireOrder(message);
    WriteAndReadAgain(message);
    MoveCursorForward(&message, how);
    if (how & 0x08) Backspace(&message, how >> 5);
    const EmsTextFormat bold{.bold = 1};
    if (how & 0x10) AddText(&message, u"text\x1B{", &bold);
    EmsSetDcs(&message, message.dcs == 8 ? 0 : 8);
    RequireOrder(message);
    WriteAndReadAgain(message);
    return 0;
}
