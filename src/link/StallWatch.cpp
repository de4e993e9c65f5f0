#include "link/StallWatch.h"

#include <utility>

namespace tarnbridge {
namespace {

constexpr Milliseconds step{500};
constexpr Milliseconds stallTime{5000};

}  // namespace

bool StallWatch::Start(std::function<int()> onStall) {
    if (running_ || !onStall) return false;
    thread_.Join();  // a watch that ended by itself
    onStall_ = std::move(onStall);
    kick_.Reset();
    stop_.Reset();
    running_ = true;
    if (thread_.Start("stall watch", [this] { Watch(); })) return true;
    running_ = false;
    return false;
}

void StallWatch::Kick() {
    if (running_) kick_.Set();
}

void StallWatch::Stop() {
    if (running_) stop_.Set();
    thread_.Join();
}

void StallWatch::Watch() {
    enum { Stopped = 0, Kicked = 1 };
    Event* const events[] = {&stop_, &kick_};
    Milliseconds elapsed{0};
    for (;;) {
        const int signalled = clock_.WaitAny(events, step);
        if (signalled == Stopped) break;
        if (signalled == Kicked) {
            elapsed = Milliseconds::zero();
            continue;
        }
        elapsed += step;
        if (elapsed < stallTime) continue;
        if (onStall_() == 0) break;
        elapsed = Milliseconds::zero();
    }
    running_ = false;
}

}  // namespace tarnbridge
