#include "platform/PseudoTerminal.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <termios.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/posix/FileDescriptor.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

/// The system may round a time-out up by its timer slack, 50 microseconds unless a thread asks for less.
void SharpenTimers() {
    thread_local const bool done = ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL) == 0;
    static_cast<void>(done);
}

Outcome MakeRaw(int descriptor, const fs::path& name) {
    termios settings{};
    if (::tcgetattr(descriptor, &settings) != 0) return LastSystemFailure("set up", name);
    ::cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD;
    if (::tcsetattr(descriptor, TCSANOW, &settings) != 0) return LastSystemFailure("set up", name);
    return std::monostate{};
}

/// A link beside the path is renamed over it, so that the path always names a device that is there.
Outcome Link(const fs::path& device, const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (fs::exists(status) && !fs::is_symlink(status)) {
        errno = EEXIST;
        return LastSystemFailure("link the device at", path);
    }
    const fs::path temporary = fmt::format("{}.{}.tmp", path.string(), ::getpid());
    ::unlink(temporary.c_str());
    if (::symlink(device.c_str(), temporary.c_str()) != 0) return LastSystemFailure("make the link", path);
    if (::rename(temporary.c_str(), path.c_str()) != 0) {
        const SystemFailure failure = LastSystemFailure("make the link", path);
        ::unlink(temporary.c_str());
        return failure;
    }
    return std::monostate{};
}

}  // namespace

struct PseudoTerminal::State {
    /// What Plug makes and HangUp closes.
    struct Pair {
        FileDescriptor notify;  // tells when the device is opened and closed, if the system can
        FileDescriptor slave;   // held so that the device survives its users, and to clear up after them
        FileDescriptor master;
        fs::path device;
        int users = 0;
    };

    const FileDescriptor wake{::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)};
    Pair pair;
};

PseudoTerminal::PseudoTerminal(fs::path path) : path_(std::move(path)), state_(std::make_unique<State>()) {}

PseudoTerminal::~PseudoTerminal() {
    HangUp();
}

Outcome PseudoTerminal::Plug() {
    if (Plugged()) return std::monostate{};
    State::Pair made;
    made.master = FileDescriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!made.master) return LastSystemFailure("make", "a pseudo-terminal");
    std::array<char, 128> name{};
    if (::grantpt(made.master.Get()) != 0 || ::unlockpt(made.master.Get()) != 0 ||
        ::ptsname_r(made.master.Get(), name.data(), name.size()) != 0) {
        return LastSystemFailure("unlock", "a pseudo-terminal");
    }
    made.device = name.data();
    made.slave = FileDescriptor(::open(name.data(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!made.slave) return LastSystemFailure("open", made.device);
    if (const Outcome raw = MakeRaw(made.slave.Get(), made.device); !raw) return raw.Failure();

    made.notify = FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (made.notify && ::inotify_add_watch(made.notify.Get(), name.data(), IN_OPEN | IN_CLOSE) < 0) {
        made.notify.Reset();
    }
    if (const Outcome linked = Link(made.device, path_); !linked) return linked.Failure();
    state_->pair = std::move(made);
    return std::monostate{};
}

void PseudoTerminal::HangUp() {
    if (!Plugged()) return;
    std::error_code error;
    if (fs::read_symlink(path_, error) == state_->pair.device && !error) fs::remove(path_, error);
    state_->pair = State::Pair();
}

bool PseudoTerminal::Plugged() const {
    return static_cast<bool>(state_->pair.master);
}

PseudoTerminal::Ready PseudoTerminal::Wait(bool reading, bool writing, Time deadline) {
    SharpenTimers();
    std::array<pollfd, 3> polled{};
    polled[0] = {state_->wake.Get(), POLLIN, 0};
    polled[1] = {state_->pair.notify.Get(), POLLIN, 0};
    polled[2].fd = reading || writing ? state_->pair.master.Get() : -1;
    if (reading) polled[2].events |= POLLIN;
    if (writing) polled[2].events |= POLLOUT;

    timespec rest{};
    const bool limited = deadline != Time::max();
    if (limited) {
        const auto left = std::max(deadline - std::chrono::steady_clock::now(), Time::duration::zero());
        const auto nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(left).count();
        rest.tv_sec = static_cast<time_t>(nanoseconds / 1'000'000'000);
        rest.tv_nsec = static_cast<long>(nanoseconds % 1'000'000'000);
    }
    if (::ppoll(polled.data(), polled.size(), limited ? &rest : nullptr, nullptr) <= 0) return {};
    if (polled[0].revents != 0) {
        eventfd_t count = 0;
        ::eventfd_read(state_->wake.Get(), &count);
    }
    if (polled[1].revents != 0) NoteUsers();
    return {(polled[2].revents & POLLIN) != 0, (polled[2].revents & POLLOUT) != 0};
}

void PseudoTerminal::Wake() {
    ::eventfd_write(state_->wake.Get(), 1);
}

void PseudoTerminal::NoteUsers() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    bool deserted = false;
    for (;;) {
        const ssize_t count = ::read(state_->pair.notify.Get(), buffer.data(), buffer.size());
        if (count <= 0) break;
        for (size_t at = 0; at + sizeof(inotify_event) <= static_cast<size_t>(count);) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            if ((event.mask & IN_OPEN) != 0) ++state_->pair.users;
            if ((event.mask & IN_CLOSE) != 0 && state_->pair.users > 0)
                deserted = --state_->pair.users == 0 || deserted;
            // What was lost can't be counted: someone is taken to be there until the next close.
            if ((event.mask & IN_Q_OVERFLOW) != 0) state_->pair.users = 1;
            at += sizeof(inotify_event) + event.len;
        }
    }
    if (!deserted) return;
    ::tcflush(state_->pair.slave.Get(), TCIFLUSH);
    if (state_->pair.users == 0) ::ioctl(state_->pair.slave.Get(), TIOCNXCL);
}

size_t PseudoTerminal::Read(char* buffer, size_t size) {
    const ssize_t count = ::read(state_->pair.master.Get(), buffer, size);
    return count > 0 ? static_cast<size_t>(count) : 0;
}

size_t PseudoTerminal::Write(std::string_view bytes) {
    if (state_->pair.notify && state_->pair.users == 0) return bytes.size();
    const ssize_t count = ::write(state_->pair.master.Get(), bytes.data(), bytes.size());
    if (count >= 0) return static_cast<size_t>(count);
    return errno == EAGAIN || errno == EINTR ? 0 : bytes.size();
}

}  // namespace tarnbridge
