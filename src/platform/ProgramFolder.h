#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace tarnbridge {

/// Where all that the program writes lives: the folder of the executable if a file named `portable` stands
/// there, otherwise the user's data folder for this program (`$XDG_DATA_HOME/tarnbridge`, by default
/// `~/.local/share/tarnbridge`). The folder is made if it is missing.
std::filesystem::path ProgramFolder();

/// The folder of the running executable.
std::filesystem::path ExecutableFolder();

/// The folder under which the user's settings stand (`$XDG_CONFIG_HOME`, by default `~/.config`).
std::filesystem::path ConfigurationFolder();

/// Where the locks and sockets of running programs stand: `$XDG_RUNTIME_DIR/tarnbridge`, or where that isn't
/// set a folder of the user's own under the temporary folder, or in the program folder if another user has
/// that name. The folder is made, open to the user alone, if it is missing.
std::filesystem::path RuntimeFolder();

/// A read-only data file: looked for in the program folder, beside the executable, in `../share/tarnbridge`
/// from there, and under `tarnbridge` in each of `$XDG_DATA_DIRS`.
std::optional<std::filesystem::path> FindData(const std::string& name);

/// A helper program: looked for in the program folder, beside the executable, and on the `PATH`.
std::optional<std::filesystem::path> FindHelper(const std::string& name);

}  // namespace tarnbridge
