#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarnbridge {

/// The byte that announces a character of the extension table (3GPP TS 23.038, 6.2.1.1). It stands in local
/// text as it stands on the wire, and is taken out where text is shown.
inline constexpr char gsmEscape = '\x1B';

/// The nine characters | ^ { } [ ~ ] \ and the euro sign that the GSM alphabet holds in its extension table.
bool IsGsmExtension(char16_t character);

/// Local 8-bit text, or that of a part, to the GSM default alphabet, a byte each. No escape is added: one of
/// the nine extension characters, of which the euro sign is 0x80, goes out as the letter of the same code
/// without gsmEscape in front. Accented letters are folded, what has no place becomes 0x5F.
std::string ToGsmAlphabet(std::string_view local);
void ToGsmAlphabet(std::span<char> text);

/// The GSM default alphabet to local 8-bit text, a byte each. Escapes are kept. One that isn't followed by an
/// extension character stays in force until one comes. A byte above 127 and a Greek letter become `_`.
std::string FromGsmAlphabet(std::string_view gsm);
void FromGsmAlphabet(std::span<char> text);

/// The GSM default alphabet to the text of a part, a byte each, from which everything that was received can
/// be shown: the local text, but an escape holds for the one character behind it, and the Greek capitals that
/// no local byte stands for keep their GSM values, 0x10 and 0x12 to 0x1A.
void FromGsmToPart(std::span<char> text);

/// The character that a byte of a part's text stands for, and the other way round. What isn't one of the
/// euro sign and those Greek capitals stands for itself.
char16_t CharacterOfPart(char16_t byte);
char16_t PartOfCharacter(char16_t character);

/// What arrives of the text of a part that goes out: letters may be folded or replaced. A byte each.
std::string AsItArrives(std::string_view part);

/// The text of a part as it is shown, without escapes. A form feed is a line feed.
std::u16string TextOfPart(std::string_view part);

}  // namespace tarnbridge
