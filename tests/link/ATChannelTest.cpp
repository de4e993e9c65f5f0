#include <thread>

#include <gtest/gtest.h>

#include "link/ATChannel.h"
#include "link/DescribeFields.h"
#include "link/SerialPort.h"
#include "support/FakeWire.h"
#include "support/ManualClock.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

class ATChannelTest : public ::testing::Test {
protected:
    void Open() {
        LinkKind kind = LinkKind::Other;
        ASSERT_TRUE(channel.Open("COM1", 115200, FlowControl::None, {}, kind));
        EXPECT_EQ(kind, LinkKind::Modem);
    }

    std::string Exec(const std::string& text, const char* prefix = "", Milliseconds timeout = 10s) {
        ATResult result;
        result.prefix = prefix;
        const bool answered = channel.Exec(text, timeout, false, result);
        return answered ? Describe(result) : "failed with status " + std::to_string(result.status);
    }

    test::FakeWire wire;
    test::NoSleepClock clock;
    ATChannel channel{clock, wire.Factory()};
};

TEST_F(ATChannelTest, OpenAndClose) {
    EXPECT_EQ(Exec("AT\r"), "failed with status 2") << "closed";
    EXPECT_FALSE(channel.SendRaw("AT\r"));
    channel.Cancel();

    LinkKind kind = LinkKind::Other;
    wire.FailOpen(SerialOpenFault::InUse);
    EXPECT_FALSE(channel.Open("COM1", 115200, FlowControl::None, {}, kind));
    EXPECT_EQ(channel.OpenFailure().fault, SerialOpenFault::InUse);
    wire.FailOpen(SerialOpenFault::None);
    Open();
    EXPECT_FALSE(channel.Open("COM1", 115200, FlowControl::None, {}, kind)) << "open already";
    EXPECT_TRUE(channel.Close());
    EXPECT_TRUE(channel.Close());
    Open();
}

TEST_F(ATChannelTest, ResultsOfACommand) {
    Open();
    wire.Answer("AT+CSQ\r", test::Lines({"+CREG: 1", "+CSQ: 20,99", "OK"}));
    wire.Answer("AT+CMGD=9\r", test::Lines({"+CMS ERROR: 321"}));
    EXPECT_EQ(Exec("AT+CSQ\r", "+CSQ"), "'+CSQ' 20 99\n'OK'\n");
    EXPECT_EQ(Exec("AT+CSQ\r"), "'OK'\n") << "no prefix is awaited";
    EXPECT_EQ(Exec("AT+CMGD=9\r"), "'+CMS ERROR' 321\n");
    EXPECT_EQ(Exec("AT+X\r"), "'ERROR'\n");

    wire.SplitReads(1);
    EXPECT_EQ(Exec("AT+CSQ\r", "+CSQ"), "'+CSQ' 20 99\n'OK'\n");
}

TEST_F(ATChannelTest, WhatCameBeforeACommandIsNotItsAnswer) {
    Open();
    wire.Answer("AT+CSQ\r", test::Lines({"+CSQ: 20", "OK"}));
    for (const char* leftOver :
         {"\r\n+CSQ: 1\r\n\r\nOK\r\n", "\r\n+CSQ: 1\r\n", "\r\nhalf a li", "\r\n", "\xFF\0garbage"}) {
        wire.Send(leftOver);
        EXPECT_EQ(Exec("AT+CSQ\r", "+CSQ"), "'+CSQ' 20\n'OK'\n") << leftOver;
    }
}

TEST_F(ATChannelTest, AnOldResultNeverCounts) {
    ATResult result;
    result.lines = {{ATParam::Flat("OK", true)}};
    EXPECT_FALSE(channel.ExecTwoStage("AT+CMGS=1\r", "00\x1A", 1s, false, result));
    Open();
    wire.SetOtherAnswer("");
    EXPECT_FALSE(channel.ExecTwoStage("AT+CMGS=1\r", "00\x1A", 5ms, false, result));
    EXPECT_TRUE(result.lines.empty());
    EXPECT_EQ(result.status, ATResult::NoResult);
}

TEST_F(ATChannelTest, SilenceEndsByTheTimeOutAndTheNextCommandWorks) {
    Open();
    wire.Answer("AT+Y\r", test::Lines({"+Y: 5", "OK"}));
    for (const char* reply : {"", "\r\nO", "\r\nOK\r", "garbage without end", "\r\n+X: \"unterminated\r\n",
                              "\r\nhalf a line", "\r\n+X: 1\r\n"}) {
        wire.Answer("AT+X\r", reply);
        EXPECT_EQ(Exec("AT+X\r", "+X", 20ms), "failed with status 1") << reply;
        EXPECT_EQ(Exec("AT+Y\r", "+Y"), "'+Y' 5\n'OK'\n") << "after " << reply;
    }
}

