#pragma once

#include <cstdint>
#include <vector>

#include "images/PLBmp.h"

namespace tarnbridge {

/// A picture as a message carries it (3GPP TS 23.040, 9.2.3.24.10).
struct EmsPicture {
    int width = 0;
    int height = 0;
    /// Row after row without filling, from the highest bit on, 1 = black; the rest of the last byte is 0.
    std::vector<uint8_t> bits;
};

/// Whether a picture may go into a message.
enum class EmsPictureFit {
    Fits,
    NotMonochrome,  ///< it hasn't 1 bit per pixel
    TooWide,
    TooHigh,
    TooLarge,  ///< for one object
};

/// At most 255 pixels wide and high, and 2,048 bytes of bits. Whether the message has room is another matter.
/// A decoder that was opened may be asked too.
EmsPictureFit CheckEmsPicture(const PLBmpInfo& picture);

/// A pixel is black where its palette entry is darker than half. Throws PLTextException, Invalid, unless the
/// bitmap fits.
EmsPicture MakeEmsPicture(const PLBmp& bitmap);

}  // namespace tarnbridge
