#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <span>
#include <vector>

namespace tarnbridge {

using Milliseconds = std::chrono::milliseconds;

/// A wait without limit.
inline constexpr Milliseconds forever = Milliseconds::max();

/// What happens to an event when a wait on it succeeds: Manual leaves it signalled until Reset, Automatic
/// resets it, so that one Set releases one waiter.
enum class ResetMode { Manual, Automatic };

/// A flag that threads can wait for. All operations may be called from any thread. What a thread wrote
/// before Set is visible to a thread after its wait on the event succeeded or IsSet answered true.
/// An event must outlive every wait on it.
class Event {
public:
    explicit Event(ResetMode mode);
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    void Set();
    void Reset();

    /// Whether the event is signalled, without waiting and without resetting it. Cheap enough to be asked
    /// for every byte.
    bool IsSet() const { return signalled_.load(std::memory_order_acquire); }

    /// Waits in real time; false is a time-out. A time-out of 0 asks and returns at once.
    bool Wait(Milliseconds timeout);

    /// Waits until one of the events is signalled and gives its index, the lowest if there are several, or
    /// -1 after the time-out. Only the event whose index is given is reset if it is automatic.
    static int WaitAny(std::span<Event* const> events, Milliseconds timeout);

private:
    struct Waiter;

    bool Consume();
    void AddWaiter(Waiter& waiter);
    void RemoveWaiter(Waiter& waiter);

    const ResetMode mode_;
    std::atomic<bool> signalled_{false};
    std::mutex mutex_;
    std::vector<Waiter*> waiters_;
};

}  // namespace tarnbridge
