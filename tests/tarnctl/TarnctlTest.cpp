// The program on a handset, which is the virtual one.

#include <thread>

#include "platform/Files.h"
#include "support/VirtualHandset.h"
#include "tarnctl/TarnctlFixture.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

class Tarnctl : public TarnctlFixture {
protected:
    /// With the virtual handset as the port.
    ProcessOutput RunOnHandset(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--port", handset.Path()});
        return Run(arguments);
    }

    test::VirtualHandset handset{{.demo = true, .faults = {}, .baud = 0}};
};

TEST_F(Tarnctl, HelpAndWrongUsage) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"at", "--help"},
                                                      {"text", "pack", "--help"},
                                                      {"sms", "raw-list", "--help"}}) {
        const auto output = Run(arguments);
        EXPECT_EQ(output.exitCode, 0);
        EXPECT_NE(output.output.find("Usage:"), std::string::npos);
        EXPECT_EQ(output.errors, "");
    }
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"nonsense"},
                                                      {"at"},
                                                      {"sms"},
                                                      {"sms", "raw-list", "--memory", "XX"},
                                                      {"--baud", "fast", "ping"},
                                                      {"--flow", "some", "ping"}}) {
        const auto output = Run(arguments);
        EXPECT_EQ(output.exitCode, 2);
        EXPECT_EQ(output.output, "");
        EXPECT_NE(output.errors, "");
    }
}

TEST_F(Tarnctl, InfoAndPing) {
    const auto info = RunOnHandset({"--json", "info"});
    EXPECT_EQ(info.exitCode, 0) << info.errors;
    const auto records = Records(info.output);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0]["maxChunk"], 1024);
    for (const char* name : {"hasEfsCheck", "hasStoreQuery", "canStoreReceived", "hasPackedUcs2", "hasVCard",
                             "hasMeStore", "hasSimMemory"}) {
        EXPECT_EQ(records[0][name], true) << name;
    }
    EXPECT_EQ(RunOnHandset({"ping"}).exitCode, 0);
    EXPECT_EQ(handset.Count("AT+ESLP=1"), 2u) << "the handset is handed back each time";
}

TEST_F(Tarnctl, PortsAreKnownByNumberOnceTheyWorked) {
    EXPECT_EQ(RunOnHandset({"ping"}).exitCode, 0);
    const auto ports = Run({"--json", "ports"});
    EXPECT_EQ(ports.exitCode, 0);
    std::string name;
    for (const Json& port : Records(ports.output)) {
        if (port["device"] == handset.Path()) name = port["name"];
    }
    ASSERT_EQ(name.substr(0, 3), "COM");
    EXPECT_EQ(Run({"--port", name, "ping"}).exitCode, 0);
    // Without --port the settings decide.
    WriteFileAtomically(folder / "config" / "Corvanta" / "Tarnbridge.conf",
                        "[Option]\nPort = 7\n[Ports]\n7 = " + handset.Path() + "\n");
    EXPECT_EQ(Run({"ping"}).exitCode, 0);
}

TEST_F(Tarnctl, AtShowsTypedFields) {
    handset.Script("AT+X", "\r\n+X: \"a\xE9\",3,,(1-5),(\"b\",7),\"\"\r\n\r\nOK\r\n");
    const auto output = RunOnHandset({"--json", "at", "AT+X"});
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    const auto records = Records(output.output);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0]["fields"], Json::parse(R"([{"type":"text","value":"+X"},{"type":"text","value":"aé"},
        {"type":"number","value":3},{"type":"empty"},
        {"type":"range","low":1,"high":5,"items":[{"type":"number","value":5}]},
        {"type":"list","items":[{"type":"text","value":"b"},{"type":"number","value":7}]},{"type":"text","value":""}])"));
    EXPECT_EQ(RunOnHandset({"at", "AT+X"}).output, "+X: \"aé\", 3, , (1-5), (\"b\",7), \"\"\nOK\n");
    EXPECT_EQ(RunOnHandset({"at", "AT+X", "--prefix", "+Y"}).output, "OK\n");
}

