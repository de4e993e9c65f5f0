#include <gtest/gtest.h>

#include "platform/Files.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

TEST(Files, AtomicWriteReplacesAndKeepsPermissions) {
    const test::TemporaryFolder folder;
    const fs::path path = folder / "new folder" / "a file";
    ASSERT_TRUE(WriteFileAtomically(path, "one"));
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(WriteFileAtomically(path, std::string("t\0wo", 4)));
    EXPECT_EQ(*ReadFile(path), std::string("t\0wo", 4));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(FindFiles(path.parent_path(), "*").size(), 1u);
}

TEST(Files, AtomicWriteFollowsASymbolicLink) {
    const test::TemporaryFolder folder;
    ASSERT_TRUE(WriteFileAtomically(folder / "target", "one"));
    fs::create_symlink(folder / "target", folder / "link");
    ASSERT_TRUE(WriteFileAtomically(folder / "link", "two"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(*ReadFile(folder / "target"), "two");
}

TEST(Files, FailedWriteLeavesTheOldAndNothingElse) {
    const test::TemporaryFolder folder;
    fs::create_directories(folder / "taken" / "inside");
    const Outcome outcome = WriteFileAtomically(folder / "taken", "x");
    ASSERT_FALSE(outcome);
    EXPECT_NE(outcome.Failure().text.find("taken"), std::string::npos);
    EXPECT_EQ(FindFiles(folder.Path(), "*").size(), 1u);
    EXPECT_TRUE(fs::is_directory(folder / "taken" / "inside"));
}

TEST(Files, ReadRefusesMissingAndTooLarge) {
    const test::TemporaryFolder folder;
    EXPECT_FALSE(ReadFile(folder / "missing"));
    ASSERT_TRUE(WriteFileAtomically(folder / "five", "12345"));
    EXPECT_FALSE(ReadFile(folder / "five", 4));
    EXPECT_EQ(*ReadFile(folder / "five", 5), "12345");
}

TEST(Files, Patterns) {
    EXPECT_TRUE(MatchesPattern("Temp.vcf", "*.vcf"));
    EXPECT_TRUE(MatchesPattern("abcabd", "*ab?"));
    EXPECT_TRUE(MatchesPattern("", "**"));
    EXPECT_FALSE(MatchesPattern("a", ""));
    EXPECT_FALSE(MatchesPattern("ab", "?"));
}

}  // namespace
}  // namespace tarnbridge
