#include <QTest>

#include "ui/messages/MessagesView.h"

namespace tarnbridge::test {
namespace {

TEST_F(MessagesView, MovesAndCopiesByTheMenu) {
    Open();
    ReadAll();
    constexpr size_t handsetDraftRow = 4;
    constexpr size_t personalRow = 10;
    MessageFolder& personal = Content().OnPc(personalPlace);
    OpenFolder(Content().OnHandset(inboxPlace));
    SelectRows({RowOf(QStringLiteral("Hi! The 7:40"))});
    user.folders = {std::nullopt, FolderChoice{personalRow}};
    Do("moveMessages");
    EXPECT_TRUE(personal.records.empty()) << "given up";
    Do("moveMessages");
    EXPECT_EQ(personal.records.size(), 1u);

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

}  // namespace
}  // namespace tarnbridge::test
