#pragma once

#include <utility>

#include <unistd.h>

namespace tarnbridge {

/// Owns a file descriptor and closes it.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(other.Release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    ~FileDescriptor() { Reset(); }

    explicit operator bool() const { return descriptor_ >= 0; }
    int Get() const { return descriptor_; }
    int Release() { return std::exchange(descriptor_, -1); }
    void Reset(int descriptor = -1) {
        if (descriptor_ >= 0) ::close(descriptor_);
        descriptor_ = descriptor;
    }

private:
    int descriptor_;
};

}  // namespace tarnbridge
