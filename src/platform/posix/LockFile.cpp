#include "platform/LockFile.h"

#include <algorithm>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

#include "platform/posix/FileDescriptor.h"

namespace tarnbridge {
namespace {

class FlockFile : public LockFile {
public:
    explicit FlockFile(FileDescriptor descriptor) : descriptor_(std::move(descriptor)) {}

private:
    FileDescriptor descriptor_;
};

}  // namespace

std::unique_ptr<LockFile> LockFile::Take(const std::filesystem::path& path, Milliseconds limit) {
    std::error_code ignored;
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), ignored);
    FileDescriptor descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!descriptor) return nullptr;

    // flock has no time-out of its own; the pause grows so that a long wait costs nothing.
    const auto start = std::chrono::steady_clock::now();
    for (Milliseconds pause{1};; pause = std::min(pause * 2, Milliseconds(50))) {
        if (::flock(descriptor.Get(), LOCK_EX | LOCK_NB) == 0) {
            return std::make_unique<FlockFile>(std::move(descriptor));
        }
        if (limit != forever && std::chrono::steady_clock::now() - start >= limit) return nullptr;
        std::this_thread::sleep_for(pause);
    }
}

}  // namespace tarnbridge
