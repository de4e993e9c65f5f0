#include <QAbstractItemModelTester>
#include <QApplication>
#include <QTest>
#include <random>

#include "ui/messages/MessagesView.h"

namespace tarnbridge::test {
namespace {

struct NoKeeper : MessageKeeper {
    void PcFoldersChanged() override {}
    bool SaveNow() override { return true; }
};

TEST_F(MessagesView, FoldersAreMadeNamedMovedAndDeleted) {
    Open();
    const QAbstractItemModelTester tester(&Folders());
    MessageFolder& personal = Content().OnPc(personalPlace);
    MessageFolder& trash = Content().OnPc(messageTrashPlace);
    OpenFolder(Content().OnPc(inboxPlace));
    EXPECT_FALSE(Command("makeFolder").isEnabled());
    EXPECT_FALSE(Command("renameFolder").isEnabled());
    EXPECT_FALSE(Folders().flags(Tree().currentIndex()).testFlag(Qt::ItemIsEditable));

    OpenFolder(personal);
    Command("makeFolder").trigger();
    ASSERT_EQ(personal.children.size(), 1u);
    MessageFolder& family = *personal.children[0];
    EXPECT_EQ(family.name, u"New Folder");
    auto* const editor = Tree().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr) << "its name is there to be written over";
    QTest::keyClicks(editor, QStringLiteral("Family"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(family.name, u"Family");
    EXPECT_EQ(Folders().FolderAt(Tree().currentIndex()), &family);
    Put(family, u"in it");

    Command("makeFolder").trigger();
    ASSERT_EQ(family.children.size(), 1u) << "below it";
    MessageFolder& sister = *family.children[0];
    QTest::keyClick(Tree().findChild<QLineEdit*>(), Qt::Key_Escape);

    // A folder goes where it is dropped, but not into itself or where none may be.
    const auto dragged = [this](MessageFolder& moved) {
        return Folders().mimeData({Folders().IndexOf(&moved)});
    };
    Drop(dragged(family), sister);
    Drop(dragged(family), Content().OnPc(outboxPlace));
    Drop(dragged(sister), personal, Qt::CopyAction);
    EXPECT_EQ(sister.parent, &family);
    Drop(dragged(sister), personal);
    EXPECT_EQ(sister.parent, &personal);
    Drop(dragged(sister), family);
    EXPECT_EQ(sister.parent, &family);

    // The folder that is open goes with all below it.
    OpenFolder(sister);
    Put(sister, u"deep");
    user.answers = {Answer::Yes};
    OpenFolder(family);
    Do("deleteFolder");
    EXPECT_EQ(family.parent, &trash);
    EXPECT_TRUE(personal.children.empty());
    EXPECT_TRUE(Folders().IndexOf(&sister).isValid()) << "in the trash can";
}

TEST_F(MessagesView, CleaningTheTrashCanWhileAFolderInItIsOpen) {
    Start();
    MessageFolder& trash = Content().OnPc(messageTrashPlace);
    const MessageFolder* last = nullptr;
    for (int i = 0; i < 3; ++i) {
        auto thrown = std::make_unique<MessageFolder>();
        thrown->attributes.userFolder = 1;
        Put(*thrown, u"thrown away");
        last = &trash.Append(std::move(thrown));
    }
    Reopen();
    OpenFolder(*last);
    ASSERT_EQ(Messages().rowCount(), 1);
    OpenFolder(trash);
    user.answers = {Answer::Yes};
    Command("cleanTrash").trigger();
    EXPECT_EQ(Folders().rowCount(Folders().IndexOf(&trash)), 0);
    EXPECT_EQ(Folders().FolderAt(Tree().currentIndex()), &trash);
}

TEST(MessageTreeModelTest, FollowsWhateverHappensToTheFolders) {
    MessageFolder root;
    for (const size_t count : {size_t{4}, size_t{6}}) {
        MessageFolder& side = root.Append(std::make_unique<MessageFolder>());
        for (size_t i = 0; i < count; ++i)
            side.Append(std::make_unique<MessageFolder>());
    }
    const MessageTree tree(root);
    NoKeeper keeper;
    ScriptedUser user;
    MessageFolders folders(tree, user, keeper);
    MessageTreeModel model(tree, folders, nullptr);
    const QAbstractItemModelTester tester(&model);
    QTreeView view;
    view.setModel(&model);

    std::mt19937 random(7);
    const auto draw = [&random](size_t count) { return random() % count; };
    for (int round = 0; round < 300; ++round) {
        // Some changes at once, each of which takes a folder from one place and may put it at another.
        for (size_t change = draw(4); change > 0; --change) {
            std::vector<MessageFolder*> all = {&tree.OnPc(personalPlace), &tree.OnPc(messageTrashPlace)};
            for (size_t i = 0; i < all.size(); ++i) {
                for (const auto& child : all[i]->children)
                    all.push_back(child.get());
            }
            MessageFolder& parent = *all[draw(all.size())];
            if (parent.children.empty() || draw(3) == 0) {
                parent.Append(std::make_unique<MessageFolder>()).name = u"x";
                continue;
            }
            const auto place = static_cast<std::ptrdiff_t>(draw(parent.children.size()));
            auto taken = std::move(parent.children[static_cast<size_t>(place)]);
            parent.children.erase(parent.children.begin() + place);
            if (draw(2) == 0) (&parent == all[0] ? all[1] : all[0])->Append(std::move(taken));
        }
        model.Refresh();
        view.setCurrentIndex(model.IndexOf(&tree.OnPc(personalPlace)));
        std::vector<std::pair<const MessageFolder*, QModelIndex>> waiting = {{&root, QModelIndex()}};
        while (!waiting.empty()) {
            const auto [folder, index] = waiting.back();
            waiting.pop_back();
            ASSERT_EQ(model.rowCount(index), static_cast<int>(folder->children.size()));
            for (size_t i = 0; i < folder->children.size(); ++i) {
                const QModelIndex child = model.index(static_cast<int>(i), 0, index);
                ASSERT_EQ(model.FolderAt(child), folder->children[i].get());
                waiting.push_back({folder->children[i].get(), child});
            }
        }
    }
}

TEST(MessageTreeModelTest, ATreeOfAnyDepthNeedsNoStack) {
    MessageFolder root;
    root.Append(std::make_unique<MessageFolder>());
    MessageFolder* level = &root.Append(std::make_unique<MessageFolder>());
    for (int i = 0; i < 6; ++i)
        level->Append(std::make_unique<MessageFolder>());
    level = level->children.back().get();
    for (int depth = 0; depth < 200'000; ++depth)
        level = &level->Append(std::make_unique<MessageFolder>());
    for (int i = 0; i < 4; ++i)
        root.children[0]->Append(std::make_unique<MessageFolder>());
    const MessageTree tree(root);
    NoKeeper keeper;
    ScriptedUser user;
    MessageFolders folders(tree, user, keeper);
    MessageTreeModel model(tree, folders, nullptr);
    EXPECT_TRUE(model.IndexOf(level).isValid());
    tree.OnPc(messageTrashPlace).RemoveChildren();
    model.Refresh();
    EXPECT_FALSE(model.IndexOf(level).isValid());
}

}  // namespace
}  // namespace tarnbridge::test
