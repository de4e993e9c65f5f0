#include <gtest/gtest.h>

#include "simulator/Dialogue.h"
#include "simulator/HandsetLine.h"

namespace tarnbridge::simulator {
namespace {

using namespace std::chrono_literals;

/// A line without a pace, looked at each millisecond.
class Watched {
public:
    explicit Watched(const std::vector<std::string>& faults)
        : line(HandsetContent::Empty(), *Faults::Parse(faults), 0, [] { return LocalTime(); }) {
        line.Phone().Content().Add("ME", 1, deliver);
        Write("ATE0\r");
        Until(now);
    }

    void Write(const std::string& bytes) {
        line.Arrive(bytes, now);
        Until(now);
    }

    /// What the PC reads up to this moment: each transmission with the time since the last call of this.
    std::vector<std::pair<std::string, int>> Until(HandsetLine::Time end) {
        std::vector<std::pair<std::string, int>> heard;
        const HandsetLine::Time start = now;
        for (;; now += 1ms) {
            line.Advance(now);
            for (std::string_view due = line.Due(now); !due.empty(); due = line.Due(now)) {
                heard.emplace_back(due, static_cast<int>((now - start) / 1ms));
                line.Deliver(due.size());
            }
            if (now >= end) return heard;
        }
    }
    auto For(Milliseconds time) { return Until(now + time); }

    HandsetLine line;
    HandsetLine::Time now{1h};
};

using Heard = std::vector<std::pair<std::string, int>>;

TEST(HandsetLine, AnswersOneCommandAfterTheOther) {
    const std::string signal = Line("+CSQ: 18,99");
    struct Row {
        std::vector<std::string> faults;
        Heard heard;  // after AT+CSQ and AT at once
    };
    const Row rows[] = {
        {{"delay=30"}, {{signal, 30}, {ok, 30}, {ok, 60}}},
        {{"late=+CSQ:200", "error=+CSQ:14"}, {{Line("+CME ERROR: 14"), 200}, {ok, 200}}},
        {{"late=+CSQ:200"}, {{signal, 200}, {ok, 200}, {ok, 200}}},
        {{"overtaken=+CSQ:200"}, {{ok, 0}, {signal, 200}, {ok, 200}}},
        {{"late=200,after=2,times=1"}, {{signal, 0}, {ok, 0}, {ok, 200}}},
    };
    for (const Row& row : rows) {
        Watched watched(row.faults);
        watched.For(100ms);
        watched.line.Arrive("AT+CSQ\rAT\r", watched.now);
        EXPECT_EQ(watched.For(300ms), row.heard) << row.faults.front();
    }
}

TEST(HandsetLine, BringsALateReplyToTheNextUser) {
    Watched watched({"late=+CSQ:200"});
    watched.line.Arrive("AT\rAT+CSQ\r", watched.now);
    watched.line.Advance(watched.now);
    watched.line.Desert(watched.now);
    EXPECT_EQ(watched.For(300ms), (Heard{{Line("+CSQ: 18,99"), 200}, {ok, 200}}));
}

TEST(HandsetLine, GivesAPromptUp) {
    for (const bool mute : {false, true}) {
        Watched watched({mute ? "prompt-timeout=500,mute=1" : "prompt-timeout=500"});
        watched.line.Arrive("AT+CMGW=18,2\r", watched.now);
        EXPECT_EQ(watched.For(400ms), (Heard{{"\r\n> ", 0}}));
        watched.line.Arrive("00", watched.now);
        EXPECT_EQ(watched.For(600ms), mute ? Heard{} : (Heard{{error, 500}}));
        watched.line.Arrive("AT\r", watched.now);
        EXPECT_EQ(watched.For(1ms), (Heard{{ok, 0}}));
    }
}

TEST(HandsetLine, LeavesThePromptOnlyByWhatItKnows) {
    for (const bool knowsEscape : {true, false}) {
        Watched watched(knowsEscape ? std::vector<std::string>{} : std::vector<std::string>{"no-escape"});
        watched.line.Arrive("AT+CMGW=18,2\r", watched.now);
        watched.For(1ms);
        watched.line.Desert(watched.now);
        watched.line.Arrive("\x1b", watched.now);
        EXPECT_EQ(watched.For(1ms), knowsEscape ? (Heard{{ok, 0}}) : Heard{});
        watched.line.Arrive("\x1a", watched.now);
        EXPECT_EQ(watched.For(1ms), knowsEscape ? Heard{} : (Heard{{Line("+CMS ERROR: 304"), 0}}));
    }
}

TEST(HandsetLine, ChangesWhatThePhoneHolds) {
    // The only message stands at location 1 of ME, behind the 25 of the SIM.
    Watched watched({"replace-message=+CSQ:26", "delete-message=26,after=4", "another-phone=+CGSN,after=1"});
    const auto& content = watched.line.Phone().Content();
    const auto pdu = [&] { return content.phoneMessages.items.at(1).pdu; };
    const unsigned revision = watched.line.Phone().Revision();
    watched.Write("AT\r");
    EXPECT_EQ(pdu(), deliver);
    watched.Write("AT+CSQ\rAT+CGSN\r");
    EXPECT_NE(pdu(), deliver);
    EXPECT_EQ(content.phoneMessages.items.at(1).stat, 0);
    const std::string first = content.identity.imei;
    watched.Write("AT+CGSN\r");
    EXPECT_NE(content.identity.imei, first);
    EXPECT_TRUE(watched.line.Exchanged());
    EXPECT_EQ(watched.line.Absent().phoneMessages.items.size(), 0u) << "it was deleted before";
    EXPECT_NE(watched.line.Phone().Revision(), revision) << "so that it is saved";
}

TEST(HandsetLine, ComesBackAsAnotherPhone) {
    Watched watched({"unplug-after=1,for=50,another=1"});
    watched.Write("AT\r");
    EXPECT_FALSE(watched.line.WantsPlug(watched.now));
    watched.line.Replug();
    watched.now += 50ms;
    EXPECT_TRUE(watched.line.WantsPlug(watched.now));
    watched.line.Replug();
    EXPECT_TRUE(watched.line.Exchanged());
    EXPECT_TRUE(watched.line.Phone().State().echo);
}

}  // namespace
}  // namespace tarnbridge::simulator
