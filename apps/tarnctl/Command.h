#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <string>

#include "platform/SerialDevice.h"

namespace tarnbridge {

/// How a run of the program ends.
enum ExitCode : int { Done = 0, OperationFailed = 1, WrongUsage = 2, NoLink = 3 };

/// What stands before the command.
struct GlobalOptions {
    std::string port;  ///< a device path or COM7; empty for the stored preference
    uint32_t baudRate = 115200;
    FlowControl flowControl = FlowControl::None;
    bool json = false;
    bool trace = false;
};

/// What the chosen command does. Runs after the whole command line has been read.
using Action = std::function<ExitCode(const GlobalOptions&)>;

// Each adds its commands to the program and sets `chosen` when one of them is given.
void AddLinkCommands(CLI::App& app, Action& chosen);
void AddTextCommands(CLI::App& app, Action& chosen);
void AddSmsCommands(CLI::App& app, Action& chosen);
void AddProfileCommands(CLI::App& app, Action& chosen);

}  // namespace tarnbridge
