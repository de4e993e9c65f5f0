#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/posix/FileDescriptor.h"
#include "simulator/Dialogue.h"
#include "simulator/HandsetServer.h"
#include "support/VirtualHandset.h"

namespace tarnbridge::simulator {
namespace {

namespace fs = std::filesystem;

constexpr int patience = 10'000;

/// A PC that opens the device and knows nothing of lines.
class Terminal {
public:
    explicit Terminal(const std::string& path)
        : device_(::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {}

    bool IsOpen() const { return static_cast<bool>(device_); }
    int Descriptor() const { return device_.Get(); }

    void Write(const std::string& bytes) {
        ASSERT_EQ(::write(device_.Get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    /// Reads until `end` has come or the device is gone.
    std::string Until(const std::string& end) {
        std::string heard;
        while (!heard.ends_with(end)) {
            pollfd polled{device_.Get(), POLLIN, 0};
            if (::poll(&polled, 1, patience) != 1) return heard + "<time-out>";
            char buffer[4096];
            const ssize_t count = ::read(device_.Get(), buffer, sizeof buffer);
            if (count <= 0) return heard + "<gone>";
            heard.append(buffer, static_cast<size_t>(count));
        }
        return heard;
    }

    std::string Ask(const std::string& command) {
        Write(command + "\r");
        return Until(ok);
    }

private:
    FileDescriptor device_;
};

TEST(Server, AnswersOnItsDevice) {
    test::VirtualHandset handset;
    Terminal terminal(handset.Path());
    ASSERT_TRUE(terminal.IsOpen());
    EXPECT_EQ(terminal.Ask("AT"), std::string("AT\r") + ok);
    terminal.Ask("ATE0");
    for (int i = 0; i < 500; ++i) {
        ASSERT_EQ(terminal.Ask("AT"), ok);
    }
    EXPECT_EQ(handset.Count("AT"), 501u);
    handset.Say(Line("RING"));
    EXPECT_EQ(terminal.Until("RING\r\n"), Line("RING"));
}

TEST(Server, CarriesLongScriptsWhole) {
    test::VirtualHandset handset;
    std::string reply;
    for (int i = 0; i < 20'000; ++i) {
        reply += Line("+X: " + std::to_string(i) + std::string(90, '.'));
    }
    handset.Script("AT+X", reply + ok);
    handset.Script("AT+SILENT", "");
    Terminal terminal(handset.Path());
    terminal.Ask("ATE0");
    terminal.Write("AT+SILENT\r");
    EXPECT_TRUE(handset.AwaitCommand("AT+SILENT"));
    EXPECT_EQ(terminal.Ask("AT+X"), reply + ok);
}

TEST(Server, LeavesNothingToTheNextUser) {
    test::VirtualHandset handset;
    {
        Terminal first(handset.Path());
        ::ioctl(first.Descriptor(), TIOCEXCL);
        first.Ask("ATE0");
        first.Write("AT+CGMI\r");
        pollfd polled{first.Descriptor(), POLLIN, 0};
        ASSERT_EQ(::poll(&polled, 1, patience), 1) << "the reply is there, and nobody takes it";
    }
    Terminal second(handset.Path());
    ASSERT_TRUE(second.IsOpen());
    int left = 1;
    for (int i = 0; i < patience / 10 && left != 0; ++i) {
        ASSERT_EQ(::ioctl(second.Descriptor(), FIONREAD, &left), 0);
        if (left != 0) ::usleep(10'000);
    }
    EXPECT_EQ(second.Ask("AT"), ok);
}

TEST(Server, KeepsItsPromptWhenThePcIsGone) {
    test::VirtualHandset handset;
    {
        Terminal first(handset.Path());
        first.Ask("ATE0");
        first.Write("AT+CMGW=18,2\r");
        EXPECT_EQ(first.Until("> "), "\r\n> ");
    }
    Terminal second(handset.Path());
    second.Write("AT\r\x1b");
    EXPECT_EQ(second.Until(ok), ok) << "that was a body, and Escape has ended it";
    EXPECT_EQ(second.Ask("AT"), ok);
}

TEST(Server, ComesBackBehindTheSameLink) {
    test::VirtualHandset handset;
    for (int i = 0; i < 20; ++i) {
        Terminal terminal(handset.Path());
        ASSERT_TRUE(terminal.IsOpen());
        EXPECT_EQ(terminal.Ask("ATE0"), std::string("ATE0\r") + ok) << "a new session echoes";
        handset.Unplug();
        EXPECT_FALSE(fs::exists(fs::symlink_status(handset.Path())));
        EXPECT_EQ(terminal.Until("x"), "<gone>");
        handset.Plug();
    }
}

TEST(Server, UnplugsByItselfInTheMiddleOfAReply) {
    test::VirtualHandset handset({.faults = {"unplug-after=1,bytes=5,for=20"}});
    Terminal terminal(handset.Path());
    terminal.Ask("ATE0");
    terminal.Write("AT+CSQ\r");
    const std::string heard = terminal.Until("x");
    EXPECT_TRUE(heard == "\r\n+CS<gone>" || heard == "<gone>") << heard;
    for (int i = 0; i < patience / 10 && !fs::exists(handset.Path()); ++i) {
        ::usleep(10'000);
    }
    EXPECT_EQ(Terminal(handset.Path()).Ask("ATE0"), std::string("ATE0\r") + ok);
}

TEST(Server, PacesAndSplits) {
    test::VirtualHandset handset({.demo = true, .faults = {"split=3,gap=0"}, .baud = 460'800});
    Terminal terminal(handset.Path());
    terminal.Ask("ATE0");
    EXPECT_EQ(terminal.Ask("AT+CPMS=\"MT\"").substr(0, 8), "\r\n+CPMS:");
    EXPECT_NE(terminal.Ask("AT+CMGL=4").find("+CMGL: 70,5,,"), std::string::npos);
    handset.SetFaults({"silent-after=0"});
    terminal.Write("AT\r");
    EXPECT_TRUE(handset.AwaitCommand("AT"));
}

TEST(Server, RefusesAPathThatIsTaken) {
    const test::TemporaryFolder folder;
    ASSERT_TRUE(WriteFileAtomically(folder / "taken", "mine"));
    HandsetServer server(HandsetContent::Empty(), {}, {folder / "taken", {}, {}, 0});
    EXPECT_FALSE(server.Start());
    EXPECT_EQ(*ReadFile(folder / "taken"), "mine");
}

TEST(Server, SavesSoonAfterAChange) {
    const test::TemporaryFolder folder;
    const fs::path state = folder / "state.json";
    HandsetServer server(HandsetContent::Empty(), {}, {folder / "link", state, folder / "log", 0});
    ASSERT_TRUE(server.Start());
    Terminal terminal((folder / "link").string());
    terminal.Ask("AT+CPBW=7,\"5550123\",129,\"Taxi\"");
    bool saved = false;
    for (int i = 0; i < patience / 10 && !saved; ++i) {
        ::usleep(10'000);
        saved = HandsetContent::FromJson(*ReadFile(state))->simContacts.items.contains(7);
    }
    EXPECT_TRUE(saved);
    EXPECT_TRUE(server.Stop());
    EXPECT_NE(ReadFile(folder / "log")->find("> AT+CPBW=7,\"5550123\",129,\"Taxi\"<CR>\n"),
              std::string::npos);
}

/// The program itself.
class Program {
public:
    explicit Program(const std::vector<std::string>& arguments) {
        std::vector<std::string> all{VIRTUAL_HANDSET};
        all.insert(all.end(), arguments.begin(), arguments.end());
        std::vector<char*> pointers;
        for (std::string& argument : all) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) return;
        output_.Reset(ends[0]);
        const FileDescriptor writing(ends[1]);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, writing.Get(), STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, writing.Get(), STDERR_FILENO);
        ::posix_spawn(&process_, VIRTUAL_HANDSET, &actions, nullptr, pointers.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
    }

    std::string Line() {
        std::string line;
        char c = 0;
        while (::read(output_.Get(), &c, 1) == 1 && c != '\n') {
            line += c;
        }
        return line;
    }

    /// The exit code, or -1 if a signal killed it.
    int End(int signal) {
        if (signal != 0) ::kill(process_, signal);
        int status = 0;
        ::waitpid(process_, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    FileDescriptor output_;
    pid_t process_ = 0;
};

TEST(Program, ServesUntilItIsToldToStop) {
    const test::TemporaryFolder folder;
    const std::string link = (folder / "link").string();
    const std::string state = (folder / "state.json").string();
    for (const int signal : {SIGTERM, SIGINT}) {
        Program program({"--link", link, "--state", state, "--seed", "empty"});
        ASSERT_EQ(program.Line(), "virtual-handset: ready at " + link);
        Terminal(link).Ask("AT+CPBW=" + std::to_string(signal) + ",\"5550123\",129,\"Taxi\"");
        EXPECT_EQ(program.End(signal), 0);
        EXPECT_FALSE(fs::exists(fs::symlink_status(link)));
    }
    EXPECT_EQ(HandsetContent::FromJson(*ReadFile(state))->simContacts.items.size(), 2u)
        << "a change just before the end is saved, and the second run began with the first one's state";
}

TEST(Program, KeepsTwoPhonesApart) {
    const test::TemporaryFolder folder;
    const std::string link = (folder / "link").string();
    const fs::path states[] = {folder / "first.json", folder / "second.json"};
    Program program({"--link", link, "--state", states[0].string(), "--other-state", states[1].string(),
                     "--seed", "empty", "--fault", "another-phone=+CPBW=2"});
    ASSERT_EQ(program.Line(), "virtual-handset: ready at " + link);
    Terminal(link).Ask("AT+CPBW=1,\"5550101\",129,\"One\"");
    Terminal(link).Ask("AT+CPBW=2,\"5550102\",129,\"Two\"");
    EXPECT_EQ(program.End(SIGTERM), 0);
    for (const int slot : {1, 2}) {
        const auto items = HandsetContent::FromJson(*ReadFile(states[slot - 1]))->simContacts.items;
        EXPECT_TRUE(items.size() == 1 && items.contains(slot)) << slot;
    }
}

TEST(Program, RefusesClearlyAndSparesTheState) {
    const test::TemporaryFolder folder;
    const std::string link = (folder / "link").string();
    const std::string state = (folder / "state.json").string();
    ASSERT_TRUE(WriteFileAtomically(state, "{\"format\":\"virtual-handset\",\"version\":"));
    Program broken({"--link", link, "--state", state});
    EXPECT_NE(broken.Line().find("is left as it is"), std::string::npos);
    EXPECT_EQ(broken.End(0), 1);
    EXPECT_EQ(*ReadFile(state), "{\"format\":\"virtual-handset\",\"version\":");
    EXPECT_EQ(Program({"--link", link, "--fault", "nonsense"}).End(0), 2);
    EXPECT_EQ(Program({"--seed", "demo"}).End(0), 2);
}

}  // namespace
}  // namespace tarnbridge::simulator
