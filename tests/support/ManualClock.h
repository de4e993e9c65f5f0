#pragma once

#include <mutex>
#include <vector>

#include "platform/Clock.h"

namespace tarnbridge::test {

/// Time that stands still until the test moves it. Sleep moves it by itself and returns at once; a wait with
/// a time-out ends when Advance has passed its end.
class ManualClock : public Clock {
public:
    Milliseconds Now() override;
    void Sleep(Milliseconds duration) override { Advance(duration); }
    int WaitAny(std::span<Event* const> events, Milliseconds timeout) override;
    LocalTime Local() override { return local; }

    void Advance(Milliseconds duration);

    /// Blocks until this many threads stand in a wait whose time-out hasn't been reached.
    void AwaitWaiters(size_t count);

    LocalTime local{2007, 3, 14, 15, 9, 26, 60};

private:
    std::mutex mutex_;
    std::condition_variable waitersChanged_;
    Milliseconds now_{0};
    struct Waiter {
        Milliseconds deadline;
        Event advanced{ResetMode::Automatic};
    };

    std::vector<Waiter*> waiters_;
};

/// The system's clock with every Sleep left out, for dialogues whose pauses are long and whose answers are
/// real.
class NoSleepClock : public SystemClock {
public:
    void Sleep(Milliseconds) override {}
};

}  // namespace tarnbridge::test
