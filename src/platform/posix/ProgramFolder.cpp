#include "platform/ProgramFolder.h"

#include <cstdlib>
#include <sstream>
#include <vector>

#include <fmt/format.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

fs::path HomeFolder() {
    if (const std::string home = Environment("HOME"); !home.empty()) return home;
    const passwd* user = getpwuid(getuid());
    return user == nullptr ? fs::path("/") : fs::path(user->pw_dir);
}

/// A folder of the XDG Base Directory Specification; a relative path in the variable is to be ignored.
fs::path UserFolder(const char* variable, const char* fallback) {
    const fs::path chosen = Environment(variable);
    return chosen.is_absolute() ? chosen : HomeFolder() / fallback;
}

std::vector<fs::path> SplitFolders(const std::string& list) {
    std::vector<fs::path> folders;
    std::istringstream stream(list);
    for (std::string folder; std::getline(stream, folder, ':');) {
        if (!folder.empty()) folders.emplace_back(folder);
    }
    return folders;
}

}  // namespace

fs::path ExecutableFolder() {
    std::error_code error;
    const fs::path self = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::current_path() : self.parent_path();
}

fs::path ProgramFolder() {
    std::error_code ignored;
    if (fs::exists(ExecutableFolder() / "portable", ignored)) return ExecutableFolder();
    const fs::path folder = UserFolder("XDG_DATA_HOME", ".local/share") / "tarnbridge";
    fs::create_directories(folder, ignored);
    return folder;
}

fs::path ConfigurationFolder() {
    return UserFolder("XDG_CONFIG_HOME", ".config");
}

fs::path RuntimeFolder() {
    const fs::path chosen = Environment("XDG_RUNTIME_DIR");
    std::error_code ignored;
    fs::path folder = chosen.is_absolute()
                          ? chosen / "tarnbridge"
                          : fs::temp_directory_path(ignored) / fmt::format("tarnbridge-{}", getuid());
    ::mkdir(folder.c_str(), 0700);
    // Anybody can make a folder of that name among the temporary ones.
    struct stat status {};
    const bool own = ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
                     status.st_uid == getuid() && (status.st_mode & 0077) == 0;
    if (own) return folder;
    folder = ProgramFolder() / "run";
    fs::create_directories(folder, ignored);
    fs::permissions(folder, fs::perms::owner_all, ignored);
    return folder;
}

std::optional<fs::path> FindData(const std::string& name) {
    std::vector<fs::path> candidates{ProgramFolder() / name, ExecutableFolder() / name,
                                     ExecutableFolder().parent_path() / "share/tarnbridge" / name};
    std::string folders = Environment("XDG_DATA_DIRS");
    if (folders.empty()) folders = "/usr/local/share:/usr/share";
    for (const fs::path& folder : SplitFolders(folders))
        candidates.push_back(folder / "tarnbridge" / name);
    std::error_code ignored;
    for (const fs::path& candidate : candidates) {
        if (fs::is_regular_file(candidate, ignored)) return candidate;
    }
    return std::nullopt;
}

std::optional<fs::path> FindHelper(const std::string& name) {
    std::vector<fs::path> folders{ProgramFolder(), ExecutableFolder()};
    for (const fs::path& folder : SplitFolders(Environment("PATH")))
        folders.push_back(folder);
    std::error_code ignored;
    for (const fs::path& folder : folders) {
        const fs::path candidate = folder / name;
        if (fs::is_regular_file(candidate, ignored) && ::access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return std::nullopt;
}

}  // namespace tarnbridge
