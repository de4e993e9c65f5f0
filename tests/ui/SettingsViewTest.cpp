#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "core/base/StringTable.h"
#include "platform/PortMap.h"
#include "platform/Text.h"
#include "ui/Window.h"
#include "ui/settings/CSettingsFormView.h"
#include "ui/settings/PortListModel.h"

namespace tarnbridge {
namespace {

class SettingsView : public test::Window {
protected:
    void Open() {
        store->SetNumber("Option", "Select", 2);
        Start();
    }

    CSettingsFormView& Form() { return static_cast<CSettingsFormView&>(*Frame().ActiveForm()); }

    void ShowPage(int place) { Form().PageActions()[place]->trigger(); }
};

TEST_F(SettingsView, TheChoicesForMessagesAreStoredAtOnce) {
    Open();
    ShowPage(1);
    for (const char* const standard : {"longSmsOn", "automatic", "memoryPhone"})
        EXPECT_TRUE(Find<QRadioButton>(QLatin1String(standard)).isChecked()) << standard;
    Find<QRadioButton>(QStringLiteral("sevenBit")).click();
    EXPECT_TRUE(Document().SevenBit());
    Find<QRadioButton>(QStringLiteral("longSmsOff")).click();
    EXPECT_EQ(store->GetText("LongSms", "Sms"), u"FALSE");
    Find<QRadioButton>(QStringLiteral("memorySim")).click();
    EXPECT_EQ(store->GetText("Memory", "Sms"), u"SM");
}

TEST_F(SettingsView, ThePortListFollowsThePlug) {
    test::VirtualHandset handset;
    const int number = PortMap(*store).NumberOf(handset.Path());
    Open();
    auto& ports = Find<QComboBox>(QStringLiteral("port"));
    const auto listed = [&] { return ports.findData(number, PortListModel::NumberRole) >= 0; };
    EXPECT_TRUE(listed());
    handset.Unplug();
    EXPECT_TRUE(test::Await([&] { return !listed(); }));
    handset.Plug();
    EXPECT_TRUE(test::Await(listed));
    EXPECT_TRUE(ports.currentText().contains(QStringLiteral("not plugged in"))) << "the one in use stays";
}

TEST_F(SettingsView, ADeviceThatTheUserNamesGetsANumberAndIsUsed) {
    const test::VirtualHandset handset;
    Open();
    auto& button = Find<QPushButton>(QStringLiteral("otherDevice"));
    user.texts = {u"/dev/no-such-device", std::nullopt, Utf8ToText(handset.Path())};
    button.click();
    EXPECT_EQ(user.heard.size(), 2u) << "asked, and told that there is none";
    button.click();
    EXPECT_EQ(user.heard.size(), 3u);
    button.click();
    EXPECT_TRUE(AwaitWords(QStringLiteral("Connected!")));
    const auto number = store->GetNumber("Option", "Port");
    ASSERT_TRUE(number);
    EXPECT_EQ(PortMap(*store).DeviceOf(*number), handset.Path());
}

TEST_F(SettingsView, AnotherLanguageIsStoredAndTheRestartIsTheUsersChoice) {
    startAgain = [] { return false; };
    Open();
    QSignalSpy restart(&Frame(), &CMainFrame::restartWanted);
    auto& languages = Find<QComboBox>(QStringLiteral("language"));
    EXPECT_EQ(languages.currentText(), QStringLiteral("English"));
    QStringList names;
    for (int i = 0; i < languages.count(); ++i)
        names << languages.itemText(i);
    EXPECT_EQ(names, QStringList({"English", "Deutsch"}));

    user.answers = {Answer::No, Answer::Yes};
    for (const int row : {0, 1, 0}) {
        languages.setCurrentIndex(row);
        Q_EMIT languages.activated(row);
        EXPECT_EQ(store->GetNumber("Option", "LangID"), row == 0 ? 1033 : 0x0407);
    }
    EXPECT_EQ(restart.size(), 1);
    EXPECT_EQ(user.heard[0], Words(Word::RestartNow));
}

}  // namespace
}  // namespace tarnbridge
