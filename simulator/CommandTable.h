#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "simulator/Answer.h"
#include "simulator/HandsetContent.h"
#include "simulator/Session.h"

namespace tarnbridge::simulator {

/// What a command sees of the handset while it is carried out.
class Call {
public:
    Call(const Command& theCommand, HandsetContent& theContent, Session& theSession,
         const Features& theFeatures, const std::function<LocalTime()>& time, std::vector<Piece>& said)
        : command(theCommand),
          content(theContent),
          session(theSession),
          features(theFeatures),
          time_(time),
          said_(said) {}

    const Command& command;
    HandsetContent& content;
    Session& session;
    const Features& features;

    /// An information line, with CR LF before and after it.
    void Line(const std::string& text) {
        said_.push_back({Piece::Kind::Information, "\r\n" + text + "\r\n"});
    }

    /// A line that follows the last one directly, as a PDU does.
    void Pdu(const std::string& text) { said_.push_back({Piece::Kind::Pdu, text + "\r\n"}); }

    /// A line that is said after the final result.
    void Later(const std::string& text) {
        later.push_back({Piece::Kind::Unsolicited, "\r\n" + text + "\r\n"});
    }

    /// By the phone's own clock, as AT+CCLK has set it.
    LocalTime Now() const;

    /// The content was changed and wants to be saved.
    void Changed() { ++session.changes; }

    std::vector<Piece> later;

private:
    const std::function<LocalTime()>& time_;
    std::vector<Piece>& said_;
};

using Handler = std::function<Answer(Call&)>;
using CommandTable = std::map<std::string, Handler, std::less<>>;

/// Each family adds its commands; one file for each.
void AddBasicCommands(CommandTable& table);
void AddNetworkCommands(CommandTable& table);
void AddSessionCommands(CommandTable& table);
void AddMessageCommands(CommandTable& table);
void AddPhonebookCommands(CommandTable& table);

/// All families together.
CommandTable MakeCommandTable();

}  // namespace tarnbridge::simulator
