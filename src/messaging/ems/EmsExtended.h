#pragma once

#include <cstdint>

#include "messaging/ems/Ems.h"

namespace tarnbridge {

inline constexpr int extendedHead = 7;    ///< octets of an extended object's record in front of its data
inline constexpr int compressedHead = 3;  ///< octets in front of a compressed block
inline constexpr uint8_t lastSpareType = 254;
inline constexpr uint8_t firstSpareType = 13;

/// Octets of the record (3GPP TS 23.040, 9.2.3.24.10.1.13, from octet 1 on) of an extended object.
int ExtendedRecordSize(const EmsObject& object);
void WriteExtendedRecord(const EmsObject& object, uint8_t* out);

/// Octets of the content of a reused extended object's element: the reference and the position.
void WriteReusedRecord(const EmsObject& object, uint8_t* out);

/// One record as read. `object.data.bytes` points into the record, and `object.reference` is the sender's.
struct ExtendedRecord {
    EmsObject object;
    bool isKnown = false;  ///< false for a type that this library passes over
};

/// `size` is at least extendedHead. The position is as the record says, at most the longest text.
EmsResult ReadExtendedRecord(const uint8_t* bytes, int size, ExtendedRecord& record);

/// A character position of a record as a byte offset within bounds.
uint16_t RecordPosition(const uint8_t* bytes);

/// The most octets that a compressed block may have: those of ten segments.
inline constexpr int longestCompressedBlock = emsSegments * 140;

/// Makes the compressed block of all extended objects, with its head. Gives its size, or 0 when the objects
/// take less room without compression.
int WriteCompressedBlock(const EmsMessage& message, uint8_t* out);

}  // namespace tarnbridge
