#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

#include "platform/FileEntryStore.h"
#include "platform/PortMap.h"
#include "support/HandsetSession.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

const std::string pdu = "07911326040000F0040B911346610089F60000208062917314080CC8F71D14969741F977FD07";

/// Reads location 1; what came of it in one word.
std::string ReadMessage(HandsetLink& link) {
    if (!link.ExecExpect("AT+CPMS=\"SM\", \"SM\", \"SM\"\r", link.commandTimeout, "+CPMS", true))
        return "no memory";
    ATResult result;
    result.prefix = "+CMGR";
    if (!link.ExecCommand("AT+CMGR=1\r", link.commandTimeout, true, result)) return "no answer";
    if (!result.HasPrefix("+CMGR")) return "refused";
    return result.lines[0].back().text == pdu ? "read" : "spoiled";
}

std::string WriteMessage(HandsetLink& link) {
    ATResult result;
    result.prefix = "+CMGW";
    const std::string text = "AT+CMGW=" + std::to_string(pdu.size() / 2 - 8) + ", 1\r";
    if (link.ExecTwoStage(text, pdu + "\x1A", 5, result)) return "written";
    const int32_t number = result.ErrorNumber();
    return number >= 0 ? "error " + std::to_string(number) : "failed";
}

/// Works through everything that the link does; false at the first thing that fails.
bool DoEverything(HandsetLink& link) {
    return link.Ping() && ReadMessage(link) == "read" && WriteMessage(link) == "written" &&
           link.SelectPhonebookStore(u"SM") && link.SelectCharset(u"UCS2");
}

/// The link to a handset whose SIM holds one message at location 1, on virtual time.
class HandsetDialogue : public ::testing::Test {
protected:
    HandsetDialogue() {
        session.SetCapacities(5000, 0);
        handset.With([](simulator::HandsetContent& content) { return content.Add("SM", 1, pdu); });
        link.Disconnect(true);
        handset.ForgetCommands();
        EXPECT_TRUE(session.Connect());
    }

    test::HandsetSession session;
    HandsetLink& link = session.link;
    test::SimulatedPhone& handset = session.handset;
};

TEST_F(HandsetDialogue, WithEachFaultThatAHandsetIsAllowed) {
    const std::vector<std::string> faults[] = {{},
                                               {"split=1,gap=0"},
                                               {"split=7"},
                                               {"garbage=5"},
                                               {"unsolicited", "split=3,gap=0"},
                                               {"unsolicited=+CLIP: \"+4912345\",145", "garbage"},
                                               {"unsolicited-in-message=RING"},
                                               {"delay=3"},
                                               {"delay=50,after=handshake"},
                                               {"echo-lost"},
                                               {"channel-mode=error"},
                                               {"channel-mode=0"},
                                               {"channel-mode=3"},
                                               {"refuse=+CSCS=\"UCS2_0x81\""},
                                               {"refuse=+EFS", "refuse=+EVCARD", "refuse=+EQUERY"}};
    for (const auto& fault : faults) {
        handset.SetFaults(fault);
        session.Reconnect();
        EXPECT_TRUE(DoEverything(link)) << (fault.empty() ? "no fault" : fault.front());
    }
}

TEST_F(HandsetDialogue, SilenceAndHangUpsAtEveryCommandAndComingBack) {
    ASSERT_TRUE(DoEverything(link));
    link.Disconnect(true);
    const size_t commands = handset.Commands().size();
    ASSERT_GT(commands, 20u);
    for (const char* name : {"silent-after=", "silent-midline=", "unplug-after=", "unplug-after="}) {
        const char* const modifier = *name == 'u' ? ",bytes=5" : "";
        for (size_t n = 1; n <= commands; ++n) {
            const std::string fault = name + std::to_string(n) + (n % 2 == 0 ? modifier : "");
            handset.SetFaults({fault});
            ASSERT_TRUE(session.Connect()) << fault;
            EXPECT_FALSE(DoEverything(link) && DoEverything(link)) << fault;
            link.Disconnect(true);
            handset.SetFaults({});
            handset.Unplug();
            EXPECT_FALSE(session.Connect()) << fault;
            EXPECT_EQ(link.OpenFailure().fault, SerialOpenFault::Missing);
            handset.Plug();
            ASSERT_TRUE(session.Connect()) << "after " << fault;
            EXPECT_TRUE(DoEverything(link)) << "after " << fault;
            link.Disconnect(true);
        }
    }
}

