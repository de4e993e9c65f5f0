#include <fmt/format.h>
#include <gtest/gtest.h>

#include "simulator/Dialogue.h"
#include "simulator/Handset.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

struct Exchange {
    const char* say;
    std::string answer;
};

void Hold(Dialogue& dialogue, const std::vector<Exchange>& exchanges) {
    for (const Exchange& exchange : exchanges) {
        EXPECT_EQ(dialogue.Ask(exchange.say), exchange.answer) << exchange.say;
    }
}

TEST(Handset, ReadsCommandLines) {
    Dialogue dialogue;
    Hold(dialogue, {
                       {"AT", ok},
                       {"  at", ok},
                       {"hello", ""},
                       {"", ""},
                       {"ATV1Q0", ok},
                       {"ATV0", error},
                       {"AT+CSQ;+CMEE?", Line("+CSQ: 18,99") + Line("+CMEE: 1") + ok},
                       {"AT+CSQ;+NOPE;+CSQ", Line("+CSQ: 18,99") + error},
                       {"AT+NOPE", error},
                       {"AT+NOPE?", error},
                       {"AT+CSCS=\"GSM", error},
                       {"AT+CSCS=\"GSM\"x", error},
                       {"AT+CSQX", error},
                       {"ATX\b\b\b\bAT", ok},
                       {"\nAT\n", ok},
                   });
}

TEST(Handset, AnswersAsFeaturesSay) {
    Dialogue dialogue;
    Hold(dialogue, {
                       {"AT+ESUO?", Line("+ESUO: 4") + ok},
                       {"AT+ESUO=3", ok},
                       {"AT+ESUO?", Line("+ESUO: 3") + ok},
                       {"AT+ESUO=5", error},
                       {"AT+ESLP=0", ok},
                       {"AT+EFSR", ok},
                       {"AT+EFSW?", Line("+EFSW: 1024") + ok},
                       {"AT+EFSC=?", ok},
                       {"AT+CMGR=1", error},
                       {"AT+CPBR=1", error},
                       {"AT+EQUERY=0", error},
                       {"AT+CSQ", Line("+CSQ: 18,99") + ok},
                       {"AT+ESUO=4", ok},
                       {"AT+EFSW?", error},
                       {"AT+EVCARD=?", ok},
                       {"AT+EVCARD=1,2", error},
                       {"AT+EQUERY=0", Line("+CMGW: (0-3)") + ok},
                       {"AT+CMGF=0", ok},
                       {"AT+CMGF=1", Line("+CMS ERROR: 303")},
                       {"AT+CSCS=\"UCS2_0x81\"", ok},
                       {"AT+CSCS?", Line("+CSCS: \"UCS2_0x81\"") + ok},
                       {"AT+CSCS=\"8859-1\"", Line("+CME ERROR: 3")},
                   });
    Features& features = dialogue.handset.Content().features;
    features = {.storeQuery = "ERROR",
                .emptyIsOk = false,
                .channelMode = 0,
                .packedUcs2 = false,
                .fileCount = false,
                .vcard = false,
                .chunkSize = 64};
    Hold(dialogue, {
                       {"AT+ESUO=3", error},
                       {"AT+EFSW?", Line("+EFSW: 64") + ok},
                       {"AT+EFSC=?", error},
                       {"AT+EVCARD=?", error},
                       {"AT+EQUERY=0", error},
                       {"AT+CSCS=\"UCS2_0x81\"", Line("+CME ERROR: 3")},
                       {"AT+CMGR=1", Line("+CMS ERROR: 321")},
                       {"AT+CMGW=24,1", Line("+CMS ERROR: 302")},
                   });
    features.storeQuery = "3";
    features.channelMode = -1;
    Hold(dialogue, {{"AT+EQUERY=0", Line("+CMGW: 3") + ok}, {"AT+ESUO?", error}});
}

