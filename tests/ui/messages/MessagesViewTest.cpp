#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTest>
#include <QTextEdit>
#include <QToolButton>

#include "ui/dialogs/TaskDialog.h"
#include "ui/messages/MessagesView.h"
#include "ui/messages/NoteLine.h"

namespace tarnbridge::test {
namespace {

using Texts = std::vector<std::u16string>;

TEST_F(MessagesView, ReadsAllOfTheHandsetAndShowsIt) {
    Open();
    OpenFolder(Content().OnHandset(inboxPlace));
    ReadAll();
    EXPECT_EQ(user.heard, Texts{u"Do you want to download the messages from handset ?"});
    EXPECT_TRUE(told.isEmpty()) << "nothing was missed, so the dialog went by itself";
    // The demonstration's messages with the parts of the long ones joined.
    EXPECT_EQ(Messages().rowCount(), 34);
    EXPECT_EQ(Find<QLabel>(QStringLiteral("formStatus")).text(), QStringLiteral("Messages: 34"));
    EXPECT_FALSE(Frame().findChild<QWidget*>(QStringLiteral("hint"))) << "it has gone";
    EXPECT_EQ(Column(MessageListModel::MemoryColumn).count(QStringLiteral("SIM")), 7);
    const QModelIndex inbox = Folders().IndexOf(&Content().OnHandset(inboxPlace));
    EXPECT_EQ(inbox.data().toString(), QStringLiteral("Inbox (6)"));
    EXPECT_TRUE(inbox.data(Qt::FontRole).value<QFont>().bold());

    const int row = RowOf(QStringLiteral("Hi! The 7:40"));
    ASSERT_GE(row, 0);
    SelectRows({row});
    EXPECT_TRUE(Find<QTextEdit>(QStringLiteral("readerText"))
                    .toPlainText()
                    .contains(QStringLiteral("under the {blue} pot as you said. Dinner")))
        << "three parts, and no marks of the alphabet's extension";
    OpenFolder(Content().OnHandset(outboxPlace));
    EXPECT_EQ(Messages().rowCount(), 3);
    OpenFolder(Content().HandsetRoot());
    EXPECT_EQ(Messages().rowCount(), 0);
}

TEST_F(MessagesView, RowsOfAnEarlierSessionAreShownAsOld) {
    Open();
    ReadAll();
    MessageFolder& inbox = Content().OnHandset(inboxPlace);
    OpenFolder(inbox);
    auto& age = Find<NoteLine>(QStringLiteral("mirrorNote"));
    const auto isDimmed = [this] { return Messages().index(0, 1).data(Qt::ForegroundRole).isValid(); };
    EXPECT_EQ(age.Words(), QString());
    EXPECT_FALSE(isDimmed());
    handset.Unplug();
    ASSERT_TRUE(AwaitWords(QStringLiteral("Disconnected!")));
    handset.Plug();
    ASSERT_TRUE(AwaitWords(QStringLiteral("Connected!")));
    EXPECT_TRUE(age.Words().contains(QStringLiteral("connected anew"))) << age.Words().toStdString();
    EXPECT_TRUE(isDimmed());
    EXPECT_EQ(Messages().rowCount(), 34) << "they stay to be seen";
    OpenFolder(Content().OnPc(inboxPlace));
    EXPECT_EQ(age.Words(), QString());
    OpenFolder(inbox);
    EXPECT_TRUE(isDimmed());
    user.answers = {Answer::Yes};
    age.findChild<QToolButton*>()->click();
    ASSERT_TRUE(AwaitRest());
    EXPECT_EQ(age.Words(), QString());
    EXPECT_FALSE(isDimmed());
}

class Reading : public MessagesView {
protected:
    /// A reading of the handset that has come to its fifth location.
    void Begin() {
        Open();
        user.answers = {Answer::Yes};
        handset.ForgetCommands();
        Command("readMessages").trigger();
        ASSERT_TRUE(Await([this] { return handset.Count("AT+CMGR=5") == 1; }));
    }
};

TEST_F(Reading, AnUnpluggedHandsetEndsTheReadingAndComesBack) {
    Begin();
    EXPECT_FALSE(Command("deleteMessages").isEnabled());
    EXPECT_TRUE(Command("readMessages").toolTip().contains(QStringLiteral("wait")));
    Frame().Choose(2);
    EXPECT_EQ(OpenView(), 1) << "the view stays while its work runs";
    handset.Unplug();
    ASSERT_TRUE(AwaitRest());
    EXPECT_EQ(told, QStringList{QStringLiteral(
                        "The handset doesn't answer any more.\nMessages that could not be read: 1")});
    ASSERT_TRUE(AwaitWords(QStringLiteral("Disconnected!")));
    EXPECT_FALSE(Command("readMessages").isEnabled());
    EXPECT_TRUE(Command("readMessages").toolTip().contains(QStringLiteral("The phone isn't connected.")));

    handset.Plug();
    ASSERT_TRUE(AwaitWords(QStringLiteral("Connected!")));
    ReadAll();
    OpenFolder(Content().OnHandset(inboxPlace));
    EXPECT_EQ(Messages().rowCount(), 34);
}

TEST_F(Reading, ACancelledReadingKeepsWhatWasRead) {
    Begin();
    Frame().findChild<TaskDialog*>()->findChild<QPushButton*>()->click();
    ASSERT_TRUE(AwaitRest());
    EXPECT_TRUE(told.isEmpty()) << "who cancels needn't be told so";
    size_t read = 0;
    for (const MessagePlace place : handsetPlaces)
        read += TextsIn(Content().OnHandset(place)).size();
    EXPECT_GT(read, 0u);
    EXPECT_LT(read, 11u);
    EXPECT_TRUE(Command("readMessages").isEnabled());
}

TEST_F(Reading, ClosingDuringAReadingEndsItAndThenTheProgram) {
    Begin();
    Close();
    EXPECT_EQ(handset.Count("AT+CMGR=25"), 0u) << "the rest isn't read";
    EXPECT_EQ(handset.Count("AT+CPMS=\"SM\", \"SM\", \"SM\""), 2u) << "the selection is restored";
}

TEST_F(MessagesView, DropsMoveAndCopyMessages) {
    Open();
    ReadAll();
    const size_t phone = CountOn("ME");
    MessageFolder& inbox = Content().OnHandset(inboxPlace);
    MessageFolder& personal = Content().OnPc(personalPlace);
    OpenFolder(inbox);
    const int row = RowOf(QStringLiteral("Hi! The 7:40"));
    Drop(DraggedRows({row}), inbox);
    EXPECT_TRUE(personal.records.empty());
    EXPECT_EQ(Messages().rowCount(), 34) << "not onto the folder that they come from";
    Drop(DraggedRows({row}), Content().PcRoot());

    Drop(DraggedRows({row}), personal, Qt::CopyAction);
    EXPECT_EQ(personal.records.size(), 1u);
    EXPECT_EQ(CountOn("ME"), phone) << "a copy leaves the handset alone";
    Drop(DraggedRows({row}), personal);
    EXPECT_EQ(personal.records.size(), 2u);
    EXPECT_EQ(CountOn("ME"), phone - 3) << "all parts are gone";
    EXPECT_EQ(Messages().rowCount(), 33);
    EXPECT_EQ(MessageTree(StoredProfile()->messageRoot).OnPc(personalPlace).records.size(), 2u)
        << "on the disk before it left the handset";

    // Back to the handset: which memory is a question.
    OpenFolder(personal);
    user.folders = {std::nullopt};
    Drop(DraggedRows({0}), Content().OnHandset(draftPlace));
    EXPECT_EQ(personal.records.size(), 2u) << "given up";
}

TEST_F(MessagesView, CutAndPasteMovesOnceAndForgetsWhatIsGone) {
    Open();
    MessageFolder& inbox = Content().OnPc(inboxPlace);
    MessageFolder& personal = Content().OnPc(personalPlace);
    Put(inbox, u"first");
    Put(inbox, u"second");
    OpenFolder(inbox);
    Reopen();
    SelectRows({RowOf(QStringLiteral("first"))});
    Do("cutMessages");
    Do("pasteMessages");
    EXPECT_EQ(user.heard, Texts{u"Can't move the message(s) to the same folder!"});
    OpenFolder(personal);
    Do("pasteMessages");
    EXPECT_EQ(TextsIn(personal), Texts{u"first"});
    EXPECT_EQ(TextsIn(inbox), Texts{u"second"});
    EXPECT_FALSE(Command("pasteMessages").isEnabled()) << "what was cut is pasted once";

    SelectRows({0});
    Do("copyMessages");
    Do("pasteMessages");
    Do("pasteMessages");
    EXPECT_EQ(TextsIn(personal), (Texts{u"first", u"first", u"first"}));

    // What was cut on the handset isn't what has its address after another reading.
    ReadAll();
    OpenFolder(Content().OnHandset(inboxPlace));
    SelectRows({0});
    Do("cutMessages");
    ReadAll();
    OpenFolder(personal);
    EXPECT_FALSE(Command("pasteMessages").isEnabled());
}

TEST_F(MessagesView, DeletingGoesToTheTrashAndThenForGood) {
    Open();
    MessageFolder& inbox = Content().OnPc(inboxPlace);
    MessageFolder& trash = Content().OnPc(messageTrashPlace);
    for (const char16_t* const text : {u"a", u"b", u"c", u"d"})
        Put(inbox, text);
    OpenFolder(inbox);
    Reopen();
    List().sortByColumn(MessageListModel::TextColumn, Qt::AscendingOrder);
    SelectRows({1, 2});
    user.answers = {Answer::No, Answer::Yes};
    Do("deleteMessages");
    EXPECT_EQ(Messages().rowCount(), 4);
    Do("deleteMessages");
    EXPECT_EQ(TextsIn(inbox), (Texts{u"a", u"d"}));
    EXPECT_EQ(List().currentIndex().row(), 1) << "the keys go on at the next one";
    EXPECT_EQ(Find<QLabel>(QStringLiteral("formStatus")).text(), QStringLiteral("Messages: 2"));

    OpenFolder(trash);
    EXPECT_FALSE(Command("deleteFolder").isVisible());
    EXPECT_TRUE(Command("cleanTrash").isVisible());
    SelectRows({0});
    user.answers = {Answer::Yes, Answer::Yes};
    Do("deleteMessages");
    EXPECT_EQ(TextsIn(trash), Texts{u"c"});
    Do("cleanTrash");
    EXPECT_TRUE(TextsIn(trash).empty());
    EXPECT_EQ(Messages().rowCount(), 0);
    EXPECT_FALSE(Command("cleanTrash").isEnabled());
}

TEST_F(MessagesView, ARefusedDeleteIsToldWithTheMessage) {
    Open();
    ReadAll();
    OpenFolder(Content().OnHandset(outboxPlace));
    SelectRows({RowOf(QStringLiteral("C"))});
    handset.SetFaults({"error=+CMGD:500"});
    user.answers = {Answer::Yes};
    Do("deleteMessages");
    EXPECT_TRUE(user.heard.back().starts_with(u"Fail to delete message from handset!")) << "and no more";
    EXPECT_GE(RowOf(QStringLiteral("C")), 0);
}

TEST_F(MessagesView, OpeningAnUnreadMessageMarksItReadAndSaves) {
    Open();
    MessageFolder& inbox = Content().OnPc(inboxPlace);
    Put(inbox, u"news", smsUnread);
    Put(inbox, u"more news", smsUnread);
    OpenFolder(inbox);
    Reopen();
    const QModelIndex index = Folders().IndexOf(&inbox);
    EXPECT_EQ(index.data(MessageTreeModel::UnreadRole), 2);
    SelectRows({0, 1});
    EXPECT_EQ(index.data(MessageTreeModel::UnreadRole), 2) << "two at once aren't read";
    SelectRows({RowOf(QStringLiteral("news"))});
    EXPECT_EQ(index.data(MessageTreeModel::UnreadRole), 1);
    EXPECT_FALSE(
        Messages().index(RowOf(QStringLiteral("news")), 0).data(MessageListModel::UnreadRole).toBool());
    ASSERT_TRUE(Await([&] {
        if (!std::filesystem::exists(folder / "data/tarnbridge/Tarnbridge.bin")) return false;
        const auto stored = StoredProfile();
        const MessageFolder& kept = MessageTree(stored->messageRoot).OnPc(inboxPlace);
        return kept.records.size() == 2 && kept.records[0]->status == smsRead;
    }));
}

TEST_F(MessagesView, FindingFiltersAndKeepsTheSelection) {
    Open();
    MessageFolder& inbox = Content().OnPc(inboxPlace);
    for (const char16_t* const text : {u"Milk", u"Bread and milk", u"Apples"})
        Put(inbox, text);
    OpenFolder(inbox);
    Reopen();
    SelectRows({RowOf(QStringLiteral("Bread"))});
    auto& find = Find<QLineEdit>(QStringLiteral("find"));
    Frame().activateWindow();
    Do("findMessages");
    ASSERT_TRUE(find.hasFocus());
    QTest::keyClicks(&find, QStringLiteral("MILK"));
    EXPECT_EQ(Messages().rowCount(), 2);
    ASSERT_EQ(List().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(List().selectionModel()->selectedRows()[0].row(), RowOf(QStringLiteral("Bread")));
    EXPECT_EQ(Find<QLabel>(QStringLiteral("formStatus")).text(),
              QStringLiteral("Found: 2 of 3, selected: 1"));
    QTest::keyClicks(&find, QStringLiteral("x"));
    EXPECT_EQ(Find<QWidget>(QStringLiteral("hint")).accessibleName(), QStringLiteral("Nothing found"));
    EXPECT_FALSE(Command("deleteMessages").isEnabled()) << "what isn't shown isn't selected";
    QTest::keyClick(&find, Qt::Key_Escape);
    EXPECT_EQ(Messages().rowCount(), 3);
}

TEST_F(MessagesView, KeepsWidthsSortingAndFolderForTheNextStart) {
    Start();
    Frame().resize(1100, 700);
    EXPECT_EQ(List().header()->sortIndicatorSection(), MessageListModel::TimeColumn);
    OpenFolder(Content().OnPc(personalPlace));
    List().header()->resizeSection(MessageListModel::AddressColumn, 187);
    List().sortByColumn(MessageListModel::TextColumn, Qt::DescendingOrder);
    Find<QSplitter>(QStringLiteral("splitter")).setSizes({260, 600});
    QCoreApplication::processEvents();
    const int tree = Find<QSplitter>(QStringLiteral("splitter")).sizes()[0];
    Reopen();
    EXPECT_EQ(Folders().FolderAt(Tree().currentIndex()), &Content().OnPc(personalPlace));
    EXPECT_EQ(List().header()->sortIndicatorSection(), MessageListModel::TextColumn);
    EXPECT_EQ(List().header()->sortIndicatorOrder(), Qt::DescendingOrder);
    Close();

    Start();
    QCoreApplication::processEvents();
    EXPECT_EQ(List().header()->sectionSize(MessageListModel::AddressColumn), 187);
    EXPECT_NEAR(Find<QSplitter>(QStringLiteral("splitter")).sizes()[0], tree, 3);
    EXPECT_EQ(Folders().FolderAt(Tree().currentIndex()), &Content().OnPc(personalPlace));
    EXPECT_EQ(List().header()->sortIndicatorSection(), MessageListModel::TextColumn);
    Close();

    Settings damaged(*store);
    damaged.SetList(SettingIndex::SmsColumns, {5, -7, 1'000'000'000, 0});
    damaged.SetList(SettingIndex::SmsSplitter, {1});
    damaged.SetList(SettingIndex::SmsFolder, {-1, 77});
    damaged.SetList(SettingIndex::SmsSorting, {9, 9});
    Start();
    for (int column = 0; column < MessageListModel::ColumnCount; ++column)
        EXPECT_GE(List().header()->sectionSize(column), 20);
    EXPECT_EQ(Folders().FolderAt(Tree().currentIndex()), &Content().OnHandset(inboxPlace));
    EXPECT_EQ(List().header()->sortIndicatorSection(), MessageListModel::TimeColumn);
}

TEST_F(MessagesView, ExportsAndImports) {
    Open();
    MessageFolder& inbox = Content().OnPc(inboxPlace);
    Put(inbox, u"She said \"yes\"");
    Put(inbox, u"Привет");
    OpenFolder(inbox);
    Reopen();
    const std::filesystem::path file = folder / "some messages.csv";
    user.files = {{file}, {file}, {folder / "nowhere/at all"}};
    Do("exportMessages");
    OpenFolder(Content().OnHandset(draftPlace));
    Do("importMessages");
    EXPECT_EQ(TextsIn(inbox), (Texts{u"She said \"yes\"", u"Привет", u"She said \"yes\"", u"Привет"}))
        << "a folder of the handset can't take them, the PC's Inbox does";
    Do("importMessages");
    EXPECT_TRUE(user.heard.back().starts_with(u"Fail to import message from file!"));

    OpenFolder(inbox);
    SelectRows({RowOf(QStringLiteral("She"))});
    user.files = {{file}, {file}};
    Do("saveText");
    OpenFolder(Content().OnPc(personalPlace));
    Do("importMessages");
    EXPECT_EQ(TextsIn(Content().OnPc(personalPlace)), Texts{u"She said \"yes\""});
}

}  // namespace
}  // namespace tarnbridge::test