TEST_F(ATChannelTest, ReplyRacesItsTimeOut) {
    Open();
    wire.Answer("AT+A\r", test::Lines({"+A: 1", "OK"}));
    wire.Answer("AT+B\r", test::Lines({"+B: 2", "OK"}));
    int answered = 0;
    for (int i = 0; i < 1000; ++i) {
        // Whatever the machine's load, some are in time and some are late.
        wire.DelayReplies(i % 100 == 1 ? 50ms : Milliseconds(i % 3));
        const Milliseconds timeout = i % 100 == 0 ? 10s : 1ms;
        ATResult result;
        result.prefix = "+A";
        if (channel.Exec("AT+A\r", timeout, false, result)) {
            ++answered;
            ASSERT_EQ(Describe(result), "'+A' 1\n'OK'\n");
        } else {
            ASSERT_EQ(result.status, ATResult::NoResult);
        }
        wire.DelayReplies(0ms);
        // The late reply may come at any moment of this: it is never the answer of a query with a line.
        ATResult query;
        query.prefix = "+B";
        query.needsLine = true;
        ASSERT_TRUE(channel.ExecWhileAlive("AT+B\r", 10s, 10s, query)) << "round " << i;
        ASSERT_EQ(Describe(query), "'+B' 2\n'OK'\n") << "round " << i;
    }
    EXPECT_GT(answered, 0);
    EXPECT_LT(answered, 1000);
}

TEST_F(ATChannelTest, Writes) {
    Open();
    wire.Answer("AT\r", test::Lines({"OK"}));
    wire.ScriptWrites({-1});
    EXPECT_EQ(Exec("AT\r"), "'OK'\n") << "one failed write is tried again";
    wire.ScriptWrites({-1, -1});
    EXPECT_EQ(Exec("AT\r"), "failed with status 2");
    wire.ScriptWrites({0, 0});
    EXPECT_EQ(Exec("AT\r"), "failed with status 2") << "two short writes";
    wire.Answer("SQ\r", test::Lines({"+CSQ: 2", "OK"}));
    for (int i = 0; i < 50; ++i) {
        wire.ScriptWrites({4}, test::Lines({"+CSQ: 1", "ERROR"}));
        ASSERT_EQ(Exec("AT+CSQ\r", "+CSQ"), "'+CSQ' 2\n'OK'\n") << "a cut command's answer is thrown away";
    }
    wire.ScriptWrites({3, -1});
    EXPECT_EQ(Exec("xxxAT\r"), "failed with status 2") << "a short one, then a failed one";
    EXPECT_EQ(Exec("AT\r"), "'OK'\n");
}

TEST_F(ATChannelTest, TwoStageCommand) {
    Open();
    wire.Answer("AT+CMGW=1\r", "AT+CMGW=1\r\r\n> ");
    wire.Answer("AT\r", test::Lines({"OK"}));
    wire.Answer("BODY\x1A", test::Lines({"+CMGW: 5", "OK"}));
    wire.Answer("FULL\x1A", test::Lines({"+CMS ERROR: 322"}));
    wire.Answer("MUTE\x1A", "");
    const auto exec = [&](const char* text, const char* body, Milliseconds timeout = 10s) {
        ATResult result;
        result.prefix = "+CMGW";
        const bool answered = channel.ExecTwoStage(text, body, timeout, false, result);
        return answered ? Describe(result) : "failed with status " + std::to_string(result.status);
    };
    for (const size_t pieces : {0, 1}) {
        wire.SplitReads(pieces);
        EXPECT_EQ(exec("AT+CMGW=1\r", "BODY\x1A"), "'+CMGW' 5\n'OK'\n");
        EXPECT_EQ(exec("AT+CMGW=1\r", "FULL\x1A"), "'+CMS ERROR' 322\n");
        EXPECT_EQ(exec("AT+CMGW=1\r", "MUTE\x1A", 20ms), "failed with status 1");
        EXPECT_EQ(exec("AT+REFUSED\r", "BODY\x1A", 20ms), "failed with status 1") << "no prompt, no body";
        EXPECT_EQ(Exec("AT\r"), "'OK'\n");
    }
    EXPECT_EQ(wire.CountWritten("BODY\x1A"), 2u);
    wire.ScriptWrites({-1, -1});
    EXPECT_EQ(exec("AT+CMGW=1\r", "BODY\x1A"), "failed with status 2");
    wire.ScriptWrites({});
    EXPECT_EQ(exec("AT+CMGW=1\r", "BODY\x1A"), "'+CMGW' 5\n'OK'\n");
}

