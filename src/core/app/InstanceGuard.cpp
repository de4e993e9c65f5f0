#include "core/app/InstanceGuard.h"

#include <fstream>

namespace tarnbridge {

InstanceGuard::InstanceGuard(std::filesystem::path folder, Milliseconds restartLimit)
    : folder_(std::move(folder)), restartLimit_(restartLimit) {}

InstanceGuard::~InstanceGuard() {
    Leave();
}

bool InstanceGuard::Enter() {
    // Had and given back at once: nobody restarts, or nobody any more.
    LockFile::Take(RestartLock(), restartLimit_);
    running_ = LockFile::Take(RunningLock(), Milliseconds(0));
    // A lock that can't be had though its file can be written to is another one's.
    return running_ || !std::ofstream(RunningLock(), std::ios::app);
}

bool InstanceGuard::AnnounceRestart() {
    if (!restart_) restart_ = LockFile::Take(RestartLock(), Milliseconds(0));
    return restart_ != nullptr;
}

void InstanceGuard::Leave() {
    // The successor waits for the second lock and then finds the first one free.
    running_.reset();
    restart_.reset();
}

}  // namespace tarnbridge