TEST_F(Tarnctl, AtTellsErrorsByNumberAndTimeOuts) {
    const auto refused = RunOnHandset({"at", "AT+CMGD=9999"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors, "the handset answered +CMS ERROR: 321\n");
    EXPECT_EQ(refused.output, "+CMS ERROR: 321\n");
    handset.Script("AT+MUTE", "");
    const auto mute = RunOnHandset({"at", "AT+MUTE", "--timeout", "30"});
    EXPECT_EQ(mute.exitCode, 1);
    EXPECT_EQ(mute.errors, "the handset did not answer in time\n");

    // A time-out below a second must not become a wait without limit.
    const auto noPrompt = RunOnHandset({"at", "AT+CSQ", "--timeout", "1", "--body", "00"});
    EXPECT_EQ(noPrompt.exitCode, 1);
    const std::string pdu = "0011000B911346610089F60000AA05C8329BFD06";
    const auto written = RunOnHandset({"at", "AT+CMGW=19", "--body", pdu});
    EXPECT_EQ(written.exitCode, 0) << written.errors;
    EXPECT_EQ(written.output.substr(0, 7), "+CMGW: ");
    const auto wrongLength = RunOnHandset({"at", "AT+CMGW=5", "--body", pdu});
    EXPECT_EQ(wrongLength.exitCode, 1);
    EXPECT_NE(wrongLength.errors.find("+CMS ERROR: 304"), std::string::npos) << wrongLength.errors;
}

TEST_F(Tarnctl, RawListShowsEveryUsedLocation) {
    const auto used = [&](const char* memory) {
        return handset.With(
            [&](simulator::HandsetContent& content) { return content.Messages(memory)->items; });
    };
    const int offset =
        handset.With([](simulator::HandsetContent& content) { return content.simMessages.capacity; });
    for (const char* memory : {"SM", "ME"}) {
        const auto before = used(memory);
        const auto output = RunOnHandset({"--json", "sms", "raw-list", "--memory", memory});
        EXPECT_EQ(output.exitCode, 0) << output.errors;
        const auto records = Records(output.output);
        ASSERT_EQ(records.size(), before.size());
        auto record = records.begin();
        for (const auto& [location, message] : before) {
            EXPECT_EQ((*record)["memory"], memory);
            EXPECT_EQ((*record)["location"], location + (memory[0] == 'M' ? offset : 0));
            EXPECT_EQ((*record)["stat"], message.stat);
            EXPECT_EQ((*record)["pdu"], message.pdu);
            ++record;
        }
    }
    handset.SetFaults({"empty-location=321", "unsolicited=RING", "split=9,gap=0"});
    EXPECT_EQ(CountLines(RunOnHandset({"sms", "raw-list", "--memory", "SM"}).output), used("SM").size());
}

TEST_F(Tarnctl, RawListGoesOnAfterABadLocation) {
    const size_t used =
        handset.With([](simulator::HandsetContent& content) { return content.simMessages.items.size(); });
    handset.SetFaults({"error=+CMGR=2:500"});
    const auto output = RunOnHandset({"sms", "raw-list", "--memory", "SM"});
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_NE(output.errors.find("SM 2: the handset answered +CMS ERROR: 500"), std::string::npos)
        << output.errors;
    EXPECT_LT(CountLines(output.output), used);
    EXPECT_GT(CountLines(output.output), used / 2);
}

TEST_F(Tarnctl, NoLink) {
    const auto missing = Run({"--port", "/dev/no-such-port", "ping"});
    EXPECT_EQ(missing.exitCode, 3);
    EXPECT_NE(missing.errors.find("/dev/no-such-port"), std::string::npos);
    EXPECT_EQ(CountLines(missing.errors), 1u);
    EXPECT_EQ(Run({"--port", "COM99", "ping"}).exitCode, 3);
    EXPECT_EQ(Run({"--port", "/dev/null", "ping"}).exitCode, 3);

    handset.SetFaults({"silent-after=0"});
    const auto silent = RunOnHandset({"ping"});
    EXPECT_EQ(silent.exitCode, 3);
    EXPECT_EQ(CountLines(silent.errors), 1u);
    handset.SetFaults({});
    EXPECT_EQ(RunOnHandset({"ping"}).exitCode, 0) << "the next one works when the handset is back";
}

TEST_F(Tarnctl, APortHasOneUser) {
    handset.Script("AT+MUTE", "");
    auto first = Process::Start(TARNCTL, {"--port", handset.Path(), "at", "AT+MUTE", "--timeout", "0"});
    ASSERT_TRUE(first);
    ASSERT_TRUE(handset.AwaitCommand("AT+MUTE"));
    const auto second = RunOnHandset({"ping"});
    EXPECT_EQ(second.exitCode, 3);
    EXPECT_NE(second.errors.find("in use by tarnctl (process " + std::to_string(first->Id())),
              std::string::npos)
        << second.errors;
    // Cancelling breaks the wait off and still hands the handset back.
    handset.ForgetCommands();
    first->Terminate();
    EXPECT_EQ(first->Wait(20s), 1);
    EXPECT_EQ(handset.Commands(), (std::vector<std::string>{"AT+CMEE?", "ATE1", "AT+ESLP=1"}));
    EXPECT_EQ(RunOnHandset({"ping"}).exitCode, 0) << "the lock is free";
}

TEST_F(Tarnctl, OutputThatNobodyGetsIsAFailureAndTheHandsetIsHandedBack) {
    // A pipe whose reader has gone, and a full disk.
    const std::string lostPipe =
        "mkfifo \"$2\" && exec 3<>\"$2\" 4>\"$2\" 3<&- && exec \"$0\" --port \"$1\" sms raw-list "
        "--memory ME >&4";
    const std::string fullDisk = "exec \"$0\" --port \"$1\" sms raw-list --memory ME > /dev/full";
    for (const std::string& command : {lostPipe, fullDisk}) {
        handset.ForgetCommands();
        const auto output =
            RunProcess("bash", {"-c", command, TARNCTL, handset.Path(), (folder / "pipe").string()}, "", 60s);
        ASSERT_TRUE(output);
        EXPECT_EQ(output->exitCode, 1) << command;
        EXPECT_EQ(handset.Commands().back(), "AT+ESLP=1") << command;
    }
    const auto offline = RunProcess("bash", {"-c", "\"$0\" text to-hex a > /dev/full", TARNCTL}, "", 60s);
    EXPECT_EQ(offline->exitCode, 1);
}

TEST_F(Tarnctl, TraceShowsOneExchangeALine) {
    const auto output = RunOnHandset({"--trace", "--json", "ping"});
    EXPECT_EQ(output.exitCode, 0);
    EXPECT_NE(output.errors.find("> AT\\r < \\r\\nOK\\r\\n\n"), std::string::npos) << output.errors;
    EXPECT_EQ(Records(output.output).size(), 1u);
}

TEST_F(Tarnctl, Text) {
    EXPECT_EQ(Run({"text", "to-hex", "Añ"}).output, "004100F1\n");
    EXPECT_EQ(Run({"text", "to-hex", "--little-endian", "A"}).output, "4100\n");
    EXPECT_EQ(Run({"text", "from-hex", "004100F1"}).output, "Añ\n");
    EXPECT_EQ(Run({"--json", "text", "pack", "Añb"}).output, "{\"hex\":\"81030141F162\",\"length\":6}\n");
    const auto mixed = Run({"text", "from-hex"}, "0041\n004a\n0042\n");
    EXPECT_EQ(mixed.exitCode, 1);
    EXPECT_EQ(mixed.output, "A\nB\n") << "one bad line doesn't stop the rest";
    EXPECT_EQ(CountLines(mixed.errors), 1u);
    EXPECT_EQ(Run({"text", "pack", "Abc"}).exitCode, 1);
}

}  // namespace
}  // namespace tarnbridge
