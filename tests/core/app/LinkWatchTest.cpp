#include <thread>

#include <gtest/gtest.h>

#include "core/app/FrameMessages.h"
#include "core/app/LinkWatch.h"
#include "core/base/MessageQueue.h"
#include "support/FakeWire.h"
#include "support/ManualClock.h"
#include "support/ScriptedUser.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;
using News = LinkWatch::News;

constexpr Milliseconds limit = 10s;

class LinkWatchTest : public ::testing::Test {
protected:
    LinkWatchTest() {
        test::AnswerHandshake(wire);
        wire.Answer("AT\r", "\r\nOK\r\n");
        EXPECT_TRUE(worker.Start(link));
        watch.SetWindow(window);
    }

    /// What the frame does with the next message; the news of a check, or nothing of a step.
    std::optional<News> Next() {
        EXPECT_TRUE(window->ProcessOne(limit));
        return std::exchange(news, std::nullopt);
    }

    intptr_t Handle(Message& message) {
        if (message.id == LinkStepDone) watch.StepDone(*message.payload.Get<SerialOpenFailure>());
        if (message.id == WorkerResult) news = watch.TakeAnswer(message.lParam != 0);
        return 0;
    }

    void Connect() {
        watch.Tick();
        EXPECT_EQ(Next(), std::nullopt) << "opened";
        EXPECT_EQ(Next(), News::Connected);
    }

    test::FakeWire wire;
    test::NoSleepClock clock;
    test::ScriptedUser user;
    LinkAddress address{"COM1"};
    std::optional<News> news;
    const std::shared_ptr<MessageQueue> window =
        std::make_shared<MessageQueue>([this](Message& message) { return Handle(message); });
    HandsetLink link{clock, wire.Factory()};
    BackgroundWorker worker;
    LinkWatch watch{link, worker, user, [this] { return address; }};
};

TEST_F(LinkWatchTest, NothingIsAskedOfABusyWorkerAndOneStepRunsAtATime) {
    Connect();
    Event goOn{ResetMode::Manual};
    ASSERT_TRUE(
        worker.RequestJob(window, 7, 0, [&](HandsetLink&, int&) { return goOn.Wait(limit) ? 1 : 0; }));
    watch.Tick();
    watch.Tick();
    EXPECT_FALSE(window->ProcessOne(0ms));
    goOn.Set();
    ASSERT_TRUE(window->ProcessOne(limit));
    wire.ForgetWritten();
    address.baudRate = 57600;
    watch.Reconnect();
    watch.Reconnect();
    watch.Tick();
    Next();
    EXPECT_EQ(Next(), News::Connected);
    EXPECT_EQ(wire.CountWritten("ATE1\r"), 1u);
}

TEST_F(LinkWatchTest, ANewAddressDuringAStepFollowsIt) {
    watch.Tick();
    address.portName = "COM2";
    watch.Reconnect();
    Next();
    EXPECT_EQ(Next(), std::nullopt) << "the first port is closed and the second opened";
    EXPECT_EQ(Next(), News::Connected);
    address.portName = "COM1";
    watch.Reconnect();
    EXPECT_FALSE(watch.IsConnected());
    Next();
    EXPECT_EQ(Next(), News::Connected);
}

TEST_F(LinkWatchTest, AnAnswerAboutTheLinkBeforeIsNoNews) {
    Connect();
    watch.Tick();
    // The answer stands in the queue when the user chooses another port.
    while (worker.IsBusy())
        std::this_thread::yield();
    address.portName = "COM2";
    watch.Reconnect();
    EXPECT_EQ(Next(), News::None);
    EXPECT_FALSE(watch.IsConnected());
    Next();
    EXPECT_EQ(Next(), News::Connected);
}

TEST_F(LinkWatchTest, CloseRunsAfterWhatIsUnderWayAndEndsTheWatch) {
    watch.Tick();
    Event closed{ResetMode::Manual};
    bool wasOpen = false;
    watch.Close([&] {
        wasOpen = link.IsPortOpen();
        worker.Stop();
        link.Disconnect(true);
        closed.Set();
    });
    ASSERT_TRUE(closed.Wait(limit));
    EXPECT_TRUE(wasOpen);
    Next();
    watch.Tick();
    watch.Reconnect();
    EXPECT_FALSE(window->ProcessOne(0ms));
    EXPECT_FALSE(link.IsPortOpen());
}

}  // namespace
}  // namespace tarnbridge
