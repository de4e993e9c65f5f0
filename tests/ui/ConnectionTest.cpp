#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>
#include <chrono>

#include "platform/PortMap.h"
#include "ui/Window.h"
#include "ui/settings/PortListModel.h"

namespace tarnbridge {
namespace {

const QString connected = QStringLiteral("Connected!");
const QString disconnected = QStringLiteral("Disconnected!");
constexpr qint64 soon = 4000;  // milliseconds

class Connection : public test::Window {
protected:
    Connection() { UsePort(handset.Path()); }
    ~Connection() override { program.reset(); }

    test::VirtualHandset handset;
};

TEST_F(Connection, FollowsThePlugAndComesBackByItself) {
    Start();
    EXPECT_EQ(ConnectionWords(), disconnected);
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(AwaitWords(connected));
    EXPECT_LT(time.elapsed(), soon);

    for (int round = 0; round < 2; ++round) {
        time.start();
        handset.Unplug();
        ASSERT_TRUE(AwaitWords(disconnected));
        EXPECT_LT(time.elapsed(), soon);
        // The port is closed by then or soon after, without which the plug would be in use.
        ASSERT_TRUE(test::Await([&] { return !Document().Link().IsPortOpen(); }));

        handset.ForgetCommands();
        time.start();
        handset.Plug();
        ASSERT_TRUE(AwaitWords(connected));
        EXPECT_LT(time.elapsed(), soon);
        EXPECT_EQ(handset.Count("AT+CMGF=0"), 1u) << "one handshake";
    }
    EXPECT_TRUE(user.heard.size() == 0) << "nothing to be clicked away";
}

TEST_F(Connection, TheWindowStaysAliveWhileASilentHandsetIsGivenUp) {
    handset.SetFaults({"silent-after=0"});
    Start();
    ASSERT_TRUE(test::Await([&] { return handset.Count("AT+ESUO?") > 0; }));
    // What the event loop does meanwhile, and how long it stood still at the longest.
    QElapsedTimer sinceLast;
    sinceLast.start();
    qint64 longest = 0;
    int rounds = 0;
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
        longest = std::max(longest, sinceLast.restart());
        ++rounds;
    });
    beat.start(5);
    ASSERT_TRUE(test::Await([&] { return rounds >= 200; }));
    EXPECT_LT(longest, 500);
    EXPECT_EQ(ConnectionWords(), disconnected);
}

TEST_F(Connection, ANewPortInTheSettingsIsUsedAtOnce) {
    const test::VirtualHandset other;
    const int number = PortMap(*store).NumberOf(other.Path());
    Start();
    ASSERT_TRUE(AwaitWords(connected));
    Frame().Choose(2);
    auto& ports = Find<QComboBox>(QStringLiteral("port"));
    ASSERT_GE(ports.findData(number, PortListModel::NumberRole), 0)
        << "a device that is known and there is in the list";
    EXPECT_EQ(ports.currentData(PortListModel::NumberRole).toInt(), store->GetNumber("Option", "Port"));

    handset.ForgetCommands();
    ports.setCurrentIndex(ports.findData(number, PortListModel::NumberRole));
    Q_EMIT ports.activated(ports.currentIndex());
    EXPECT_EQ(ConnectionWords(), disconnected);
    ASSERT_TRUE(AwaitWords(connected));
    EXPECT_EQ(handset.Commands(), (std::vector<std::string>{"ATE1", "AT+ESLP=1"})) << "handed back";
    EXPECT_EQ(other.Count("AT+CMGF=0"), 1u);
    EXPECT_EQ(store->GetNumber("Option", "Port"), number);
}

TEST_F(Connection, ANewModelOpensThePortAnewAtItsSpeed) {
    Start();
    ASSERT_TRUE(AwaitWords(connected));
    Frame().Choose(2);
    auto& models = Find<QComboBox>(QStringLiteral("model"));
    EXPECT_EQ(models.currentData().toString(), QStringLiteral("ZVK4100"));
    handset.ForgetCommands();
    models.setCurrentIndex(models.findData(QStringLiteral("ZVK4010")));
    Q_EMIT models.activated(models.currentIndex());
    ASSERT_TRUE(test::Await([&] { return handset.Count("ATE1") == 1; }));
    ASSERT_TRUE(AwaitWords(connected));
    EXPECT_EQ(store->GetText("Option", "Phone"), u"ZVK4010");
    EXPECT_TRUE(Find<QLabel>(QStringLiteral("modelFacts")).text().contains(QStringLiteral("57600")));

    handset.ForgetCommands();
    Q_EMIT models.activated(models.currentIndex());
    EXPECT_EQ(ConnectionWords(), connected) << "the same again changes nothing";
}

TEST_F(Connection, APortThatCannotBeOpenedIsExplainedInTheSettings) {
    UsePort(folder / "gone");
    Start();
    Frame().Choose(2);
    const auto& state = Find<QLabel>(QStringLiteral("state"));
    EXPECT_TRUE(
        test::Await([&] { return state.text().startsWith(QStringLiteral("No phone is plugged in")); }));
}

TEST_F(Connection, ClosingHandsTheHandsetBackAfterItsLastExchange) {
    Start();
    ASSERT_TRUE(AwaitWords(connected));
    handset.ForgetCommands();
    Close();
    EXPECT_EQ(handset.Commands(), (std::vector<std::string>{"ATE1", "AT+ESLP=1"}));
}

TEST_F(Connection, ClosingWhileThePortIsBeingOpenedOrCheckedEndsToo) {
    handset.SetFaults({"delay=30"});
    for (const char* moment : {"", "AT+ESUO?", "AT+CPMS=?"}) {
        handset.ForgetCommands();
        Start();
        EXPECT_TRUE(*moment == '\0' || test::Await([&] { return handset.Count(moment) > 0; }));
        Close();
        program.reset();
    }
}

}  // namespace
}  // namespace tarnbridge
