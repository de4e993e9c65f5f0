#pragma once

#include <cstdint>
#include <optional>

#include "messaging/ems/EmsObject.h"

namespace tarnbridge {

/// Some of the attributes of a text format, with values as there: those to be changed, or those that several
/// formats have in common.
struct FormatChange {
    static FormatChange AllOf(const EmsTextFormat& format);

    EmsTextFormat AppliedTo(EmsTextFormat format) const;

    /// Leaves out what the format has otherwise.
    void KeepCommon(const EmsTextFormat& format);

    std::optional<uint8_t> size{};
    std::optional<uint8_t> alignment{};
    std::optional<uint8_t> bold{};
    std::optional<uint8_t> italic{};
    std::optional<uint8_t> underline{};
    std::optional<uint8_t> strikethrough{};
    std::optional<uint8_t> background{};
    std::optional<uint8_t> foreground{};
};

}  // namespace tarnbridge
