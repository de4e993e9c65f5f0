#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tarnctl/Command.h"

namespace tarnbridge {

/// Calls `take` with the whole content of each file, or of the standard input where none is named; "-" is the
/// standard input too. A file that can't be read is told on standard error and doesn't stop the rest.
ExitCode ForEachInput(const std::vector<std::string>& files,
                      const std::function<ExitCode(const std::string& content)>& take);

/// Calls `take` with each line of the inputs, as it comes. What it gives, the words of a failure, is told on
/// standard error with the number of the line, and doesn't stop the rest.
ExitCode ForEachLine(const std::vector<std::string>& files,
                     const std::function<std::optional<std::string>(const std::string& line)>& take);

/// The argument FILE... of a command.
void AddFiles(CLI::App& command, std::vector<std::string>& files);

}  // namespace tarnbridge
