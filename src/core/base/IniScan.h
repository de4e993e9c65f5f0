#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnbridge {

// How the hand-written settings files are read: piece by piece, each scanned for words. A word is a run of
// characters other than blank, tab, CR, LF, VT and FF. All views point into the text that was passed in.

/// A file of settings larger than this isn't read.
inline constexpr uint64_t largestSettingsFile = 4 * 1024 * 1024;

/// The text in pieces of at most 1,023 bytes, each ending with its LF or at that length, so that the rest of
/// a longer line counts as a line of its own. A piece is cut at its first NUL.
std::vector<std::string_view> SplitIntoPieces(std::string_view text);

/// Takes the blanks and the word after them off the front; nothing when there is no word.
std::optional<std::string_view> TakeWord(std::string_view& rest);

/// `key = value`. The first word is the key, so a blank must stand before the `=`; the value is the next word
/// after it. Nothing when either is missing.
std::optional<std::pair<std::string_view, std::string_view>> ScanAssignment(std::string_view piece);

/// The decimal number with which a text begins, after blanks; 0 if there is none. A number beyond 32 bits is
/// the nearest that they hold.
int32_t ScanNumber(std::string_view text);

}  // namespace tarnbridge
