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
    for (Event* waiter : waiters_)
        waiter->Set();
}

void ManualClock::AwaitWaiters(size_t count) {
    std::unique_lock guard(mutex_);
    waitersChanged_.wait(guard, [&] { return waiters_.size() >= count; });
}

int ManualClock::WaitAny(std::span<Event* const> events, Milliseconds timeout) {
    if (timeout == forever || timeout <= Milliseconds::zero()) return Event::WaitAny(events, timeout);

    Event advanced(ResetMode::Automatic);
    std::vector<Event*> all(events.begin(), events.end());
    all.push_back(&advanced);
    std::unique_lock guard(mutex_);
    const Milliseconds deadline = now_ + timeout;
    waiters_.push_back(&advanced);
    waitersChanged_.notify_all();
    int index = -1;
    while (now_ < deadline) {
        guard.unlock();
        index = Event::WaitAny(all, forever);
        guard.lock();
        if (index < static_cast<int>(events.size())) break;
        index = -1;
    }
    waiters_.erase(std::find(waiters_.begin(), waiters_.end(), &advanced));
    return index;
}

}  // namespace tarnbridge::test
