#pragma once

#include <functional>
#include <string>
#include <thread>

namespace tarnbridge {

/// One thread with a name that debuggers show. It must be joined before it is destroyed; no thread is ever
/// killed. Start and Join belong to the owner's thread.
class Thread {
public:
    Thread() = default;
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;
    ~Thread();

    /// Runs the function on a new thread. `name` is cut to 15 bytes. False when a thread is running already
    /// or the system refuses a new one.
    bool Start(const std::string& name, std::function<void()> function);

    /// Waits, without limit, until the function has returned. Nothing if no thread was started.
    void Join();

    bool Started() const { return thread_.joinable(); }

    /// Whether the caller runs on this thread.
    bool IsCurrent() const { return thread_.get_id() == std::this_thread::get_id(); }

private:
    std::thread thread_;
};

}  // namespace tarnbridge
