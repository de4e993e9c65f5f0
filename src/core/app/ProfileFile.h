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
    Altered,  ///< it was read whole, but is neither what was saved last nor what stood there before
    Whole,
};

/// The file of a profile, owned by one process at a time through a lock file beside it. A file that wasn't
/// read whole, or that somebody else has changed, is never lost: it is copied aside (`NAME.TIME.bak`) before
/// it is replaced, and not replaced if that fails. What stood there when a day's first save replaced it is
/// kept as `NAME.YYYY-MM-DD.day`, for the last seven days on which something was saved. Nobody but the owner
/// may read any of these. For one thread.
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

    /// Replaces the file atomically; a failure leaves the old file whole. A file that holds all this already
    /// is left alone. As SaveProfile for the rest.
    Outcome Save(Profile& profile);

    /// Copies a file aside that was loaded and isn't whole, as the next save would.
    Outcome KeepAside();

    /// Where the file was copied that couldn't have been kept: once, to be told to the user.
    const std::optional<std::filesystem::path>& CopiedAside() const { return copiedAside_; }
    /// Whether that could be read whole, and was only not what had been saved.
    bool WasAltered() const { return wasAltered_; }

private:
    ProfileFile(std::filesystem::path path, Clock& clock, std::unique_ptr<LockFile> lock);

    /// When and how large a file was when it was last known.
    struct Stamp {
        uintmax_t size = 0;
        std::filesystem::file_time_type time{};
        bool operator==(const Stamp&) const = default;
    };

    std::optional<Stamp> StampNow() const;
    void LookForOthersChanges();
    Outcome CopyAside();
    void KeepDay() const;
    void TidyFolder() const;

    const std::filesystem::path path_;
    Clock& clock_;
    std::unique_ptr<LockFile> lock_;
    std::optional<ProfileState> state_;
    std::optional<Stamp> stamp_;
    std::string checksum_;    // of what stands in the file; empty if there is none
    bool isGuarded_ = false;  // the checksums stand beside it
    std::optional<std::filesystem::path> copiedAside_;
    bool wasAltered_ = false;
};

/// What stands in a file, without owning it; its owner may save meanwhile.
ProfileState ReadProfile(const std::filesystem::path& path, Profile& profile);

}  // namespace tarnbridge
