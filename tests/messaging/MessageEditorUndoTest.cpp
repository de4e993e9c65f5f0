#include "messaging/EditorSupport.h"

namespace tarnbridge {
namespace {

using MessageEditorUndoTest = EmsTest;

TEST_F(MessageEditorUndoTest, UndoAndRedoOverSwitchesOfCoding) {
    MessageEditor editor = MakeEditor();
    std::vector<std::string> states{Seen(editor.Shown())};
    const auto done = [&](EmsResult result) {
        ASSERT_EQ(result, EmsResult::Done);
        states.push_back(Seen(editor.Shown()) + Figures(editor));
    };
    states.back() += Figures(editor);
    done(Type(editor, u"two {words}"));
    done(editor.Insert(3, MessageObject::PredefinedSound(5)));
    done(editor.ApplyFormat(0, 7, bold));
    done(editor.Replace(2, 2, u"\u4E2D"));
    done(editor.Delete(1, 6));
    done(editor.Replace(0, 1, editor.Fragment(0, 4)));
    for (size_t i = states.size() - 1; i > 0; --i) {
        ASSERT_TRUE(editor.CanUndo());
        editor.Undo();
        EXPECT_EQ(Seen(editor.Shown()) + Figures(editor), states[i - 1]);
        CheckEditor(editor);
    }
    EXPECT_FALSE(editor.CanUndo());
    EXPECT_FALSE(editor.Modified());
    for (size_t i = 1; i < states.size(); ++i) {
        editor.Redo();
        EXPECT_EQ(Seen(editor.Shown()) + Figures(editor), states[i]);
    }
    EXPECT_FALSE(editor.CanRedo());
    editor.Undo();
    Type(editor, u"!");
    EXPECT_FALSE(editor.CanRedo()) << "a change forgets what was undone";
}

TEST_F(MessageEditorUndoTest, TypingIsUndoneWordByWord) {
    MessageEditor editor = MakeEditor();
    for (const char16_t unit : std::u16string_view(u"one two\nx"))
        Type(editor, std::u16string_view(&unit, 1));
    std::vector<std::u16string> texts;
    while (editor.CanUndo()) {
        editor.Undo();
        texts.push_back(editor.Shown().Text());
    }
    EXPECT_EQ(texts, (std::vector<std::u16string>{u"one two\n", u"one two", u"one ", u""}));
    while (editor.CanRedo())
        editor.Redo();
    for (int i = 0; i < 3; ++i)
        editor.Delete(editor.Caret() - 1, editor.Caret());
    EXPECT_EQ(editor.Shown().Text(), u"one tw");
    editor.Undo();
    EXPECT_EQ(editor.Shown().Text(), u"one two\nx") << "in one";
    EXPECT_EQ(editor.Caret(), 9);
    // The caret taken elsewhere and back ends a step; a refused change doesn't.
    Type(editor, u"y");
    editor.MoveCaret(0);
    editor.MoveCaret(10);
    Type(editor, u"z");
    EXPECT_EQ(editor.Replace(0, 0, std::u16string(2000, u'x')), EmsResult::NoRoom);
    Type(editor, u"z");
    editor.Undo();
    EXPECT_EQ(editor.Shown().Text(), u"one two\nxy");
    for (int i = 0; i < 200; ++i)
        editor.Insert(0, MessageObject::PredefinedSound(1));
    int steps = 0;
    for (; editor.CanUndo(); ++steps)
        editor.Undo();
    EXPECT_EQ(steps, 50);
}

TEST_F(MessageEditorUndoTest, ModifiedUntilItIsAsItWasSaved) {
    MessageEditor editor = MakeEditor();
    Type(editor, u"a");
    EXPECT_TRUE(editor.Modified());
    editor.MarkSaved();
    editor.Replace(1, 1, u"\n");
    EXPECT_TRUE(editor.Modified());
    editor.Undo();
    EXPECT_FALSE(editor.Modified());
    editor.Undo();
    EXPECT_TRUE(editor.Modified());
    Type(editor, u"a");
    EXPECT_TRUE(editor.Modified()) << "typed again";
}

TEST_F(MessageEditorUndoTest, WithoutSlotsTheOldestStepsGo) {
    EXPECT_TRUE(MessageEditor::Make({}));
    std::vector<EmsHandle> all;
    MessageEditor editor = MakeEditor();
    while (EmsHandle next = EmsHandle::Make(0))
        all.push_back(std::move(next));
    EXPECT_FALSE(MessageEditor::Make({}));
    all.pop_back();
    for (const char16_t* const word : {u"one ", u"two ", u"three "})
        ASSERT_EQ(Type(editor, word), EmsResult::Done);
    EXPECT_EQ(Type(editor, std::u16string(1531, u'x')), EmsResult::NoRoom);
    EXPECT_EQ(editor.Shown().Text(), u"one two three ");
    editor.Undo();
    EXPECT_EQ(editor.Shown().Text(), u"one two ");
    EXPECT_FALSE(editor.CanUndo());
    ASSERT_EQ(Type(editor, u"four"), EmsResult::Done);
    EXPECT_EQ(editor.Shown().Text(), u"one two four");
}

}  // namespace
}  // namespace tarnbridge
