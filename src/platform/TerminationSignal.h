#pragma once

#include <memory>

#include "platform/Event.h"

namespace tarnbridge {

/// Turns the wish that the program end (SIGINT, SIGTERM) into an event while it lives, in place of the
/// system's own reaction. A pipe that nobody reads any more (SIGPIPE) doesn't end the program either: writing
/// to it fails. It must be made on the main thread before any other thread is started, since
/// threads inherit what makes it work, and at most one may live at a time.
class TerminationSignal {
public:
    TerminationSignal();
    TerminationSignal(const TerminationSignal&) = delete;
    TerminationSignal& operator=(const TerminationSignal&) = delete;
    ~TerminationSignal();

    /// Set by each signal; only who waits for another one resets it.
    Event& Requested() { return requested_; }

private:
    struct State;

    Event requested_{ResetMode::Manual};
    std::unique_ptr<State> state_;
};

}  // namespace tarnbridge
