#pragma once

#include "images/PLPicDecoder.h"

namespace tarnbridge {

/// A wireless bitmap (WAP-237, type 0), whose type and fixed header aren't looked at. Width and height are
/// taken modulo 256. The bitmap has 1 bit per pixel, 1 = white, as the file.
class PLWBMPDecoder : public PLPicDecoder {
public:
    void decodeInto(PLBmp& bitmap) override;

protected:
    void readHeader() override;
};

}  // namespace tarnbridge
