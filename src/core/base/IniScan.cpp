#include "core/base/IniScan.h"

#include <algorithm>
#include <limits>

namespace tarnbridge {
namespace {

constexpr size_t longestPiece = 1023;
constexpr std::string_view blanks = " \t\n\v\f\r";

void SkipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

}  // namespace

std::vector<std::string_view> SplitIntoPieces(std::string_view text) {
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        std::string_view piece = text.substr(0, longestPiece);
        if (const size_t end = piece.find('\n'); end != piece.npos) piece = piece.substr(0, end + 1);
        text.remove_prefix(piece.size());
        pieces.push_back(piece.substr(0, piece.find('\0')));
    }
    return pieces;
}

std::optional<std::string_view> TakeWord(std::string_view& rest) {
    SkipBlanks(rest);
    if (rest.empty()) return std::nullopt;
    const std::string_view word = rest.substr(0, rest.find_first_of(blanks));
    rest.remove_prefix(word.size());
    return word;
}

std::optional<std::pair<std::string_view, std::string_view>> ScanAssignment(std::string_view piece) {
    const auto key = TakeWord(piece);
    SkipBlanks(piece);
    if (!key || !piece.starts_with('=')) return std::nullopt;
    piece.remove_prefix(1);
    const auto value = TakeWord(piece);
    if (!value) return std::nullopt;
    return std::pair(*key, *value);
}

int32_t ScanNumber(std::string_view text) {
    SkipBlanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    constexpr int64_t largest = std::numeric_limits<int32_t>::max();
    int64_t value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') break;
        value = std::min(value * 10 + (digit - '0'), largest + 1);
    }
    return static_cast<int32_t>(negative ? -value : std::min(value, largest));
}

}  // namespace tarnbridge
