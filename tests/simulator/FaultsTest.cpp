#include <gtest/gtest.h>

#include "simulator/Dialogue.h"
#include "simulator/Faults.h"

namespace tarnbridge::simulator {
namespace {

using namespace std::chrono_literals;

/// The ATE0 that every dialogue begins with is command 1.
Dialogue With(const std::vector<std::string>& faults) {
    HandsetContent content = HandsetContent::Empty();
    content.Add("SM", 1, deliver);
    return Dialogue(std::move(content), faults);
}

const std::string signal = Line("+CSQ: 18,99") + ok;

TEST(Faults, RefuseSpecificationsThatMeanNothing) {
    for (const char* specification : {"",
                                      "silence",
                                      "silent-after",
                                      "silent-after=x",
                                      "silent-after=-1",
                                      "silent-after=3,bytes=2",
                                      "split=0",
                                      "delay=5,after=",
                                      "delay=5,after=soon",
                                      "refuse=+CSCS,after=handshake",
                                      "error=+CMGW",
                                      "error=:3",
                                      "error=+CMGW:x",
                                      "lost=AT,each=0",
                                      "late=+CMGR",
                                      "late=:5",
                                      "alter-octet=0",
                                      "lost,body=1",
                                      "no-escape=1",
                                      "unsolicited-pdu=RING",
                                      "empty-location=3",
                                      "store-query=4",
                                      "echo-lost=1",
                                      "channel-mode=5",
                                      "asleep=99999999999"}) {
        EXPECT_FALSE(Faults::Parse({specification})) << specification;
    }
    EXPECT_TRUE(
        Faults::Parse({"unsolicited=+CMTI: \"SM\",3", "delay=200,after=handshake", "garbage", "split=7,gap=0",
                       "unplug-after=3,bytes=5,for=100", "refuse=+CSCS=\"UCS2_0x81\",times=1"}));
}

TEST(Faults, FallSilent) {
    Dialogue after = With({"silent-after=2"});
    EXPECT_EQ(after.Ask("AT"), ok);
    EXPECT_EQ(after.Ask("AT"), "");
    EXPECT_EQ(after.Ask("ATE1"), "");
    EXPECT_FALSE(after.handset.State().echo) << "what isn't heard isn't carried out";

    Dialogue midline = With({"silent-midline=3"});
    EXPECT_EQ(midline.Ask("AT"), ok);
    EXPECT_EQ(midline.Ask("AT+CSQ"), "\r\n+CSQ:");
    EXPECT_EQ(midline.Ask("AT"), "");

    Dialogue exact = With({"silent-midline=2,bytes=17"});
    EXPECT_EQ(exact.Ask("AT+CSQ"), signal.substr(0, 17));
    EXPECT_EQ(exact.Ask("AT"), "");
}

TEST(Faults, BreakOffAtEveryByteOfAnExchangeWithABody) {
    const std::string whole = "\r\n> " + Line("+CMGW: 2") + ok;
    for (size_t bytes = 0; bytes <= whole.size(); ++bytes) {
        Dialogue dialogue = With({"silent-midline=2,bytes=" + std::to_string(bytes)});
        std::string heard = dialogue.Ask("AT+CMGW=18,2");
        heard += dialogue.Say(std::string(submit) + "\x1a");
        EXPECT_EQ(heard, whole.substr(0, bytes));
    }
}

TEST(Faults, PutLinesWhereTheyMayStand) {
    EXPECT_EQ(With({"unsolicited=RING"}).Ask("AT+CSQ"),
              Line("RING") + Line("+CSQ: 18,99") + Line("RING") + ok);
    EXPECT_EQ(With({"unsolicited=+CMTI: \"SM\",3,gap=2"}).Ask("AT+CSQ"),
              Line("+CSQ: 18,99") + Line("+CMTI: \"SM\",3") + ok);
    EXPECT_EQ(With({"unsolicited-in-message=RING"}).Ask("AT+CMGR=1"),
              Line("+CMGR: 1,,24") + Line("RING") + deliver + "\r\n" + ok);
    EXPECT_EQ(With({"unsolicited-in-message=RING"}).Ask("AT+CSQ"), signal);
    EXPECT_EQ(With({"unsolicited=RING,gap=2"}).Ask("AT+CMGR=1"),
              Line("+CMGR: 1,,24") + Line("RING") + deliver + "\r\n" + ok);
    const std::string directly = With({"unsolicited-pdu=+CDS"}).Ask("AT");
    EXPECT_EQ(directly.substr(0, 13), "\r\n+CDS: ,27\r\n");
    EXPECT_EQ(directly.size(), 13 + 2 * 28 + 2 + 6);

    Dialogue all = With({"unsolicited"});
    std::string heard;
    for (int i = 0; i < 10; ++i) {
        heard += all.Ask("AT");
    }
    for (const char* word :
         {"RING", "NO CARRIER", "+CMTI", "+CBMI", "+CDSI", "+CLIP", "+EADC", "+GPIOS", "+EKPDS", "+BATS"}) {
        EXPECT_NE(heard.find(std::string("\r\n") + word), std::string::npos) << word;
    }
}

TEST(Faults, StrikeSingleRepliesAtTheirPlace) {
    const std::string spoilt = Line("+CSQ:18,99") + ok;
    struct Row {
        const char* fault;
        std::vector<std::string> answers;  // to AT+CSQ, AT, AT+CSQ
    };
    const Row rows[] = {
        {"lost=+CSQ", {"", ok, ""}},
        {"lost=+csq,after=1", {signal, ok, ""}},
        {"lost,after=2,times=1", {signal, "", signal}},
        {"lost,each=2", {"", ok, ""}},
        {"doubled=+CSQ,times=1", {signal + signal, ok, signal}},
        {"lose-octet=+CSQ:8", {spoilt, ok, spoilt}},
        {"alter-octet=3,after=2,times=1", {signal, "\r\nNK\r\n", signal}},
        {"alter-octet=999", {signal, ok, signal}},
        {"refuse,after=2", {signal, error, error}},
        {"error=14,after=3", {signal, ok, Line("+CME ERROR: 14")}},
    };
    for (const Row& row : rows) {
        Dialogue dialogue = With({row.fault});
        const std::vector<std::string> answers{dialogue.Ask("AT+CSQ"), dialogue.Ask("AT"),
                                               dialogue.Ask("AT+CSQ")};
        EXPECT_EQ(answers, row.answers) << row.fault;
    }
}

/// What is lost was carried out, what wasn't heard was not; a body is a place of its own.
TEST(Faults, TellLostFromUnheard) {
    const auto stored = [](const char* fault) {
        Dialogue dialogue = With({fault});
        const std::string answer = dialogue.Send("AT+CMGW=18,2", submit);
        return std::pair(answer, dialogue.handset.Content().simMessages.items.size());
    };
    EXPECT_EQ(stored("lost=+CMGW"), std::pair(std::string("no prompt: "), size_t{1}));
    EXPECT_EQ(stored("lost=>"), std::pair(std::string(), size_t{2}));
    EXPECT_EQ(stored("unheard=+CMGW>"), std::pair(std::string(), size_t{1}));
    EXPECT_EQ(stored("unheard=+CMGS>"), std::pair(Line("+CMGW: 2") + ok, size_t{2}));
}

TEST(Faults, MakeNoiseThatOpensNoLine) {
    const std::string heard = With({"garbage=200"}).Ask("AT+CSQ");
    EXPECT_EQ(heard.substr(200), signal);
    EXPECT_EQ(heard.substr(0, 200).find_first_of("\r\n"), std::string::npos);
    const std::string message = With({"garbage=9", "lower-case"}).Ask("AT+CMGR=1");
    EXPECT_TRUE(message.ends_with(Line(message.substr(0, 9)) +
                                  "00040b915155100003f200007030415190624005e8329bfd06" + "\r\n" + ok))
        << "a line between header and PDU, and the digits small";
}

TEST(Faults, CutAndDelay) {
    Dialogue split = With({"split=5,gap=3"});
    EXPECT_EQ(split.Ask("AT"), ok);
    ASSERT_EQ(split.sounds.size(), 2u);
    EXPECT_EQ(split.sounds[1].bytes, "\n");
    EXPECT_EQ(split.sounds[1].delay, 3ms);

    Dialogue delayed = With({"delay=20"});
    delayed.Ask("AT");
    EXPECT_EQ(delayed.sounds.at(0).delay, 20ms);

    Dialogue late = With({"delay=200"});
    late.Ask("AT+ESLP=0");
    EXPECT_EQ(late.sounds.at(0).delay, 0ms);
    late.Ask("AT+CPMS=?");
    EXPECT_EQ(late.sounds.at(0).delay, 0ms);
    late.Ask("AT");
    EXPECT_EQ(late.sounds.at(0).delay, 200ms);
    late.Ask("AT+ESUO?");
    EXPECT_EQ(late.sounds.at(0).delay, 0ms) << "the next handshake is in time, too";

    Dialogue counted = With({"delay=200,after=2"});
    counted.Ask("AT");
    EXPECT_EQ(counted.sounds.at(0).delay, 0ms);
    counted.Ask("AT");
    EXPECT_EQ(counted.sounds.at(0).delay, 200ms);
}

TEST(Faults, RefuseNamedCommands) {
    Dialogue charset = With({"refuse=+CSCS=\"UCS2_0x81\""});
    EXPECT_EQ(charset.Ask("AT+CSCS=\"UCS2_0x81\""), error);
    EXPECT_EQ(charset.Ask("AT+CSCS=\"UCS2\""), ok);

    Dialogue counted = With({"error=+CSQ:14,after=1,times=1"});
    EXPECT_EQ(counted.Ask("AT+CSQ"), signal);
    EXPECT_EQ(counted.Ask("AT+CSQ"), Line("+CME ERROR: 14"));
    EXPECT_EQ(counted.Ask("AT+CSQ"), signal);

    Dialogue body = With({"error=+CMGW:322"});
    EXPECT_EQ(body.Send("AT+CMGW=18,2", submit), Line("+CMS ERROR: 322"));
    EXPECT_EQ(body.handset.Content().simMessages.items.size(), 1u);
    EXPECT_EQ(With({"refuse-body"}).Send("AT+CMGS=18", submit), error);
    EXPECT_EQ(With({"refuse-body=500"}).Send("AT+CMGS=18", submit), Line("+CMS ERROR: 500"));
    EXPECT_EQ(With({"refuse-prompt=302"}).Ask("AT+CMGS=18"), Line("+CMS ERROR: 302"));
    EXPECT_EQ(With({"refuse-prompt"}).Ask("AT+CMGW=18,2"), error);
    EXPECT_EQ(With({"refuse-prompt"}).Ask("AT+CSQ"), signal);
}

TEST(Faults, SleepUntilWoken) {
    Dialogue dialogue = With({"asleep=2"});
    EXPECT_EQ(dialogue.Ask("AT"), "AT\r") << "ATE0 wasn't heard either";
    EXPECT_EQ(dialogue.Ask("AT+ESLP=0"), "AT+ESLP=0\r");
    EXPECT_EQ(dialogue.Ask("AT+ESLP=0"), "AT+ESLP=0\r");
    EXPECT_EQ(dialogue.Ask("AT+ESLP=0"), std::string("AT+ESLP=0\r") + ok);

    Dialogue again = With({"sleeps-after=1000"});
    const auto at = [&](Milliseconds time, const char* command) {
        again.faults.SetTime(Faults::Time(time));
        return again.Ask(command);
    };
    EXPECT_EQ(at(999ms, "AT"), ok);
    EXPECT_EQ(at(1998ms, "AT"), ok);
    EXPECT_EQ(at(2998ms, "AT"), "");
    EXPECT_EQ(at(2998ms, "AT+ESLP=0"), ok);
    EXPECT_EQ(at(2998ms, "AT+ESLP=1"), ok);
    EXPECT_EQ(at(2998ms, "AT"), "");
}

TEST(Faults, HangUp) {
    Dialogue dialogue = With({"unplug-after=2,bytes=4,for=50"});
    EXPECT_EQ(dialogue.Ask("AT"), ok);
    EXPECT_FALSE(dialogue.faults.TakeHangUp());
    EXPECT_EQ(dialogue.Ask("AT+CSQ"), "\r\n+C");
    const auto hangUp = dialogue.faults.TakeHangUp();
    ASSERT_TRUE(hangUp);
    EXPECT_EQ(hangUp->plugAgainAfter, 50ms);
    EXPECT_EQ(dialogue.Ask("AT+CSQ"), signal) << "once only";
    EXPECT_FALSE(dialogue.faults.TakeHangUp());
}

TEST(Faults, ChangeManners) {
    Dialogue dialogue = With({"empty-location=321", "store-query=3", "channel-mode=0"});
    EXPECT_EQ(dialogue.Ask("AT+CMGR=2"), Line("+CMS ERROR: 321"));
    EXPECT_EQ(dialogue.Ask("AT+EQUERY=0"), Line("+CMGW: 3") + ok);
    EXPECT_EQ(dialogue.Ask("AT+ESUO?"), Line("+ESUO: 0") + ok);
    EXPECT_EQ(With({"channel-mode=error"}).Ask("AT+ESUO?"), error);
    EXPECT_EQ(With({"store-query=error"}).Ask("AT+EQUERY=0"), error);
}

}  // namespace
}  // namespace tarnbridge::simulator
