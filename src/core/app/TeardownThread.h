#pragma once

#include <deque>
#include <functional>
#include <mutex>

#include "link/WorkerThread.h"
#include "platform/Event.h"

namespace tarnbridge {

/// A thread for steps that may have to wait for a port, for the handset or for another thread's end, so that
/// the interface thread never does. Steps run one at a time, in the order in which they were given. The
/// thread begins with the first step and ends with the object, which belongs to the thread that made it.
class TeardownThread : private WorkerThread {
public:
    using Step = std::function<void()>;

    TeardownThread() = default;

    /// Waits until all the steps have run.
    ~TeardownThread() override;

    /// From one thread. False, and the step doesn't run, when the system refuses the thread.
    bool Do(Step step);

private:
    void Run() override;
    const char* ThreadName() const override { return "teardown"; }

    bool started_ = false;
    Event stop_{ResetMode::Manual};
    Event given_{ResetMode::Automatic};
    std::mutex mutex_;
    std::deque<Step> steps_;
};

}  // namespace tarnbridge
