#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include "messaging/MessageTaskTest.h"
#include "simulator/Pdu.h"
#include "ui/QtText.h"
#include "ui/messages/SendingDialog.h"
#include "ui/messages/WidgetSupport.h"

namespace tarnbridge::test {
namespace {

class TaskDialogTest : public MessageTask {
protected:
    SmsRecord& PutFor(const std::string& numbers) {
        SmsRecord& record = Put(outbox, u"x");
        record.address.number = numbers;
        return record;
    }

    std::unique_ptr<SendingDialog> Sending(const std::vector<SmsRecord*>& records) {
        std::vector<MessageSending::Waiting> waiting;
        for (SmsRecord* const record : records)
            waiting.push_back({&outbox, record});
        return std::make_unique<SendingDialog>(
            std::make_unique<MessageSending>(worker, tree, keeper, clock, waiting));
    }

    static QStringList Rows(const QDialog& dialog) {
        QStringList rows;
        const auto* const list = dialog.findChild<QTreeWidget*>();
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            rows << list->topLevelItem(i)->text(0) + ": " + list->topLevelItem(i)->text(1);
        return rows;
    }
    static QString WordsOf(const QDialog& dialog) {
        return dialog.findChild<QLabel*>(QStringLiteral("words"))->text();
    }
    static QPushButton& Button(const QDialog& dialog) {
        return *dialog.findChild<QPushButton*>(QStringLiteral("button"));
    }
    static bool AwaitEnd(const TaskDialog& dialog) {
        return Await([&] { return !dialog.IsRunning(); });
    }

    VirtualTime& clock = session.clock;
    MessageFolder& outbox = tree.OnPc(outboxPlace);
};

TEST_F(TaskDialogTest, SendingShowsARowForEachRecipientAndWaitsToBeRead) {
    SmsRecord& two = PutFor("111,222");
    SmsRecord& none = PutFor("");
    SmsRecord& bad = PutFor("333");
    // The third PDU that goes out is refused.
    session.handset.SetFaults({"error=+CMGS:500,after=2,times=1"});
    const auto dialog = Sending({&two, &none, &bad});
    EXPECT_EQ(Rows(*dialog).first(), "111: Waiting");
    EXPECT_EQ(Button(*dialog).text(), "Cancel");
    ASSERT_TRUE(dialog->Start());
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(WordsOf(*dialog), "1/4");
    EXPECT_EQ(Rows(*dialog).mid(0, 2), (QStringList{"111: Sending...", "222: Waiting"}));
    ASSERT_TRUE(AwaitEnd(*dialog));
    EXPECT_EQ(Rows(*dialog).mid(0, 2), (QStringList{"111: Success", "222: Success"}));
    EXPECT_TRUE(Rows(*dialog)[2].endsWith(": " + QWords(Word::NoRecipient)));
    EXPECT_EQ(Rows(*dialog)[3], "333: Failed (error 500)");
    EXPECT_EQ(WordsOf(*dialog), "Sent: 2 of 4");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(Button(*dialog).text(), "OK");
    Button(*dialog).click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(tree.OnPc(sentPlace).records.size(), 1u);
    EXPECT_EQ(outbox.records.size(), 2u);
}

TEST_F(TaskDialogTest, ACancelEndsAfterTheItemUnderWay) {
    SmsRecord& record = PutFor("111,222,333");
    const auto dialog = Sending({&record});
    QSignalSpy ended(dialog.get(), &TaskDialog::ended);
    ASSERT_TRUE(dialog->Start());
    dialog->close();
    EXPECT_TRUE(dialog->isVisible()) << "what was begun ends in order";
    EXPECT_FALSE(Button(*dialog).isEnabled());
    EXPECT_EQ(WordsOf(*dialog), QWords(Word::Cancelling));
    ASSERT_TRUE(AwaitEnd(*dialog));
    EXPECT_EQ(ended.size(), 1);
    EXPECT_EQ(Rows(*dialog), (QStringList{"111: Success", "222: Not sent", "333: Not sent"}));
    dialog->close();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(TaskDialogTest, ALostHandsetIsTold) {
    SmsRecord& record = PutFor("111,222");
    const auto dialog = Sending({&record});
    session.handset.Unplug();
    ASSERT_TRUE(dialog->Start());
    ASSERT_TRUE(AwaitEnd(*dialog));
    EXPECT_EQ(Rows(*dialog), (QStringList{"111: Failed", "222: Not sent"}));
    EXPECT_TRUE(WordsOf(*dialog).startsWith(QWords(Word::HandsetLost)));
}

TEST_F(TaskDialogTest, AHandsetInUseIsRefusedAndADialogMayGoWhileItRuns) {
    SmsRecord& record = PutFor("111");
    Event goOn{ResetMode::Manual};
    ASSERT_TRUE(worker.RequestJob({}, BackgroundWorker::FirstFeatureJob, 1, [&goOn](HandsetLink&, int&) {
        goOn.Wait(forever);
        return 1;
    }));
    const auto refused = Sending({&record});
    EXPECT_FALSE(refused->Start());
    EXPECT_FALSE(refused->isVisible());
    goOn.Set();
    const auto isFree = [this] { return !worker.IsBusy(); };
    ASSERT_TRUE(Await(isFree));
    auto closed = Sending({&record});
    ASSERT_TRUE(closed->Start());
    closed.reset();
    EXPECT_TRUE(Await(isFree));
    QCoreApplication::processEvents();
}

}  // namespace
}  // namespace tarnbridge::test
