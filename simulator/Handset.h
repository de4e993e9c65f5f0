#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "simulator/Answer.h"
#include "simulator/CommandTable.h"
#include "simulator/HandsetContent.h"
#include "simulator/Session.h"

namespace tarnbridge::simulator {

/// The phone: bytes of the PC in, what it says out. No input or output of its own and no lock.
class Handset {
public:
    /// `gate` may be null and must outlive the handset. `time` is the phone's own clock.
    Handset(HandsetContent content, CommandGate* gate, std::function<LocalTime()> time);

    /// Takes one byte and appends what the phone says to it.
    void Take(char byte, std::vector<Piece>& said);

    /// As after a new plug: half a line and all settings of the session are forgotten.
    void Restart();

    /// Forgets half a command line, as when the PC lets go of the port. A prompt goes on waiting for its
    /// body.
    void LetGo();

    /// Whether a prompt waits for its body.
    bool Prompts() const { return pending_.kind == Answer::Kind::Body; }

    /// Waits for the body no longer, with ERROR or without a word.
    void GiveUpPrompt(bool mute, std::vector<Piece>& said);

    /// Another phone, which has just been plugged in, takes this one's place and leaves it in `content`.
    void Exchange(HandsetContent& content);

    /// Answers a command line (without its CR) with these bytes as they stand, from now on, in place of what
    /// the phone would say. An empty reply makes it silent to that line.
    void Script(const std::string& line, std::string reply) { scripts_[line] = std::move(reply); }

    /// The phone's content, to be read or changed between two calls of Take.
    HandsetContent& Content() { return content_; }
    const Session& State() const { return session_; }

    /// The content was changed through Content and wants to be saved.
    void Changed() { ++session_.changes; }

    /// Goes up with every command that changed the content.
    unsigned Revision() const { return session_.changes; }

private:
    void ShapeFeatures();
    void Execute(const std::string& line, std::vector<Piece>& said);
    void Continue(std::vector<Piece>& said);
    void Finish(const Answer& answer, std::vector<Piece>& said);

    HandsetContent content_;
    CommandGate* const gate_;
    const std::function<LocalTime()> time_;
    const CommandTable table_;
    Features features_;
    Session session_;
    std::string line_;           // the command, or the body after a prompt
    std::vector<Command> rest_;  // the commands of the line in hand, the present one first
    Answer pending_ = Answer::Ok();
    std::map<std::string, std::string, std::less<>> scripts_;
};

}  // namespace tarnbridge::simulator
