#include "images/PLWBMPDecoder.h"

#include <algorithm>

namespace tarnbridge {
namespace {

/// A multi-byte integer, 7 bits an octet, of which the low 8 bits are kept.
int ReadDimension(PLDataSource& source) {
    uint8_t value = 0;
    for (;;) {
        const uint8_t octet = source.readBytes(1)[0];
        value = static_cast<uint8_t>(value << 7 | (octet & 0x7F));
        if ((octet & 0x80) == 0) return value;
    }
}

}  // namespace

void PLWBMPDecoder::readHeader() {
    source().readBytes(2);
    const int width = ReadDimension(source());
    const int height = ReadDimension(source());
    setInfo(width, height, 1, false, false);
}

void PLWBMPDecoder::decodeInto(PLBmp& bitmap) {
    const size_t rowBytes = (static_cast<size_t>(width()) + 7) / 8;
    source().peekBytes(rowBytes * static_cast<size_t>(height()));
    bitmap.create(width(), height(), 1, false, false);
    for (uint8_t* const row : bitmap.rows())
        std::ranges::copy(source().readBytes(rowBytes), row);
}

}  // namespace tarnbridge
