#include "messaging/ConcatHeader.h"

#include <algorithm>
#include <cstdint>

namespace tarnbridge {
namespace {

constexpr size_t narrowSize = 5;
constexpr size_t wideSize = 6;

uint8_t OctetAt(std::string_view header, size_t place) {
    return place < header.size() ? static_cast<uint8_t>(header[place]) : 0;
}

/// The size of the whole concatenation element at `place`, or 0 if another element stands there.
size_t ConcatSizeAt(std::string_view header, size_t place) {
    const uint8_t kind = OctetAt(header, place);
    const uint8_t length = OctetAt(header, place + 1);
    const size_t size = kind == 0 && length == 3 ? narrowSize : kind == 8 && length == 4 ? wideSize : 0;
    return place + size <= header.size() ? size : 0;
}

size_t NextElement(std::string_view header, size_t place) {
    return place + 2 + OctetAt(header, place + 1);
}

}  // namespace

std::optional<ConcatElement> FindConcat(std::string_view header) {
    for (size_t place = 0; place < header.size(); place = NextElement(header, place)) {
        const size_t size = ConcatSizeAt(header, place);
        if (size == 0) continue;
        const bool wide = size == wideSize;
        const uint8_t total = OctetAt(header, place + size - 2);
        const uint8_t sequence = OctetAt(header, place + size - 1);
        if (total == 0 || sequence == 0 || static_cast<int8_t>(sequence) > static_cast<int8_t>(total))
            continue;
        const int reference =
            wide ? OctetAt(header, place + 2) << 8 | OctetAt(header, place + 3) : OctetAt(header, place + 2);
        return ConcatElement{reference, wide, total, sequence};
    }
    return std::nullopt;
}

void StoreConcat(std::string& header, std::string_view element) {
    for (size_t place = 0; place < header.size();) {
        const size_t size = ConcatSizeAt(header, place);
        if (size != 0)
            header.erase(place, size);
        else
            place = NextElement(header, place);
    }
    header.resize(std::max(header.size(), element.size()));
    std::copy(element.begin(), element.end(), header.begin());
}

}  // namespace tarnbridge