TEST(Handset, SaysWhatAPhoneWithoutASimSays) {
    Dialogue dialogue;
    dialogue.handset.Content().features.simInserted = false;
    Hold(dialogue, {
                       {"AT+CPIN?", Line("+CME ERROR: 10")},
                       {"AT+CIMI", Line("+CME ERROR: 10")},
                       {"AT+CREG?", Line("+CREG: 0,0") + ok},
                       {"AT+CGATT?", Line("+CGATT: 0") + ok},
                       {"AT+CPMS=?", Line("+CPMS: (\"ME\",\"MT\"),(\"ME\",\"MT\"),(\"ME\",\"MT\")") + ok},
                       {"AT+CMGR=1", Line("+CMS ERROR: 310")},
                       {"AT+CPMS=\"SM\"", Line("+CMS ERROR: 310")},
                       {"AT+CPMS=\"MT\"", Line("+CPMS: 0,200,0,0,0,0") + ok},
                       {"AT+CMGS=18", Line("+CMS ERROR: 310")},
                       {"AT+CPBS=\"SM\"", Line("+CME ERROR: 10")},
                   });
}

TEST(Handset, GivesErrorsInTheChosenForm) {
    Dialogue dialogue;
    Hold(dialogue, {
                       {"AT+CPBS=\"XX\"", Line("+CME ERROR: 3")},
                       {"AT+CMEE=2", ok},
                       {"AT+CPBS=\"XX\"", Line("+CME ERROR: operation not allowed")},
                       {"AT+CMEE=0", ok},
                       {"AT+CPBS=\"XX\"", error},
                       {"AT+CMGD=9", Line("+CMS ERROR: 321")},
                       {"AT+CMEE=3", error},
                   });
}

TEST(Messages, AreNumberedTheSameUnderEverySelection) {
    HandsetContent content = HandsetContent::Empty();
    content.simMessages.capacity = 2;
    content.phoneMessages.capacity = 3;
    Dialogue dialogue(content);
    const std::string write = fmt::format("AT+CMGW={}", submitLength);
    Hold(dialogue, {{"AT+CPMS=\"ME\"", Line("+CPMS: 0,3,0,2,0,2") + ok},
                    {"AT+CPMS=\"ME\", \"ME\", \"ME\"", Line("+CPMS: 0,3,0,3,0,3") + ok}});
    EXPECT_EQ(dialogue.Send(write, submit), Line("+CMGW: 3") + ok);
    Hold(dialogue, {{"AT+CPMS=\"SM\",\"SM\"", Line("+CPMS: 0,2,0,2,1,3") + ok}});
    EXPECT_EQ(dialogue.Send(write, submit), Line("+CMGW: 1") + ok);
    Hold(dialogue, {{"AT+CPMS=\"MT\",\"MT\",\"MT\"", Line("+CPMS: 2,5,2,5,2,5") + ok}});
    EXPECT_EQ(dialogue.Send(write, submit), Line("+CMGW: 2") + ok);
    EXPECT_EQ(dialogue.Send(write, submit), Line("+CMGW: 4") + ok)
        << "the phone's memory goes on where the SIM ends";

    const std::string found = Line("+CMGR: 2,,18") + submit + "\r\n" + ok;
    Hold(dialogue, {
                       {"AT+CMGR=4", found},
                       {"AT+CMGR=5", ok},
                       {"AT+CMGR=6", Line("+CMS ERROR: 321")},
                       {"AT+CMGR=0", Line("+CMS ERROR: 321")},
                       {"AT+CMGR=\"1\"", Line("+CMS ERROR: 321")},
                       {"AT+CPMS=\"ME\"", Line("+CPMS: 2,3,4,5,4,5") + ok},
                       {"AT+CMGR=3", found},
                       {"AT+CMGR=1", Line("+CMS ERROR: 321")},
                       {"AT+CMGD=1", Line("+CMS ERROR: 321")},
                       {"AT+CMGD=3", ok},
                       {"AT+CMGD=3", Line("+CMS ERROR: 321")},
                       {"AT+CPMS=\"SM\"", Line("+CPMS: 2,2,3,5,3,5") + ok},
                       {"AT+CMGR=1", found},
                       {"AT+CMGR=4", Line("+CMS ERROR: 321")},
                       {"AT+CPMS?", Line("+CPMS: \"SM\",2,2,\"MT\",3,5,\"MT\",3,5") + ok},
                       {"AT+CPMS=\"XX\"", Line("+CMS ERROR: 302")},
                   });
}

