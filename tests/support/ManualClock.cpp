#include "support/ManualClock.h"

#include <algorithm>

namespace tarnbridge::test {

Milliseconds ManualClock::Now() {
    const std::lock_guard guard(mutex_);
    return now_;
}

void ManualClock::Advance(Milliseconds duration) {
    const std::lock_guard guard(mutex_);
    now_ += duration;
    for (Waiter* waiter : waiters_)
        waiter->advanced.Set();
}

void ManualClock::AwaitWaiters(size_t count) {
    std::unique_lock guard(mutex_);
    const auto stillWaits = [&](const Waiter* waiter) { return waiter->deadline > now_; };
    waitersChanged_.wait(guard, [&] {
        return std::count_if(waiters_.begin(), waiters_.end(), stillWaits) >= static_cast<ptrdiff_t>(count);
    });
}

int ManualClock::WaitAny(std::span<Event* const> events, Milliseconds timeout) {
    if (timeout == forever || timeout <= Milliseconds::zero()) return Event::WaitAny(events, timeout);

    std::unique_lock guard(mutex_);
    Waiter waiter{now_ + timeout};
    std::vector<Event*> all(events.begin(), events.end());
    all.push_back(&waiter.advanced);
    waiters_.push_back(&waiter);
    waitersChanged_.notify_all();
    int index = -1;
    while (now_ < waiter.deadline) {
        guard.unlock();
        index = Event::WaitAny(all, forever);
        guard.lock();
        if (index < static_cast<int>(events.size())) break;
        index = -1;
    }
    waiters_.erase(std::find(waiters_.begin(), waiters_.end(), &waiter));
    return index;
}

}  // namespace tarnbridge::test
