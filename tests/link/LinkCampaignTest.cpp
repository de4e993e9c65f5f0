#include <thread>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include "support/HandsetSession.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

using Faults = std::vector<std::string>;

/// A handset with distinct messages, to which each thing happens once at every place. Whatever it is, no
/// answer may be taken for that of another command.
class LinkCampaign : public ::testing::Test {
protected:
    LinkCampaign() {
        session.handset.With([&](simulator::HandsetContent& content) {
            for (const auto& [location, message] : content.Messages("SM")->items)
                pdus[location] = message.pdu;
            return 0;
        });
        EXPECT_TRUE(link.EnsureSession());
        clean = Features();
        handshake = handset.Commands();
        link.Disconnect(true);
    }

    std::string Features() {
        const HandsetFeatures f = link.Features();
        return fmt::format("{} {} {} {} {} {} {} {}", f.maxChunk, f.hasEfsCheck, f.hasStoreQuery,
                           f.canStoreReceived, f.hasPackedUcs2, f.hasVCard, f.hasMeStore, f.hasSimMemory);
    }

    /// How many features are others than those of an undisturbed handshake.
    ptrdiff_t Others() {
        const std::string now = Features();
        const bool otherSize = now.substr(0, 4) != clean.substr(0, 4);
        return otherSize + std::count(now.begin(), now.end(), 'f') -
               std::count(clean.begin(), clean.end(), 'f');
    }

    bool Send(const std::string& command, ATResult& result) {
        return link.ExecCommand(command, link.commandTimeout, command.starts_with("AT+CMGR="), result);
    }

    /// Sends commands whose answers differ, in one session: "right", "no answer", or the first wrong one.
    std::string Ask(int readings) {
        const HandsetLink::OneSession one(link);
        ATResult result;
        if (!Send("AT+NOSUCH\r", result)) return "no answer";
        if (result.IsOk()) return "AT+NOSUCH is OK";
        result.prefix = "+CSQ";
        if (!Send("AT+CSQ\r", result)) return "no answer";
        if (!result.HasPrefix("+CSQ")) return "AT+CSQ has no line";
        if (!link.ExecExpect("AT+CPMS=\"SM\", \"SM\", \"SM\"\r", link.commandTimeout, "+CPMS", true))
            return "no answer";
        for (auto next = pdus.begin(); readings > 0; --readings) {
            if (next == pdus.end()) next = pdus.begin();
            const auto& [location, pdu] = *next++;
            result.prefix = "+CMGR";
            if (!Send(fmt::format("AT+CMGR={}\r", location), result)) return "no answer";
            if (!result.HasPrefix("+CMGR")) return fmt::format("location {} is empty", location);
            if (result.lines[0].back().text != pdu) return fmt::format("location {} is another", location);
        }
        return "right";
    }

    /// Whatever has just happened, all is right or the session is over, and then the next is right. As the
    /// program does it, three further connections are tried.
    void ExpectRight(const std::string& what, ptrdiff_t mayLack = 0, int readings = 5) {
        std::string answers = "no answer";
        for (int i = 0; i < 4 && answers == "no answer"; ++i) {
            if (i > 0) {
                link.Disconnect(true);
                session.clock.Sleep(3s);
                EXPECT_TRUE(session.Connect());
            }
            if (!link.EnsureSession()) continue;
            EXPECT_LE(Others(), mayLack) << what << ": " << Features();
            answers = Ask(readings);
        }
        EXPECT_EQ(answers, "right") << what;
        ++tried;
    }

    /// A connection with these faults.
    void Try(const Faults& faults, ptrdiff_t mayLack = 0) {
        handset.SetFaults(faults);
        EXPECT_TRUE(session.Connect());
        ExpectRight(fmt::format("{}", fmt::join(faults, " ")), mayLack);
        EndTry();
    }

    void EndTry() {
        handset.SetFaults({});
        link.Disconnect(true);
        session.clock.Sleep(60s);
    }

    test::HandsetSession session{{true, {}, 0}};
    HandsetLink& link = session.link;
    test::SimulatedPhone& handset = session.handset;
    std::map<int, std::string> pdus;
    std::string clean;
    std::vector<std::string> handshake;
    int tried = 0;
};

TEST_F(LinkCampaign, HandshakeWithOneFaultAtEachCommand) {
    for (const char* fault :
         {"late=30", "late=60", "late=400", "late=1500", "late=5500", "late=9000", "overtaken=30",
          "overtaken=60", "overtaken=400", "overtaken=1500", "overtaken=5500", "overtaken=9000", "lost",
          "unheard", "doubled", "refuse", "lose-octet=1", "lose-octet=4", "alter-octet=4"}) {
        for (size_t n = 0; n < handshake.size(); ++n) {
            // A handset may refuse what is asked about its features, and then hasn't got up to two of them.
            const bool mayRefuse = fault == std::string_view("refuse") && handshake[n] != "AT+ESUO?" &&
                                   handshake[n].find_first_of("?xQ") != std::string::npos;
            Try({fmt::format("{},after={},times=1", fault, n)}, mayRefuse ? 2 : 0);
        }
    }
    for (const char* query : {"+ESUO?", "+EFSW", "+EQUERY", "+CPMS"}) {
        for (int octet = 1; octet < 30; ++octet) {
            Try({fmt::format("lose-octet={}:{},times=1", query, octet)});
            Try({fmt::format("alter-octet={}:{},times=1", query, octet)});
        }
    }
    for (const char* fault :
         {"garbage", "unsolicited", "asleep=20", "delay=20,after=0", "delay=50,after=0", "delay=80,after=0",
          "delay=95,after=0", "delay=400,after=0", "refuse=+CMGF?", "refuse=+CSCS?", "refuse=+CMEE?"})
        Try({fault});
    for (const char* command : {"AT+CMGW=30\r", "AT+CMGS=30\r"}) {
        const auto killed = handset.Factory()();
        SerialOpenFailure failure;
        EXPECT_TRUE(killed->Open({"phone", 115200, FlowControl::None}, failure));
        killed->Write(command);
        killed->Close();
        Try({});
    }
    EXPECT_GT(tried, 600);
}

