#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Result.h"

namespace tarnbridge {

/// The whole content of a file. A file larger than `limit` bytes is a failure.
Result<std::string> ReadFile(const std::filesystem::path& path, uint64_t limit = UINT64_MAX);

/// Replaces a file by new content so that at every moment the old or the new content is there, whole: the
/// bytes go to a temporary file beside it, are flushed to the disk, and the file is renamed over the old one,
/// whose permissions are kept. A failure leaves the old file as it was and no temporary file behind. Missing
/// folders are made. A symbolic link is followed.
Outcome WriteFileAtomically(const std::filesystem::path& path, std::string_view content);

/// Takes the next bytes of a file. False once they can't be written.
using ByteSink = std::function<bool(std::string_view)>;

/// How a file is replaced.
struct Replacement {
    bool ownerOnly = false;  ///< nobody but the owner may read it, whatever stood there before
    /// The folder isn't flushed: another replacement in it follows at once, whose flush serves both.
    bool isFlushedByNext = false;
    /// Called with all of the new content written, before it is flushed; on false it is dropped, and the file
    /// stays as it is, which is no failure.
    std::function<bool()> isWanted{};
    /// Called when the new content is on the disk, right before it takes the old one's place; a failure is
    /// that of the whole, and the file stays as it is.
    std::function<Outcome()> before{};
};

/// The same with content that `produce` hands over piece by piece, so that it is never in memory as a whole.
Outcome WriteFileAtomically(const std::filesystem::path& path,
                            const std::function<void(const ByteSink&)>& produce,
                            const Replacement& replacement = {});

/// From now on a write beyond the largest size that the process may give a file fails, as on a full disk, and
/// doesn't end the program. Each program calls it first.
void LetOversizedWritesFail();

/// The entries of a folder whose name matches a pattern with `*` and `?`, sorted by name. Empty when the
/// folder can't be read.
std::vector<std::filesystem::path> FindFiles(const std::filesystem::path& folder, std::string_view pattern);

/// Whether a name matches a pattern with `*` (any run of characters) and `?` (any one character).
bool MatchesPattern(std::string_view name, std::string_view pattern);

/// The failure of the last system call, worded "cannot WHAT NAME: REASON".
SystemFailure LastSystemFailure(std::string_view what, const std::filesystem::path& name);

}  // namespace tarnbridge
