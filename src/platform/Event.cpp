#include "platform/Event.h"

#include <algorithm>

namespace tarnbridge {

/// One thread in WaitAny. It is registered with every event that it waits for.
struct Event::Waiter {
    std::mutex mutex;
    std::condition_variable changed;
    bool notified = false;

    void Notify() {
        const std::lock_guard guard(mutex);
        notified = true;
        changed.notify_one();
    }
};

Event::Event(ResetMode mode) : mode_(mode) {}

void Event::Set() {
    const std::lock_guard guard(mutex_);
    signalled_.store(true, std::memory_order_release);
    for (Waiter* waiter : waiters_)
        waiter->Notify();
}

void Event::Reset() {
    signalled_.store(false, std::memory_order_release);
}

bool Event::Consume() {
    if (mode_ == ResetMode::Manual) return IsSet();
    return signalled_.exchange(false, std::memory_order_acq_rel);
}

void Event::AddWaiter(Waiter& waiter) {
    const std::lock_guard guard(mutex_);
    waiters_.push_back(&waiter);
}

void Event::RemoveWaiter(Waiter& waiter) {
    const std::lock_guard guard(mutex_);
    waiters_.erase(std::find(waiters_.begin(), waiters_.end(), &waiter));
}

bool Event::Wait(Milliseconds timeout) {
    Event* const self = this;
    return WaitAny({&self, 1}, timeout) == 0;
}

int Event::WaitAny(std::span<Event* const> events, Milliseconds timeout) {
    const auto firstSignalled = [&] {
        for (size_t i = 0; i < events.size(); ++i) {
            if (events[i]->Consume()) return static_cast<int>(i);
        }
        return -1;
    };

    int index = firstSignalled();
    if (index >= 0 || timeout <= Milliseconds::zero()) return index;

    const bool limited = timeout != forever;
    const auto deadline =
        limited ? std::chrono::steady_clock::now() + timeout : std::chrono::steady_clock::time_point::max();
    Waiter waiter;
    for (Event* event : events)
        event->AddWaiter(waiter);
    // A Set between the first look and the registration is seen here; a later one notifies.
    while ((index = firstSignalled()) < 0) {
        std::unique_lock guard(waiter.mutex);
        const auto notified = [&] { return waiter.notified; };
        if (!limited) {
            waiter.changed.wait(guard, notified);
        } else if (!waiter.changed.wait_until(guard, deadline, notified)) {
            break;
        }
        waiter.notified = false;
    }
    for (Event* event : events)
        event->RemoveWaiter(waiter);
    return index;
}

}  // namespace tarnbridge
