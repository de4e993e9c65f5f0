#include "core/app/TeardownThread.h"

namespace tarnbridge {

TeardownThread::~TeardownThread() {
    stop_.Set();
    if (started_) StopThread();
}

bool TeardownThread::Do(Step step) {
    if (!started_) started_ = StartThread();
    if (!started_) return false;
    {
        const std::lock_guard guard(mutex_);
        steps_.push_back(std::move(step));
    }
    given_.Set();
    return true;
}

void TeardownThread::Run() {
    Event* const events[] = {&given_, &stop_};
    for (bool stopping = false; !stopping;) {
        // The end comes second, so that what was given before it is found first.
        stopping = Event::WaitAny(events, forever) == 1;
        for (;;) {
            Step step;
            {
                const std::lock_guard guard(mutex_);
                if (steps_.empty()) break;
                step = std::move(steps_.front());
                steps_.pop_front();
            }
            step();
        }
    }
}

}  // namespace tarnbridge
