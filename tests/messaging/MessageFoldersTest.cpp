#include <gtest/gtest.h>

#include "core/base/StringTable.h"
#include "messaging/MessageFolders.h"
#include "messaging/MessageList.h"
#include "messaging/MessageTaskTest.h"
#include "support/ScriptedUser.h"

namespace tarnbridge::test {
namespace {

class MessageFoldersTest : public ::testing::Test {
protected:
    MessageFoldersTest() {
        personal.attributes.allowsSubfolders = 1;
        trash.name = u"Trash Can";
    }

    MessageFolder root;
    MessageTree tree = MakeTree(root);
    MessageFolder& personal = tree.OnPc(personalPlace);
    MessageFolder& trash = tree.OnPc(messageTrashPlace);
    ScriptedUser user;
    FakeKeeper keeper;
    MessageFolders folders{tree, user, keeper};
};

TEST_F(MessageFoldersTest, AreMadeRenamedAndMovedToTheTrashWithTheirContent) {
    MessageFolder* const made = folders.Make(personal, {});
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->name, u"New Folder");
    EXPECT_FALSE(folders.Rename(*made, {})) << "an empty name leaves the old one";
    EXPECT_TRUE(folders.Rename(*made, u"Family"));
    MessageFolder* const below = folders.Make(*made, u"Sister");
    ASSERT_NE(below, nullptr);
    below->Append(std::make_unique<SmsRecord>());
    EXPECT_EQ(folders.Make(trash, u"x"), nullptr);
    EXPECT_FALSE(folders.Rename(personal, u"x")) << "not the user's";
    EXPECT_FALSE(folders.Remove(personal));

    user.answers = {Answer::Cancel, Answer::Yes, Answer::No, Answer::Yes};
    EXPECT_FALSE(folders.Remove(*made));
    EXPECT_TRUE(folders.Remove(*made));
    EXPECT_TRUE(personal.children.empty());
    EXPECT_TRUE(tree.IsInTrash(*below)) << "with all that is in it";
    EXPECT_FALSE(folders.Remove(*below)) << "for good only when the user says so";
    EXPECT_TRUE(folders.Remove(*below));
    EXPECT_TRUE(made->children.empty());
    EXPECT_EQ(user.heard,
              (std::vector<std::u16string>{u"Failed to create new folder!",
                                           u"Do you want to move this folder to Trash Can?",
                                           u"Do you want to move this folder to Trash Can?",
                                           u"Are you sure to delete ?", u"Are you sure to delete ?"}));
    EXPECT_EQ(keeper.changes, 5);

