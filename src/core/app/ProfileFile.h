#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "core/app/Profile.h"
#include "platform/Clock.h"
#include "platform/LockFile.h"
#include "platform/Result.h"

namespace tarnbridge {

/// What stood in the file.
enum class ProfileState {
    Missing,     ///< there is no file
    Unreadable,  ///< the system doesn't let it be read
    Foreign,     ///< as the values of ProfileLoad
    Damaged,
    Whole,
};

/// The file of a profile, owned by one process at a time through a lock file beside it. A file that wasn't
/// read whole is never lost: it is copied aside before it is replaced, and not replaced if that fails. For
/// one thread.
class ProfileFile {
public:
    /// `Tarnbridge.bin` in the program folder.
    static std::filesystem::path StandardPath();

    /// Owns the file until the object goes; nothing while another one has it. In a folder that can't be
    /// written to, the file is opened for reading, and each save tries to become its owner. Temporary files
    /// that a killed owner left are removed. The clock must outlive the object.
    static std::unique_ptr<ProfileFile> Open(std::filesystem::path path, Clock& clock);

    /// Fills a new profile from the file.
    ProfileState Load(Profile& profile);

    /// Replaces the file atomically; a failure leaves the old file whole. As SaveProfile for the rest.
    Outcome Save(Profile& profile);

    /// Where a save has copied the file that it couldn't have kept: once, to be told to the user.
    const std::optional<std::filesystem::path>& CopiedAside() const { return copiedAside_; }

private:
    ProfileFile(std::filesystem::path path, Clock& clock, std::unique_ptr<LockFile> lock);

    Outcome CopyAside();
    void RemoveLeftovers() const;

    const std::filesystem::path path_;
    Clock& clock_;
    std::unique_ptr<LockFile> lock_;
    std::optional<ProfileState> state_;
    std::optional<std::filesystem::path> copiedAside_;
};

/// What stands in a file, without owning it.
ProfileState ReadProfile(const std::filesystem::path& path, Profile& profile);

}  // namespace tarnbridge
