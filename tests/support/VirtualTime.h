#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <vector>

#include "platform/Clock.h"
#include "platform/Thread.h"

namespace tarnbridge::test {

/// Time that moves by itself, and at once, whenever nobody in this process has anything to do: it jumps to
/// the end of the first wait, or to the next thing that is to come from what takes part in it. A time-out of
/// 5 s so costs about as little as a time-out of 5 ms, and whether it comes first never depends on the load
/// of the machine.
///
/// Nobody has anything to do when every thread of the process sleeps and none has run between two looks at
/// all of them; the system tells that. A thread that computes, or that waits for the processor or the disk,
/// holds the time, known to the clock or not. A sleep in real time holds nothing, and neither do bytes on
/// their way through a pipe or a terminal: what a test talks to must be in this process, as SimulatedPhone
/// is.
///
/// One at a time in a process. The clock must outlive every wait and all that takes part.
class VirtualTime : public Clock {
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// Something that will happen by itself, such as a reply that is late.
    class Participant {
    public:
        virtual ~Participant() = default;

        /// The first moment after `now` at which something happens, or Moment::max().
        virtual Moment Next(Moment now) = 0;

        /// It is `now`. Called, on a thread of the clock's own, after every move; it must not wait.
        virtual void Reached(Moment now) = 0;
    };

    VirtualTime();
    VirtualTime(const VirtualTime&) = delete;
    VirtualTime& operator=(const VirtualTime&) = delete;
    ~VirtualTime() override;

    Milliseconds Now() override;
    void Sleep(Milliseconds duration) override { WaitAny({}, duration); }
    int WaitAny(std::span<Event* const> events, Milliseconds timeout) override;
    LocalTime Local() override { return local; }

    /// Now, to the last digit.
    Moment Exactly() const { return Moment(Moment::duration(now_.load())); }

    void Add(Participant& participant);
    void Remove(Participant& participant);

    /// What Next gives may have changed; the participant's word. From any thread.
    void Stir();

    LocalTime local{2007, 3, 14, 15, 9, 26, 60};

private:
    struct Waiter {
        Moment deadline;
        Event over{ResetMode::Manual};
        bool released = false;
    };

    enum class Turn { Moved, Busy, Nothing };

    void Run();
    Turn Move(std::unique_lock<std::mutex>& guard);

    std::atomic<Moment::rep> now_;
    std::mutex mutex_;
    std::condition_variable stirred_;
    std::vector<Waiter*> waiters_;
    std::vector<Participant*> participants_;
    bool news_ = false;
    bool stop_ = false;
    Thread thread_;
};

}  // namespace tarnbridge::test
