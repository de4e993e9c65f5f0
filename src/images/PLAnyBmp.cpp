#include "images/PLAnyBmp.h"

namespace tarnbridge {

std::vector<uint8_t*> PLAnyBmp::allocate(size_t rowBytes, int height) {
    std::vector<uint8_t*> rows(static_cast<size_t>(height));
    std::vector<uint8_t> pixels(rowBytes * rows.size());
    for (size_t y = 0; y < rows.size(); ++y)
        rows[y] = pixels.data() + y * rowBytes;
    pixels_.swap(pixels);
    return rows;
}

}  // namespace tarnbridge
