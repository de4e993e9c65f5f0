#include <QPrintPreviewWidget>
#include <QTest>

#include "ui/messages/MessagesView.h"

namespace tarnbridge::test {
namespace {

using Texts = std::vector<std::u16string>;

TEST(MessageCommandsTest, TellsWhatIsInTheWayOfACommand) {
    using C = MessageCommands;
    using S = MessageSituation;
    const S everything{.busy = false,
                       .connected = true,
                       .selected = 1,
                       .canSend = true,
                       .inFolder = 1,
                       .holdsMessages = true,
                       .mayMakeFolder = true,
                       .mayChangeFolder = true,
                       .isTrash = true,
                       .trashHasContent = true,
                       .outboxHasMessages = true,
                       .canPaste = true};
    for (int command = 0; command < C::Count; ++command)
        EXPECT_EQ(C::Obstacle(static_cast<C::Command>(command), everything), std::nullopt) << command;

    struct Row {
        C::Command command;
        void (*change)(S&);
        std::optional<Word> expected;
    };
    const Row rows[] = {
        {C::ReadMessages, [](S& s) { s.connected = false; }, Word::ObstacleNoHandset},
        {C::ReadMessages, [](S& s) { s.connected = false, s.busy = true; }, Word::ObstacleBusy},
        {C::SendMessage, [](S& s) { s.selected = 0; }, Word::ObstacleNoMessage},
        {C::SendMessage, [](S& s) { s.canSend = false; }, Word::OnlyReceived},
        {C::SendAllMessages, [](S& s) { s.outboxHasMessages = false; }, Word::ObstacleEmptyOutbox},
        {C::ReplyMessage, [](S& s) { s.selected = 2; }, Word::ObstacleNotOneMessage},
        {C::OpenMessage, [](S& s) { s.connected = false, s.busy = true; }, std::nullopt},
        {C::DeleteMessages, [](S& s) { s.connected = false, s.selected = 5; }, std::nullopt},
        {C::DeleteMessages, [](S& s) { s.busy = true; }, Word::ObstacleBusy},
        {C::PasteMessages, [](S& s) { s.canPaste = false; }, Word::ObstacleNothingCut},
        {C::PasteMessages, [](S& s) { s.holdsMessages = false; }, Word::ObstacleNoPlaceForMessages},
        {C::ExportMessages, [](S& s) { s.inFolder = 0; }, Word::ObstacleEmptyFolder},
        {C::MakeFolder, [](S& s) { s.mayMakeFolder = false; }, Word::ObstacleNoPlaceForFolder},
        {C::RenameFolder, [](S& s) { s.mayChangeFolder = false; }, Word::ObstacleFixedFolder},
        {C::CleanTrash, [](S& s) { s.trashHasContent = false; }, Word::ObstacleEmptyFolder},
    };
    for (const Row& row : rows) {
        S situation = everything;
        row.change(situation);
        EXPECT_EQ(C::Obstacle(row.command, situation), row.expected) << &row - rows;
    }
}

TEST_F(MessagesView, MovesAndCopiesByTheMenu) {
    Open();
    ReadAll();
    constexpr size_t handsetDraftRow = 4;
    constexpr size_t personalRow = 10;
    MessageFolder& personal = Content().OnPc(personalPlace);
    OpenFolder(Content().OnHandset(inboxPlace));
    const size_t phone = CountOn("ME");
    SelectRows({RowOf(QStringLiteral("Hi! The 7:40"))});
    user.folders = {std::nullopt, FolderChoice{personalRow}};
    Do("moveMessages");
    EXPECT_TRUE(personal.records.empty()) << "given up";
    Do("moveMessages");
    EXPECT_EQ(personal.records.size(), 1u);
    EXPECT_EQ(CountOn("ME"), phone - 3) << "all its parts";
    EXPECT_EQ(Messages().rowCount(), 33);

    OpenFolder(personal);
    SelectRows({0});
    const size_t sim = CountOn("SM");
    user.folders = {FolderChoice{handsetDraftRow, u"SM"}, FolderChoice{personalRow}};
    Do("copyMessagesTo");
    EXPECT_GT(CountOn("SM"), sim);
    EXPECT_EQ(personal.records.size(), 1u);
    Do("moveMessages");
    EXPECT_EQ(user.heard.back(), u"Can't move the message(s) to the same folder!");

    // Without a handset its folders aren't offered, so all rows are those of the PC.
    handset.Unplug();
    ASSERT_TRUE(AwaitWords(QStringLiteral("Disconnected!")));
    user.folders = {FolderChoice{1}};
    Do("moveMessages");
    EXPECT_EQ(Content().OnPc(inboxPlace).records.size(), 1u);
}

TEST_F(MessagesView, KeysGoToWhatHasTheFocus) {
    Open();
    MessageFolder& personal = Content().OnPc(personalPlace);
    auto own = std::make_unique<MessageFolder>();
    own->name = u"own";
    own->attributes.userFolder = 1;
    MessageFolder& mine = personal.Append(std::move(own));
    for (const char16_t* const text : {u"a", u"b"})
        Put(mine, text);
    Reopen();
    OpenFolder(mine);
    SelectRows({0});
    Frame().activateWindow();
    auto& find = Find<QLineEdit>(QStringLiteral("find"));

    find.setFocus();
    QTest::keyClicks(&find, QStringLiteral("ab"));
    QTest::keyClick(&find, Qt::Key_Home);
    QTest::keyClick(&find, Qt::Key_Delete);
    EXPECT_EQ(find.text(), QStringLiteral("b"));
    QTest::keySequence(&find, QKeySequence::SelectAll);
    EXPECT_EQ(find.selectedText(), QStringLiteral("b"));
    QTest::keyClick(&find, Qt::Key_Escape);
    EXPECT_TRUE(user.heard.empty());

    List().setFocus();
    QTest::keySequence(&List(), QKeySequence::SelectAll);
    EXPECT_EQ(List().selectionModel()->selectedRows().size(), 2);
    user.answers = {Answer::No, Answer::Cancel};
    QTest::keyClick(&List(), Qt::Key_Delete);
    Tree().setFocus();
    QTest::keyClick(&Tree(), Qt::Key_Delete);
    ASSERT_EQ(user.heard.size(), 2u);
    EXPECT_EQ(user.heard[0], u"Do you want to delete the message(s)?");
    EXPECT_TRUE(user.heard[1].starts_with(u"Do you want to move this folder to"));
    QTest::keyClick(&Tree(), Qt::Key_F2);
    auto* const name = Tree().findChild<QLineEdit*>();
    ASSERT_NE(name, nullptr);
    QTest::keyClick(name, Qt::Key_Delete);
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_EQ(user.heard.size(), 2u) << "within a name the key is that of a text";
    EXPECT_EQ(mine.name, u"own") << "a folder has a name";
}

TEST_F(MessagesView, ShowsThePagesBeforePrinting) {
    Open();
    ReadAll();
    OpenFolder(Content().OnHandset(inboxPlace));
    List().selectAll();
    int pages = 0;
    OnDialog(QStringLiteral("preview"), [&](QDialog& dialog) {
        pages = dialog.findChild<QPrintPreviewWidget*>()->pageCount();
        dialog.reject();
    });
    Do("printPreview");
    EXPECT_GT(pages, 1);
}

}  // namespace
}  // namespace tarnbridge::test
