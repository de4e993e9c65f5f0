#include <thread>

#include <gtest/gtest.h>

#include "link/DescribeFields.h"
#include "link/HandsetLink.h"
#include "platform/Text.h"
#include "support/FakeWire.h"
#include "support/HandsetSession.h"
#include "support/ManualClock.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

class HandsetLinkTest : public ::testing::Test {
protected:
    HandsetLinkTest() {
        test::AnswerHandshake(wire);
        link.commandTimeout = 60;
    }

    bool Connect() {
        LinkKind kind{};
        return link.Connect("COM1", kind);
    }

    test::FakeWire wire;
    test::NoSleepClock clock;
    HandsetLink link{clock, wire.Factory()};
};

TEST_F(HandsetLinkTest, HandshakeInItsOrder) {
    EXPECT_FALSE(link.EnsureSession()) << "no port";
    ASSERT_TRUE(Connect());
    EXPECT_FALSE(Connect());
    EXPECT_TRUE(link.IsPortOpen()) << "a second connection leaves the first as it is";
    EXPECT_TRUE(wire.Written().empty());
    ASSERT_TRUE(link.EnsureSession());
    const std::vector<std::string> expected = {"\x1B",
                                               "AT+ESUO?\r",
                                               "AT+ESUO=3\r",
                                               "AT+EFSR\r",
                                               "AT+ESUO=4\r",
                                               "AT+ESLP=0\r",
                                               "AT+CMGF?\r",
                                               "AT+ESUO=3\r",
                                               "AT+EFSR\r",
                                               "AT+ESUO=4\r",
                                               "ATE0\r",
                                               "AT+CMGF=0\r",
                                               "AT+CSCS=\"UCS2_0x81\"\r",
                                               "AT+CSCS=\"UCS2\"\r",
                                               "AT+ESUO=3\r",
                                               "AT+EFSW?\r",
                                               "AT+EFSC=?\r",
                                               "AT+ESUO=4\r",
                                               "AT+EQUERY=0\r",
                                               "AT+EVCARD=?\r",
                                               "AT+CPMS=?\r",
                                               "AT+CSCS?\r"};
    EXPECT_EQ(wire.Written(), expected);
    const HandsetFeatures features = link.Features();
    EXPECT_EQ(features.maxChunk, 1024);
    EXPECT_TRUE(features.hasEfsCheck && features.hasStoreQuery && features.canStoreReceived &&
                features.hasPackedUcs2 && features.hasVCard && features.hasMeStore && features.hasSimMemory);

    wire.ForgetWritten();
    EXPECT_TRUE(link.EnsureSession());
    EXPECT_TRUE(wire.Written().empty()) << "a session that stands costs nothing";
    EXPECT_TRUE(link.SelectCharset(u"UCS2"));
    EXPECT_TRUE(link.SelectCharset(u"UCS2"));
    EXPECT_EQ(wire.CountWritten("AT+CSCS=\"UCS2\"\r"), 1u)
        << "the first selection after the handshake goes out again";
}

