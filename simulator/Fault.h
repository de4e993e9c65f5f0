#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/Result.h"

namespace tarnbridge::simulator {

/// One fault, as told by `--fault` in the grammar of Help, and how often it was met.
struct Fault {
    /// The failure says which text is wrong and why.
    static Result<Fault> Parse(const std::string& specification);

    /// The grammar and the list of faults, for people.
    static const char* Help();

    /// `after=handshake`.
    static constexpr int afterHandshake = -1;

    std::string name;
    std::string text;                 ///< the value, or its part before the colon of a number
    bool numbered = false;            ///< whether there is a number
    int number = 0;                   ///< the value, or its part after the last colon
    bool ofBody = false;              ///< the text ended with `>`: bodies are meant, not command lines
    std::map<std::string, int> with;  ///< the modifiers
    int met = 0;                      ///< how often its command was met

    int With(const char* key, int otherwise) const;

    /// For a fault with a place: whether it strikes this command line (without AT) or the body of this
    /// command. Counts.
    bool Strikes(const std::string& command, bool body);
};

/// What the text of a fault is compared with.
std::string WithoutBlanks(std::string text);

}  // namespace tarnbridge::simulator
