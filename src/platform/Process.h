#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Event.h"
#include "platform/Result.h"

namespace tarnbridge {

/// A program that was started with a vector of arguments, never through a shell. Destroying the object
/// doesn't end the program. Not for use from two threads at once.
class Process {
public:
    /// Starts a program by path, or by name on the `PATH`, with the caller's standard streams.
    static Result<Process> Start(const std::filesystem::path& program,
                                 const std::vector<std::string>& arguments);

    Process(Process&&) noexcept;
    Process& operator=(Process&&) noexcept;
    ~Process();

    /// Waits for its end; gives the exit code, or 128 + the signal that ended it, or nothing after the
    /// time-out.
    std::optional<int> Wait(Milliseconds timeout);

    /// Asks it to end (SIGTERM).
    void Terminate();

    int Id() const;

private:
    friend struct ProcessAccess;
    class System;
    explicit Process(std::unique_ptr<System> system);

    std::unique_ptr<System> system_;
};

struct ProcessOutput {
    int exitCode = -1;
    std::string output;  ///< all of its standard output
    std::string errors;  ///< all of its standard error
};

/// Runs a program to its end with `input` as its standard input. After the time-out it is asked to end and
/// the result is a failure.
Result<ProcessOutput> RunProcess(const std::filesystem::path& program,
                                 const std::vector<std::string>& arguments, const std::string& input,
                                 Milliseconds timeout);

}  // namespace tarnbridge