TEST_F(HandsetLinkTest, WhatTheHandshakeLearns) {
    struct Row {
        const char* what;
        const char* command;
        std::vector<std::string> reply;
        std::function<bool(const HandsetFeatures&)> holds;
    };
    const Row rows[] = {
        {"chunk below the smallest",
         "AT+EFSW?\r",
         {"+EFSW: 10", "OK"},
         [](auto& f) { return f.maxChunk == 64; }},
        {"chunk above the largest",
         "AT+EFSW?\r",
         {"+EFSW: 9000", "OK"},
         [](auto& f) { return f.maxChunk == 4096; }},
        {"chunk with more fields",
         "AT+EFSW?\r",
         {"+EFSW: 512,1", "OK"},
         [](auto& f) { return f.maxChunk == 64; }},
        {"no chunk", "AT+EFSW?\r", {"ERROR"}, [](auto& f) { return f.maxChunk == 64; }},
        {"no count of entries", "AT+EFSC=?\r", {"ERROR"}, [](auto& f) { return !f.hasEfsCheck; }},
        {"states 0 to 1",
         "AT+EQUERY=0\r",
         {"+CMGW: (0-1)", "OK"},
         [](auto& f) { return !f.hasStoreQuery && !f.canStoreReceived; }},
        {"the state 3 alone",
         "AT+EQUERY=0\r",
         {"+CMGW: 3", "OK"},
         [](auto& f) { return !f.hasStoreQuery && f.canStoreReceived; }},
        {"range with a field behind it",
         "AT+EQUERY=0\r",
         {"+CMGW: (0-3),1", "OK"},
         [](auto& f) { return !f.hasStoreQuery && !f.canStoreReceived; }},
        {"no store query",
         "AT+EQUERY=0\r",
         {"ERROR"},
         [](auto& f) { return !f.hasStoreQuery && !f.canStoreReceived; }},
        {"no vCards", "AT+EVCARD=?\r", {"+CME ERROR: 4"}, [](auto& f) { return !f.hasVCard; }},
        {"no packed UCS2", "AT+CSCS=\"UCS2_0x81\"\r", {"ERROR"}, [](auto& f) { return !f.hasPackedUcs2; }},
        {"memories in lower case",
         "AT+CPMS=?\r",
         {"+CPMS: (\"me\"),(\"SM\")", "OK"},
         [](auto& f) { return f.hasMeStore && !f.hasSimMemory; }},
        {"a SIM alone",
         "AT+CPMS=?\r",
         {"+CPMS: (\"SM\"),(\"SM\"),(\"SM\")", "OK"},
         [](auto& f) { return !f.hasMeStore && f.hasSimMemory; }},
        {"no memories told", "AT+CPMS=?\r", {"OK"}, [](auto& f) { return !f.hasMeStore && !f.hasSimMemory; }},
    };
    for (const Row& row : rows) {
        test::AnswerHandshake(wire);
        wire.Answer(row.command, test::Lines(row.reply));
        ASSERT_TRUE(Connect());
        EXPECT_TRUE(link.EnsureSession()) << row.what;
        EXPECT_TRUE(row.holds(link.Features())) << row.what;
        link.Disconnect(true);
    }
}

TEST_F(HandsetLinkTest, WhatRefusesASession) {
    for (const char* command : {"AT+CMGF=0\r", "AT+CSCS=\"UCS2\"\r"}) {
        test::AnswerHandshake(wire);
        wire.Answer(command, test::Lines({"ERROR"}));
        ASSERT_TRUE(Connect());
        EXPECT_FALSE(link.EnsureSession()) << command;
        EXPECT_FALSE(link.IsSessionReady());
        EXPECT_TRUE(link.IsPortOpen());
        EXPECT_TRUE(link.State().currentCharset.empty());
        wire.ForgetWritten();
        EXPECT_FALSE(link.ExecExpect("AT+X\r", 60, nullptr, true));
        EXPECT_EQ(wire.CountWritten("AT+X\r"), 0u) << "nothing is sent without a session";
        EXPECT_EQ(wire.Written().at(1), "AT+ESUO?\r") << "the next operation begins anew";
        wire.ForgetWritten();
        link.Disconnect(true);
        EXPECT_TRUE(wire.Written().empty()) << "without a session nothing is handed back";
    }
    // ATE0 must be answered, whatever the answer is.
    test::AnswerHandshake(wire);
    wire.Answer("ATE0\r", test::Lines({"ERROR"}));
    ASSERT_TRUE(Connect());
    EXPECT_TRUE(link.EnsureSession());
    link.Disconnect(true);
    wire.Answer("ATE0\r", "");
    ASSERT_TRUE(Connect());
    EXPECT_FALSE(link.EnsureSession());
}

TEST_F(HandsetLinkTest, WakeUp) {
    std::deque<std::string> asleep(59, test::Lines({"ERROR"}));
    asleep.push_back(test::Lines({"OK"}));
    wire.AnswerInTurn("AT+ESLP=0\r", asleep);
    ASSERT_TRUE(Connect());
    EXPECT_TRUE(link.EnsureSession()) << "awake at the 60th try";
    link.Disconnect(true);

    wire.ForgetWritten();
    asleep.push_front(test::Lines({"ERROR"}));
    wire.AnswerInTurn("AT+ESLP=0\r", asleep);
    ASSERT_TRUE(Connect());
    EXPECT_FALSE(link.EnsureSession()) << "awake at the 61st";
    EXPECT_EQ(wire.CountWritten("AT+ESLP=0\r"), 60u);
}

TEST_F(HandsetLinkTest, ChannelModeOnlyWhereThereIsOne) {
    for (const char* answer : {"ERROR", "+ESUO: 0"}) {
        wire.Answer("AT+ESUO?\r", test::Lines({answer, "OK"}));
        wire.ForgetWritten();
        ASSERT_TRUE(Connect());
        ASSERT_TRUE(link.EnsureSession()) << answer;
        ATResult result;
        link.ExecFile("AT+EFSW?\r", 1, result);
        EXPECT_EQ(wire.CountWritten("AT+ESUO=3\r") + wire.CountWritten("AT+ESUO=4\r"), 0u) << answer;
        EXPECT_EQ(wire.CountWritten("AT+ESUO?\r"), 2u) << "asked again once the handset is awake";
        link.Disconnect(true);
    }
}

