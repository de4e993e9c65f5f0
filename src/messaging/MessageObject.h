#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "messaging/ems/EmsObject.h"

namespace tarnbridge {

/// The content of an object of a message, apart from any message. Whether it can stand in one is found out
/// when it is put there.
struct MessageObject {
    static MessageObject PredefinedSound(int number);      ///< 0 to 9
    static MessageObject PredefinedAnimation(int number);  ///< 0 to 14
    static MessageObject Melody(std::string_view iMelody);

    /// Images of at most 255 pixels a side, as EmsObjectData describes them.
    static MessageObject Picture(std::string_view pixels, int width, int height, int depth = 1);
    static MessageObject Animation(std::string_view pixels, int width, int height, int frames, int depth = 1);

    /// A copy of what a message holds, which isn't a text format.
    static MessageObject Of(const EmsObject& object);

    /// For AddObject; it points into this.
    EmsObjectData Data() const;

    EmsKind kind = EmsKind::PredefinedSound;
    uint8_t number = 0;          ///< of a predefined kind
    EmsObjectData attributes{};  ///< all but `bytes` and `size`
    std::string bytes{};
};

}  // namespace tarnbridge
