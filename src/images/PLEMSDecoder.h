#pragma once

#include "images/PLPicDecoder.h"

namespace tarnbridge {

/// The file form of an EMS bitmap (.EMS): two octets, width and height with the low octet first, two octets,
/// then the rows, each of width / 8 octets, 1 = black. What a width beyond a multiple of 8 adds isn't in the
/// file, and is white. The bitmap has 1 bit per pixel, 1 = white.
class PLEMSDecoder : public PLPicDecoder {
public:
    void decodeInto(PLBmp& bitmap) override;

protected:
    void readHeader() override;
};

}  // namespace tarnbridge