TEST_F(HandsetLinkTest, Exchanges) {
    ASSERT_TRUE(Connect());
    wire.Answer("AT+CMGD=1\r", test::Lines({"+CME ERROR: 10"}));
    wire.Answer("AT+CSQ\r", test::Lines({"+CSQ: 3", "OK"}));
    wire.Answer("AT+CMGS=2\r", "\r\n> ");
    wire.Answer("0011\x1A", test::Lines({"+CMS ERROR: 500"}));
    wire.Answer("0022\x1A", test::Lines({"+CMGS: 7", "OK"}));

    ATResult result;
    EXPECT_TRUE(link.ExecCommand("AT+CMGD=1\r", 1000, false, result)) << "an error is a final result";
    EXPECT_EQ(result.ErrorNumber(), 10);
    EXPECT_FALSE(link.ExecCheckOk("AT+CMGD=1\r", 1000, result, true));
    result.Clear();
    result.prefix = "+CSQ";
    EXPECT_TRUE(link.ExecCheckOk("AT+CSQ\r", 1000, result, true));
    EXPECT_EQ(Describe(result), "'+CSQ' 3\n'OK'\n");
    EXPECT_TRUE(link.ExecExpect("AT+CSQ\r", 1000, "+CSQ", false));

    std::string traced;
    link.trace = [&](std::string_view text) { traced += text; };
    result.Clear();
    result.prefix = "+CMGS";
    EXPECT_FALSE(link.ExecTwoStage("AT+CMGS=2\r", "0011\x1A", 1, result));
    EXPECT_EQ(result.ErrorNumber(), 500);
    EXPECT_TRUE(link.ExecTwoStage("AT+CMGS=2\r", "0022\x1A", 1, result));
    EXPECT_EQ(result.GetNumber(0, 1), 7);
    wire.Answer("0022\x1A", "");
    EXPECT_FALSE(link.ExecTwoStage("AT+CMGS=2\r", "0022\x1A", 1, result)) << "the old OK doesn't count";
    wire.Answer("AT+MUTE\r", "");
    EXPECT_FALSE(link.ExecCommand("AT+MUTE\r", 10, false, result));
    EXPECT_EQ(traced, "> ERROR\n> OK\n\n> empty result!\n[time out]AT+MUTE\r\n");
}

TEST_F(HandsetLinkTest, LengthLimits) {
    ASSERT_TRUE(Connect());
    wire.SetOtherAnswer(test::Lines({"OK"}));
    ATResult result;
    const auto command = [](size_t length) { return std::string(length - 1, 'A') + "\r"; };
    EXPECT_TRUE(link.ExecCommand(command(4096), 1000, false, result));
    EXPECT_FALSE(link.ExecCommand(command(4097), 1000, false, result));
    EXPECT_EQ(wire.CountWritten(command(4097)), 0u);
    EXPECT_TRUE(link.ExecFile(command(8224), 1, result));
    EXPECT_FALSE(link.ExecFile(command(8225), 1, result));
    EXPECT_FALSE(link.ExecFile("", 1, result));
}

TEST_F(HandsetLinkTest, FileAndOrdinaryCommandsSwitchTheChannelModeOnce) {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
    wire.ForgetWritten();
    wire.SetOtherAnswer(test::Lines({"OK"}));
    EXPECT_TRUE(link.ExecFile("AT+EFS=67\r", 1, "+EFS"));
    EXPECT_TRUE(link.ExecFile("AT+EFS=68\r", 1, nullptr));
    EXPECT_TRUE(link.ExecExpect("AT+CSQ\r", 1000, nullptr, true));
    const std::vector<std::string> expected = {"AT+ESUO=3\r", "AT+EFS=67\r", "AT+EFS=68\r", "AT+ESUO=4\r",
                                               "AT+CSQ\r"};
    EXPECT_EQ(wire.Written(), expected);
}

