#pragma once

#include <cstdint>

namespace tarnbridge {

// The LZSS coding of extended objects (3GPP TS 23.040, annex F.1). A run of literals is an octet 128 + count
// and 1 to 127 bytes; a copy is two octets with a length of 3 to 63 and a distance back of 1 to 511, which
// may be shorter than the length.

/// The largest input that Compress takes.
inline constexpr int longestCompressInput = 8192;

/// Codes `size` bytes and gives the length of the result, or -1 when it is longer than `capacity`.
int Compress(const uint8_t* bytes, int size, uint8_t* out, int capacity);

/// The reverse. -1 when the input is malformed or the result is longer than `capacity`.
int Decompress(const uint8_t* bytes, int size, uint8_t* out, int capacity);

}  // namespace tarnbridge
