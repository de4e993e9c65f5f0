#pragma once

#include <filesystem>
#include <memory>

#include "platform/LockFile.h"

namespace tarnbridge {

/// Sees to it that one window runs for a user at a time, and that one which restarts itself has ended before
/// its successor begins. For one thread.
class InstanceGuard {
public:
    /// \param folder        where the locks stand
    /// \param restartLimit  how long a start waits for an instance that restarts itself
    explicit InstanceGuard(std::filesystem::path folder, Milliseconds restartLimit = Milliseconds(15'000));
    InstanceGuard(const InstanceGuard&) = delete;
    InstanceGuard& operator=(const InstanceGuard&) = delete;
    ~InstanceGuard();

    /// Waits while another instance restarts itself, then becomes the one that runs. False when another one
    /// runs. Where no lock can be made at all there is no guard, and the start goes on.
    bool Enter();

    /// From now until Leave a new instance waits. False when another one holds that lock.
    bool AnnounceRestart();

    /// Lets the next instance run.
    void Leave();

private:
    std::filesystem::path RunningLock() const { return folder_ / "TarnbridgeClassName"; }
    std::filesystem::path RestartLock() const { return folder_ / "TarnbridgeClassName_RESET"; }

    const std::filesystem::path folder_;
    const Milliseconds restartLimit_;
    std::unique_ptr<LockFile> running_;
    std::unique_ptr<LockFile> restart_;
};

}  // namespace tarnbridge
