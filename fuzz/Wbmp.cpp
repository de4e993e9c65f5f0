// The decoder of wireless bitmaps; a picture that fits becomes one of a message.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "images/EmsPicture.h"
#include "images/PLAnyBmp.h"
#include "images/PLTextException.h"
#include "images/PLWBMPDecoder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace tarnbridge;
    try {
        PLMemSource source({data, size});
        PLWBMPDecoder decoder;
        decoder.open(source);
        PLAnyBmp bitmap;
        decoder.decodeInto(bitmap);
        if (CheckEmsPicture(bitmap) == EmsPictureFit::Fits && MakeEmsPicture(bitmap).bits.empty())
            std::abort();
    } catch (const PLTextException&) {
        return 0;
    }
    return 0;
}
