#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <memory>
#include <thread>

#include "ui/Icons.h"
#include "ui/MessageReceiver.h"
#include "ui/QtText.h"
#include "ui/Window.h"
#include "ui/dialogs/DialogParent.h"
#include "ui/dialogs/WindowInteraction.h"

namespace tarnbridge {
namespace {

constexpr MessageId anything{1024};

TEST(MessageReceiverTest, MessagesOfAnyThreadArriveInTheEventLoop) {
    const auto interface = std::this_thread::get_id();
    std::vector<intptr_t> got;
    MessageReceiver receiver([&](Message& message) {
        EXPECT_EQ(std::this_thread::get_id(), interface);
        got.push_back(message.wParam);
        return message.wParam * 10;
    });
    intptr_t answer = 0;
    std::thread sender([target = receiver.Target().lock(), &answer] {
        target->Post({anything, 1});
        answer = target->Send({anything, 2});
        target->Post({anything, 3});
    });
    EXPECT_TRUE(test::Await([&] { return got.size() == 3; }));
    sender.join();
    EXPECT_EQ(got, (std::vector<intptr_t>{1, 2, 3}));
    EXPECT_EQ(answer, 20);
    EXPECT_EQ(receiver.Target().lock()->Send({anything, 4}), 40) << "the own thread waits for nobody";
}

TEST(MessageReceiverTest, OneThatHasGoneIsNotCalledAndKeepsNobodyWaiting) {
    int calls = 0;
    auto receiver = std::make_unique<MessageReceiver>([&](Message&) { return intptr_t{++calls}; });
    const auto target = receiver->Target().lock();
    target->Post({anything});
    std::thread sender([&] { EXPECT_EQ(target->Send({anything}), 0); });
    receiver.reset();
    sender.join();
    target->Post({anything});
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
}

TEST(MessageReceiverTest, AHandlerMayEndItsReceiver) {
    std::unique_ptr<MessageReceiver> receiver;
    int calls = 0;
    receiver =
        std::make_unique<MessageReceiver>([&receiver, &calls, content = std::string(64, 'x')](Message&) {
            receiver.reset();
            calls += static_cast<int>(content.size());
            return intptr_t{0};
        });
    receiver->Target().lock()->Post({anything});
    receiver->Target().lock()->Post({anything});
    EXPECT_TRUE(test::Await([&] { return calls > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 64);
}

/// The dialogs themselves; another thread asks, as workers do.
class Dialogs : public ::testing::Test {
protected:
    /// Asks on a thread of its own until the answer is there.
    template <typename Ask>
    auto OnAnotherThread(Ask ask) {
        std::optional<decltype(ask())> answer;
        std::atomic<bool> done{false};
        std::thread asking([&] {
            answer = ask();
            done = true;
        });
        EXPECT_TRUE(test::Await([&] { return done.load(); }));
        asking.join();
        return *answer;
    }

    WindowInteraction user;
};

TEST_F(Dialogs, OfferTheAnswersAskedForAndNoOthers) {
    const std::pair<AnswerSet, QStringList> rows[] = {
        {AnswerSet::YesNo, {"Yes", "No"}},
        {AnswerSet::YesNoCancel, {"Yes", "No", "Cancel"}},
        {AnswerSet::YesNoAll, {"Yes", "Yes to all", "No", "No to all"}},
        {AnswerSet::YesNoAllCancel, {"Yes", "Yes to all", "No", "No to all", "Cancel"}},
    };
    for (const auto& row : rows) {
        const AnswerSet set = row.first;
        const QStringList& words = row.second;
        for (const QString& choice : words) {
            test::OnDialog(QStringLiteral("question"), [&](QDialog& dialog) {
                auto& box = static_cast<QMessageBox&>(dialog);
                EXPECT_EQ(box.text(), QStringLiteral("Delete <b>all</b>?"));
                EXPECT_EQ(box.textFormat(), Qt::PlainText) << "a text of the handset's is never markup";
                QStringList offered;
                for (QAbstractButton* const button : box.buttons())
                    offered << button->text();
                EXPECT_EQ(QSet<QString>(offered.begin(), offered.end()),
                          QSet<QString>(words.begin(), words.end()));
                for (QAbstractButton* const button : box.buttons()) {
                    if (button->text() == choice) button->click();
                }
            });
            const Answer answer =
                OnAnotherThread([&] { return user.Ask({.words = u"Delete <b>all</b>?", .answers = set}); });
            const QStringList all = {"Yes", "No", "Cancel", "Yes to all", "No to all"};
            EXPECT_EQ(static_cast<int>(answer), all.indexOf(choice));
        }
        // Closed unanswered.
        test::OnDialog(QStringLiteral("question"),
                       [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
        EXPECT_EQ(user.Ask({.words = u"?", .answers = set}),
                  words.contains("Cancel") ? Answer::Cancel : Answer::No);
    }
}

TEST_F(Dialogs, SayWhatWillHappenAndNeverDestroyByEnter) {
    const struct Row {
        AnswerSet answers;
        std::optional<Answer> destroys;
        const char* enter;
    } rows[] = {
        {AnswerSet::YesNo, {}, "Do"},
        {AnswerSet::YesNo, Answer::Yes, "Don't"},
        {AnswerSet::YesNoCancel, Answer::No, "Do"},
        {AnswerSet::YesNoCancel, Answer::Yes, "Leave"},
        {AnswerSet::YesNoAllCancel, Answer::Yes, "Leave"},
    };
    for (const Row& row : rows) {
        QString enter;
        bool plain = false;
        test::OnDialog(QStringLiteral("question"), [&](QDialog& dialog) {
            auto& box = static_cast<QMessageBox&>(dialog);
            enter = box.defaultButton()->text();
            for (const QLabel* const label : box.findChildren<QLabel*>()) {
                if (label->text() == "<b>3</b> go.") plain = label->textFormat() == Qt::PlainText;
            }
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        const Answer answer = user.Ask({.words = u"?",
                                        .effect = u"<b>3</b> go.",
                                        .answers = row.answers,
                                        .yes = u"Do",
                                        .no = u"Don't",
                                        .cancel = u"Leave",
                                        .destroys = row.destroys});
        EXPECT_EQ(enter, row.enter) << &row - rows;
        EXPECT_NE(answer, row.destroys) << &row - rows;
        EXPECT_TRUE(plain) << "what will happen is shown, and never as markup";
    }
}

TEST_F(Dialogs, StandOverTheWindowThatTheUserIsInAndMayGoWithIt) {
    QWidget frame;
    frame.show();
    auto editor = std::make_unique<QWidget>(&frame, Qt::Window);
    editor->show();
    user.SetWindow(&frame);
    const auto parentOfNote = [this] {
        const QWidget* parent = nullptr;
        test::OnDialog(QStringLiteral("note"), [&](QDialog& dialog) {
            parent = dialog.parentWidget();
            dialog.close();
        });
        user.Tell(u"Look!");
        return parent;
    };
    editor->activateWindow();
    ASSERT_TRUE(test::Await([&] { return editor->isActiveWindow(); }));
    EXPECT_EQ(parentOfNote(), editor.get());
    {
        const DialogParent over(frame);
        EXPECT_EQ(parentOfNote(), &frame);
    }
    editor->hide();
    EXPECT_EQ(parentOfNote(), &frame);

    editor->show();
    editor->activateWindow();
    ASSERT_TRUE(test::Await([&] { return editor->isActiveWindow(); }));
    test::OnDialog(QStringLiteral("question"), [&](QDialog&) { editor.reset(); });
    EXPECT_EQ(user.Ask({.words = u"Save?", .answers = AnswerSet::YesNoCancel}), Answer::Cancel);
    test::OnDialog(QStringLiteral("folders"), [](QDialog& dialog) { dialog.close(); });
    EXPECT_EQ(user.ChooseFolder({u"Save to...", {{u"PC", 0}}}), std::nullopt);
}

TEST_F(Dialogs, AskForATextOfLimitedLength) {
    test::OnDialog(QStringLiteral("text"), [](QDialog& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(edit->text(), QStringLiteral("old"));
        QTest::keyClicks(edit, QStringLiteral("new name"));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_EQ(OnAnotherThread([&] { return user.AskText({u"Name:", u"old", 5}); }), u"new n");
    test::OnDialog(QStringLiteral("text"), [](QDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(user.AskText({u"Name:"}), std::nullopt);
}

TEST_F(Dialogs, ChooseAFolderAndItsMemory) {
    const FolderQuestion question{
        u"Save to...",
        {{u"Phone", 0, false}, {u"Inbox", 1, true, {u"ME", u"SM"}}, {u"PC", 0, false}, {u"Draft", 1}},
        1,
        u"SM",
        u"Choose one."};
    const auto answer = [&](const std::function<void(QDialog&)>& use) {
        test::OnDialog(QStringLiteral("folders"), use);
        return user.ChooseFolder(question);
    };
    const auto accept = [](QDialog& dialog) {
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    };
    auto choice = answer(accept);
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->row, 1u);
    EXPECT_EQ(choice->memory, u"SM");

    choice = answer([&](QDialog& dialog) {
        auto* const tree = dialog.findChild<QTreeView*>();
        auto* const ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        tree->setCurrentIndex(tree->model()->index(1, 0));
        EXPECT_FALSE(ok->isEnabled()) << "a root is shown for its children only";
        const auto labels = dialog.findChildren<QLabel*>();
        const auto isRefusal = [](const QLabel* label) {
            return label->text() == QLatin1String("Choose one.") && label->isVisible();
        };
        EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), isRefusal)) << "and the user is told why";
        tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(1, 0)));
        EXPECT_FALSE(dialog.findChild<QComboBox*>()->isEnabled());
        ok->click();
    });
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->row, 3u);
    EXPECT_TRUE(choice->memory.empty());
    EXPECT_FALSE(answer([](QDialog& dialog) { dialog.reject(); }));
}

TEST_F(Dialogs, ProgressFollowsTheWorkAndItsEndClosesIt) {
    const auto dialog = [] {
        QDialog* found = nullptr;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("progress") && window->isVisible())
                found = qobject_cast<QDialog*>(window);
        }
        return found;
    };
    std::atomic<bool> ended{false};
    std::thread work([&] {
        const auto progress = user.ShowProgress(u"Reading messages...", true);
        progress->SetTotal(1000);
        for (int i = 1; !progress->Cancelled(); ++i) {
            progress->SetDone(std::min(i, 700));
            progress->SetWords(u"700 / 1000");
            std::this_thread::yield();
        }
        ended = true;
    });
    const auto* bar = static_cast<QProgressBar*>(nullptr);
    EXPECT_TRUE(test::Await([&] {
        if (dialog()) bar = dialog()->findChild<QProgressBar*>();
        return bar && bar->value() == 700;
    }));
    EXPECT_EQ(bar->maximum(), 1000);
    EXPECT_EQ(dialog()->findChild<QLabel*>()->text(), QStringLiteral("700 / 1000"));
    QTest::keyClick(dialog(), Qt::Key_Escape);
    EXPECT_TRUE(dialog()) << "it waits for the work to end in order";
    EXPECT_TRUE(test::Await([&] { return ended && !dialog(); }));
    work.join();
}

TEST(IconsTest, TakeTheColoursOfThePaletteInEveryState) {
    const auto darkest = [](const QIcon& icon, QIcon::Mode mode) {
        const QImage image = icon.pixmap(QSize(32, 32), 1.0, mode).toImage();
        int lightness = -1;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.alpha() > 200)
                    lightness = lightness < 0 ? colour.lightness() : std::min(lightness, colour.lightness());
            }
        }
        return lightness;
    };
    const QPalette before = QApplication::palette();
    const QIcon icon = ThemedIcon(QStringLiteral("folder"));
    ASSERT_FALSE(icon.isNull());
    EXPECT_TRUE(ThemedIcon(QStringLiteral("no such drawing")).isNull());
    for (const QColor& ink : {QColor(Qt::black), QColor(Qt::white)}) {
        QPalette palette = before;
        palette.setColor(QPalette::WindowText, ink);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(Qt::gray));
        palette.setColor(QPalette::HighlightedText, ink == Qt::black ? Qt::white : Qt::black);
        QApplication::setPalette(palette);
        EXPECT_NEAR(darkest(icon, QIcon::Normal), ink.lightness(), 10);
        EXPECT_NEAR(darkest(icon, QIcon::Selected), 255 - ink.lightness(), 10);
        EXPECT_NEAR(darkest(icon, QIcon::Disabled), QColor(Qt::gray).lightness(), 10);
    }
    QApplication::setPalette(before);
    EXPECT_EQ(icon.pixmap(QSize(24, 24), 2.0).size(), QSize(48, 48)) << "drawn for the screen's resolution";
}

}  // namespace
}  // namespace tarnbridge
