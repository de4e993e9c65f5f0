#pragma once

#include <cstdint>
#include <span>

#include "platform/Event.h"

namespace tarnbridge {

/// Calendar fields of the local time, with the distance of its zone from UTC.
struct LocalTime {
    int year = 1970;  ///< four digits
    int month = 1;    ///< 1 to 12
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int minutesEastOfUtc = 0;
};

/// Where time comes from. Every pause and every time-out that is part of a behaviour goes through a clock
/// that is passed in, so that a test can hold the time in its hand. All operations may be called from any
/// thread.
class Clock {
public:
    virtual ~Clock() = default;

    /// Milliseconds of a clock that never goes back; its zero means nothing.
    virtual Milliseconds Now() = 0;

    virtual void Sleep(Milliseconds duration) = 0;

    /// As Event::WaitAny, with the time-out measured by this clock.
    virtual int WaitAny(std::span<Event* const> events, Milliseconds timeout) = 0;

    virtual LocalTime Local() = 0;

    /// As Event::Wait, with the time-out measured by this clock.
    bool Wait(Event& event, Milliseconds timeout) {
        Event* const one = &event;
        return WaitAny({&one, 1}, timeout) == 0;
    }
};

/// The machine's own time.
class SystemClock : public Clock {
public:
    Milliseconds Now() override;
    void Sleep(Milliseconds duration) override;
    int WaitAny(std::span<Event* const> events, Milliseconds timeout) override;
    LocalTime Local() override;
};

}  // namespace tarnbridge
