#include "images/EmsPicture.h"

#include "images/PLTextException.h"

namespace tarnbridge {
namespace {

constexpr int longestSide = 255;
constexpr int mostBits = 2048 * 8;

bool IsDark(const PLColour& colour) {
    return 299 * colour.red + 587 * colour.green + 114 * colour.blue < 128 * 1000;
}

}  // namespace

EmsPictureFit CheckEmsPicture(const PLBmpInfo& picture) {
    if (picture.bitsPerPixel() != 1) return EmsPictureFit::NotMonochrome;
    if (picture.width() > longestSide) return EmsPictureFit::TooWide;
    if (picture.height() > longestSide) return EmsPictureFit::TooHigh;
    return picture.width() * picture.height() > mostBits ? EmsPictureFit::TooLarge : EmsPictureFit::Fits;
}

EmsPicture MakeEmsPicture(const PLBmp& bitmap) {
    if (CheckEmsPicture(bitmap) != EmsPictureFit::Fits)
        throw PLTextException(PLError::Invalid, "The picture is none that a message can carry.");
    const bool isBlack[] = {IsDark(bitmap.palette()[0]), IsDark(bitmap.palette()[1])};
    EmsPicture picture{bitmap.width(), bitmap.height(), {}};
    picture.bits.resize((static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height) + 7) / 8);
    size_t at = 0;
    for (const uint8_t* const row : bitmap.rows()) {
        for (int x = 0; x < picture.width; ++x, ++at) {
            if (isBlack[row[x / 8] >> (7 - x % 8) & 1])
                picture.bits[at / 8] = static_cast<uint8_t>(picture.bits[at / 8] | 0x80 >> at % 8);
        }
    }
    return picture;
}

}  // namespace tarnbridge
