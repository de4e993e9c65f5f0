#pragma once

#include <stdexcept>
#include <string>

namespace tarnbridge {

/// Why an operation of the image layer failed.
enum class PLError : int {
    CannotRead = 1,  ///< the file can't be opened or read, or is too large
    EndsEarly = 2,   ///< the file ends before its picture does
    Invalid = 3,     ///< the picture is one that can't be, or not one for the operation
    UnknownFileType = 8,
    OutOfMemory = 10,
    NotCompiledIn = 12,  ///< a known type without a decoder
};

/// The one exception of the image layer: a code, and as what() a sentence for a log.
class PLTextException : public std::runtime_error {
public:
    PLTextException(PLError code, const std::string& text) : std::runtime_error(text), code_(code) {}
    PLError code() const { return code_; }

private:
    PLError code_;
};

}  // namespace tarnbridge
