#include <cstdlib>

#include <gtest/gtest.h>
#include <unistd.h>

#include "core/base/DialUpSettings.h"
#include "core/base/FirstStartSettings.h"
#include "platform/FileEntryStore.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

class FirstStart : public ::testing::Test {
protected:
    FirstStart() {
        setenv("XDG_DATA_HOME", (folder / "own").c_str(), 1);
        setenv("XDG_DATA_DIRS", (folder / "shared").c_str(), 1);
    }

    const test::TemporaryFolder folder;
};

TEST(DialUpSettings, TheFileByteForByte) {
    const DialUpSettings settings = {u"Gröup A",
                                     {u"Gröup A", u""},
                                     {{7, u"Alpha", u"internet", u"*99#", u"", u"sécret", u"Gröup A"},
                                      {3, u"Beta", u"", u"", u"u", u"", u""}}};
    const std::string content =
        "[Setting]\n"
        "max_operator_num = 600\n"
        "group_num  = 2\n"
        "used_group_name = \"Gr\xF6up A\"\n"
        "\n"
        "[Groups]\n"
        "group0 = \"Gr\xF6up A\"\n"
        "group1 = \"\"\n"
        "\n"
        "[Operators]\n"
        "operator7 = \"Alpha\"\n"
        "operator3 = \"Beta\"\n"
        "\n"
        "[Alpha]\n"
        "apn = \"internet\"\n"
        "number = \"*99#\"\n"
        "username = \"\"\n"
        "password = \"s\xE9"
        "cret\"\n"
        "GroupName = \"Gr\xF6up A\"\n"
        "\n"
        "[Beta]\n"
        "apn = \"\"\n"
        "number = \"\"\n"
        "username = \"u\"\n"
        "password = \"\"\n"
        "GroupName = \"\"\n";
    EXPECT_EQ(WriteDialUpSettings(settings), content);
    DialUpSettings sorted = settings;
    std::swap(sorted.operators[0], sorted.operators[1]);
    EXPECT_EQ(ReadDialUpSettings(content), sorted) << "read in the order of the numbers";
}

TEST(DialUpSettings, TextsThatCouldBreakTheFileComeBack) {
    DialUpSettings settings;
    settings.usedGroupName = u" of blanks ";
    settings.operators = {{0, u"a]b = [c", u"\"quoted\"", u"x=y;z", u" ", u"\"", u"[Setting]"}};
    EXPECT_EQ(ReadDialUpSettings(WriteDialUpSettings(settings)), settings);
    settings.operators[0].apn = u"one\r\n[Setting]";
    EXPECT_EQ(ReadDialUpSettings(WriteDialUpSettings(settings)).operators[0].apn, u"one  [Setting]");
}

TEST(DialUpSettings, TheGrammarOfPrivateProfiles) {
    const DialUpSettings settings = ReadDialUpSettings(
        "used_group_name = before any section\r\n"
        "  [SETTING] \r\n"
        "; MAX_OPERATOR_NUM = 0\r\n"
        "\tGroup_Num=2 of them\r\n"
        "USED_GROUP_NAME = unquoted and long \r\n"
        "used_group_name = second\r\n"
        "[Groups]\r\n"
        "group1=\"B\"\r\n"
        "group2=\"C\"\r\n"
        "[Setting]\r\n"
        "max_operator_num = 1\r\n"
        "[operators]\n"
        "OPERATOR12 = \"One\"\n"
        "operator2 = \"\"\n"
        "operator03 = Never\n"
        "operator-4 = Never\n"
        "operator499 = Last\n"
        "operator500 = Never\n"
        "[oNE]\n"
        "apn = \"'net'\n"
        "NUMBER = 'x'\n");
    EXPECT_EQ(settings.usedGroupName, u"unquoted and long");
    EXPECT_EQ(settings.groupNames, (std::vector<std::u16string>{u"", u"B"})) << "an empty name counts";
    ASSERT_EQ(settings.operators.size(), 2u) << "500 are tried; an empty one is left out";
    EXPECT_EQ(settings.operators[0], (OperatorRecord{12, u"One", u"\"'net'", u"'x'", u"", u"", u""}));
    EXPECT_EQ(settings.operators[1], (OperatorRecord{499, u"Last", u"", u"", u"", u"", u""}));
}