TEST(Messages, SayThatThereIsNoSim) {
    HandsetContent content = HandsetContent::Empty();
    content.simMessages.capacity = 0;
    content.simContacts.capacity = 0;
    Dialogue dialogue(content);
    Hold(dialogue, {
                       {"AT+CPMS=?", Line("+CPMS: (\"ME\",\"MT\"),(\"ME\",\"MT\"),(\"ME\",\"MT\")") + ok},
                       {"AT+CPMS?", Line("+CPMS: \"ME\",0,200,\"ME\",0,200,\"ME\",0,200") + ok},
                       {"AT+CPMS=\"SM\"", Line("+CMS ERROR: 310")},
                       {"AT+CPBS=\"SM\"", Line("+CME ERROR: 10")},
                       {"AT+CPBS?", Line("+CPBS: \"ME\",0,250") + ok},
                   });
    EXPECT_EQ(dialogue.Send("AT+CMGW=18,2", submit), Line("+CMGW: 1") + ok);
}

TEST(Messages, BecomeReadWhenTheyAreRead) {
    Dialogue dialogue;
    EXPECT_EQ(dialogue.Send("AT+CMGW=24, 0", deliver), Line("+CMGW: 1") + ok);
    EXPECT_EQ(dialogue.Send("AT+CMGW=24,0", deliver), Line("+CMGW: 2") + ok);
    const unsigned before = dialogue.handset.Revision();
    const std::string pdu = std::string(deliver) + "\r\n";
    Hold(dialogue, {
                       {"AT+CMGR=1", Line("+CMGR: 0,,24") + pdu + ok},
                       {"AT+CMGR=1", Line("+CMGR: 1,,24") + pdu + ok},
                       {"AT+CMGL=0", Line("+CMGL: 2,0,,24") + pdu + ok},
                       {"AT+CMGL=0", ok},
                       {"AT+CMGL=4", Line("+CMGL: 1,1,,24") + pdu + Line("+CMGL: 2,1,,24") + pdu + ok},
                   });
    EXPECT_EQ(dialogue.handset.Revision(), before + 2);
}

