#pragma once

#include <filesystem>
#include <memory>

#include "platform/Event.h"

namespace tarnbridge {

/// A lock between processes, held through a file. The lock goes when the object is destroyed or its process
/// ends; the file stays.
class LockFile {
public:
    /// Takes the lock, waiting for as long as it may take another. Nothing if the time is over or the file
    /// can't be made. Missing folders are made.
    static std::unique_ptr<LockFile> Take(const std::filesystem::path& path, Milliseconds limit);

    virtual ~LockFile() = default;

protected:
    LockFile() = default;
};

}  // namespace tarnbridge
