#pragma once

#include <cstdint>

#include "messaging/ems/Ems.h"

namespace tarnbridge {

/// What LayOut writes besides counting.
struct SegmentOutput {
    uint8_t* const* buffers;  ///< 10 of emsSegmentBuffer bytes
    int* lengths;
    uint16_t reference;  ///< of the concatenation
    int total;           ///< segments, as a layout without output found them
};

/// Distributes text and objects over the segments, sets the message's counts, hasHeader and isConcatenated,
/// and writes the segments when `output` is given. NoRoom when more segments are needed than are allowed.
EmsResult LayOut(EmsMessage& message, const SegmentOutput* output = nullptr);

/// Whether a character takes two bytes of a written segment. In every other coding it is its low byte.
inline bool IsUcs2(uint8_t dcs) {
    return dcs == 8;
}

/// Whether a segment holds 160 septets. 8-bit data is laid out as text of the default alphabet is.
inline bool CountsSeptets(uint8_t dcs) {
    return dcs != 8;
}

}  // namespace tarnbridge
