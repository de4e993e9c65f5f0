// The settings commands, and what --model makes of the port.

#include <map>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include "platform/FileEntryStore.h"
#include "platform/Files.h"
#include "support/VirtualHandset.h"
#include "tarnctl/TarnctlFixture.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

class TarnctlSettings : public TarnctlFixture {
protected:
    TarnctlSettings() {
        EXPECT_TRUE(WriteFileAtomically(folder / "data" / "tarnbridge" / "Tarnbridge.ini",
                                        "[Slow]\nbaudrate = 9600\nflowcontrol = software\n"
                                        "[Quick]\nbaudrate = 57600\nflowcontrol = noflowcontrol\n"));
    }
};

TEST_F(TarnctlSettings, Models) {
    const auto known = Run({"settings", "models"});
    EXPECT_EQ(known.exitCode, 0) << known.errors;
    EXPECT_EQ(known.output, "Quick         57600 none     128x128\nSlow           9600 software 128x128\n");

    const std::string file = (folder / "models.ini").string();
    ASSERT_TRUE(WriteFileAtomically(file, "[K]\nphonemodel = \xC4\nmms = true\nlcd_height = 160\n"));
    const auto output = Run({"--json", "settings", "models", file});
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    EXPECT_EQ(Json::parse(output.output), Json({{"key", "K"},
                                                {"phoneModel", "Ä"},
                                                {"baudRate", 115200},
                                                {"flowControl", "hardware"},
                                                {"hasMms", true},
                                                {"hasFileManager", false},
                                                {"lcdWidth", 128},
                                                {"lcdHeight", 160}}));
    EXPECT_EQ(Run({"settings", "models", file + "x"}).exitCode, 1);
    EXPECT_EQ(Run({"settings"}).exitCode, 2);
}

TEST_F(TarnctlSettings, DialUp) {
    const std::string file = (folder / "dialup.ini").string();
    ASSERT_TRUE(WriteFileAtomically(file,
                                    "[Setting]\ngroup_num = 1\n[Groups]\ngroup0 = \"North\"\n[Operators]\n"
                                    "operator7 = \"Alpha\"\n[alpha]\napn = net\npassword = \"secret\"\n"));
    const auto output = Run({"--json", "settings", "dialup", file});
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    std::istringstream lines(output.output);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(Json::parse(line),
              Json({{"record", "groups"}, {"usedGroupName", "North"}, {"groupNames", {"North"}}}));
    std::getline(lines, line);
    EXPECT_EQ(Json::parse(line), Json({{"record", "operator"},
                                       {"number", 7},
                                       {"name", "Alpha"},
                                       {"apn", "net"},
                                       {"dialNumber", ""},
                                       {"username", ""},
                                       {"password", "secret"},
                                       {"groupName", ""}}));
    EXPECT_FALSE(std::getline(lines, line));

    const auto words = Run({"settings", "dialup", file});
    EXPECT_NE(words.output.find("group North (in use)"), std::string::npos);
    EXPECT_NE(words.output.find("Alpha"), std::string::npos);
    EXPECT_EQ(words.output.find("secret"), std::string::npos) << "not on everyone's screen";
    EXPECT_EQ(Run({"settings", "dialup"}).exitCode, 2);
}

/// How a terminal stands, such as "9600 software".
std::string SpeedOf(int descriptor) {
    termios line{};
    EXPECT_EQ(::tcgetattr(descriptor, &line), 0);
    const std::map<speed_t, std::string> rates = {
        {B9600, "9600"}, {B19200, "19200"}, {B38400, "38400"}, {B57600, "57600"}, {B115200, "115200"}};
    const auto rate = rates.find(::cfgetospeed(&line));
    return (rate == rates.end() ? "other" : rate->second) + (line.c_cflag & CRTSCTS ? " hardware"
                                                             : line.c_iflag & IXON  ? " software"
                                                                                    : " none");
}

TEST_F(TarnctlSettings, ThePortIsOpenedAsTheModelSays) {
    test::VirtualHandset handset{{.demo = false, .faults = {}, .baud = 0}};
    FileEntryStore store(folder / "config" / "Corvanta" / "Tarnbridge.conf");
    ASSERT_TRUE(store.SetText("Option", "Phone", u"SLOW"));
    handset.Script("AT+SILENT", "");
    // Opened before the program takes it for itself, and put back by it at its end.
    const int terminal = ::open(handset.Path().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(terminal, 0);
    const std::pair<std::vector<std::string>, std::string> rows[] = {
        {{}, "9600 software"},
        {{"--model", "quick"}, "57600 none"},
        {{"--model", "quick", "--flow", "hardware"}, "57600 hardware"},
        {{"--model", "Slow", "--baud", "38400"}, "38400 software"},
        {{"--baud", "19200"}, "19200 none"},
        {{"--flow", "software"}, "115200 software"},
    };
    for (const auto& [options, expected] : rows) {
        std::vector<std::string> arguments = options;
        for (const std::string& next :
             {std::string("--port"), handset.Path(), std::string("at"), std::string("--timeout"),
              std::string("500"), std::string("AT+SILENT")})
            arguments.push_back(next);
        handset.ForgetCommands();
        std::thread run([&] { EXPECT_EQ(Run(arguments).exitCode, 1) << "no answer"; });
        EXPECT_TRUE(handset.AwaitCommand("AT+SILENT"));
        EXPECT_EQ(SpeedOf(terminal), expected);
        run.join();
    }
    ::close(terminal);

    const auto unknown = Run({"--model", "Nokey", "--port", handset.Path(), "ping"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_NE(unknown.errors.find("'Nokey'"), std::string::npos);
}

}  // namespace
}  // namespace tarnbridge