/// The kinds of exchange, with the place of a fault that meets it.
struct Exchange {
    const char* place;
    std::function<bool(HandsetLink&)> run;
};
const Exchange exchanges[] = {
    {"+CBC",
     [](HandsetLink& link) {
         ATResult result;
         return link.ExecCommand("AT+CBC\r", 5000, false, result);
     }},
    {"+CREG?", [](HandsetLink& link) { return link.ExecExpect("AT+CREG?\r", 5000, "+CREG", true); }},
    {"+CMGR",
     [](HandsetLink& link) {
         ATResult result;
         result.prefix = "+CMGR";
         return link.ExecCommand("AT+CMGR=2\r", 5000, true, result);
     }},
    {"+CMGW",
     [](HandsetLink& link) {
         ATResult result;
         return link.ExecTwoStage("AT+CMGW=9\r", "00\x1A", 5, result);
     }},
    {"+CMGW>",
     [](HandsetLink& link) {
         ATResult result;
         return link.ExecTwoStage("AT+CMGW=9\r", "00\x1A", 5, result);
     }},
    {"+EFSC", [](HandsetLink& link) { return link.ExecFile("AT+EFSC=?\r", 5, nullptr); }},
};

TEST_F(LinkCampaign, EachKindOfExchangeIsLate) {
    for (const Exchange& exchange : exchanges) {
        for (const char* fault : {"late", "overtaken"}) {
            for (const int delay : {4900, 5100, 5500, 7000, 12'000, 20'000}) {
                const auto specification = fmt::format("{}={}:{},times=1", fault, exchange.place, delay);
                EXPECT_TRUE(session.Connect() && link.EnsureSession());
                handset.SetFaults({specification});
                EXPECT_EQ(exchange.run(link),
                          delay < 5000 && !std::string_view(exchange.place).starts_with("+CMGW"))
                    << specification;
                const unsigned number = link.SessionNumber();
                ExpectRight(specification, 0, 20);
                if (delay < 6000) {
                    EXPECT_EQ(link.SessionNumber(), number) << specification << ": the session stands";
                }
                EndTry();
            }
        }
    }
}

TEST_F(LinkCampaign, EachKindOfExchangeIsBrokenOff) {
    const std::pair<const char*, std::function<void()>> actions[] = {
        {"break", [&] { link.BreakExchange(); }},
        {"hurry", [&] { link.SetHurried(true); }},
        {"stop", [&] { link.StopTransfer(false); }},
        {"break and stop", [&] { link.StopTransfer(true); }},
    };
    for (const Exchange& exchange : exchanges) {
        for (const auto& [name, act] : actions) {
            for (const Milliseconds moment : {0ms, 1ms, 1000ms, 2999ms, 3000ms, 3001ms}) {
                const auto what = fmt::format("{} at {} after {} ms", name, exchange.place, moment.count());
                EXPECT_TRUE(session.Connect() && link.EnsureSession());
                handset.SetFaults(
                    {fmt::format("late={}:3000,times=1", exchange.place), "late=+EFSR:400,times=1"});
                std::thread user([&, chosen = act] {
                    session.clock.Sleep(moment);
                    chosen();
                });
                exchange.run(link);
                user.join();
                link.SetHurried(false);
                ExpectRight(what, 0, 20);
                EndTry();
            }
        }
    }
}

/// A handset need not know each query that the link probes with. One time-out must not spoil what follows.
TEST_F(LinkCampaign, AHandsetRefusesAProbe) {
    for (const char* probe : {"AT+CMGF?", "AT+CSCS?", "AT+CMEE?"}) {
        handset.Script(probe, "\r\nERROR\r\n");
        EXPECT_TRUE(session.Connect() && link.EnsureSession()) << probe;
        EXPECT_EQ(Others(), 0) << probe;
        handset.SetFaults({"lost=+CBC"});
        EXPECT_FALSE(exchanges[0].run(link));
        EXPECT_EQ(Ask(20), "right") << probe;
        handset.Script(probe, probe == std::string("AT+CMGF?")   ? "\r\n+CMGF: 0\r\n\r\nOK\r\n"
                              : probe == std::string("AT+CSCS?") ? "\r\n+CSCS: \"UCS2\"\r\n\r\nOK\r\n"
                                                                 : "\r\n+CMEE: 1\r\n\r\nOK\r\n");
        EndTry();
    }
}

/// An answer that was given up comes between a later command and its own answer.
TEST_F(LinkCampaign, AnAnswerComesAfterAll) {
    for (const char* stray : {"\r\nOK\r\n", "\r\nERROR\r\n", "\r\n+CBC: 0,80\r\n\r\nOK\r\n"}) {
        for (int later = 1; later < 30; ++later) {
            EXPECT_TRUE(session.Connect() && link.EnsureSession());
            handset.SetFaults({"lost=+CBC"});
            EXPECT_FALSE(exchanges[0].run(link));
            int left = later;
            handset.OnCommand([&](simulator::HandsetLine& line, const std::string&) {
                if (--left == 0) line.Say(stray, session.clock.Exactly());
            });
            ExpectRight(fmt::format("{} before answer {}", stray, later), 0, 10);
            handset.OnCommand({});
            EndTry();
        }
    }
}

}  // namespace
}  // namespace tarnbridge
