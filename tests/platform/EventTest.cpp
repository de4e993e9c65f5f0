#include <thread>

#include <gtest/gtest.h>

#include "platform/Event.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

TEST(Event, WaitAnyConsumesOnlyTheFirstSignalled) {
    Event first(ResetMode::Automatic);
    Event second(ResetMode::Automatic);
    Event third(ResetMode::Automatic);
    Event* const all[] = {&first, &second, &third};
    EXPECT_EQ(Event::WaitAny(all, 1ms), -1);
    second.Set();
    third.Set();
    EXPECT_EQ(Event::WaitAny(all, forever), 1);
    EXPECT_TRUE(third.IsSet());
}

TEST(Event, NoSetIsLostBetweenThreads) {
    Event ping(ResetMode::Automatic);
    Event pong(ResetMode::Automatic);
    constexpr int rounds = 2000;
    std::thread other([&] {
        for (int i = 0; i < rounds; ++i) {
            ping.Wait(forever);
            pong.Set();
        }
    });
    int answered = 0;
    for (int i = 0; i < rounds; ++i) {
        ping.Set();
        if (pong.Wait(10s)) ++answered;
    }
    other.join();
    EXPECT_EQ(answered, rounds);
}

}  // namespace
}  // namespace tarnbridge
