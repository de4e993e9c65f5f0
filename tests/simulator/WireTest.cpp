#include <gtest/gtest.h>

#include "simulator/Wire.h"

namespace tarnbridge::simulator {
namespace {

using namespace std::chrono_literals;

const Wire::Time start = Wire::Time(1h);

/// What is heard of the PC, with the time of the last byte.
std::pair<std::string, Wire::Time> HearAll(Wire& wire, Wire::Time now) {
    std::pair<std::string, Wire::Time> all;
    while (const auto heard = wire.Hear(now)) {
        all.first += heard->byte;
        all.second = heard->when;
    }
    return all;
}

TEST(Wire, HearsAByteWhenItsLastBitIsThrough) {
    Wire wire(10'000);  // a byte a millisecond
    wire.Arrive("AT\r", start);
    EXPECT_FALSE(wire.Hear(start));
    EXPECT_EQ(HearAll(wire, start + 1999us).first, "A");
    EXPECT_EQ(wire.Next(), start + 3ms) << "nothing happens before the command's end";
    const auto rest = HearAll(wire, start + 5ms);
    EXPECT_EQ(rest.first, "T\r");
    EXPECT_EQ(rest.second, start + 3ms) << "a late look doesn't make it later";
}

TEST(Wire, LinesUpWhatComesTooFast) {
    Wire wire(10'000);
    wire.Arrive("AB", start);
    wire.Arrive("CD", start + 1ms);
    EXPECT_EQ(HearAll(wire, start + 10ms).second, start + 4ms);
    EXPECT_EQ(wire.Unheard(), 0u);
}

TEST(Wire, DoesNotDriftHoweverLateItIsServed) {
    Wire wire(115'200);
    Wire::Time when = start;
    for (int i = 0; i < 1000; ++i) {
        wire.Say(std::string(115, 'x'), when);
        when += 1ms;  // said long before the line is free
    }
    size_t sent = 0;
    Wire::Time now = start;
    while (!wire.Silent()) {
        const Wire::Time next = wire.Next();
        ASSERT_GT(next, now);
        now = next + 100us;
        for (auto due = wire.Due(now); !due.empty(); due = wire.Due(now)) {
            sent += due.size();
            wire.Deliver(due.size());
        }
    }
    EXPECT_EQ(sent, 115'000u);
    EXPECT_NEAR(static_cast<double>((now - start).count()), 115'000 * 1e10 / 115'200, 200'000);
}

TEST(Wire, DeliversOnlyWhatIsThrough) {
    Wire wire(10'000);
    wire.Say("0123456789", start + 1ms);
    EXPECT_TRUE(wire.Due(start + 1ms).empty());
    EXPECT_EQ(wire.Due(start + 4ms), "012");
    wire.Deliver(2);
    EXPECT_EQ(wire.Due(start + 4ms), "2");
    EXPECT_EQ(wire.Due(start + 1h), "23456789");
}

TEST(Wire, WithoutPaceIsAtOnce) {
    Wire wire(0);
    wire.Arrive("AT\r", start);
    EXPECT_EQ(HearAll(wire, start).first, "AT\r");
    EXPECT_EQ(wire.Next(), Wire::Time::max());
    wire.Say("one", start);
    wire.Say("two", start + 5ms);
    EXPECT_EQ(wire.Due(start), "one");
    wire.Deliver(3);
    EXPECT_TRUE(wire.Due(start).empty());
    EXPECT_EQ(wire.Next(), start + 5ms);
}

}  // namespace
}  // namespace tarnbridge::simulator
