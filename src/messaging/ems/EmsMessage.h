#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "messaging/ems/EmsObject.h"

namespace tarnbridge {

inline constexpr int emsSegments = 10;
inline constexpr int emsSlots = 5000;
inline constexpr int emsSegmentBuffer = 160;         ///< bytes that Generate may write for a segment
inline constexpr int emsLongestText = 3060;          ///< bytes, in a message of 10 segments
inline constexpr int emsLongestReadText = 3060 + 4;  ///< bytes, as read from received segments
inline constexpr int emsMostObjects = 352;           ///< in one message, text formats included

struct EmsState;

/// One long message: its text, and the list of the objects placed in it. The caller owns it and makes it
/// ready by EmsCreate; the fields are for reading, and are changed through the functions of Ems.h. Two
/// messages may be worked on by two threads, one message by one thread at a time.
struct EmsMessage {
    EmsMessage();
    ~EmsMessage();  ///< releases its slot
    EmsMessage(const EmsMessage&) = delete;
    EmsMessage& operator=(const EmsMessage&) = delete;

    uint16_t cursor = 0;                ///< byte offset in text, even
    EmsObject* current = nullptr;       ///< the last object of the list before the cursor
    EmsObject* activeFormat = nullptr;  ///< the text format that covers the character before the cursor
    EmsObject* first = nullptr;
    EmsObject* last = nullptr;
    int slot = 0;                                        ///< 1 to emsSlots, 0 for none
    std::array<uint8_t, emsLongestReadText + 2> text{};  ///< UCS2 big-endian, closed by a pair of zeros
    uint16_t textLength = 0;                             ///< bytes
    uint16_t textCapacity = 0;                           ///< bytes
    uint8_t dcs = 0;                                     ///< 0, 16 (class 0), 4 (8-bit) or 8 (UCS2)
    uint8_t dcsByte = 0;          ///< as the user set it, its bits 3 and 2 following dcs
    int hasHeader = 0;            ///< 1 when the segments need a user data header
    int isConcatenated = 0;       ///< 1 when there is more than one segment
    uint8_t segmentsUsed = 1;     ///< one above the number allowed when the content doesn't fit
    uint8_t lastSegmentLeft = 0;  ///< characters
    uint8_t segmentSize = 0;      ///< characters, of the last segment
    uint16_t totalLeft = 0;       ///< characters
    int hasPorts = 0;             ///< 1 when an application port element is present
    uint16_t sourcePort = 0;
    uint16_t destPort = 0;
    std::unique_ptr<EmsState> state;
};

}  // namespace tarnbridge
