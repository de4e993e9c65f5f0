#include <algorithm>
#include <iterator>

#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

constexpr uint32_t screenColours[] = {0x000000, 0x4D4D4D, 0xB40000, 0xFF9900, 0x00C000, 0x008784,
                                      0x000080, 0x800080, 0xB6C0C0, 0xFFFFFF, 0xFF0000, 0xFFFF00,
                                      0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF};
constexpr uint8_t white = 9;

}  // namespace

uint32_t EmsScreenColour(uint8_t index) {
    return screenColours[index < std::size(screenColours) ? index : white];
}

uint8_t EmsColourIndex(uint32_t colour) {
    const auto* const found = std::find(std::begin(screenColours), std::end(screenColours), colour);
    return found == std::end(screenColours) ? white : static_cast<uint8_t>(found - std::begin(screenColours));
}

}  // namespace tarnbridge
