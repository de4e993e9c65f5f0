#include <QApplication>
#include <QEventLoop>
#include <QPushButton>
#include <QTimer>
#include <cstdlib>

#include "ui/dialogs/TaskDialog.h"
#include "ui/messages/MessagesView.h"

namespace tarnbridge::test {
namespace {

/// The window is closed while something is open or under way, with nobody there to answer.
class Closing : public MessagesView {
protected:
    Closing() { realDialogs = true; }

    void OpenWithDraft() {
        Open();
        MessageFolder& draft = Content().OnPc(draftPlace);
        Put(draft, u"x", smsComposed, "112");
        OpenFolder(draft);
        Reopen();
        SelectRows({0});
    }

    /// Does something that may run an event loop of its own, and closes the window as soon as the condition
    /// holds. That the program doesn't end is the end of the test program: the loops would never return.
    void CloseWhen(const std::function<bool()>& condition, const std::function<void()>& use) {
        QEventLoop loop;
        QObject::connect(program.get(), &CTarnbridgeApp::closed, &loop, &QEventLoop::quit);
        QTimer::singleShot(0, &Frame(), use);
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &Frame(), [&] {
            if (!condition()) return;
            look.stop();
            Frame().close();
        });
        look.start(1);
        QTimer::singleShot(15'000, &loop, [] {
            ADD_FAILURE() << "the program doesn't end";
            std::abort();
        });
        loop.exec();
        program->ExitInstance();
    }
    void CloseWhen(const std::function<bool()>& condition, const char* command) {
        CloseWhen(condition, [this, command] { Command(command).trigger(); });
    }

    static bool IsOpen(const char* dialog) {
        for (const QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String(dialog) && window->isVisible()) return true;
        }
        return false;
    }
    bool HasEnded() {
        auto* const dialog = Frame().findChild<TaskDialog*>();
        return dialog && dialog->isVisible() && !dialog->IsRunning();
    }
    static void SayYes() {
        OnDialog(QStringLiteral("question"), [](QDialog& question) {
            for (QPushButton* const button : question.findChildren<QPushButton*>()) {
                if (button->property("answer").toInt() == static_cast<int>(Answer::Yes)) button->click();
            }
        });
    }
};

TEST_F(Closing, GivesUpAQuestion) {
    Open();
    CloseWhen([] { return IsOpen("question"); }, "readMessages");
}

TEST_F(Closing, GivesUpAChoiceOfAFolder) {
    OpenWithDraft();
    CloseWhen([] { return IsOpen("folders"); }, "copyMessagesTo");
}

TEST_F(Closing, GivesUpAChoiceOfAFile) {
    OpenWithDraft();
    CloseWhen([] { return IsOpen("files"); }, "exportMessages");
}

TEST_F(Closing, GivesUpPagesBeforePrinting) {
    OpenWithDraft();
    CloseWhen([] { return IsOpen("preview"); }, "printPreview");
}

TEST_F(Closing, GivesUpANote) {
    Open();
    CloseWhen([] { return IsOpen("note"); }, [this] { Document().User().Tell(u"Look!"); });
}

TEST_F(Closing, DoesntWaitUntilAFailedReadingIsRead) {
    Open();
    handset.Script("AT+CMGR=3", "\r\n+CMS ERROR: 320\r\n");
    SayYes();
    CloseWhen([this] { return HasEnded(); }, "readMessages");
}

TEST_F(Closing, EndsAReadingThatFails) {
    Open();
    handset.Script("AT+CMGR=3", "\r\n+CMS ERROR: 320\r\n");
    handset.ForgetCommands();
    SayYes();
    CloseWhen([this] { return handset.Count("AT+CMGR=5") == 1; }, "readMessages");
    EXPECT_EQ(handset.Count("AT+CMGR=25"), 0u);
}

TEST_F(Closing, DoesntWaitUntilASendingIsRead) {
    OpenWithDraft();
    CloseWhen([this] { return HasEnded(); }, "sendMessage");
    EXPECT_EQ(MessageTree(StoredProfile()->messageRoot).OnPc(sentPlace).records.size(), 1u);
}

TEST_F(Closing, EndsASendingToAHandsetThatHasGone) {
    OpenWithDraft();
    handset.SetFaults({"unheard=+CMGS"});
    CloseWhen(
        [this] {
            if (!IsOpen("sending")) return false;
            handset.Unplug();
            return true;
        },
        "sendMessage");
    EXPECT_EQ(MessageTree(StoredProfile()->messageRoot).OnPc(draftPlace).records.size(), 1u);
}

}  // namespace
}  // namespace tarnbridge::test
