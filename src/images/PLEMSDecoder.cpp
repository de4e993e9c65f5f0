#include "images/PLEMSDecoder.h"

#include <algorithm>

namespace tarnbridge {

void PLEMSDecoder::readHeader() {
    trace("Decoding EMS.\n");
    const auto header = source().readBytes(8);
    const auto number = [&header](size_t at) { return header[at] | header[at + 1] << 8; };
    setInfo(number(2), number(4), 1, false, false);
}

void PLEMSDecoder::decodeInto(PLBmp& bitmap) {
    const size_t rowBytes = static_cast<size_t>(width()) / 8;
    // The header may claim far more than there is.
    source().peekBytes(rowBytes * static_cast<size_t>(height()));
    bitmap.create(width(), height(), 1, false, false);
    for (uint8_t* const row : bitmap.rows()) {
        const auto bytes = source().readBytes(rowBytes);
        std::transform(bytes.begin(), bytes.end(), row, [](uint8_t byte) { return ~byte; });
        if (width() % 8 != 0) row[rowBytes] = 0xFF;
    }
}

}  // namespace tarnbridge
