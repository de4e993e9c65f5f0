#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "images/PLBmpInfo.h"

namespace tarnbridge {

struct PLColour {
    bool operator==(const PLColour&) const = default;

    uint8_t blue = 0;
    uint8_t green = 0;
    uint8_t red = 0;
    uint8_t alpha = 255;
};

/// A bitmap. Where and how its pixels lie in memory is for the derived class to say.
class PLBmp : public PLBmpInfo {
public:
    /// Makes the bitmap anew, with all bits 0 and, below 16 bits per pixel, the greys from black to white as
    /// its palette. 1, 2, 4, 8, 16, 24 or 32 bits per pixel. Throws Invalid without a pixel or with another
    /// depth, and OutOfMemory also above 256 MB; the bitmap is as it was then.
    void create(int width, int height, int bitsPerPixel, bool hasAlpha, bool isGreyscale);

    /// The rows, the top one first, each of (width * bitsPerPixel + 7) / 8 bytes at least, with the first
    /// pixel in the highest bits.
    std::span<uint8_t* const> rows() { return rows_; }
    std::span<const uint8_t* const> rows() const { return {rows_.data(), rows_.size()}; }

    /// 2^bitsPerPixel colours; none from 16 bits per pixel on.
    std::span<PLColour> palette() { return palette_; }
    std::span<const PLColour> palette() const { return palette_; }

protected:
    /// Replaces the pixels by as many rows of zeros and gives their pointers. Throws std::bad_alloc with
    /// nothing changed.
    virtual std::vector<uint8_t*> allocate(size_t rowBytes, int height) = 0;

private:
    std::vector<uint8_t*> rows_;
    std::vector<PLColour> palette_;
};

}  // namespace tarnbridge
