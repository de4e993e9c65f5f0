#pragma once

#include <cstdint>
#include <string_view>

namespace tarnbridge {

/// What the operations on an EmsMessage answer.
enum class EmsResult : uint8_t {
    Done = 0,
    InvalidObject = 1,
    NoRoom = 2,  ///< the content needs more segments than are allowed
    InvalidDcs = 3,
    ColourNotSupported = 4,
    NullPointer = 5,
    NoMemory = 6,  ///< the message's arena is full, or it holds as many objects as it can
    AlreadyInitialised = 7,
    NotInitialised = 8,
    NoFreeSlot = 9,
    InvalidMessage = 10,         ///< EmsCreate wasn't called for it, or the library was shut down since
    InvalidData = 11,            ///< in a PDU or in a call
    InvalidExtendedObject = 15,  ///< in a PDU
};

/// The words that the editor shows for a result; empty for Done. NoRoom has words of its own where the
/// settings allow one segment only.
std::u16string_view EmsResultWord(EmsResult result, bool oneSegmentAllowed = false);

}  // namespace tarnbridge