TEST_F(HandsetLinkTest, SelectionsAreForgottenWithAFailureAndWithTheSession) {
    ASSERT_TRUE(Connect());
    wire.Answer("AT+CPBS=\"ME\"\r", test::Lines({"OK"}));
    EXPECT_TRUE(link.SelectPhonebookStore(u"ME"));
    EXPECT_TRUE(link.SelectPhonebookStore(u"ME"));
    EXPECT_EQ(wire.CountWritten("AT+CPBS=\"ME\"\r"), 1u);
    EXPECT_FALSE(link.SelectPhonebookStore(u"XX"));
    EXPECT_TRUE(link.SelectPhonebookStore(u"ME"));
    EXPECT_EQ(wire.CountWritten("AT+CPBS=\"ME\"\r"), 2u) << "after a failure nothing is known";

    wire.Answer("AT\r", "");
    EXPECT_FALSE(link.Ping());
    EXPECT_FALSE(link.IsSessionReady());
    EXPECT_TRUE(link.State().currentPhonebookStore.empty());
    wire.Answer("AT\r", test::Lines({"OK"}));
    EXPECT_TRUE(link.Ping()) << "the next operation makes a new session";
    EXPECT_TRUE(link.SelectPhonebookStore(u"ME"));
    link.Disconnect(false);
    EXPECT_TRUE(link.State().currentPhonebookStore.empty());
}

TEST_F(HandsetLinkTest, DisconnectHandsTheHandsetBack) {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
    wire.ForgetWritten();
    link.Disconnect(true);
    EXPECT_EQ(wire.Written(), (std::vector<std::string>{"ATE1\r", "AT+ESLP=1\r"}));
    EXPECT_FALSE(link.IsPortOpen());
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
    wire.ForgetWritten();
    link.Disconnect(false);
    EXPECT_EQ(wire.Written(), std::vector<std::string>{"ATE1\r"});
}

TEST_F(HandsetLinkTest, ListingGoesLineByLineToItsCallback) {
    ASSERT_TRUE(Connect());
    wire.Answer("AT+EFSL=\"\"\r", test::Lines({"+EFSL: \"00410042\",12,16", "+EFSL: \"zz\",1,0",
                                               "+EFSL: \"0043\"", "+EFSL: \"0044\",3,0", "OK"}));
    std::u16string seen;
    link.SetListingCallback([&](const std::u16string& name, int32_t size, int32_t attributes) {
        seen += name + u" " + WidenBytes(std::to_string(size) + " " + std::to_string(attributes)) + u"\n";
        return name != u"D";
    });
    ATResult result;
    result.prefix = "+EFSL";
    EXPECT_TRUE(link.ExecFile("AT+EFSL=\"\"\r", 5, result));
    EXPECT_EQ(seen, u"AB 12 16\nC -1 -1\nD 3 0\n") << "the name that isn't hexadecimal is left out";
    EXPECT_EQ(Describe(result), "'+EFSL' '0044' 3 0\n'OK'\n");
    link.SetListingCallback({});
    EXPECT_TRUE(link.ExecFile("AT+EFSL=\"\"\r", 5, result));
    EXPECT_EQ(result.lines.size(), 5u);
}

TEST_F(HandsetLinkTest, StopTransferFreesTheExchangeThatHoldsTheLock) {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
    wire.Answer("AT+EFSR=\"X\"\r", test::Lines({"+EFSR: \"AB\""}));
    wire.ForgetWritten();
    std::thread stopper([&] {
        while (wire.CountWritten("AT+EFSR=\"X\"\r") == 0)
            std::this_thread::yield();
        link.StopTransfer(true);
    });
    ATResult result;
    result.prefix = "+EFSR";
    EXPECT_FALSE(link.ExecFile("AT+EFSR=\"X\"\r", 0, result));
    stopper.join();
    EXPECT_EQ(result.status, ATResult::NoResult);
    EXPECT_TRUE(link.transferAborted);
    EXPECT_EQ(wire.CountWritten("AT+EFSR\r"), 1u);
    EXPECT_TRUE(link.Ping());
}

TEST(HandsetLinkStall, FiveSecondsAfterTheLastLineATransferEnds) {
    test::HandsetSession session;
    ASSERT_TRUE(session.link.EnsureSession());
    session.handset.Script("AT+EFSR=\"X\"", "");
    session.link.StartStallWatch();
    const Milliseconds start = session.clock.Now();
    std::thread transfer([&] {
        for (int i = 0; i < 4; ++i) {
            session.clock.Sleep(4s);
            session.handset.Say(test::Lines({"+EFSR: \"AB\""}));
        }
    });
    ATResult result;
    result.prefix = "+EFSR";
    EXPECT_FALSE(session.link.ExecFile("AT+EFSR=\"X\"\r", 0, result));
    EXPECT_EQ(session.clock.Now() - start, 21s);
    transfer.join();
    session.link.StopStallWatch();
    EXPECT_TRUE(session.link.transferAborted);
    EXPECT_EQ(result.status, ATResult::NoResult);
    EXPECT_TRUE(session.link.Ping());
}

