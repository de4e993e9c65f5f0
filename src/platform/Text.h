#pragma once

#include <string>
#include <string_view>

namespace tarnbridge {

/// UTF-8 to the program's text. Surrogate pairs are made; every byte that isn't part of a well-formed
/// sequence (RFC 3629) becomes U+FFFD.
std::u16string Utf8ToText(std::string_view utf8);

/// The program's text to UTF-8. A surrogate without its partner becomes U+FFFD.
std::string TextToUtf8(std::u16string_view text);

/// ASCII, or Latin-1, bytes to text: each byte becomes the unit of the same number.
std::u16string WidenBytes(std::string_view bytes);

/// Whether two byte strings are equal but for the case of the ASCII letters.
bool EqualIgnoringCase(std::string_view first, std::string_view second);

/// The text in small letters, for searching whatever the case. A letter outside the first 65,536 characters,
/// or one whose small form has another length, stays.
std::u16string FoldCase(std::u16string_view text);

/// Upper-case hexadecimal digits of the bytes, two a byte.
std::string BytesToHex(std::string_view bytes);

}  // namespace tarnbridge
