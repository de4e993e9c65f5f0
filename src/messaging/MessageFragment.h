#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "messaging/MessageObject.h"

namespace tarnbridge {

/// Text of one look, as it is shown: without marks, with U+000A for a line end.
struct FormattedText {
    std::u16string text;
    EmsTextFormat format;
};

/// A part of a message apart from it: what is cut or copied and pasted.
using MessageFragment = std::vector<std::variant<FormattedText, MessageObject>>;

/// The text alone, for other programs.
std::u16string PlainText(const MessageFragment& fragment);

/// Makes any text, typed or pasted, one that can be shown: each line end U+000A, a tab a blank, nothing else
/// that is IsUnshowable. For a message that stays in the 7-bit coding, each character beyond Latin-1 that the
/// GSM alphabet doesn't have becomes a question mark.
std::u16string CleanText(std::u16string_view text, bool latinOnly);

/// Whether each unit is one of the 7-bit coding as far as the choice of the coding goes: none above 127.
bool IsSevenBit(std::u16string_view text);

/// Clean text as it stands in a message: a line end is CR LF, and unless the coding is UCS2, the characters
/// of the GSM extension table (3GPP TS 23.038, 6.2.1.1) have the mark 0x1B in front and characters are the
/// bytes of PartOfCharacter.
std::u16string MessageText(std::u16string_view clean, bool ucs2);

}  // namespace tarnbridge
