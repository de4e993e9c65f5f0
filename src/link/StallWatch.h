#pragma once

#include <atomic>
#include <functional>

#include "platform/Clock.h"
#include "platform/Thread.h"

namespace tarnbridge {

/// Watches a transfer whose length can't be known: when nobody has kicked it for 5 seconds it calls a
/// function. Start and Stop belong to one thread at a time; Kick may come from any. The watch must be stopped
/// before it is destroyed.
class StallWatch {
public:
    explicit StallWatch(Clock& clock) : clock_(clock) {}
    ~StallWatch() { Stop(); }

    /// Starts watching. `onStall` runs on the watch's thread; when it returns 0 the watch ends, otherwise it
    /// counts anew. False if the watch runs or there is no function.
    bool Start(std::function<int()> onStall);

    /// Something has come: the count starts again.
    void Kick();

    /// Ends the watch and waits for its thread, and so for an `onStall` under way. Nothing if it doesn't run.
    void Stop();

private:
    void Watch();

    Clock& clock_;
    std::function<int()> onStall_;
    Event kick_{ResetMode::Automatic};
    Event stop_{ResetMode::Automatic};
    std::atomic<bool> running_{false};
    Thread thread_;
};

}  // namespace tarnbridge