TEST(DialUpSettings, TheGroupInUse) {
    const auto used = [](const std::string& lines) {
        return ReadDialUpSettings("[Setting]\n" + lines + "[Groups]\ngroup0=First\n").usedGroupName;
    };
    EXPECT_EQ(used("group_num=1\n"), u"First");
    EXPECT_EQ(used("group_num=1\nused_group_name=Unknown\n"), u"Unknown");
    EXPECT_EQ(used(""), u"") << "no group is read";
}

TEST(DialUpSettings, CountsThatTheFileOnlyClaims) {
    const DialUpSettings settings = ReadDialUpSettings(
        "[Setting]\nmax_operator_num=2147483647\ngroup_num=2147483647\n[Operators]\noperator2147483646=X\n"
        "operator2147483647=Y\noperator99999999999=Z\n");
    ASSERT_EQ(settings.operators.size(), 1u);
    EXPECT_EQ(settings.operators[0].number, 2147483646);
    EXPECT_EQ(settings.groupNames.size(), 1'000u);
    EXPECT_EQ(ReadDialUpSettings("[Setting]\nmax_operator_num=-1\ngroup_num=-1\n[Operators]\noperator0=X\n"),
              DialUpSettings());
}

TEST(FirstStartSettings, ReadsLanguageAndGroup) {
    const FirstStartSettings settings = ReadFirstStartSettings(
        "[any]\r\ndef_lang = 040c\r\ndef_group_name = \"Group of many words\" rest\r\n[def_lang = 1]\r\n");
    EXPECT_EQ(settings.languageId, 0x40C);
    EXPECT_EQ(settings.usedGroupName, u"Group of many words");
    EXPECT_EQ(ReadFirstStartSettings("def_lang = 0x409\n").languageId, 0x409);

    const std::pair<std::string, std::optional<std::u16string>> groups[] = {
        {"def_group_name = Plain words\n", u"Plain"},
        {"def_group_name = Plain \"words\"\n", u"Plain"},
        {"def_group_name = \"open end\r\n", u"open end"},
        {"def_group_name = \"\"\n", u""},
        {"def_group_name =\n", std::nullopt},
        {"def_group_name=\"X\"\n", std::nullopt},
        {"Def_Group_Name = X\n", std::nullopt},
    };
    for (const auto& [line, group] : groups)
        EXPECT_EQ(ReadFirstStartSettings(line).usedGroupName, group) << line;
    for (const char* lang :
         {"def_lang = xyz\n", "def_lang = 123456789\n", "def_lang = FFFFFFFF\n", "def_lang=409\n"})
        EXPECT_FALSE(ReadFirstStartSettings(lang).languageId) << lang;
}

/// Root may delete anything, so for a while it isn't root who runs the test.
class AsOrdinaryUser {
public:
    AsOrdinaryUser() { EXPECT_TRUE(!wasRoot_ || seteuid(65534) == 0); }
    ~AsOrdinaryUser() { EXPECT_TRUE(!wasRoot_ || seteuid(0) == 0); }

private:
    const bool wasRoot_ = geteuid() == 0;
};

TEST_F(FirstStart, OneThatCannotBeDeletedIsRememberedAsRead) {
    const auto shared = folder / "shared" / "tarnbridge";
    ASSERT_TRUE(WriteFileAtomically(shared / "DefTarnbridge.ini", "def_lang = 404\n"));
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
    std::filesystem::permissions(shared, std::filesystem::perms(0555));
    {
        const AsOrdinaryUser user;
        FileEntryStore store(folder / "settings.conf");
        EXPECT_EQ(TakeFirstStartSettings(store).languageId, 0x404);
        EXPECT_TRUE(std::filesystem::exists(shared / "DefTarnbridge.ini"));
        EXPECT_FALSE(TakeFirstStartSettings(store).languageId);
    }
    std::filesystem::permissions(shared, std::filesystem::perms::all);
}

}  // namespace
}  // namespace tarnbridge
