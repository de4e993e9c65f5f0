#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/ProgramFolder.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

TEST(Process, ArgumentsReachTheProgramAsTheyAre) {
    const auto result = RunProcess("printf", {"%s|", "a b", "$HOME", "'\"", "*"}, "", 10s);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->output, "a b|$HOME|'\"|*|");
    EXPECT_EQ(result->exitCode, 0);
}

TEST(Process, StreamsBeyondAPipesRoom) {
    const std::string much(300'000, 'x');
    const auto copied = RunProcess("cat", {}, much, 10s);
    ASSERT_TRUE(copied);
    EXPECT_EQ(copied->output, much);
    const auto unread = RunProcess("true", {}, much, 10s);
    ASSERT_TRUE(unread) << "a program that doesn't read its input";
    EXPECT_EQ(unread->exitCode, 0);
}

TEST(Process, Ends) {
    EXPECT_EQ(RunProcess("sh", {"-c", "echo oops >&2; exit 3"}, "", 10s)->exitCode, 3);
    EXPECT_EQ(RunProcess("sh", {"-c", "echo oops >&2; exit 3"}, "", 10s)->errors, "oops\n");
    EXPECT_EQ(RunProcess("sh", {"-c", "kill -9 $$"}, "", 10s)->exitCode, 128 + 9);
    EXPECT_FALSE(RunProcess("no-such-program-here", {}, "", 10s));
    EXPECT_FALSE(RunProcess("sleep", {"60"}, "", 20ms));

    auto sleeper = Process::Start("sleep", {"60"});
    ASSERT_TRUE(sleeper);
    EXPECT_EQ(sleeper->Wait(1ms), std::nullopt);
    sleeper->Terminate();
    EXPECT_EQ(sleeper->Wait(10s), 128 + 15);
    EXPECT_EQ(sleeper->Wait(0ms), 128 + 15) << "asked again";
}

TEST(ProgramFolder, FollowsTheUsersFolders) {
    const test::TemporaryFolder folder;
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    setenv("XDG_CONFIG_HOME", "relative", 1);
    setenv("XDG_DATA_DIRS", (folder / "none").string().append(":").append(folder / "system").c_str(), 1);
    setenv("HOME", folder.Path().c_str(), 1);
    EXPECT_EQ(ProgramFolder(), folder / "data" / "tarnbridge");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "data" / "tarnbridge"));
    EXPECT_EQ(ConfigurationFolder(), folder / ".config") << "a relative path is ignored";

    EXPECT_EQ(FindData("Test.ini"), std::nullopt);
    WriteFileAtomically(folder / "system" / "tarnbridge" / "Test.ini", "system");
    EXPECT_EQ(FindData("Test.ini"), folder / "system" / "tarnbridge" / "Test.ini");
    WriteFileAtomically(folder / "data" / "tarnbridge" / "Test.ini", "own");
    EXPECT_EQ(FindData("Test.ini"), folder / "data" / "tarnbridge" / "Test.ini")
        << "the user's own comes first";

    EXPECT_TRUE(FindHelper("sh"));
    EXPECT_EQ(FindHelper("no-such-program-here"), std::nullopt);
    WriteFileAtomically(folder / "data" / "tarnbridge" / "sh", "not executable");
    EXPECT_NE(FindHelper("sh")->parent_path(), folder / "data" / "tarnbridge");
}

}  // namespace
}  // namespace tarnbridge
