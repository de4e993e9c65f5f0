#include <QSignalSpy>
#include <fstream>

#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "ui/QtText.h"
#include "ui/Window.h"
#include "ui/frame/FirstInstance.h"

namespace tarnbridge {
namespace {

using Life = test::Window;
namespace fs = std::filesystem;

void Touch(const fs::path& path) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "x";
}

TEST_F(Life, ASecondStartBringsTheFirstWindowToTheFrontAndEnds) {
    Start();
    Frame().showMinimized();
    CTarnbridgeApp second({&user, nullptr});
    EXPECT_FALSE(second.InitInstance());
    EXPECT_TRUE(test::Await([&] { return !Frame().isMinimized() && Frame().isActiveWindow(); }));
    EXPECT_TRUE(user.heard.empty());

    Close();
    CTarnbridgeApp third({&user, nullptr});
    EXPECT_TRUE(third.InitInstance()) << "when the first has ended the next one starts";
}

TEST_F(Life, ASocketThatAKilledInstanceLeftIsInNobodysWay) {
    Touch(RuntimeFolder() / "TarnbridgeClassName.socket");
    Touch(RuntimeFolder() / "TarnbridgeClassName");
    EXPECT_FALSE(FirstInstance::AskToShow());
    Start();
    EXPECT_TRUE(FirstInstance::AskToShow());
}

TEST_F(Life, TheEndSavesAndSweeps) {
    const fs::path data = ProgramFolder();
    Touch(data / "Temp/left.wav");
    Start();
    EXPECT_FALSE(fs::exists(data / "Temp/left.wav"));
    Touch(data / "Temp/made.wav");
    Touch(data / "TempMMSDir_1/inner/picture.jpg");
    Touch(data / "tune.imy");
    Touch(data / "TUNE2.IMY");
    Touch(data / "kept.mid");
    MessageFolder& root = Document().Content().messageRoot;
    root.Child(0)->Child(0)->Append(std::make_unique<SmsRecord>());
    root.Child(1)->Child(0)->Append(std::make_unique<SmsRecord>());
    Document().Save();
    EXPECT_EQ(root.Child(0)->Child(0)->records.size(), 1u) << "a save leaves the mirror as it is";
    Close();

    const auto stored = StoredProfile();
    EXPECT_EQ(stored->messageRoot.Child(0)->Child(0)->records.size(), 0u);
    EXPECT_EQ(stored->messageRoot.Child(1)->Child(0)->records.size(), 1u);
    EXPECT_TRUE(fs::exists(data / "DialUpSetting.ini"));
    std::vector<std::string> left;
    for (const char* name : {"Temp/made.wav", "TempMMSDir_1", "tune.imy", "TUNE2.IMY", "kept.mid", "Temp"}) {
        if (fs::exists(data / name)) left.emplace_back(name);
    }
    EXPECT_EQ(left, (std::vector<std::string>{"kept.mid", "Temp"}));
}

TEST_F(Life, AProfileThatCouldNotBeReadIsKeptAndNamedOnce) {
    Touch(ProgramFolder() / "Tarnbridge.bin");
    Start();
    Document().Save();
    Document().Save();
    Close();
    ASSERT_EQ(user.heard.size(), 1u);
    EXPECT_NE(user.heard[0].find(u".bak"), std::u16string::npos);
    EXPECT_EQ(FindFiles(ProgramFolder(), "Tarnbridge.bin.*.bak").size(), 1u);
}

TEST_F(Life, AProfileInUseEndsTheStartWithAWord) {
    SystemClock clock;
    const auto owner = ProfileFile::Open(ProfileFile::StandardPath(), clock);
    CTarnbridgeApp refused({&user, nullptr});
    EXPECT_FALSE(refused.InitInstance());
    ASSERT_EQ(user.heard.size(), 1u);
    EXPECT_EQ(user.heard[0], Words(Word::ProfileInUse));
}

TEST_F(Life, AFailedSaveIsToldOnceUntilOneSucceeds) {
    Start();
    const fs::path file = ProgramFolder() / "Tarnbridge.bin";
    fs::remove(file);
    fs::create_directory(file);
    Touch(file / "inner");
    EXPECT_FALSE(Document().Save());
    EXPECT_FALSE(Document().Save());
    EXPECT_EQ(user.heard, (std::vector<std::u16string>{Words(Word::ProfileNotSaved)}));
    fs::remove_all(file);
    EXPECT_TRUE(Document().Save());
}

TEST_F(Life, TheOperatorsAreMissedOnceAndNeverLost) {
    ::setenv("XDG_DATA_DIRS", "/nowhere", 1);
    Start();
    EXPECT_EQ(user.heard, (std::vector<std::u16string>{u"Fail to get the ini file."}));
    Close();
    program.reset();
    user.heard.clear();

    const std::string stored =
        "[Setting]\nmax_operator_num = 600\ngroup_num  = 0\nused_group_name = "
        "\"\"\n\n[Groups]\n\n[Operators]\n"
        "operator3 = \"Alpha\"\n\n[Alpha]\napn = \"internet\"\nnumber = \"\"\nusername = \"\"\npassword = "
        "\"\"\nGroupName = \"\"\n";
    std::ofstream(ProgramFolder() / "DialUpSetting.ini") << stored;
    Start();
    Close();
    EXPECT_EQ(*ReadFile(ProgramFolder() / "DialUpSetting.ini"), stored);
    EXPECT_TRUE(user.heard.empty());
}

TEST_F(Life, TheLanguageIsTheFirstThatIsThere) {
    store->SetNumber("Option", "LangID", 0x0407);
    Start();
    EXPECT_EQ(Words(Word::Connected), u"Verbunden!");
    EXPECT_EQ(Document().Content().messageRoot.Child(0)->name, Words(Word::MessageHandsetFolder));
    Close();
    program.reset();

    store->SetNumber("Option", "LangID", 0x0999);
    ::setenv("LC_ALL", "C", 1);
    Start();
    EXPECT_EQ(store->GetNumber("Option", "LangID"), 1033) << "the one that worked replaces the stored one";
    EXPECT_EQ(Words(Word::Connected), u"Connected!");
    Close();
    program.reset();

    // What an installer asks for holds for one start.
    std::ofstream(ProgramFolder() / "DefTarnbridge.ini") << "[x]\ndef_lang = 407\ndef_group_name = \"A B\"\n";
    Start();
    EXPECT_EQ(store->GetNumber("Option", "LangID"), 0x0407);
    EXPECT_FALSE(fs::exists(ProgramFolder() / "DefTarnbridge.ini"));
    Close();
    EXPECT_NE(ReadFile(ProgramFolder() / "DialUpSetting.ini")->find("used_group_name = \"A B\""),
              std::string::npos);
}

TEST_F(Life, ARestartWaitsForTheEndOfTheFirst) {
    bool started = false;
    startAgain = [&] {
        started = true;
        EXPECT_FALSE(LockFile::Take(RuntimeFolder() / "TarnbridgeClassName_RESET", Milliseconds(0)));
        EXPECT_TRUE(fs::exists(ProgramFolder() / "Tarnbridge.bin")) << "saved before the new one starts";
        return true;
    };
    Start();
    QSignalSpy closed(program.get(), &CTarnbridgeApp::closed);
    Q_EMIT Frame().restartWanted();
    ASSERT_TRUE(test::Await([&] { return !closed.isEmpty(); }));
    EXPECT_TRUE(started);
    program->ExitInstance();
    InstanceGuard next(RuntimeFolder(), Milliseconds(0));
    EXPECT_TRUE(next.Enter()) << "with nothing to wait for";
}

}  // namespace
}  // namespace tarnbridge