TEST(HandsetLinkDead, ADeadHandsetHoldsNobodyLong) {
    test::HandsetSession session;
    HandsetLink& link = session.link;
    const auto timed = [&](const std::function<void()>& call) {
        const Milliseconds start = session.clock.Now();
        call();
        return session.clock.Now() - start;
    };
    ATResult result;
    session.handset.SetFaults({"silent-after=0"});
    EXPECT_LT(timed([&] { EXPECT_FALSE(link.EnsureSession()); }), 3600ms);
    const std::function<void()> dies = [&] {
        session.handset.SetFaults({});
        session.Reconnect();
        session.handset.SetFaults({"silent-after=0"});
    };
    dies();
    EXPECT_LE(timed([&] { EXPECT_FALSE(link.ExecCommand("AT+CMGR=1\r", 5000, true, result)); }), 5s);
    EXPECT_EQ(timed([&] { EXPECT_FALSE(link.Ping()); }), 3900ms) << "three times quiet and a probe";
    EXPECT_EQ(timed([&] { link.Disconnect(true); }), 0s);
    EXPECT_TRUE(session.Connect());
    dies();
    EXPECT_LE(timed([&] { EXPECT_FALSE(link.Ping()); }), 5s);
    dies();
    EXPECT_LT(timed([&] { link.Disconnect(true); }), 5s);
    EXPECT_TRUE(session.Connect());
    dies();
    EXPECT_FALSE(link.ExecCommand("AT+CMGR=1\r", 5000, true, result));
    EXPECT_LT(timed([&] { link.Disconnect(true); }), 4s);
}

TEST(StallWatch, CountsFromTheLastKickStopsAndStartsAgain) {
    test::VirtualTime clock;
    StallWatch watch(clock);
    EXPECT_FALSE(watch.Start({}));
    watch.Stop();

    std::atomic<int> stalls{0};
    ASSERT_TRUE(watch.Start([&] { return ++stalls; }));
    EXPECT_FALSE(watch.Start([] { return 0; })) << "it runs already";
    for (int i = 0; i < 3; ++i) {
        clock.Sleep(4900ms);
        watch.Kick();
    }
    clock.Sleep(4900ms);
    EXPECT_EQ(stalls, 0);
    clock.Sleep(200ms);
    EXPECT_EQ(stalls, 1);
    clock.Sleep(5s);
    EXPECT_EQ(stalls, 2) << "a function that doesn't give 0 is called again after the same time";
    watch.Stop();

    ASSERT_TRUE(watch.Start([&] { return ++stalls, 0; }));
    clock.Sleep(20s);
    EXPECT_EQ(stalls, 3);
    EXPECT_TRUE(watch.Start([] { return 0; })) << "it ended by itself and starts again";
    watch.Stop();
}

/// What a handset is told depends on what it is, not on what the one before it was.
TEST(HandsetLinkHandshake, BeginsAnewWithAnotherHandsetAndPausesForIt) {
    test::HandsetSession session;
    ASSERT_TRUE(session.link.EnsureSession());
    EXPECT_EQ(session.handset.Count("AT+ESUO=3"), 3u);
    session.handset.SetFaults({"lost=+ESUO=4,times=1"});
    session.handset.ForgetCommands();
    session.Reconnect();
    EXPECT_EQ(session.handset.Count("AT+ESUO=3"), 3u) << "the mode that it stands in is unknown";
    session.handset.With(
        [](simulator::HandsetContent& content) { return content.features.channelMode = -1; });
    session.handset.ForgetCommands();
    const Milliseconds start = session.clock.Now();
    session.Reconnect();
    EXPECT_EQ(session.handset.Count("AT+ESUO=3"), 0u);
    EXPECT_GE(session.clock.Now() - start, 100ms) << "a transfer that was ended takes its time";
}

TEST(HandsetLinkHandshake, AWakeUpWhoseAnswerWasNotAwaitedIsUndone) {
    test::HandsetSession session;
    session.link.Disconnect(true);
    session.handset.SetFaults({"lost=+ESLP=0"});
    session.handset.OnCommand([&](simulator::HandsetLine&, const std::string& command) {
        if (command == "AT+ESLP=0") session.link.SetHurried(true);
    });
    EXPECT_TRUE(session.Connect());
    EXPECT_FALSE(session.link.EnsureSession());
    session.clock.Sleep(10ms);
    EXPECT_EQ(session.handset.Commands().back(), "AT+ESLP=1");
}

}  // namespace
}  // namespace tarnbridge