TEST(Messages, RefuseWhatIsWrong) {
    Dialogue dialogue;
    const std::string invalid = Line("+CMS ERROR: 304");
    const std::string text = submit;
    std::string lower = text;
    lower.replace(lower.find('F'), 1, "f");
    struct Row {
        const char* fault;
        const char* command;
        std::string body;
    };
    const Row rows[] = {
        {"a length too small", "AT+CMGW=17,2", text},
        {"a length too large", "AT+CMGW=19,2", text},
        {"half an octet missing", "AT+CMGW=18,2", text.substr(0, text.size() - 1)},
        {"half an octet too much", "AT+CMGW=18,2", text + "0"},
        {"lower-case hex", "AT+CMGW=18,2", lower},
        {"a line end in the body", "AT+CMGW=18,2", text + "\r"},
        {"no body", "AT+CMGW=18,2", ""},
        {"octets behind the text", "AT+CMGW=19,2", text + "00"},
        {"a text that is cut", "AT+CMGW=17,2", text.substr(0, text.size() - 2)},
        {"a received message as a draft", "AT+CMGW=24,2", deliver},
        {"a draft as a received message", "AT+CMGW=18,1", text},
        {"a received message sent", "AT+CMGS=24", deliver},
        {"a header longer than the text", "AT+CMGW=14,2", "0041000B915155100003F200040101"},
        {"a service centre longer than the PDU", "AT+CMGW=1,2", "FF01"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(dialogue.Send(row.command, row.body), invalid) << row.fault;
    }
    Hold(dialogue, {
                       {"AT+CMGW", error},
                       {"AT+CMGW=,2", invalid},
                       {"AT+CMGW=18,4", invalid},
                       {"AT+CMGW=18,6", invalid},
                       {"AT+CMGS=0", invalid},
                   });
    EXPECT_TRUE(dialogue.handset.Content().simMessages.items.empty());
}

TEST(Messages, ComeBackWhenSentToTheOwnNumber) {
    Dialogue dialogue;
    dialogue.handset.Content().identity.ownNumber = "+15550100302";
    EXPECT_EQ(dialogue.Ask("AT+CNMI=1,1"), ok);
    EXPECT_EQ(dialogue.Send("AT+CMGS=18", submit), Line("+CMGS: 1") + ok + Line("+CMTI: \"SM\",1"));
    const StoredMessage& arrived = dialogue.handset.Content().simMessages.items.at(1);
    EXPECT_EQ(arrived.stat, 0);
    EXPECT_EQ(arrived.pdu, std::string("07915155109099F9") + (deliver + 2));
    dialogue.handset.Content().identity.ownNumber = "+15550100301";
    EXPECT_EQ(dialogue.Send("AT+CMGS=18", submit), Line("+CMGS: 2") + ok);
}

TEST(Messages, GoAsTheDeleteFlagSays) {
    HandsetContent content = HandsetContent::Empty();
    for (const int stat : {0, 1, 2, 3}) {
        content.Add("SM", stat, stat < 2 ? deliver : submit);
    }
    const size_t left[] = {4, 3, 2, 1, 0};
    for (int flag = 1; flag <= 4; ++flag) {
        Dialogue dialogue(content);
        EXPECT_EQ(dialogue.Ask(fmt::format("AT+CMGD=1,{}", flag)), ok);
        EXPECT_EQ(dialogue.handset.Content().simMessages.items.size(), left[flag]) << flag;
        EXPECT_EQ(dialogue.Ask("AT+CMGD=1,5"), Line("+CMS ERROR: 302"));
    }
}

TEST(Phonebook, SpeaksTheChosenCharset) {
    Dialogue dialogue;
    Hold(dialogue, {
                       {"AT+CSCS=\"UCS2\"", ok},
                       {"AT+CPBW=1, \"15550100211\",145,\"004100F10062\"", ok},
                       {"AT+CPBR=1", Line("+CPBR: 1,\"+15550100211\",145,\"004100F10062\"") + ok},
                       {"AT+CSCS=\"UCS2_0x81\"", ok},
                       {"AT+CPBR=1", Line("+CPBR: 1,\"+15550100211\",145,\"81030141F162\"") + ok},
                       {"AT+CPBW=2, \"5550123\",129,\"8102089FC0\"", ok},
                       {"AT+CPBW=3, \"5550123\",129,\"56FE4E66\"", ok},
                       {"AT+CPBR=3", Line("+CPBR: 3,\"5550123\",129,\"56FE4E66\"") + ok},
                       {"AT+CSCS=\"UCS2\"", ok},
                       {"AT+CPBR=2", Line("+CPBR: 2,\"5550123\",129,\"041F0440\"") + ok},
                       {"AT+CSCS=\"IRA\"", ok},
                       {"AT+CPBR=1", Line("+CPBR: 1,\"+15550100211\",145,\"A?b\"") + ok},
                       {"AT+CPBW=4, \"\",129,\"a \\22b\\22 \\5C\"", ok},
                       {"AT+CPBR=4", Line("+CPBR: 4,\"\",129,\"a \\22b\\22 \\5C\"") + ok},
                       {"AT+CSCS=\"GSM\"", ok},
                       {"AT+CPBR=1", Line("+CPBR: 1,\"+15550100211\",145,\"A}b\"") + ok},
                       {"AT+CPBR=1,3", Line("+CPBR: 1,\"+15550100211\",145,\"A}b\"") +
                                           Line("+CPBR: 2,\"5550123\",129,\"??\"") +
                                           Line("+CPBR: 3,\"5550123\",129,\"??\"") + ok},
                       {"AT+CPBS?", Line("+CPBS: \"SM\",4,100") + ok},
                       {"AT+CPBR=?", Line("+CPBR: (1-100),20,14") + ok},
                   });
    EXPECT_EQ(dialogue.handset.Content().simContacts.items.at(2).name, u"Пр");
}

TEST(Phonebook, RefusesWhatIsWrong) {
    Dialogue dialogue;
    Hold(dialogue, {
                       {"AT+CPBW=1,\"123\",129,\"12345678901234\"", ok},
                       {"AT+CPBW=1,\"123\",129,\"123456789012345\"", Line("+CME ERROR: 24")},
                       {"AT+CPBW=1,\"123\",129,\"1234567890123[\"", Line("+CME ERROR: 24")},
                       {"AT+CPBW=1,\"123456789012345678901\",129,\"A\"", Line("+CME ERROR: 26")},
                       {"AT+CPBW=1,\"12x\",129,\"A\"", Line("+CME ERROR: 27")},
                       {"AT+CPBW=1,\"12\",1,\"A\"", Line("+CME ERROR: 3")},
                       {"AT+CPBW=0,\"12\",129,\"A\"", Line("+CME ERROR: 21")},
                       {"AT+CPBW=101,\"12\",129,\"A\"", Line("+CME ERROR: 21")},
                       {"AT+CPBR=101", Line("+CME ERROR: 21")},
                       {"AT+CPBR=2", ok},
                       {"AT+CSCS=\"UCS2\"", ok},
                       {"AT+CPBW=1,\"123\",129,\"004a\"", Line("+CME ERROR: 25")},
                       {"AT+CPBW=1,\"123\",129,\"00410\"", Line("+CME ERROR: 25")},
                       {"AT+CPBW=1,\"123\",129,\"004100\"", Line("+CME ERROR: 25")},
                       {"AT+CPBW=1,\"123\",129,\"56FE4E6656FE4E6656FE4E66\"", ok},
                       {"AT+CPBW=1,\"123\",129,\"56FE4E6656FE4E6656FE4E6656FE\"", Line("+CME ERROR: 24")},
                       {"AT+CPBW=1", ok},
                       {"AT+CPBW=1", ok},
                       {"AT+CPBS?", Line("+CPBS: \"SM\",0,100") + ok},
                   });
    dialogue.handset.Content().simContacts.capacity = 1;
    Hold(dialogue, {
                       {"AT+CPBW=,\"123\",129,\"0041\"", ok},
                       {"AT+CPBW=,\"123\",129,\"0041\"", Line("+CME ERROR: 20")},
                   });
}

TEST(Handset, SurvivesNoise) {
    Dialogue dialogue(HandsetContent::Demo());
    unsigned state = 1;
    std::string noise;
    const std::string_view alphabet = "AT+CMGRWLSPBD=?\",;0123456789(\r\x1a\x1b\\ \n\xff";
    for (int i = 0; i < 200'000; ++i) {
        state = state * 1'103'515'245 + 12'345;
        noise += alphabet[(state >> 16) % alphabet.size()];
        if (noise.ends_with("\r") && (state >> 28) < 8) noise += "AT+C";
    }
    dialogue.Say(noise);
    dialogue.Say("\x1b");
    EXPECT_EQ(dialogue.Ask("ATE0").substr(0, 1), "\r");
    dialogue.Say(std::string(100'000, 'A'));
    dialogue.Say("\r");
    EXPECT_EQ(dialogue.Ask("AT"), ok);
}

}  // namespace
}  // namespace tarnbridge::simulator
