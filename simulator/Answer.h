#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/Command.h"
#include "simulator/HandsetContent.h"

namespace tarnbridge::simulator {

class Call;

/// How a command ends.
struct Answer {
    enum class Kind { Ok, Error, CmsError, CmeError, Body };

    static Answer Ok() { return {Kind::Ok, 0, {}}; }
    static Answer Error() { return {Kind::Error, 0, {}}; }
    /// `+CMS ERROR: number`, 3GPP TS 27.005 3.2.5.
    static Answer Cms(int number) { return {Kind::CmsError, number, {}}; }
    /// `+CME ERROR: number`, 3GPP TS 27.007 9.2, in the form that AT+CMEE has chosen.
    static Answer Cme(int number) { return {Kind::CmeError, number, {}}; }
    /// Not yet: the prompt comes, and the function gets the text up to Ctrl-Z.
    static Answer Body(std::function<Answer(Call&, const std::string&)> taker) {
        return {Kind::Body, 0, std::move(taker)};
    }

    Kind kind;
    int number;
    std::function<Answer(Call&, const std::string&)> takeBody;
};

/// One thing that the handset says. Its bytes hold the line ends that belong to it.
struct Piece {
    enum class Kind {
        Echo,
        Information,  ///< a line of a response
        Pdu,          ///< the line that directly follows the information line before it
        Prompt,
        Final,
        Unsolicited,
    };

    Kind kind;
    std::string bytes;
};

/// What may come between a command and its execution.
class CommandGate {
public:
    enum class Stage { Command, Body };

    virtual ~CommandGate() = default;

    /// Asked for each command line, and whether the handset takes any notice of it.
    virtual bool Hears(const std::string& line) = 0;

    /// The same for the body that follows a prompt; one that isn't heard is gone, and its command with it.
    virtual bool HearsBody(const Command& command) = 0;

    /// Asked for each command, and again when its body is there: the answer that is given in place of
    /// carrying it out, or nothing.
    virtual std::optional<Answer> Instead(const Command& command, Stage stage) = 0;

    /// Changes the manners that hold for the next command line.
    virtual void Shape(Features& features) const = 0;
};

}  // namespace tarnbridge::simulator
