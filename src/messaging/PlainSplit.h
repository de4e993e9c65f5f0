#pragma once

#include <string_view>
#include <vector>

namespace tarnbridge {

// The parts in which a plain text goes out (3GPP TS 23.040, 9.2.3.24.1): the whole of it if it fits into one
// PDU, else pieces that fit beside a concatenation element with an 8-bit reference. Always one at least. The
// pieces point into the text.

/// Up to 160 bytes, else pieces of 153 or, so that an escape stays with its character, of 152.
std::vector<std::string_view> SplitBytes(std::string_view text);

/// Up to 70 units, else pieces of 67 or, so that a surrogate pair stays whole, of 66.
std::vector<std::u16string_view> SplitUnits(std::u16string_view text);

}  // namespace tarnbridge
