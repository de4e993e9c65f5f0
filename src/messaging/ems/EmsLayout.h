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

/// Whether the coding counts in septets; in all of these a character is one byte of a written segment.
inline bool IsSeptetCoding(uint8_t dcs) {
    return dcs != 8;
}

}  // namespace tarnbridge
