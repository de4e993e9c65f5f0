#pragma once

#include "tarnctl/Command.h"

namespace tarnbridge {

// The commands below `sms` that work on messages.

void AddMessageCommands(CLI::App& sms, Action& chosen);
void AddComposeCommands(CLI::App& sms, Action& chosen);

/// The option --memory.
void AddMemory(CLI::App& command, std::string& memory, const char* words);

}  // namespace tarnbridge
