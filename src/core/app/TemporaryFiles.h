#pragma once

#include <filesystem>

namespace tarnbridge {

/// Deletes all files in the folder `Temp` below the program folder.
void EmptyTemporaryFolder(const std::filesystem::path& programFolder);

/// What a run leaves behind in the program folder: the files in `Temp`, the folders `TempMMSDir_*` with all
/// that is in them, and the melodies that were made to be played (`*imy`, `*IMY`).
void SweepTemporaryFiles(const std::filesystem::path& programFolder);

}  // namespace tarnbridge
