#pragma once

#include "platform/Clock.h"

namespace tarnbridge {

/// Of what the mirror of the handset's messages is a picture. Belongs to the thread that owns the folders.
struct MirrorState {
    bool read = false;     ///< since the program began
    LocalTime readAt{};    ///< the rest is of the last reading
    unsigned session = 0;  ///< its HandsetLink::SessionNumber
    bool whole = false;    ///< nothing is known to be missing

    /// Whether another handset, or another state of it, may stand behind the mirror by now.
    bool IsOld(unsigned sessionNow) const { return read && session != sessionNow; }
};

}  // namespace tarnbridge
