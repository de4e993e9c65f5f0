#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarnbridge {

/// No character of the name is a backslash, `/`, a backquote or `;`.
bool IsNameCharsOk(std::u16string_view name);

/// How a name would go to the handset (NameEncoding), and the length that the handset counts: a plain name's
/// \ | [ ] { } ^ ~ count twice.
uint8_t ClassifyName(std::u16string_view name, int& length);

/// What decides whether a name fits on the handset.
struct HandsetNameLimits {
    bool hasPackedUcs2 = false;  ///< the session found "UCS2_0x81"
    /// Asks for the text length that the SIM, or else the phone, reports for its phonebook.
    std::function<std::optional<int>(bool isSim)> textLength;
};

/// Whether a name fits on the SIM, or else the phone; true for a name that doesn't go to the handset. Gives
/// its encoding and the memory's text length, which is 14 for the SIM and 30 for the phone if it can't be
/// had. A name that doesn't fit is cut, by characters: doubled ones may leave it too long still.
bool FitNameToHandset(std::u16string& name, bool isSim, uint8_t& encoding, bool toHandset, int& maxLength,
                      const HandsetNameLimits& limits);

/// Only digits and `+*#pwPW`, a `+` only in front and not alone, a `p` or `w` neither in front nor before `*`
/// or `#`. No number is acceptable.
bool IsNumberCharsOk(std::u16string_view number);

/// Up to 40 ASCII characters, 41 with a `+` in front.
bool IsNumberLengthOk(std::u16string_view number);

/// 3 to 60 characters around an `@`; no address is acceptable.
bool IsEmailOk(std::u16string_view email);

/// What of a text may stand in a number.
std::u16string CleanNumber(std::u16string_view text);

}  // namespace tarnbridge
