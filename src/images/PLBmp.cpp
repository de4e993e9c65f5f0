#include "images/PLBmp.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "images/PLTextException.h"

namespace tarnbridge {
namespace {

constexpr size_t largestBitmap = size_t{256} << 20;

std::vector<PLColour> Greys(int bitsPerPixel) {
    std::vector<PLColour> palette;
    if (bitsPerPixel >= 16) return palette;
    palette.resize(size_t{1} << bitsPerPixel);
    for (size_t i = 0; i < palette.size(); ++i) {
        const auto grey = static_cast<uint8_t>(255 * i / (palette.size() - 1));
        palette[i] = {grey, grey, grey, 255};
    }
    return palette;
}

}  // namespace

void PLBmp::create(int width, int height, int bitsPerPixel, bool hasAlpha, bool isGreyscale) {
    constexpr std::array depths{1, 2, 4, 8, 16, 24, 32};
    if (width < 1 || height < 1 || std::find(depths.begin(), depths.end(), bitsPerPixel) == depths.end())
        throw PLTextException(PLError::Invalid, "A bitmap of this size or depth can't be.");
    const size_t rowBytes = (static_cast<size_t>(width) * static_cast<size_t>(bitsPerPixel) + 7) / 8;
    try {
        if (rowBytes > largestBitmap / static_cast<size_t>(height)) throw std::bad_alloc();
        std::vector<PLColour> palette = Greys(bitsPerPixel);
        rows_ = allocate(rowBytes, height);
        palette_ = std::move(palette);
    } catch (const std::bad_alloc&) {
        throw PLTextException(PLError::OutOfMemory, "Out of memory creating bitmap.");
    }
    setInfo(width, height, bitsPerPixel, hasAlpha, isGreyscale);
}

}  // namespace tarnbridge