    MessageFolder& other = *folders.Make(personal, u"Other");
    user.answers = {Answer::No, Answer::No, Answer::No, Answer::Yes};
    EXPECT_FALSE(folders.Remove(other)) << "not for good without a Yes";
    EXPECT_EQ(other.parent, &personal);
    EXPECT_TRUE(folders.Remove(other));
    EXPECT_TRUE(personal.children.empty());
    EXPECT_EQ(trash.children.size(), 1u);
}

TEST_F(MessageFoldersTest, GoUnderOthersButNotIntoThemselves) {
    MessageFolder& family = *folders.Make(personal, u"Family");
    MessageFolder& sister = *folders.Make(family, u"Sister");
    MessageFolder& inbox = tree.OnPc(inboxPlace);
    EXPECT_FALSE(folders.Move(family, family) || folders.Move(family, sister)) << "a folder without a root";
    EXPECT_FALSE(folders.Move(family, personal)) << "there already";
    EXPECT_FALSE(folders.Move(family, inbox) || folders.Move(inbox, family));
    EXPECT_TRUE(folders.Move(sister, personal));
    EXPECT_EQ(sister.parent, &personal);
    EXPECT_TRUE(folders.Move(sister, trash));
    EXPECT_TRUE(tree.IsInTrash(sister));
    EXPECT_TRUE(folders.Move(sister, family)) << "and back";
    EXPECT_TRUE(trash.children.empty());
    EXPECT_EQ(keeper.changes, 5);
}

TEST_F(MessageFoldersTest, TransfersAndCleaningAskAndRefuse) {
    MessageFolder& inbox = tree.OnPc(inboxPlace);
    EXPECT_FALSE(folders.MayTransfer(inbox, inbox, true));
    EXPECT_TRUE(folders.MayTransfer(inbox, inbox, false));
    EXPECT_FALSE(folders.MayTransfer(inbox, tree.PcRoot(), true));
    EXPECT_EQ(user.heard[0], u"Can't move the message(s) to the same folder!");
    trash.Append(std::make_unique<SmsRecord>());
    trash.Append(std::make_unique<MessageFolder>());
    user.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(folders.CleanTrash());
    EXPECT_EQ(trash.records.size(), 1u);
    EXPECT_TRUE(folders.CleanTrash());
    EXPECT_TRUE(trash.records.empty() && trash.children.empty());
}

TEST_F(MessageFoldersTest, QuestionsSayWhatWillHappenAndWhatDestroys) {
    std::vector<std::unique_ptr<SmsRecord>> owned;
    const auto records = [&](size_t count, size_t unreadable) {
        std::vector<SmsRecord*> chosen;
        for (size_t i = 0; i < count; ++i) {
            owned.push_back(std::make_unique<SmsRecord>());
            if (i < unreadable) owned.back()->unreadable = "00";
            chosen.push_back(owned.back().get());
        }
        return chosen;
    };
    const struct Row {
        const MessageFolder& folder;
        size_t messages;
        size_t unreadable;
        const char16_t* effect;
        const char16_t* yes;
        bool destroys;
        size_t left;
    } rows[] = {
        {tree.OnHandset(inboxPlace), 3, 0, u"3 messages on the phone. They can't be brought back.", u"Delete",
         true, 3},
        {tree.OnHandset(inboxPlace), 1, 1,
         u"1 message on the phone. It can't be brought back.\n"
         u"Tarnbridge can't read it; the phone may be able to.",
         u"Delete", true, 1},
        {tree.OnHandset(inboxPlace), 3, 1,
         u"2 messages on the phone. They can't be brought back.\n"
         u"Messages that can't be read and stay: 1. Delete them one at a time.",
         u"Delete", true, 2},
        {tree.OnPc(inboxPlace), 1, 0, u"1 message goes to the Trash Can.", u"Move to Trash Can", false, 1},
        {trash, 2, 0, u"2 messages in the Trash Can. They can't be brought back.", u"Delete", true, 2},
    };
    for (const Row& row : rows) {
        user.answers = {Answer::Yes};
        std::vector<SmsRecord*> chosen = records(row.messages, row.unreadable);
        EXPECT_TRUE(folders.ConfirmDelete(row.folder, chosen));
        const Question& asked = user.questions.back();
        EXPECT_EQ(asked.words, u"Do you want to delete the message(s)?");
        EXPECT_EQ(asked.effect, row.effect);
        EXPECT_EQ(asked.yes, row.yes);
        EXPECT_EQ(asked.destroys == Answer::Yes, row.destroys);
        EXPECT_EQ(chosen.size(), row.left);
    }
    std::vector<SmsRecord*> several = records(2, 2);
    EXPECT_FALSE(folders.ConfirmDelete(tree.OnHandset(inboxPlace), several)) << "each one alone";
    EXPECT_EQ(user.heard.back(), Words(Word::UnreadableGoAlone));

    MessageFolder& family = *folders.Make(personal, u"Family");
    folders.Make(family, u"Sister")->Append(std::make_unique<SmsRecord>());
    user.answers = {Answer::Cancel};
    EXPECT_FALSE(folders.Remove(family));
    EXPECT_EQ(user.questions.back().effect, u"\"Family\" and all that is in it. Messages: 1.");
    EXPECT_EQ(user.questions.back().destroys, Answer::No);

    // Who has turned the questions about the trash can off is still asked before something is gone.
    MessageFolders quiet(tree, user, keeper, false);
    std::vector<SmsRecord*> chosen = records(1, 0);
    EXPECT_TRUE(quiet.ConfirmDelete(tree.OnPc(inboxPlace), chosen));
    EXPECT_TRUE(quiet.Remove(family));
    EXPECT_TRUE(tree.IsInTrash(family));
    user.answers = {Answer::No, Answer::No, Answer::No};
    EXPECT_FALSE(quiet.ConfirmDelete(trash, chosen) || quiet.Remove(family) || quiet.CleanTrash());
}

TEST_F(MessageFoldersTest, TheListSortsAndFiltersWithoutTouchingTheRecords) {
    struct Case {
        const char* number;
        const char16_t* text;
        uint16_t year;
        const char16_t* storage;
    };
    for (const Case& row : {Case{"+2", u"B\u001B{\u00C4rger", 7, u"ME"}, Case{"+1", u"a", 99, u"SM"},
                            Case{"+3", u"c", 107, u"PC"}}) {
        auto record = std::make_unique<SmsRecord>();
        record->dcs = 8;
        record->text16 = row.text;
        record->address.number = row.number;
        record->timestamp.year = row.year;
        record->storage = row.storage;
        personal.Append(std::move(record));
    }
    MessageList list;
    list.Open(personal);
    const auto cells = [&](MessageList::Column column) {
        std::vector<std::u16string> found;
        for (size_t i = 0; i < list.Count(); ++i)
            found.push_back(MessageList::CellOf(list.At(i), column));
        return found;
    };
    using Column = MessageList::Column;
    using Cells = std::vector<std::u16string>;
    EXPECT_EQ(cells(Column::Text), (Cells{u"B{\u00C4rger", u"a", u"c"}));
    list.Sort(Column::Time, true);
    EXPECT_EQ(cells(Column::Address), (Cells{u"+1", u"+2", u"+3"})) << "1999, 2007, 2007 as imported";
    list.Sort(Column::Memory, false);
    EXPECT_EQ(cells(Column::Memory), (Cells{u"SIM", u"PC", u"ME"}));
    list.Filter(u"\u00E4RG");
    EXPECT_EQ(cells(Column::Address), Cells{u"+2"});
    list.Filter(u"");
    EXPECT_EQ(list.Count(), 3u);
    personal.RemoveRecords();
    EXPECT_EQ(cells(Column::Memory), (Cells{u"SIM", u"PC", u"ME"}))
        << "as it was, though the records are gone";
    list.Sort(Column::Time, false);
    EXPECT_EQ(cells(Column::Time).size(), 3u);
}

}  // namespace
}  // namespace tarnbridge::test
