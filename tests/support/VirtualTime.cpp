#include "support/VirtualTime.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace tarnbridge::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::microseconds firstPause = 20us;
constexpr std::chrono::microseconds longestPause = 1ms;

/// How often each thread of this process but the calling one has gone to sleep.
using Sleepers = std::map<std::string, std::string>;

/// Nothing when one of them is awake. A thread that was woken counts as awake before it runs.
std::optional<Sleepers> AllAsleep() {
    Sleepers sleepers;
    const std::string self = std::to_string(::gettid());
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir("/proc/self/task"), &::closedir);
    if (!folder) return std::nullopt;
    while (const dirent* const entry = ::readdir(folder.get())) {
        const std::string thread = entry->d_name;
        if (thread.starts_with('.') || thread == self) continue;
        const int file = ::open(("/proc/self/task/" + thread + "/status").c_str(), O_RDONLY | O_CLOEXEC);
        if (file < 0) return std::nullopt;  // it has just ended
        std::array<char, 4096> buffer;
        const ssize_t size = ::read(file, buffer.data(), buffer.size());
        ::close(file);
        const std::string_view status(buffer.data(), static_cast<size_t>(std::max<ssize_t>(size, 0)));
        const size_t state = status.find("\nState:\t");
        const size_t switches = status.find("\nvoluntary_ctxt_switches:");
        if (state == status.npos || switches == status.npos || status[state + 8] != 'S') return std::nullopt;
        sleepers[thread] = status.substr(switches);
    }
    return sleepers;
}

}  // namespace

VirtualTime::VirtualTime() : now_(Moment::duration(1h).count()) {
    if (!thread_.Start("virtual time", [this] { Run(); })) std::abort();
}

VirtualTime::~VirtualTime() {
    {
        const std::lock_guard guard(mutex_);
        stop_ = true;
        stirred_.notify_all();
    }
    thread_.Join();
}

Milliseconds VirtualTime::Now() {
    return std::chrono::duration_cast<Milliseconds>(Exactly().time_since_epoch());
}

int VirtualTime::WaitAny(std::span<Event* const> events, Milliseconds timeout) {
    if (timeout == forever || timeout <= Milliseconds::zero()) return Event::WaitAny(events, timeout);
    Waiter waiter{Exactly() + timeout};
    std::vector<Event*> all(events.begin(), events.end());
    all.push_back(&waiter.over);
    {
        const std::lock_guard guard(mutex_);
        waiters_.push_back(&waiter);
    }
    Stir();
    const int index = Event::WaitAny(all, forever);
    const std::lock_guard guard(mutex_);
    waiters_.erase(std::find(waiters_.begin(), waiters_.end(), &waiter));
    return index < static_cast<int>(events.size()) ? index : -1;
}

void VirtualTime::Add(Participant& participant) {
    const std::lock_guard guard(mutex_);
    participants_.push_back(&participant);
}

void VirtualTime::Remove(Participant& participant) {
    const std::lock_guard guard(mutex_);
    std::erase(participants_, &participant);
}

void VirtualTime::Stir() {
    const std::lock_guard guard(mutex_);
    news_ = true;
    stirred_.notify_all();
}

void VirtualTime::Run() {
    std::unique_lock guard(mutex_);
    auto pause = firstPause;
    while (!stop_) {
        if (std::exchange(news_, false)) pause = firstPause;
        switch (Move(guard)) {
            case Turn::Moved:
                pause = firstPause;
                break;
            case Turn::Nothing:
                stirred_.wait(guard, [&] { return news_ || stop_; });
                break;
            case Turn::Busy:
                stirred_.wait_for(guard, pause, [&] { return news_ || stop_; });
                pause = std::min(2 * pause, longestPause);
        }
    }
}

/// The two looks at the threads agree only if nobody ran between them, so what is seen there still holds
/// after them. No lock is held when the first begins: who waits for one isn't asleep. A wait that is over
/// ends before time goes on, one wait at a time, so that what follows has an order.
VirtualTime::Turn VirtualTime::Move(std::unique_lock<std::mutex>& guard) {
    const Moment now = Exactly();
    const auto look = [&] {
        Waiter* first = nullptr;
        for (Waiter* const waiter : waiters_) {
            if (!waiter->released && (first == nullptr || waiter->deadline < first->deadline)) first = waiter;
        }
        Moment next = first != nullptr ? first->deadline : Moment::max();
        if (next > now) {
            for (Participant* const participant : participants_)
                next = std::min(next, participant->Next(now));
        }
        return std::pair(first, next);
    };
    if (look().second == Moment::max()) return Turn::Nothing;

    guard.unlock();
    const std::optional<Sleepers> before = AllAsleep();
    guard.lock();
    if (!before) return Turn::Busy;
    const auto [first, next] = look();
    if (AllAsleep() != before) return Turn::Busy;
    if (next <= now) {
        first->released = true;
        first->over.Set();
    } else if (next < Moment::max()) {
        now_ = next.time_since_epoch().count();
        for (Participant* const participant : participants_)
            participant->Reached(next);
    }
    return Turn::Moved;
}

}  // namespace tarnbridge::test
