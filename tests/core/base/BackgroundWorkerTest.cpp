#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "core/base/BackgroundWorker.h"
#include "core/base/MessageQueue.h"
#include "link/HandsetLink.h"
#include "support/FakeWire.h"
#include "support/ManualClock.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

constexpr Milliseconds limit = 10s;

class Worker : public ::testing::Test {
protected:
    Worker() {
        test::AnswerHandshake(wire);
        wire.Answer("AT\r", "\r\nOK\r\n");
        LinkKind kind{};
        EXPECT_TRUE(link.Connect("COM1", kind));
        EXPECT_TRUE(worker.Start(link));
    }
    ~Worker() override {
        worker.Stop();
        link.Disconnect(false);
    }

    /// A window that keeps what it gets.
    static std::shared_ptr<MessageQueue> MakeWindow(std::vector<Message>& got) {
        return std::make_shared<MessageQueue>([&got](Message& message) {
            got.push_back(std::move(message));
            return intptr_t{0};
        });
    }

    /// Starts a check that lasts until EndCheck.
    void BeginCheck() {
        EXPECT_TRUE(link.EnsureSession());
        wire.Answer("AT\r", "");
        wire.ForgetWritten();
        EXPECT_TRUE(worker.RequestSessionCheck(frame));
        while (wire.CountWritten("AT\r") == 0)
            std::this_thread::yield();
    }

    void EndCheck() { wire.Send("\r\nOK\r\n"); }

    /// A job that says that it runs and then waits for the test.
    BackgroundWorker::Job Waiting() {
        return [this](HandsetLink&, int&) {
            begun.Set();
            goOn.Wait(forever);
            return 1;
        };
    }

    test::FakeWire wire;
    test::NoSleepClock clock;
    HandsetLink link{clock, wire.Factory()};
    Event begun{ResetMode::Automatic};
    Event goOn{ResetMode::Automatic};
    std::vector<Message> got;
    std::vector<Message> frameGot;
    const std::shared_ptr<MessageQueue> window = MakeWindow(got);
    const std::shared_ptr<MessageQueue> frame = MakeWindow(frameGot);
    BackgroundWorker worker;
};

TEST_F(Worker, CallablesGiveCountsAndMayThrow) {
    ASSERT_TRUE(
        worker.RequestJob(window, BackgroundWorker::FirstFeatureJob, 3,
                          [owned = std::make_shared<int>(-1)](HandsetLink&, int&) { return *owned; }));
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got[0].wParam, 3);
    EXPECT_EQ(got[0].lParam, -1);
    EXPECT_EQ(got[0].payload.Get<WorkerAnswer>()->kind, 4);
    EXPECT_EQ(got[0].payload.Get<int>(), nullptr) << "another type";

    ASSERT_TRUE(worker.RequestJob(window, 5, 0,
                                  [](HandsetLink&, int&) -> int { throw std::runtime_error("bad digits"); }));
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got[1].lParam, 0);
    EXPECT_TRUE(worker.RequestSessionCheck(frame)) << "and the thread lives";
    EXPECT_TRUE(frame->ProcessOne(limit));
}

TEST_F(Worker, RefusesWhileBusyAndWhatHasNothingToDo) {
    EXPECT_FALSE(worker.RequestJob(window, 4, 0, nullptr));
    EXPECT_FALSE(worker.IsBusy());

    ASSERT_TRUE(worker.RequestJob(window, 4, 1, Waiting()));
    for (int moment = 0; moment < 2; ++moment) {
        EXPECT_TRUE(worker.IsBusy());
        EXPECT_FALSE(worker.RequestJob(window, 4, 2, Waiting()));
        EXPECT_FALSE(worker.RequestSessionCheck(frame)) << "a check would disturb the job";
        if (moment == 0) begun.Wait(limit);
    }
    goOn.Set();
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got[0].wParam, 1) << "the refused ones have changed nothing";
    EXPECT_TRUE(worker.RequestSessionCheck(frame));
    ASSERT_TRUE(frame->ProcessOne(limit));
}

TEST_F(Worker, AJobAskedForDuringACheckFollowsIt) {
    BeginCheck();
    EXPECT_FALSE(worker.RequestSessionCheck(frame)) << "one check at a time";
    ASSERT_TRUE(worker.RequestJob(window, 4, 9, Waiting()));
    EXPECT_FALSE(begun.Wait(20ms));
    EndCheck();
    EXPECT_TRUE(begun.Wait(limit));
    EXPECT_TRUE(frame->ProcessOne(0ms));
    goOn.Set();
    EXPECT_TRUE(window->ProcessOne(limit));
}

TEST_F(Worker, AWindowThatHasGoneIsNotCalled) {
    auto gone = MakeWindow(got);
    ASSERT_TRUE(worker.RequestJob(gone, 4, 1, Waiting()));
    begun.Wait(limit);
    gone.reset();
    goOn.Set();
    worker.Stop();
    EXPECT_TRUE(got.empty());
}

TEST_F(Worker, StopInEveryState) {
    worker.Stop();
    worker.Stop();
    EXPECT_FALSE(worker.RequestJob(window, 4, 1, [](HandsetLink&, int&) { return 1; })) << "would never end";
    EXPECT_FALSE(worker.RequestSessionCheck(frame));
    EXPECT_FALSE(worker.IsBusy());

    // While a job runs: it comes to its end and is answered.
    ASSERT_TRUE(worker.Start(link));
    EXPECT_FALSE(worker.Start(link)) << "runs already";
    ASSERT_TRUE(worker.RequestJob(window, 4, 1, Waiting()));
    begun.Wait(limit);
    std::thread stopper([&] { worker.Stop(); });
    goOn.Set();
    stopper.join();
    EXPECT_TRUE(window->ProcessOne(0ms));

    // With a check under way and a job that hasn't begun: that one is dropped, also for the next start.
    ASSERT_TRUE(worker.Start(link));
    BeginCheck();
    const auto runs = std::make_shared<int>(0);
    ASSERT_TRUE(worker.RequestJob(window, 4, 1, [runs](HandsetLink&, int&) { return ++*runs; }));
    stopper = std::thread([&] { worker.Stop(); });
    while (worker.IsRunning())
        std::this_thread::yield();
    EndCheck();
    stopper.join();
    EXPECT_FALSE(worker.IsBusy());
    EXPECT_EQ(runs.use_count(), 1);
    ASSERT_TRUE(worker.Start(link));
    ASSERT_TRUE(worker.RequestJob(window, 4, 2, [](HandsetLink&, int&) { return 1; }));
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got.back().wParam, 2);
    EXPECT_EQ(*runs, 0);
}

}  // namespace
}  // namespace tarnbridge
