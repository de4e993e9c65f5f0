#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnbridge {

/// Where the main window stands, as it is kept from one run to the next. Pixels from the left and the top of
/// the screen.
struct WindowPlacement {
    int32_t left = 110;
    int32_t top = 30;
    int32_t right = 810;
    int32_t bottom = 580;
    bool maximised = true;

    bool operator==(const WindowPlacement&) const = default;
};

inline constexpr int32_t smallestWindowWidth = 700;
inline constexpr int32_t smallestWindowHeight = 550;

/// The placement as a WINDOWPLACEMENT block of 44 bytes. A window that is neither maximised nor restorable to
/// that is written as one to be shown at its place, minimised or not.
std::string EncodePlacement(const WindowPlacement& placement);

/// Nothing from a block that is too short, that has no valid show command, or whose rectangle is smaller than
/// the smallest window or lies at coordinates that no screen has.
std::optional<WindowPlacement> DecodePlacement(std::string_view block);

}  // namespace tarnbridge
