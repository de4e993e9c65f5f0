#include "core/app/TemporaryFiles.h"

#include "platform/Files.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

void RemoveFiles(const fs::path& folder, std::string_view pattern) {
    std::error_code ignored;
    for (const fs::path& found : FindFiles(folder, pattern)) {
        if (!fs::is_directory(fs::symlink_status(found, ignored))) fs::remove(found, ignored);
    }
}

}  // namespace

void EmptyTemporaryFolder(const fs::path& programFolder) {
    RemoveFiles(programFolder / "Temp", "*");
}

void SweepTemporaryFiles(const fs::path& programFolder) {
    EmptyTemporaryFolder(programFolder);
    std::error_code ignored;
    for (const fs::path& found : FindFiles(programFolder, "TempMMSDir_*")) {
        if (fs::is_directory(fs::symlink_status(found, ignored))) fs::remove_all(found, ignored);
    }
    RemoveFiles(programFolder, "*imy");
    RemoveFiles(programFolder, "*IMY");
}

}  // namespace tarnbridge
