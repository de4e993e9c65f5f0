#include <thread>

#include <gtest/gtest.h>

#include "link/HandsetLink.h"
#include "support/SimulatedPhone.h"

namespace tarnbridge::test {
namespace {

using namespace std::chrono_literals;

/// A link on a phone that is plugged in, both on virtual time.
struct Session {
    explicit Session(VirtualHandsetOptions options = {}) : phone(time, std::move(options)) {
        EXPECT_TRUE(Connect());
    }
    ~Session() { link.Disconnect(false); }

    bool Connect() {
        LinkKind kind{};
        return link.Connect("phone", kind);
    }

    /// Whether the command had an answer, and how long that took by the clock.
    std::pair<bool, Milliseconds> Ask(const std::string& command) {
        const Milliseconds start = time.Now();
        ATResult result;
        const bool answered = link.ExecCommand(command + "\r", 5000, false, result);
        return {answered, time.Now() - start};
    }

    VirtualTime time;
    SimulatedPhone phone;
    HandsetLink link{time, phone.Factory()};
};

TEST(VirtualTime, MakesATimeOutCheapAndExact) {
    const auto start = std::chrono::steady_clock::now();
    Session session({.demo = true});
    ASSERT_TRUE(session.link.EnsureSession());
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(session.Ask("AT+CMGR=1"), std::pair(true, 0ms));
    session.phone.Script("AT+X", "");
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(session.Ask("AT+X").second / 1s, 5);
    EXPECT_EQ(session.phone.Count("AT+X"), 10u);
    // A tenth of what the time-outs alone take in real time, however busy the machine.
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
}

TEST(VirtualTime, BringsALateReplyAtItsTime) {
    Session session({.faults = {"late=+CSQ:4900"}, .baud = 9600});
    ASSERT_TRUE(session.link.EnsureSession());
    const auto [answered, took] = session.Ask("AT+CSQ");
    EXPECT_TRUE(answered);
    EXPECT_GT(took, 4900ms);
    EXPECT_LT(took, 5000ms) << "and the bytes at the pace of the line";
}

/// Whoever computes holds the time, whether the clock knows them or not.
TEST(VirtualTime, StandsWhileSomebodyWorks) {
    VirtualTime time;
    const Milliseconds start = time.Now();
    Event never(ResetMode::Manual);
    std::thread waiter([&] { EXPECT_FALSE(time.Wait(never, 10ms)); });
    const auto end = std::chrono::steady_clock::now() + 20ms;
    while (std::chrono::steady_clock::now() < end)
        ASSERT_EQ(time.Now(), start);
    waiter.join();
    EXPECT_EQ(time.Now() - start, 10ms);
}

TEST(VirtualTime, EndsWaitsInTheirOrder) {
    VirtualTime time;
    std::mutex mutex;
    std::vector<int> order;
    std::vector<std::thread> threads;
    for (const int rank : {5, 3, 1, 4, 2}) {
        threads.emplace_back([&, rank] {
            time.Sleep(Milliseconds(rank));
            const std::lock_guard guard(mutex);
            order.push_back(rank);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4, 5}));
}

TEST(SimulatedPhone, KeepsItsContentThroughPlugsAndConnections) {
    Session session({.faults = {"unplug-after=60,bytes=3,for=700"}});
    ASSERT_TRUE(session.link.EnsureSession());
    session.phone.With([](simulator::HandsetContent& content) { content.Add("SM", 1, "00"); });
    while (session.Ask("AT+CSQ").first) {
    }
    session.link.Disconnect(false);
    EXPECT_FALSE(session.Connect());
    EXPECT_EQ(session.link.OpenFailure().fault, SerialOpenFault::Missing);
    session.time.Sleep(700ms);
    ASSERT_TRUE(session.Connect() && session.link.EnsureSession());
    session.phone.With(
        [](simulator::HandsetContent& content) { EXPECT_EQ(content.simMessages.items.at(1).pdu, "00"); });
}

TEST(SimulatedPhone, LetsATestStepInBeforeACommand) {
    Session session;
    ASSERT_TRUE(session.link.EnsureSession());
    session.phone.OnCommand([](simulator::HandsetLine& line, const std::string& command) {
        if (command == "AT+CGMI") line.Phone().Content().identity.maker = "Another";
        if (command == "AT+CSQ") line.Pull();
    });
    ATResult result;
    result.prefix = "+CGMI";
    ASSERT_TRUE(session.link.ExecCommand("AT+CGMI\r", 5000, false, result));
    const auto [answered, took] = session.Ask("AT+CSQ");
    EXPECT_FALSE(answered);
    EXPECT_EQ(took, 0ms) << "a hang-up frees the caller at once";
}

}  // namespace
}  // namespace tarnbridge::test
