#include <filesystem>
#include <thread>

#include <gtest/gtest.h>

#include "link/DescribeFields.h"
#include "link/HandsetLink.h"
#include "platform/FileEntryStore.h"
#include "platform/PortMap.h"
#include "support/ManualClock.h"
#include "support/TemporaryFolder.h"
#include "support/VirtualHandset.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

const std::string pdu = "07911326040000F0040B911346610089F60000208062917314080CC8F71D14969741F977FD07";

/// The link over a real pseudo-terminal to the virtual handset, whose SIM holds one message at location 1.
class VirtualHandsetDialogue : public ::testing::Test {
protected:
    VirtualHandsetDialogue() {
        handset.With([](simulator::HandsetContent& content) { return content.Add("SM", 1, pdu); });
    }

    bool Connect() {
        LinkKind kind{};
        return link.Connect(handset.Path(), kind);
    }

    /// Reads location 1; what came of it in one word.
    std::string ReadMessage() { return ReadMessage(link); }
    static std::string ReadMessage(HandsetLink& link) {
        if (!link.ExecExpect("AT+CPMS=\"SM\", \"SM\", \"SM\"\r", link.commandTimeout, "+CPMS", true))
            return "no memory";
        ATResult result;
        result.prefix = "+CMGR";
        if (!link.ExecCommand("AT+CMGR=1\r", link.commandTimeout, true, result)) return "no answer";
        if (!result.HasPrefix("+CMGR")) return "refused";
        return result.lines[0].back().text == pdu ? "read" : "spoiled";
    }

    std::string WriteMessage() { return WriteMessage(link); }
    static std::string WriteMessage(HandsetLink& link, uint32_t seconds = 5) {
        ATResult result;
        result.prefix = "+CMGW";
        const std::string text = "AT+CMGW=" + std::to_string(pdu.size() / 2 - 8) + ", 1\r";
        if (link.ExecTwoStage(text, pdu + "\x1A", seconds, result)) return "written";
        const int32_t number = result.ErrorNumber();
        return number >= 0 ? "error " + std::to_string(number) : "failed";
    }

    /// Works through everything that the link does; false at the first thing that fails.
    static bool DoEverything(HandsetLink& link) {
        return link.Ping() && ReadMessage(link) == "read" && WriteMessage(link, 1) == "written" &&
               link.SelectPhonebookStore(u"SM") && link.SelectCharset(u"UCS2");
    }

    test::TemporaryFolder folder;
    FileEntryStore store{folder / "Test.conf"};
    PortMap ports{store};
    test::NoSleepClock clock;
    test::VirtualHandset handset;
    HandsetLink link{clock, SystemSerialDevices(ports)};
};

TEST_F(VirtualHandsetDialogue, WithEachFaultThatAHandsetIsAllowed) {
    const std::vector<std::string> faults[] = {{},
                                               {"split=1,gap=0"},
                                               {"split=2,gap=0"},
                                               {"split=7"},
                                               {"garbage=5"},
                                               {"unsolicited"},
                                               {"unsolicited", "split=3,gap=0"},
                                               {"unsolicited=+CLIP: \"+4912345\",145", "garbage"},
                                               {"delay=3"},
                                               {"delay=50,after=handshake"},
                                               {"asleep=20"},
                                               {"echo-lost"},
                                               {"channel-mode=error"},
                                               {"channel-mode=0"},
                                               {"channel-mode=3"},
                                               {"refuse=+CSCS=\"UCS2_0x81\""},
                                               {"refuse=+EFS", "refuse=+EVCARD", "refuse=+EQUERY"}};
    for (const auto& fault : faults) {
        const std::string name = fault.empty() ? "no fault" : fault.front();
        handset.SetFaults(fault);
        ASSERT_TRUE(Connect());
        EXPECT_TRUE(link.EnsureSession()) << name;
        EXPECT_EQ(ReadMessage(), "read") << name;
        EXPECT_EQ(WriteMessage(), "written") << name;
        EXPECT_TRUE(link.Ping()) << name;
        link.Disconnect(true);
    }
}

/// The same with a clock that makes short work of waiting for what never comes. The parameter is a fault
/// before and after the number of the command.
class VirtualHandsetSilence : public VirtualHandsetDialogue,
                              public ::testing::WithParamInterface<std::string> {
protected:
    VirtualHandsetSilence() { fastLink.commandTimeout = 400; }

    test::FastClock fastClock;
    HandsetLink fastLink{fastClock, SystemSerialDevices(ports)};
};

