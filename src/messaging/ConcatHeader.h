#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnbridge {

/// What a user data header says of the place of a part in its message (3GPP TS 23.040, 9.2.3.24.1 and
/// 9.2.3.24.8).
struct ConcatElement {
    int reference = 0;
    bool wide = false;  ///< a reference of 16 bits
    int total = 0;
    int sequence = 0;  ///< from 1
};

/// The first concatenation element of a header (without its length octet) that counts: total and sequence
/// aren't 0, and the sequence isn't above the total, both taken as signed octets.
std::optional<ConcatElement> FindConcat(std::string_view header);

/// Cuts every concatenation element out of the header and writes `element` over its start, which is extended
/// with zeros where it is shorter.
void StoreConcat(std::string& header, std::string_view element);

}  // namespace tarnbridge
