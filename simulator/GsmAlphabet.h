#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnbridge::simulator {

/// Text in the GSM default alphabet, one septet a byte, characters of the extension table with the escape
/// 0x1B before them (3GPP TS 23.038 6.2.1). Nothing when a character isn't in it.
std::optional<std::string> TextToSeptets(std::u16string_view text);

/// The reverse. An unknown pair is a blank, a byte above 0x7F is U+FFFD.
std::u16string SeptetsToText(std::string_view septets);

}  // namespace tarnbridge::simulator
