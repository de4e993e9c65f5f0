#include <ctime>
#include <thread>

#include "platform/Clock.h"

namespace tarnbridge {

Milliseconds SystemClock::Now() {
    return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
}

void SystemClock::Sleep(Milliseconds duration) {
    std::this_thread::sleep_for(duration);
}

int SystemClock::WaitAny(std::span<Event* const> events, Milliseconds timeout) {
    return Event::WaitAny(events, timeout);
}

LocalTime SystemClock::Local() {
    const std::time_t now = std::time(nullptr);
    std::tm fields{};
    localtime_r(&now, &fields);
    return {fields.tm_year + 1900,
            fields.tm_mon + 1,
            fields.tm_mday,
            fields.tm_hour,
            fields.tm_min,
            fields.tm_sec,
            static_cast<int>(fields.tm_gmtoff / 60)};
}

}  // namespace tarnbridge
