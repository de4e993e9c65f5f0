#include "core/app/WindowPlacement.h"

#include <array>

namespace tarnbridge {
namespace {

// length, flags, show command, minimised position, maximised position, normal rectangle
constexpr size_t fields = 11;
constexpr size_t blockSize = fields * 4;
constexpr size_t showField = 2;
constexpr size_t rectangleField = 7;

constexpr uint32_t showMaximised = 3;
constexpr uint32_t showAtPlace = 5;
constexpr uint32_t lastShowCommand = 11;

/// Farther out no desktop reaches; sums of such numbers don't overflow.
constexpr int32_t farthest = 1 << 20;

bool OnSomeScreen(int32_t coordinate) {
    return coordinate >= -farthest && coordinate <= farthest;
}

}  // namespace

std::string EncodePlacement(const WindowPlacement& placement) {
    std::array<uint32_t, fields> values{};
    values[0] = blockSize;
    values[showField] = placement.maximised ? showMaximised : showAtPlace;
    // -1 stands for "wherever the system likes".
    for (size_t i = showField + 1; i < rectangleField; ++i)
        values[i] = UINT32_MAX;
    const std::array<int32_t, 4> rectangle = {placement.left, placement.top, placement.right,
                                              placement.bottom};
    for (size_t i = 0; i < rectangle.size(); ++i)
        values[rectangleField + i] = static_cast<uint32_t>(rectangle[i]);

    std::string block;
    for (const uint32_t value : values) {
        for (int shift = 0; shift < 32; shift += 8)
            block += static_cast<char>(value >> shift);
    }
    return block;
}

std::optional<WindowPlacement> DecodePlacement(std::string_view block) {
    if (block.size() < blockSize) return std::nullopt;
    const auto field = [&](size_t index) {
        uint32_t value = 0;
        for (size_t i = 4; i-- > 0;)
            value = value << 8 | static_cast<uint8_t>(block[index * 4 + i]);
        return value;
    };
    const auto coordinate = [&](size_t index) { return static_cast<int32_t>(field(rectangleField + index)); };
    if (field(showField) > lastShowCommand) return std::nullopt;
    // Hidden, minimised and the like are shown at their place.
    const WindowPlacement placement{coordinate(0), coordinate(1), coordinate(2), coordinate(3),
                                    field(showField) == showMaximised};
    for (size_t i = 0; i < 4; ++i) {
        if (!OnSomeScreen(coordinate(i))) return std::nullopt;
    }
    if (placement.right - placement.left < smallestWindowWidth ||
        placement.bottom - placement.top < smallestWindowHeight)
        return std::nullopt;
    return placement;
}

}  // namespace tarnbridge
