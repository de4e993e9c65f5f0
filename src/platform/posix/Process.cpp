#include "platform/Process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/posix/FileDescriptor.h"

extern char** environ;

namespace tarnbridge {
namespace {

/// The file descriptors that the new program gets as its streams; -1 leaves the caller's own.
using Streams = std::array<int, 3>;

struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;

    bool Open() {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) return false;
        readEnd.Reset(ends[0]);
        writeEnd.Reset(ends[1]);
        return true;
    }
};

/// What remains of a time-out.
class Deadline {
public:
    explicit Deadline(Milliseconds timeout)
        : unlimited_(timeout == forever),
          end_(std::chrono::steady_clock::now() + (unlimited_ ? Milliseconds(0) : timeout)) {}

    Milliseconds Left() const {
        if (unlimited_) return forever;
        return std::max(Milliseconds(0),
                        std::chrono::ceil<Milliseconds>(end_ - std::chrono::steady_clock::now()));
    }

    /// The same as poll takes it.
    int PollTime() const { return unlimited_ ? -1 : static_cast<int>(Left().count()); }

private:
    bool unlimited_;
    std::chrono::steady_clock::time_point end_;
};

}  // namespace

class Process::System {
public:
    System(pid_t id, FileDescriptor descriptor) : id_(id), descriptor_(std::move(descriptor)) {}

    std::optional<int> Wait(Milliseconds timeout) {
        if (exitCode_) return exitCode_;
        const Deadline deadline(timeout);
        pollfd ended{descriptor_.Get(), POLLIN, 0};
        while (::poll(&ended, 1, deadline.PollTime()) < 0 && errno == EINTR) {
        }
        int status = 0;
        if (::waitpid(id_, &status, WNOHANG) != id_) return std::nullopt;
        exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return exitCode_;
    }

    void Terminate() {
        if (!exitCode_) ::kill(id_, SIGTERM);
    }

    pid_t Id() const { return id_; }

private:
    pid_t id_;
    FileDescriptor descriptor_;
    std::optional<int> exitCode_;
};

struct ProcessAccess {
    static Result<Process> Start(const std::filesystem::path& program,
                                 const std::vector<std::string>& arguments, const Streams& streams) {
        std::vector<std::string> words{program.string()};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);

        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        for (int stream = 0; stream < 3; ++stream) {
            if (streams[stream] >= 0) posix_spawn_file_actions_adddup2(&actions, streams[stream], stream);
        }
        // A program that blocks signals for itself must not hand that down.
        posix_spawnattr_t attributes;
        posix_spawnattr_init(&attributes);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);

        pid_t id = 0;
        errno = ::posix_spawnp(&id, words[0].c_str(), &actions, &attributes, pointers.data(), environ);
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
        if (errno != 0) return LastSystemFailure("start", program);
        FileDescriptor descriptor(static_cast<int>(::syscall(SYS_pidfd_open, id, 0)));
        return Process(std::make_unique<Process::System>(id, std::move(descriptor)));
    }
};

Process::Process(std::unique_ptr<System> system) : system_(std::move(system)) {}
Process::Process(Process&&) noexcept = default;
Process& Process::operator=(Process&&) noexcept = default;
Process::~Process() = default;

Result<Process> Process::Start(const std::filesystem::path& program,
                               const std::vector<std::string>& arguments) {
    return ProcessAccess::Start(program, arguments, {-1, -1, -1});
}

std::optional<int> Process::Wait(Milliseconds timeout) {
    return system_->Wait(timeout);
}

void Process::Terminate() {
    system_->Terminate();
}

int Process::Id() const {
    return system_->Id();
}

Result<ProcessOutput> RunProcess(const std::filesystem::path& program,
                                 const std::vector<std::string>& arguments, const std::string& input,
                                 Milliseconds timeout) {
    Pipe in;
    Pipe out;
    Pipe err;
    if (!in.Open() || !out.Open() || !err.Open()) return LastSystemFailure("make pipes for", program);
    const Deadline deadline(timeout);
    auto process =
        ProcessAccess::Start(program, arguments, {in.readEnd.Get(), out.writeEnd.Get(), err.writeEnd.Get()});
    if (!process) return process.Failure();
    in.readEnd.Reset();
    out.writeEnd.Reset();
    err.writeEnd.Reset();
    ::fcntl(in.writeEnd.Get(), F_SETFL, O_NONBLOCK);

    // A program that ends without reading its input must not end this one.
    sigset_t pipeSignal;
    sigset_t before;
    sigemptyset(&pipeSignal);
    sigaddset(&pipeSignal, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &pipeSignal, &before);

    ProcessOutput result;
    size_t sent = 0;
    if (input.empty()) in.writeEnd.Reset();
    const auto drain = [](FileDescriptor& from, std::string& to) {
        std::array<char, 65536> buffer;
        const ssize_t count = ::read(from.Get(), buffer.data(), buffer.size());
        if (count > 0) to.append(buffer.data(), static_cast<size_t>(count));
        if (count == 0 || (count < 0 && errno != EINTR)) from.Reset();
    };
    bool inTime = true;
    while (out.readEnd || err.readEnd) {
        pollfd waits[] = {
            {out.readEnd.Get(), POLLIN, 0}, {err.readEnd.Get(), POLLIN, 0}, {in.writeEnd.Get(), POLLOUT, 0}};
        const int ready = ::poll(waits, 3, deadline.PollTime());
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) {
            inTime = false;
            break;
        }
        if (waits[0].revents != 0) drain(out.readEnd, result.output);
        if (waits[1].revents != 0) drain(err.readEnd, result.errors);
        if (waits[2].revents != 0) {
            const ssize_t count = ::write(in.writeEnd.Get(), input.data() + sent, input.size() - sent);
            if (count > 0) sent += static_cast<size_t>(count);
            if (sent == input.size() || (count < 0 && errno != EAGAIN && errno != EINTR)) in.writeEnd.Reset();
        }
    }
    const timespec now{0, 0};
    while (::sigtimedwait(&pipeSignal, nullptr, &now) > 0) {
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);

    const auto exitCode = process->Wait(inTime ? deadline.Left() : Milliseconds(0));
    if (!exitCode) {
        process->Terminate();
        process->Wait(Milliseconds(2000));
        return SystemFailure{ETIMEDOUT, fmt::format("{} did not end in time", program.string())};
    }
    result.exitCode = *exitCode;
    return result;
}

}  // namespace tarnbridge
