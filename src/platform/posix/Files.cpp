#include "platform/Files.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/FileDescriptor.h"

namespace tarnbridge {
namespace {

bool WriteAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        content.remove_prefix(static_cast<size_t>(written));
    }
    return true;
}

/// The rename itself must reach the disk too. A file system that can't flush a folder isn't an error.
void FlushFolder(const std::filesystem::path& folder) {
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor) ::fsync(descriptor.Get());
}

}  // namespace

SystemFailure LastSystemFailure(std::string_view what, const std::filesystem::path& name) {
    const int code = errno;
    return {code, fmt::format("cannot {} {}: {}", what, name.string(), std::strerror(code))};
}

void LetOversizedWritesFail() {
    std::signal(SIGXFSZ, SIG_IGN);
}

Result<std::string> ReadFile(const std::filesystem::path& path, uint64_t limit) {
    const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor) return LastSystemFailure("open", path);
    std::string content;
    if (struct stat status{}; ::fstat(descriptor.Get(), &status) == 0 && S_ISREG(status.st_mode)) {
        if (static_cast<uint64_t>(status.st_size) <= limit)
            content.reserve(static_cast<size_t>(status.st_size) + 1);
    }
    constexpr size_t step = 1 << 16;
    for (size_t length = 0;;) {
        content.resize(length + step);
        const ssize_t count = ::read(descriptor.Get(), content.data() + length, step);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return LastSystemFailure("read", path);
        length += static_cast<size_t>(count);
        if (length > limit) {
            errno = EFBIG;
            return LastSystemFailure("read", path);
        }
        if (count == 0) {
            content.resize(length);
            return content;
        }
    }
}

Outcome WriteFileAtomically(const std::filesystem::path& path, std::string_view content) {
    return WriteFileAtomically(path, [content](const ByteSink& write) { write(content); });
}

Outcome WriteFileAtomically(const std::filesystem::path& path,
                            const std::function<void(const ByteSink&)>& produce,
                            const Replacement& replacement) {
    std::error_code error;
    std::filesystem::path target = path;
    if (std::filesystem::is_symlink(path, error)) {
        const auto resolved = std::filesystem::weakly_canonical(path, error);
        if (!error) target = resolved;
    }
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    std::filesystem::create_directories(folder, error);

    static std::atomic<unsigned> counter{0};
    const std::string temporary = fmt::format("{}.{}-{}.tmp", target.string(), ::getpid(), counter++);
    const mode_t mode = replacement.ownerOnly ? 0600 : 0666;
    FileDescriptor descriptor(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode));
    if (!descriptor) return LastSystemFailure("write", target);
    const auto fail = [&] {
        const SystemFailure failure = LastSystemFailure("write", target);
        ::unlink(temporary.c_str());
        return failure;
    };

    struct stat status {};
    const bool replaces = !replacement.ownerOnly && ::stat(target.c_str(), &status) == 0;
    if (replaces && ::fchmod(descriptor.Get(), status.st_mode & 07777) != 0) return fail();
    int writeError = 0;
    produce([&](std::string_view piece) {
        if (writeError == 0 && !WriteAll(descriptor.Get(), piece)) writeError = errno;
        return writeError == 0;
    });
    if (writeError != 0) {
        errno = writeError;
        return fail();
    }
    if (replacement.isWanted && !replacement.isWanted()) {
        ::unlink(temporary.c_str());
        return std::monostate{};
    }
    if (::fsync(descriptor.Get()) != 0) return fail();
    if (::close(descriptor.Release()) != 0) return fail();
    if (replacement.before) {
        if (const Outcome outcome = replacement.before(); !outcome) {
            ::unlink(temporary.c_str());
            return outcome;
        }
    }
    if (::rename(temporary.c_str(), target.c_str()) != 0) return fail();
    if (!replacement.isFlushedByNext) FlushFolder(folder);
    return std::monostate{};
}

}  // namespace tarnbridge
