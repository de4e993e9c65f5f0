#include <QAccessible>
#include <QAction>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "core/app/FrameMessages.h"
#include "core/app/WindowPlacement.h"
#include "ui/Icons.h"
#include "ui/Window.h"
#include "ui/frame/ViewTable.h"

namespace tarnbridge {
namespace {

using FrameTest = test::Window;

constexpr const char* option = "Option";
constexpr int messages = 1;
constexpr int settings = 2;

TEST_F(FrameTest, ANumberWithoutItsViewOpensTheMessagesAndIsKept) {
    for (const int number : {0, 9, -1, 5}) {
        store->SetNumber(option, "Select", number);
        Start();
        EXPECT_EQ(OpenView(), messages) << number;
        Close();
        EXPECT_EQ(store->GetNumber(option, "Select"), number);
        program.reset();
    }
}

TEST_F(FrameTest, TheViewStaysWhileSwitchingIsForbidden) {
    Start();
    const FormView* const form = Frame().ActiveForm();
    Document().viewSwitchAllowed = false;
    auto& button = Find<QToolButton>(QStringLiteral("feature2"));
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(Frame().ActiveForm(), form);
    EXPECT_FALSE(button.isChecked()) << "the button goes back up";
    EXPECT_TRUE(Find<QToolButton>(QStringLiteral("feature1")).isChecked());

    Document().viewSwitchAllowed = true;
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(OpenView(), settings);
}

TEST_F(FrameTest, EveryFeatureAndCommandIsReachedByTheKeyboard) {
    Start();
    QTest::keyClick(&Frame(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(OpenView(), settings);
    QTest::keyClick(&Frame(), Qt::Key_F6);
    auto& feature = Find<QToolButton>(QStringLiteral("feature2"));
    EXPECT_TRUE(feature.hasFocus());
    QTest::keyClick(&feature, Qt::Key_Up);
    QTest::keyClick(&Find<QToolButton>(QStringLiteral("feature1")), Qt::Key_Space);
    EXPECT_EQ(OpenView(), messages) << "the arrow keys go through the column";
    EXPECT_EQ(store->GetNumber(option, "Select"), messages) << "for the next start";

    Frame().Choose(settings);
    const auto menus = [&] {
        QStringList titles;
        for (const QAction* const action : Frame().menuBar()->actions())
            titles << action->text();
        return titles;
    };
    EXPECT_EQ(menus(), QStringList({"&File", "&Settings", "&View", "&Help"}));
    for (QToolButton* const button : Find<QToolBar>(QStringLiteral("toolbar")).findChildren<QToolButton*>()) {
        EXPECT_TRUE(!button->isVisible() || (button->focusPolicy() & Qt::TabFocus));
    }
    Frame().Choose(messages);
    EXPECT_FALSE(menus().contains(QStringLiteral("&Settings"))) << "the menu goes with its view";
}

TEST_F(FrameTest, WhatIsShownHasANameForThoseWhoCannotSeeIt) {
    Start();
    for (const ViewEntry& view : Views()) {
        Frame().Choose(view.number);
        for (const QWidget* const widget : Frame().findChildren<QWidget*>()) {
            if (!widget->isVisible() || !(widget->focusPolicy() & Qt::TabFocus)) continue;
            QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(
                const_cast<QWidget*>(widget));  // NOLINT(cppcoreguidelines-pro-type-const-cast)
            ASSERT_NE(face, nullptr);
            EXPECT_FALSE(face->text(QAccessible::Name).isEmpty())
                << widget->metaObject()->className() << " " << widget->objectName().toStdString();
        }
        EXPECT_FALSE(ThemedIcon(QString::fromLatin1(view.icon)).isNull()) << view.icon;
    }
}

TEST_F(FrameTest, KeepsItsPlaceFromOneRunToTheNext) {
    Start();
    EXPECT_TRUE(Frame().isMaximized()) << "as a first start does";
    EXPECT_EQ(Frame().minimumSize(), QSize(700, 550));
    Frame().showNormal();
    Frame().setGeometry(20, 30, 720, 560);
    Close();
    program.reset();
    EXPECT_EQ(DecodePlacement(*store->GetBytes(option, "Placement")),
              (WindowPlacement{20, 30, 740, 590, false}));

    Start();
    EXPECT_FALSE(Frame().isMaximized());
    EXPECT_EQ(Frame().geometry(), QRect(20, 30, 720, 560));
    // Moving and sizing are enough; the end of the program isn't needed.
    Frame().setGeometry(25, 35, 730, 570);
    const auto stored = [&] { return DecodePlacement(*store->GetBytes(option, "Placement")); };
    EXPECT_TRUE(test::Await([&] { return stored() == WindowPlacement{25, 35, 755, 605, false}; }));
}

TEST_F(FrameTest, AStoredPlaceThatNoScreenHasIsBroughtBack) {
    store->SetBytes(option, "Placement", EncodePlacement({90'000, 90'000, 90'800, 90'600, false}));
    Start();
    EXPECT_TRUE(Frame().screen()->availableGeometry().contains(Frame().geometry().center()));
}

TEST_F(FrameTest, AChangeIsSavedSoonAndOnce) {
    Start();
    auto& timer = Find<QTimer>(QStringLiteral("saveTimer"));
    timer.setInterval(20);
    int saves = 0;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++saves; });
    auto* const personal = Document().Content().messageRoot.Child(1)->Child(4);
    for (int i = 0; i < 3; ++i) {
        personal->Append(std::make_unique<SmsRecord>());
        Document().NoteChange();
    }
    ASSERT_TRUE(test::Await([&] { return saves > 0; }));
    EXPECT_EQ(StoredProfile()->messageRoot.Child(1)->Child(4)->records.size(), 3u);
    EXPECT_EQ(saves, 1);
}

}  // namespace
}  // namespace tarnbridge
