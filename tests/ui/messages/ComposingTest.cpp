#include <QBuffer>
#include <QPdfWriter>
#include <QTest>

#include "messaging/ems/Ems.h"
#include "ui/messages/CSmsDialog.h"
#include "ui/messages/MessageEdit.h"
#include "ui/messages/MessagePrinting.h"
#include "ui/messages/MessagesView.h"

namespace tarnbridge::test {
namespace {

using Texts = std::vector<std::u16string>;

class Composing : public MessagesView {
protected:
    /// The only editor that is open.
    CSmsDialog& Editor() {
        const auto editors = Frame().findChildren<CSmsDialog*>();
        EXPECT_EQ(editors.size(), 1);
        if (editors.isEmpty()) std::abort();
        return *editors[0];
    }
    void Write(const QString& to, const QString& text) {
        if (!to.isEmpty()) Editor().findChild<QLineEdit*>(QStringLiteral("recipients"))->setText(to);
        QTest::keyClicks(&Editor().Text(), text);
    }
    void InEditor(const char* command) {
        Editor().findChild<QAction*>(QLatin1String(command))->trigger();
        ASSERT_TRUE(AwaitRest());
    }
    bool AwaitNoEditor() {
        return Await([this] { return Frame().findChildren<CSmsDialog*>().isEmpty(); });
    }
    MessageTree Stored() {
        stored_ = StoredProfile();
        return MessageTree(stored_->messageRoot);
    }

private:
    std::unique_ptr<Profile> stored_;
};

TEST_F(Composing, SendsByWayOfTheOutbox) {
    Open();
    MessageFolder& outbox = Content().OnPc(outboxPlace);
    MessageFolder& sent = Content().OnPc(sentPlace);
    Do("newMessage");
    Write(QStringLiteral("112,+4670123"), QStringLiteral("Hello"));
    handset.SetFaults({"error=+CMGS:512,times=1"});
    InEditor("send");
    EXPECT_TRUE(AwaitNoEditor());
    EXPECT_EQ(told, QStringList{QStringLiteral("Sent: 1 of 2")});
    ASSERT_EQ(TextsIn(sent), Texts{u"Hello"});
    EXPECT_EQ(sent.records[0]->address.number, "+4670123");
    ASSERT_EQ(TextsIn(outbox), Texts{u"Hello"});
    EXPECT_EQ(outbox.records[0]->address.number, "112") << "what is left to do";

    user.answers = {Answer::Yes};
    Do("sendAllMessages");
    EXPECT_TRUE(outbox.records.empty());
    EXPECT_EQ(sent.records.size(), 2u);
    EXPECT_FALSE(Command("sendAllMessages").isEnabled());
}

TEST_F(Composing, WithoutAHandsetAMessageWaitsOnTheDisk) {
    UsePort(folder / "nothing");
    Start();
    EXPECT_FALSE(Command("sendMessage").isEnabled());
    Command("newMessage").trigger();
    Write(QStringLiteral("112"), QStringLiteral("later"));
    InEditor("send");
    EXPECT_EQ(user.heard, Texts{u"The phone isn't connected. The message waits in the Outbox of the PC."});
    EXPECT_TRUE(AwaitNoEditor());
    EXPECT_EQ(TextsIn(Stored().OnPc(outboxPlace)), Texts{u"later"});

    Command("newMessage").trigger();
    Write(QStringLiteral("112"), QStringLiteral("later still"));
    user.answers = {Answer::Yes};
    user.folders = {FolderChoice{4}};
    Editor().close();
    EXPECT_TRUE(AwaitNoEditor()) << "closed when it is saved";
    EXPECT_EQ(TextsIn(Stored().OnPc(draftPlace)), Texts{u"later still"});
}

TEST_F(Composing, ADraftNeedsNoRecipientOnThePc) {
    Open();
    Do("newMessage");
    Write({}, QStringLiteral("to whom?"));
    constexpr size_t draftRow = 9;
    user.folders = {FolderChoice{4, u"ME"}, FolderChoice{draftRow}};
    InEditor("save");
    EXPECT_EQ(user.heard.back(), u"Without a recipient the message can be kept on the PC only.");
    EXPECT_TRUE(Editor().isWindowModified());
    user.answers = {Answer::Yes};
    Editor().close();
    EXPECT_TRUE(AwaitNoEditor());
    EXPECT_EQ(user.questions.back().effect, u"What isn't saved is lost.");
    ASSERT_EQ(TextsIn(Stored().OnPc(draftPlace)), Texts{u"to whom?"});
    EXPECT_EQ(Stored().OnPc(draftPlace).records[0]->address.number, "");
}

TEST_F(Composing, OnlyWhatWasWrittenIsSentAndSeveralAreAskedAbout) {
    Open();
    ReadAll();
    OpenFolder(Content().OnHandset(inboxPlace));
    handset.ForgetCommands();
    List().selectAll();
    EXPECT_FALSE(Command("sendMessage").isEnabled());
    EXPECT_TRUE(Command("sendMessage").toolTip().contains(QStringLiteral("not received")));

    MessageFolder& personal = Content().OnPc(personalPlace);
    Put(personal, u"received");
    Put(personal, u"a", smsComposed, "1,2");
    Put(personal, u"b", smsComposed, "3");
    OpenFolder(personal);
    Reopen();
    List().selectAll();
    user.answers = {Answer::No, Answer::Yes};
    Do("sendMessage");
    EXPECT_TRUE(told.isEmpty());
    Do("sendMessage");
    EXPECT_EQ(user.questions.back().effect,
              u"Messages: 2. Recipients in all: 3. What has been sent can't be taken back.\n"
              u"Messages that were received, which aren't sent: 1. They can be forwarded.");
    EXPECT_EQ(told, QStringList{QStringLiteral("Sent: 3 of 3")});
    EXPECT_EQ(TextsIn(personal), Texts{u"received"});
}

TEST_F(Composing, SavingTwiceAndSendingLeavesOneMessage) {
    Open();
    MessageFolder& draft = Content().OnPc(draftPlace);
    Do("newMessage");
    Write(QStringLiteral("112"), QStringLiteral("one"));
    // The rows of the choice: the handset with four folders, the PC, and its folders.
    constexpr size_t draftRow = 9;
    user.folders = {std::nullopt, FolderChoice{draftRow}, FolderChoice{draftRow}};
    InEditor("save");
    EXPECT_TRUE(draft.records.empty()) << "given up";
    EXPECT_TRUE(Editor().isWindowModified());
    InEditor("save");
    EXPECT_FALSE(Editor().isWindowModified());
    EXPECT_EQ(TextsIn(Stored().OnPc(draftPlace)), Texts{u"one"}) << "at once on the disk";
    Write({}, QStringLiteral(" two"));
    InEditor("save");
    EXPECT_EQ(TextsIn(draft), Texts{u"one two"}) << "in the place of the first";
    InEditor("send");
    EXPECT_TRUE(draft.records.empty());
    EXPECT_EQ(TextsIn(Content().OnPc(sentPlace)), Texts{u"one two"});
}

TEST_F(Composing, AMessageThatTheHandsetRefusesStaysInTheDrafts) {
    Open();
    ReadAll();
    MessageFolder& draft = Content().OnPc(draftPlace);
    const size_t onPhone = TextsIn(Content().OnHandset(draftPlace)).size();
    handset.SetFaults({"error=+CMGW:322"});
    Do("newMessage");
    Write(QStringLiteral("112"), QStringLiteral("text"));
    user.folders = {FolderChoice{4, u"ME"}, FolderChoice{4, u"SM"}};
    InEditor("save");
    EXPECT_TRUE(user.heard.back().starts_with(u"Fail to write message to handset!"));
    EXPECT_EQ(TextsIn(draft), Texts{u"text"});
    handset.SetFaults({});
    InEditor("save");
    EXPECT_EQ(TextsIn(Content().OnHandset(draftPlace)).size(), onPhone + 1);
    EXPECT_EQ(draft.records.size(), 1u) << "another folder than the one that it was saved to first";
}

TEST_F(Composing, AnEditedMessageTakesThePlaceOfTheOldOneUnlessThatHasGone) {
    Open();
    MessageFolder& draft = Content().OnPc(draftPlace);
    Put(draft, u"old", smsComposed);
    OpenFolder(draft);
    Reopen();
    SelectRows({0});
    Do("openMessage");
    Do("openMessage");
    Write({}, QStringLiteral("very "));
    user.folders = {FolderChoice{9}, FolderChoice{9}};
    InEditor("save");
    EXPECT_EQ(TextsIn(draft), Texts{u"very old"});

    // Now the message goes, and another one may get its address.
    SelectRows({0});
    user.answers = {Answer::Yes, Answer::Yes};
    Do("deleteMessages");
    OpenFolder(Content().OnPc(messageTrashPlace));
    Do("cleanTrash");
    for (int i = 0; i < 50; ++i)
        Put(draft, u"other", smsComposed);
    InEditor("save");
    EXPECT_EQ(draft.records.size(), 51u) << "none of the others was replaced";
}

TEST_F(Composing, RepliesAndForwards) {
    Open();
    ReadAll();
    OpenFolder(Content().OnHandset(inboxPlace));
    SelectRows({RowOf(QStringLiteral("Your parcel"))});
    Do("replyMessage");
    EXPECT_EQ(user.heard.back(), u"NORTHSHOP is a name and not a number: the message can't be answered.");
    SelectRows({RowOf(QStringLiteral("Goal"))});
    Do("replyMessage");
    EXPECT_EQ(Editor().findChild<QLineEdit*>(QStringLiteral("recipients"))->text(),
              QStringLiteral("+15550100211"));
    EXPECT_EQ(Editor().Text().toPlainText(), QString());
    Editor().close();
    ASSERT_TRUE(AwaitNoEditor());
    Do("forwardMessage");
    EXPECT_EQ(Editor().findChild<QLineEdit*>(QStringLiteral("recipients"))->text(), QString());
    EXPECT_TRUE(Editor().Text().toPlainText().startsWith(QChar(QChar::ObjectReplacementCharacter)))
        << "with its sound and its animation";
}

TEST_F(Composing, TheViewStaysForTextThatWouldBeLost) {
    Open();
    Do("newMessage");
    Write(QStringLiteral("112"), QStringLiteral("x"));
    user.answers = {Answer::Cancel, Answer::No};
    Frame().Choose(2);
    EXPECT_EQ(OpenView(), 1);
    Frame().Choose(2);
    EXPECT_EQ(OpenView(), 2);
    EXPECT_TRUE(AwaitNoEditor());
}

TEST_F(Composing, TheWindowStaysForTextThatWouldBeLost) {
    Open();
    Do("newMessage");
    Write(QStringLiteral("112"), QStringLiteral("nearly lost"));
    user.answers = {Answer::Cancel};
    Frame().close();
    ASSERT_TRUE(AwaitRest());
    EXPECT_TRUE(Frame().isVisible());
    EXPECT_EQ(Editor().Text().toPlainText(), QStringLiteral("nearly lost"));

    // Nor does it go by itself later, when the user has given up.
    user.answers = {Answer::Yes};
    user.folders = {std::nullopt, FolderChoice{9}};
    Frame().close();
    ASSERT_TRUE(Await([this] { return user.folders.size() == 1; }));
    ASSERT_TRUE(AwaitRest());
    InEditor("save");
    EXPECT_EQ(TextsIn(Stored().OnPc(draftPlace)), Texts{u"nearly lost"});
    EXPECT_FALSE(Editor().IsClosing());
    EXPECT_TRUE(Frame().isVisible());

    Write({}, QStringLiteral(", but not"));
    user.answers = {Answer::Yes};
    user.folders = {FolderChoice{9}};
    Close();
    EXPECT_EQ(TextsIn(Stored().OnPc(draftPlace)), Texts{u"nearly lost, but not"});
}

TEST(MessagePrintingTest, KeepsMessagesWholeAndCutsOnlyWhatFitsOnNoPage) {
    ASSERT_EQ(EmsInit(1), EmsResult::Done);
    const auto pages = [](int count, size_t length) {
        SmsRecord record;
        record.dcs = 8;
        record.timestamp = SmsTimestamp::FromLocal({.year = 2007, .month = 3, .day = 14});
        record.text16.assign(length, u'x');
        for (size_t i = 40; i < length; i += 40)
            record.text16[i] = u'\n';
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        {
            QPdfWriter writer(&buffer);
            writer.setPageSize(QPageSize(QPageSize::A6));
            EXPECT_TRUE(PrintMessages(
                writer,
                std::vector<PrintedMessage>(static_cast<size_t>(count), {record, QStringLiteral("Inbox")})));
        }
        return buffer.data().count("/Type /Page\n");
    };
    EXPECT_EQ(pages(1, 30), 1);
    EXPECT_EQ(pages(2, 600), 2) << "the second one doesn't fit below the first";
    EXPECT_GT(pages(1, 20'000), 5);
    EmsShutdown();
}

}  // namespace
}  // namespace tarnbridge::test
