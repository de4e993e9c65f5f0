#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/CodePage.h"

namespace tarnbridge {

/// What HexUcs2ToWide throws; its text is "error". The operation that called it catches it and fails.
class WireTextError : public std::runtime_error {
public:
    WireTextError() : std::runtime_error("error") {}
};

/// Text to hexadecimal digits of its UCS-2 units, four upper-case digits a unit, high byte first if
/// `bigEndian`, as names and paths travel while the handset stands in the character set "UCS2"
/// (3GPP TS 27.007, +CSCS). A surrogate is a unit like any other. Cut at 512 units.
std::string WideToHexUcs2(std::u16string_view text, bool bigEndian);

/// The reverse. Digits are `0`-`9` and `A`-`F`; any other character, a lower-case digit among them, throws
/// WireTextError. An odd last digit is ignored, and a last byte alone is the low half of its unit. A zero
/// unit ends the text. Cut at 512 units.
std::u16string HexUcs2ToWide(std::string_view hex, bool bigEndian);

/// Text, up to its first zero unit, to bytes of a code page, each unit byte-swapped first if `swap`. At most
/// 4,096 units are read and 1,023 bytes made.
std::string WideToNarrow(std::u16string_view text, bool swap, const CodePage& page = CodePage::System());

/// UTF-8, up to its first zero byte, to at most 2,047 units. Continuation bytes aren't checked. A byte that
/// can't start a sequence of one to three bytes, a four-byte sequence among them, and a sequence that is cut
/// off end the text, keeping what was made.
std::u16string Utf8ToWide(std::string_view bytes);

/// Text, up to its first zero unit, to at most 4,096 bytes of UTF-8. Each half of a surrogate pair is coded
/// by itself, in three bytes. A character that doesn't fit ends the text.
std::string WideToUtf8(std::u16string_view text);

/// Codes a text as an alpha identifier with the lead byte 0x81 (3GPP TS 11.11, annex B): 0x81, the number of
/// characters, the half page / 128, then a byte a character. Gives the number of bytes made, or 0 with
/// `packed` empty if the text can't be coded so: no unit of 0x80 or above, units of two half pages, a unit
/// without one, or more than 117 characters.
int PackUcs2Alpha(std::u16string_view text, std::string& packed);

/// The base of the 128-unit half page that a unit of 0x80 or above is coded against, or 0 if it has none.
uint16_t HalfPageOf(char16_t unit);

}  // namespace tarnbridge
