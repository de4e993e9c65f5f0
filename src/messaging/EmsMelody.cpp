#include "messaging/EmsMelody.h"

#include "messaging/ems/EmsArena.h"
#include "platform/Text.h"

namespace tarnbridge {

EmsMelodyFit CheckEmsMelody(std::string_view file) {
    constexpr std::string_view begin = "BEGIN:IMELODY";
    constexpr std::string_view end = "END:IMELODY";
    constexpr std::string_view blanks = " \t\r\n";
    const std::string_view text = file.substr(0, file.find_last_not_of(blanks) + 1);
    if (text.size() < begin.size() + end.size() || text.find('\0') != std::string_view::npos ||
        !EqualIgnoringCase(text.substr(0, begin.size()), begin) ||
        blanks.find(text[begin.size()]) == std::string_view::npos ||
        !EqualIgnoringCase(text.substr(text.size() - end.size()), end))
        return EmsMelodyFit::NotIMelody;
    return file.size() > EmsArena::largestBlock ? EmsMelodyFit::TooLarge : EmsMelodyFit::Fits;
}

}  // namespace tarnbridge
