#pragma once

#include <cstddef>

namespace tarnbridge {

/// The places below the root of a tree, for FolderNode::Child; the last one of contacts alone.
enum RootPlace : size_t { handsetPlace = 0, pcPlace = 1, contactTrashPlace = 2 };

/// The places of the message folders below the handset's and the PC's, the last two below the PC's alone.
enum MessagePlace : size_t {
    inboxPlace = 0,
    outboxPlace = 1,
    sentPlace = 2,
    draftPlace = 3,
    personalPlace = 4,
    messageTrashPlace = 5,
};

/// Those of the handset.
inline constexpr MessagePlace handsetPlaces[] = {inboxPlace, outboxPlace, sentPlace, draftPlace};

}  // namespace tarnbridge