TEST_F(HandsetDialogue, RefusalsOfATwoStageCommand) {
    ASSERT_TRUE(link.EnsureSession());
    handset.SetFaults({"refuse-prompt"});
    EXPECT_EQ(WriteMessage(link), "failed") << "a refusal in place of the prompt isn't seen";
    handset.SetFaults({"refuse-body=305"});
    EXPECT_EQ(WriteMessage(link), "error 305");
    handset.SetFaults({});
    handset.With([](simulator::HandsetContent& content) { return content.simMessages.capacity = 1; });
    ASSERT_EQ(ReadMessage(link), "read");
    EXPECT_EQ(WriteMessage(link), "error 322") << "a full memory is refused after the body";
    EXPECT_TRUE(link.Ping());
}

TEST_F(HandsetDialogue, AHandedOverMessageSwallowsUntilTheNextConnection) {
    for (const char* word : {"+CMT", "+CBM", "+CDS"}) {
        session.Reconnect();
        handset.SetFaults({std::string("unsolicited-pdu=") + word});
        EXPECT_FALSE(link.Ping()) << word;
        handset.SetFaults({});
        EXPECT_FALSE(link.Ping()) << word;
    }
}

/// The same handset behind a real pseudo-terminal.
class TerminalDialogue : public ::testing::Test {
protected:
    TerminalDialogue() {
        handset.With([](simulator::HandsetContent& content) { return content.Add("SM", 1, pdu); });
    }

    bool Connect() {
        LinkKind kind{};
        return link.Connect(handset.Path(), kind);
    }

    test::TemporaryFolder folder;
    FileEntryStore store{folder / "Test.conf"};
    PortMap ports{store};
    SystemClock clock;
    test::VirtualHandset handset;
    HandsetLink link{clock, SystemSerialDevices(ports)};
};

TEST_F(TerminalDialogue, ThreadsGetTheirOwnAnswers) {
    ASSERT_TRUE(Connect() && DoEverything(link));
    std::vector<std::thread> threads;
    std::atomic<int> wrong{0};
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            const char* const commands[] = {"AT+CGMI\r", "AT+CSQ\r", "AT+CPMS?\r", "AT+CMGR=1\r"};
            const char* const prefixes[] = {"", "+CSQ", "+CPMS", "+CMGR"};
            for (int i = 0; i < 50; ++i) {
                ATResult result;
                result.prefix = prefixes[thread];
                const bool answered = link.ExecCommand(commands[thread], 5000, thread == 3, result);
                const bool right = thread == 0 ? result.IsOk() : result.HasPrefix(prefixes[thread]);
                if (!answered || !right || (thread == 3 && result.lines[0].back().text != pdu)) ++wrong;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
    link.Disconnect(true);
    EXPECT_TRUE(handset.Server().With([](simulator::Handset& phone) { return phone.State().echo; }));
}

TEST_F(TerminalDialogue, NothingIsLeftBehind) {
    const auto count = [](const char* what) {
        return std::distance(std::filesystem::directory_iterator(what),
                             std::filesystem::directory_iterator());
    };
    ASSERT_TRUE(Connect());
    link.Disconnect(true);
    const auto threads = count("/proc/self/task");
    const auto files = count("/proc/self/fd");
    link.commandTimeout = 100;
    for (const char* fault : {"split=5,gap=0", "silent-after=30", "unplug-after=9"}) {
        handset.SetFaults({fault});
        ASSERT_TRUE(Connect());
        DoEverything(link);
        link.Disconnect(true);
        handset.SetFaults({});
        handset.Plug();
        EXPECT_EQ(count("/proc/self/task"), threads) << fault;
        EXPECT_EQ(count("/proc/self/fd"), files) << fault;
    }
}

TEST_F(TerminalDialogue, APulledPlugEndsEveryWait) {
    // None of these waits has a limit of its own: for a result, a prompt, and a result after the body.
    handset.Script("AT+CSQ", "");
    handset.Script("AT+CMGS=8", "");
    handset.Script("AT+CMGW=8", "\r\n> ");
    for (const std::string command : {"AT+CSQ", "AT+CMGS=8", "AT+CMGW=8"}) {
        ASSERT_TRUE(Connect() && link.EnsureSession());
        handset.ForgetCommands();
        std::thread other([&] {
            EXPECT_TRUE(handset.AwaitCommand(command));
            handset.Unplug();
        });
        ATResult result;
        if (command == "AT+CSQ") {
            EXPECT_FALSE(link.ExecCommand(command + "\r", 0, false, result)) << command;
        } else {
            EXPECT_FALSE(link.ExecTwoStage(command + "\r", "00\x1A", 0, result)) << command;
        }
        other.join();
        EXPECT_FALSE(link.EnsureSession());
        link.Disconnect(false);
        handset.Plug();
    }
}

}  // namespace
}  // namespace tarnbridge
