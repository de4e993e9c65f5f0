#include "messaging/PlainSplit.h"

#include "messaging/GsmAlphabet.h"

namespace tarnbridge {
namespace {

/// \param belongsToNext  whether a unit mustn't be the last of its piece where another one, the second
/// argument, follows it
template <typename Text, typename BelongsToNext>
std::vector<Text> Split(Text text, size_t single, size_t longest, BelongsToNext belongsToNext) {
    if (text.size() <= single) return {text};
    std::vector<Text> pieces;
    while (text.size() > longest) {
        const size_t length = belongsToNext(text[longest - 1], text[longest]) ? longest - 1 : longest;
        pieces.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    pieces.push_back(text);
    return pieces;
}

}  // namespace

std::vector<std::string_view> SplitBytes(std::string_view text) {
    return Split(text, 160, 153, [](char last, char) { return last == gsmEscape; });
}

std::vector<std::u16string_view> SplitUnits(std::u16string_view text) {
    return Split(text, 70, 67, [](char16_t last, char16_t next) {
        return (last & 0xFC00) == 0xD800 && (next & 0xFC00) == 0xDC00;
    });
}

}  // namespace tarnbridge