TEST_P(VirtualHandsetSilence, AtEveryCommandAndComingBack) {
    const auto connect = [&] {
        LinkKind kind{};
        return fastLink.Connect(handset.Path(), kind);
    };
    ASSERT_TRUE(connect());
    ASSERT_TRUE(DoEverything(fastLink));
    const size_t commands = handset.Commands().size();
    fastLink.Disconnect(true);
    ASSERT_GT(commands, 20u);

    for (size_t n = 0; n < commands; ++n) {
        std::string fault = GetParam();
        fault.replace(fault.find('N'), 1, std::to_string(n + 1));
        handset.SetFaults({fault});
        fastClock.speed = 8;
        ASSERT_TRUE(connect()) << fault;
        EXPECT_FALSE(DoEverything(fastLink) && DoEverything(fastLink)) << fault;
        fastLink.Disconnect(true);
        EXPECT_FALSE(fastLink.IsPortOpen());

        handset.SetFaults({});
        handset.Unplug();
        EXPECT_FALSE(connect()) << fault;
        EXPECT_EQ(fastLink.OpenFailure().fault, SerialOpenFault::Missing);
        handset.Plug();
        fastClock.speed = 1;
        ASSERT_TRUE(connect()) << "after " << fault;
        // As the program does it: what fails now on a busy machine is tried again.
        EXPECT_TRUE(fastLink.Ping() || fastLink.Ping() || fastLink.Ping()) << "after " << fault;
        fastLink.Disconnect(true);
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, VirtualHandsetSilence,
                         ::testing::Values("silent-after=N", "silent-midline=N", "unplug-after=N",
                                           "unplug-after=N,bytes=5"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::replace_if(
                                 name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
                             return name;
                         });

TEST_F(VirtualHandsetDialogue, RefusalsOfATwoStageCommand) {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
    handset.SetFaults({"refuse-prompt"});
    EXPECT_EQ(WriteMessage(link, 1), "failed") << "a refusal in place of the prompt isn't seen";
    handset.SetFaults({"refuse-body=305"});
    EXPECT_EQ(WriteMessage(), "error 305");
    handset.SetFaults({});
    handset.With([](simulator::HandsetContent& content) { return content.simMessages.capacity = 1; });
    ASSERT_EQ(ReadMessage(), "read");
    ASSERT_TRUE(link.ExecExpect("AT+CPMS=\"SM\", \"SM\", \"SM\"\r", 1000, "+CPMS", true));
    EXPECT_EQ(WriteMessage(), "error 322") << "a full memory is refused after the body";
    EXPECT_TRUE(link.Ping());
}

TEST_F(VirtualHandsetDialogue, ALineBetweenAHeaderAndItsPduIsPassedOver) {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
    handset.SetFaults({"unsolicited-in-message=RING"});
    EXPECT_EQ(ReadMessage(), "read");
}

TEST_F(VirtualHandsetDialogue, AHandedOverMessageSwallowsUntilTheNextConnection) {
    test::FastClock fastClock;
    HandsetLink fastLink{fastClock, SystemSerialDevices(ports)};
    for (const char* word : {"+CMT", "+CBM", "+CDS"}) {
        LinkKind kind{};
        ASSERT_TRUE(fastLink.Connect(handset.Path(), kind));
        fastClock.speed = 1;
        EXPECT_TRUE(fastLink.Ping()) << word;
        fastClock.speed = 8;
        handset.SetFaults({std::string("unsolicited-pdu=") + word});
        EXPECT_FALSE(fastLink.Ping()) << word;
        handset.SetFaults({});
        EXPECT_FALSE(fastLink.Ping()) << word;
        fastLink.Disconnect(true);
    }
}

TEST_F(VirtualHandsetDialogue, ThreadsGetTheirOwnAnswers) {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
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
}

TEST_F(VirtualHandsetDialogue, NothingIsLeftBehind) {
    const auto threads = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"),
                             std::filesystem::directory_iterator());
    };
    const auto files = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    ASSERT_TRUE(Connect());
    link.Disconnect(true);
    const auto threadsBefore = threads();
    const auto filesBefore = files();
    link.commandTimeout = 100;
    for (const char* fault : {"split=5,gap=0", "silent-after=3", "unplug-after=9"}) {
        handset.SetFaults({fault});
        ASSERT_TRUE(Connect());
        DoEverything(link);
        link.Disconnect(true);
        handset.SetFaults({});
        handset.Plug();
        EXPECT_EQ(threads(), threadsBefore) << fault;
        EXPECT_EQ(files(), filesBefore) << fault;
    }
}

TEST_F(VirtualHandsetDialogue, TheHandsetIsFoundAsItWasLeft) {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(link.EnsureSession());
    link.Disconnect(true);
    EXPECT_TRUE(handset.Server().With([](simulator::Handset& phone) { return phone.State().echo; }));
    EXPECT_EQ(handset.Count("AT+ESLP=1"), 1u);
}

TEST_F(VirtualHandsetDialogue, APulledPlugAndACancelEndEveryWaitAtOnce) {
    // None of these waits has a limit of its own: for a result, a prompt, and a result after the body.
    handset.Script("AT+CSQ", "");
    handset.Script("AT+CMGS=8", "");
    handset.Script("AT+CMGW=8", "\r\n> ");
    for (const char* const command : {"AT+CSQ", "AT+CMGS=8", "AT+CMGW=8"}) {
        for (const bool unplug : {true, false}) {
            ASSERT_TRUE(Connect() && link.EnsureSession());
            handset.ForgetCommands();
            std::thread other([&] {
                EXPECT_TRUE(handset.AwaitCommand(command));
                if (unplug)
                    handset.Unplug();
                else
                    link.BreakExchange();
            });
            const std::string text = std::string(command) + "\r";
            ATResult result;
            if (text.starts_with("AT+CM")) {
                EXPECT_FALSE(link.ExecTwoStage(text, "00\x1A", 0, result)) << command;
            } else {
                EXPECT_FALSE(link.ExecCommand(text, 0, false, result)) << command;
            }
            other.join();
            link.Disconnect(false);
            if (unplug) handset.Plug();
        }
    }
}

}  // namespace
}  // namespace tarnbridge
