#pragma once

#include <string_view>

namespace tarnbridge {

/// Whether a file may become a melody of a message.
enum class EmsMelodyFit {
    Fits,
    NotIMelody,
    TooLarge,  ///< for one object
};

/// Looks at the whole content of a file. An iMelody begins with BEGIN:IMELODY and ends with END:IMELODY, in
/// any letter case, with nothing but blanks and line ends behind it; what stands between isn't read. Whether
/// the message has room is for AddObject to say.
EmsMelodyFit CheckEmsMelody(std::string_view file);

}  // namespace tarnbridge
