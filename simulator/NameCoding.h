#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnbridge::simulator {

/// The sets that AT+CSCS knows.
inline constexpr std::string_view charsets[] = {"IRA", "GSM", "UCS2", "UCS2_0x81"};

/// A name from a command, in one of the sets. "UCS2" is four upper-case hex digits a unit; "UCS2_0x81" the
/// hex of 0x81, the count of characters, the page and a byte a character (3GPP TS 11.11 annex B), or the same
/// as "UCS2". Nothing when it isn't well-formed in that set.
std::optional<std::u16string> NameFromWire(std::string_view charset, std::string_view wire);

/// A name for a response. What the set doesn't hold becomes a question mark; quotes and backslashes are
/// written as `\22` and `\5C`.
std::string NameToWire(std::string_view charset, std::u16string_view name);

/// How many bytes the name takes in a SIM's record: one a septet, or the shorter of the forms 0x80 and 0x81.
size_t StoredLength(std::u16string_view name);

}  // namespace tarnbridge::simulator
