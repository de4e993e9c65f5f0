#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>

#include "simulator/HandsetContent.h"

namespace tarnbridge::simulator {

/// What the handset remembers for one connection, with the values that it has when it is plugged in.
struct Session {
    /// As after a new plug or ATZ. The counts and the clock of the session before go on.
    static Session Begin(const HandsetContent& content, const Features& features, const Session& before);

    bool echo = true;
    int errorForm = 1;  ///< of AT+CMEE: 0 a bare ERROR, 1 a number, 2 words
    std::string charset = "IRA";
    std::array<std::string, 3> memories{"SM", "SM", "SM"};  ///< to read, to write, for what arrives
    std::string storage = "SM";                             ///< of the phonebook
    int channelMode = 4;
    int messageService = 0;
    std::array<int, 5> indications{0, 0, 0, 0, 0};  ///< of AT+CNMI
    int registrationReports = 0;
    int packetReports = 0;
    bool packetService = true;
    int operatorFormat = 0;
    std::chrono::seconds clockAhead{0};   ///< of the phone's clock before the one that it is given
    std::optional<int> minutesEastOfUtc;  ///< where the PC has told the phone its zone
    unsigned messageReference = 0;
    unsigned changes = 0;  ///< how often the content was changed
};

}  // namespace tarnbridge::simulator
