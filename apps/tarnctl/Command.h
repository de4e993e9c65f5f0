#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/EntryStore.h"
#include "platform/SerialDevice.h"

namespace tarnbridge {

/// How a run of the program ends.
enum ExitCode : int { Done = 0, OperationFailed = 1, WrongUsage = 2, NoLink = 3 };

/// What stands before the command.
struct GlobalOptions {
    std::string port;   ///< a device path or COM7; empty for the stored preference
    std::string model;  ///< key of a phone model that is known; empty for the stored preference
    std::optional<uint32_t> baudRate;
    std::optional<FlowControl> flowControl;
    bool json = false;
    bool trace = false;
};

/// What the chosen command does. Runs after the whole command line has been read.
using Action = std::function<ExitCode(const GlobalOptions&)>;

/// How fast the port is opened.
struct LinkSpeed {
    uint32_t baudRate = 115200;
    FlowControl flowControl = FlowControl::None;
};

/// What is given on the command line counts first; what isn't is as --model says, or, if nothing at all is
/// given, as the stored model says.
LinkSpeed ChooseLinkSpeed(const GlobalOptions& options, EntryStore& store);

/// Whether there is such a phone model. If there isn't, the user has been told.
bool IsKnownModel(const std::string& key);

// Each adds its commands to the program and sets `chosen` when one of them is given.
void AddLinkCommands(CLI::App& app, Action& chosen);
void AddTextCommands(CLI::App& app, Action& chosen);
void AddSmsCommands(CLI::App& app, Action& chosen);
void AddSettingsCommands(CLI::App& app, Action& chosen);
void AddPduCommands(CLI::App& app, Action& chosen);
void AddEmsCommands(CLI::App& app, Action& chosen);
void AddVcardCommands(CLI::App& app, Action& chosen);
void AddContactCommands(CLI::App& app, Action& chosen);
void AddProfileCommands(CLI::App& app, Action& chosen);

}  // namespace tarnbridge
