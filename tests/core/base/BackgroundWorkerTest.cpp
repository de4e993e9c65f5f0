#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "core/base/BackgroundWorker.h"
#include "core/base/MessageQueue.h"
#include "link/HandsetLink.h"
#include "support/FakeWire.h"
#include "support/ManualClock.h"
#include "support/ScriptedUser.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

constexpr Milliseconds limit = 10s;

/// A record that keeps what it was told and answers as set.
struct FakeRecord : HandsetRecord {
    bool Read(HandsetLink&, std::u16string_view storage, int index, int& error) override {
        last = std::u16string(storage) + u' ' + static_cast<char16_t>(u'0' + index);
        error = 321;
        return false;
    }
    bool Remove(HandsetLink& link, int&) override {
        return link.ExecExpect("AT+CMGD=5\r", 5000, nullptr, true);
    }

    std::u16string last;
};

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

TEST_F(Worker, AnswersWithSlotResultAndError) {
    const auto record = std::make_shared<FakeRecord>();
    ASSERT_TRUE(worker.RequestRead(window, record, u"ME", 7));
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(record->last, u"ME 7");
    EXPECT_EQ(got[0].id, WorkerResult);
    EXPECT_EQ(got[0].wParam, 7);
    EXPECT_EQ(got[0].lParam, 0);
    ASSERT_NE(got[0].payload.Get<WorkerAnswer>(), nullptr);
    EXPECT_EQ(got[0].payload.Get<WorkerAnswer>()->kind, BackgroundWorker::ReadMessage);
    EXPECT_EQ(got[0].payload.Get<WorkerAnswer>()->error, 321);
    EXPECT_EQ(record.use_count(), 1) << "given back before the answer";

    wire.Answer("AT+CMGD=5\r", "\r\nOK\r\n");
    ASSERT_TRUE(worker.RequestRemove(window, record)) << "free again when the answer is here";
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got[1].lParam, 1);
    EXPECT_EQ(got[1].payload.Get<WorkerAnswer>()->kind, BackgroundWorker::RemoveMessage);
    EXPECT_EQ(wire.CountWritten("AT+CMGD=5\r"), 1u);
}

TEST_F(Worker, CallablesGiveCountsAndMayThrow) {
    ASSERT_TRUE(
        worker.RequestJob(window, BackgroundWorker::FirstFeatureJob, 3,
                          [owned = std::make_shared<int>(-1)](HandsetLink&, int&) { return *owned; }));
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got[0].wParam, 3);
    EXPECT_EQ(got[0].lParam, -1);
    EXPECT_EQ(got[0].payload.Get<WorkerAnswer>()->kind, 4);

    ASSERT_TRUE(worker.RequestJob(window, 5, 0,
                                  [](HandsetLink&, int&) -> int { throw std::runtime_error("bad digits"); }));
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got[1].lParam, 0);
    EXPECT_TRUE(worker.RequestSessionCheck(frame)) << "and the thread lives";
    EXPECT_TRUE(frame->ProcessOne(limit));
}

TEST_F(Worker, RefusesWhileBusyAndWhatHasNothingToDo) {
    EXPECT_FALSE(worker.RequestRead(window, nullptr, u"ME", 1));
    EXPECT_FALSE(worker.RequestRemove(window, nullptr));
    EXPECT_FALSE(worker.RequestJob(window, 4, 0, nullptr));
    EXPECT_FALSE(worker.IsBusy());

    ASSERT_TRUE(worker.RequestJob(window, 4, 1, Waiting()));
    const auto record = std::make_shared<FakeRecord>();
    for (int moment = 0; moment < 2; ++moment) {
        EXPECT_TRUE(worker.IsBusy());
        EXPECT_FALSE(worker.RequestRead(window, record, u"ME", 1));
        EXPECT_FALSE(worker.RequestSessionCheck(frame)) << "a check would disturb the job";
        if (moment == 0) begun.Wait(limit);
    }
    goOn.Set();
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got[0].wParam, 1) << "the refused ones have changed nothing";
    EXPECT_TRUE(worker.RequestSessionCheck(frame));
    ASSERT_TRUE(frame->ProcessOne(limit));
    EXPECT_TRUE(record->last.empty());
}

TEST_F(Worker, TheSessionCheckTellsWhoAskedWhetherTheHandsetAnswers) {
    ASSERT_TRUE(worker.RequestSessionCheck(frame));
    ASSERT_TRUE(frame->ProcessOne(limit));
    EXPECT_EQ(frameGot[0].id, WorkerResult);
    EXPECT_EQ(frameGot[0].wParam, 0);
    EXPECT_EQ(frameGot[0].lParam, 1);
    EXPECT_EQ(frameGot[0].payload.Get<WorkerAnswer>(), nullptr);
    EXPECT_TRUE(link.IsSessionReady());
    EXPECT_FALSE(window->ProcessOne(0ms));

    wire.Answer("AT\r", "\r\nERROR\r\n");
    ASSERT_TRUE(worker.RequestSessionCheck(frame));
    ASSERT_TRUE(frame->ProcessOne(limit));
    EXPECT_EQ(frameGot[1].lParam, 0);
    EXPECT_FALSE(link.IsSessionReady());
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
    const auto record = std::make_shared<FakeRecord>();
    BeginCheck();
    ASSERT_TRUE(worker.RequestRead(window, record, u"ME", 1));
    stopper = std::thread([&] { worker.Stop(); });
    while (worker.IsRunning())
        std::this_thread::yield();
    EndCheck();
    stopper.join();
    EXPECT_FALSE(worker.IsBusy());
    EXPECT_EQ(record.use_count(), 1);
    ASSERT_TRUE(worker.Start(link));
    ASSERT_TRUE(worker.RequestJob(window, 4, 2, [](HandsetLink&, int&) { return 1; }));
    ASSERT_TRUE(window->ProcessOne(limit));
    EXPECT_EQ(got.back().wParam, 2);
    EXPECT_TRUE(record->last.empty());
}

TEST(RepeatedQuestion, AnAnswerForAllHoldsForTheRest) {
    test::ScriptedUser user;
    user.answers = {Answer::No, Answer::YesToAll};
    RepeatedQuestion question(user);
    EXPECT_EQ(question.Ask({u"1"}), Answer::No);
    EXPECT_EQ(question.Ask({u"2"}), Answer::Yes);
    EXPECT_EQ(question.Ask({u"3"}), Answer::Yes);
    EXPECT_EQ(user.heard.size(), 2u);

    user.answers = {Answer::Cancel, Answer::NoToAll};
    RepeatedQuestion again(user);
    EXPECT_EQ(again.Ask({u"1"}), Answer::Cancel);
    EXPECT_EQ(again.Ask({u"2"}), Answer::No);
    EXPECT_EQ(again.Ask({u"3"}), Answer::No);
}

}  // namespace
}  // namespace tarnbridge
