#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarnbridge {

/// The byte that announces a character of the extension table (3GPP TS 23.038, 6.2.1.1). It stands in local
/// text as it stands on the wire, and is taken out where text is shown.
inline constexpr char gsmEscape = '\x1B';

/// The eight characters | ^ { } [ ~ ] \ that the GSM alphabet holds in its extension table.
bool IsGsmExtension(char16_t unit);

/// Local 8-bit text to the GSM default alphabet, a byte each. No escape is added: one of the eight extension
/// characters without gsmEscape in front goes out as the letter of the same code. Accented letters are
/// folded, what has no place becomes 0x5F.
std::string ToGsmAlphabet(std::string_view local);
void ToGsmAlphabet(std::span<char> text);

/// The GSM default alphabet to local 8-bit text, a byte each. Escapes are kept. One that isn't followed by an
/// extension character stays in force until one comes. A byte above 127 and a Greek letter become `_`.
std::string FromGsmAlphabet(std::string_view gsm);
void FromGsmAlphabet(std::span<char> text);

}  // namespace tarnbridge