TEST_F(ATChannelTest, LateResultsOfAnAbandonedTwoStageCommandHoldNobody) {
    Open();
    wire.Answer("AT\r", test::Lines({"OK"}));
    wire.Answer("AT+CMGW=1\r", "\r\n> ");
    wire.Answer("MUTE\x1A", "");
    for (int i = 0; i < 20; ++i) {
        ATResult result;
        EXPECT_FALSE(channel.ExecTwoStage("AT+CMGW=1\r", "MUTE\x1A", 5ms, false, result));
        wire.Send(test::Lines({"+CMS ERROR: 1", "OK", "OK"}));
        std::this_thread::sleep_for(2ms);
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(Exec("AT\r"), "'OK'\n");
        EXPECT_LT(std::chrono::steady_clock::now() - start, 2s) << "the flush wasn't answered";
    }
    ATResult result;
    EXPECT_FALSE(channel.ExecTwoStage("AT+CMGW=1\r", "MUTE\x1A", 5ms, false, result));
    wire.Send(test::Lines({"OK", "OK"}));
    std::this_thread::sleep_for(2ms);
    channel.Close();
}

TEST_F(ATChannelTest, CancelFreesAWaitWithoutLimit) {
    Open();
    wire.SetOtherAnswer("");
    for (int i = 0; i < 50; ++i) {
        std::thread canceller([&] {
            while (wire.CountWritten("AT+EFSR\r") <= static_cast<size_t>(i))
                std::this_thread::yield();
            channel.Cancel();
        });
        EXPECT_EQ(Exec("AT+EFSR\r", "+EFSR", 0ms), "failed with status 1");
        canceller.join();
    }
    // The break-off counted for that exchange alone.
    wire.Answer("AT+CMGW=1\r", "\r\n> ");
    wire.Answer("BODY\x1A", test::Lines({"OK"}));
    ATResult result;
    EXPECT_TRUE(channel.ExecTwoStage("AT+CMGW=1\r", "BODY\x1A", 10s, false, result));
    EXPECT_EQ(Describe(result), "'OK'\n");
}

TEST_F(ATChannelTest, AHurryCutsTheWaitUnderWayButNotThatForABody) {
    test::ManualClock time;
    ATChannel hurried(time, wire.Factory());
    LinkKind kind{};
    ASSERT_TRUE(hurried.Open("COM1", 115200, FlowControl::None, {}, kind));
    wire.SetOtherAnswer("");
    wire.Answer("AT+CMGS=1\r", "\r\n> ");
    const auto passes = [&](Milliseconds wait, const std::function<void()>& exchange) {
        std::atomic<bool> ended{false};
        std::thread caller([&] {
            exchange();
            ended = true;
        });
        const Milliseconds start = time.Now();
        while (!ended) {
            if (time.Now() - start == wait) hurried.SetHurried(true);
            time.Advance(100ms);
            std::this_thread::sleep_for(1ms);
        }
        caller.join();
        hurried.SetHurried(false);
        return time.Now() - start;
    };
    ATResult result;
    const Milliseconds command =
        passes(1s, [&] { EXPECT_FALSE(hurried.Exec("AT+MUTE\r", 50s, false, result)); });
    EXPECT_GE(command, 3s);
    EXPECT_LT(command, 40s);
    const Milliseconds body =
        passes(1s, [&] { EXPECT_FALSE(hurried.ExecTwoStage("AT+CMGS=1\r", "B\x1A", 20s, false, result)); });
    EXPECT_GE(body, 20s);
}

TEST(SerialPort, FlushOfAnEndlessStreamEnds) {
    test::FakeWire wire;
    wire.SetOtherAnswer("");
    test::ManualClock clock;
    ATChannel channel(clock, wire.Factory());
    LinkKind kind{};
    ASSERT_TRUE(channel.Open("COM1", 115200, FlowControl::None, {}, kind));
    std::atomic<bool> stop{false};
    std::thread babbler([&] {
        while (!stop) {
            wire.Send("babble");
            clock.Advance(10ms);
        }
    });
    ATResult result;
    EXPECT_FALSE(channel.Exec("AT\r", 100ms, false, result));
    stop = true;
    babbler.join();
}

}  // namespace
}  // namespace tarnbridge
