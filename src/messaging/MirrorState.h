#pragma once

#include <string>

#include "platform/Clock.h"

namespace tarnbridge {

/// Of what the mirror of the handset's messages is a picture. Belongs to the thread that owns the folders.
struct MirrorState {
    bool read = false;     ///< since the program began
    LocalTime readAt{};    ///< as the following, of the last reading
    unsigned session = 0;  ///< HandsetLink::SessionNumber
    bool whole = false;    ///< nothing is known to be missing
    bool refuted = false;  ///< the handset was found to hold something else by now

    /// Whether another handset, or another state of it, may stand behind the mirror by now.
    bool IsOld(unsigned sessionNow) const { return read && (refuted || session != sessionNow); }

    /// What the user is told beside the mirror; empty while it is whole and of this session, or empty itself.
    std::u16string Words(unsigned sessionNow, const LocalTime& now) const;
};

}  // namespace tarnbridge
