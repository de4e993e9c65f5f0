#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnbridge::simulator {

/// One argument of a command: the text between two commas, without the blanks around it. A quoted string
/// comes without its quotes, and `\hh` in it is the byte of that number (ITU-T V.250 5.4.2.2).
struct Argument {
    std::string text;
    bool quoted = false;

    bool Missing() const { return text.empty() && !quoted; }

    /// The value of an unquoted run of at most nine digits.
    std::optional<int> Number() const;
};

/// One command of a command line, such as `+CPMS="SM"` or `E0`.
struct Command {
    enum class Form { Execute, Read, Test, Set };

    std::string name;  ///< in capitals, with its + or &: "+CPMS", "E", "&F"
    Form form = Form::Execute;
    std::vector<Argument> arguments;
    std::string text;  ///< as it was written, without AT

    /// The argument at an index, a missing one if there are fewer.
    const Argument& At(size_t index) const;
};

/// The commands of a line that began with AT, without that AT and the CR. Nothing when it can't be read; what
/// stands before the mistake isn't carried out either.
std::optional<std::vector<Command>> ParseCommands(std::string_view text);

}  // namespace tarnbridge::simulator
