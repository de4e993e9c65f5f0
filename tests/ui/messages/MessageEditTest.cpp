#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <random>

#include "ui/QtText.h"
#include "ui/messages/MessageEdit.h"
#include "ui/messages/WidgetSupport.h"

namespace tarnbridge::test {
namespace {

struct OpenEdit : MessageEdit {
    using MessageEdit::createMimeDataFromSelection;
    using MessageEdit::dropEvent;
    using MessageEdit::MessageEdit;
    using MessageEdit::TipAt;
};

/// Text controls on editors, each of which must show what its editor holds.
class EditTest : public EmsTest {
protected:
    struct Control {
        explicit Control(const EditorOptions& options = {}) : editor(MakeEditor(options)), edit(editor) {
            edit.resize(400, 200);
            edit.show();
        }

        /// As the keys of a layout with such letters give it.
        void Keys(const QString& text) {
            for (const char32_t character : text.toStdU32String()) {
                QKeyEvent press(QEvent::KeyPress, 0, {}, QString::fromUcs4(&character, 1));
                QApplication::sendEvent(&edit, &press);
            }
        }
        void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(&edit, key, modifiers);
        }
        void Select(int from, int to) {
            QTextCursor cursor = edit.textCursor();
            cursor.setPosition(from);
            cursor.setPosition(to, QTextCursor::KeepAnchor);
            edit.setTextCursor(cursor);
        }
        QPoint PlaceOf(int position) {
            QTextCursor cursor = edit.textCursor();
            cursor.setPosition(position);
            return edit.cursorRect(cursor).center() + QPoint(1, 0);
        }
        std::string Seen() { return tarnbridge::Seen(editor.Shown()); }

        MessageEditor editor;
        OpenEdit edit;
    };

    void Check(Control& control) {
        CheckEditor(control.editor);
        ASSERT_EQ(control.edit.document()->toRawText().replace(QChar::ParagraphSeparator, u'\n'),
                  ToQString(control.editor.Shown().Text()));
        MessageDocument whole(nullptr);
        whole.Show(control.editor.Shown(), control.editor.TypingFormat(control.editor.Shown().Length()));
        ASSERT_EQ(Describe(*control.edit.document()), Describe(whole));
    }
};

TEST_F(EditTest, KeysWriteEraseAndTakeBack) {
    Control control;
    control.Keys("Hello [you]");
    control.Key(Qt::Key_Return);
    control.Keys("bye");
    EXPECT_EQ(control.Seen(), "Hello [you]¶bye");
    control.Key(Qt::Key_Backspace);
    control.Key(Qt::Key_Home);
    control.Key(Qt::Key_Backspace);
    EXPECT_EQ(control.Seen(), "Hello [you]by");
    EXPECT_EQ(control.edit.textCursor().position(), 11);
    control.Key(Qt::Key_Delete);
    control.Key(Qt::Key_Backspace, Qt::ControlModifier);
    control.Key(Qt::Key_Home, Qt::ControlModifier);
    control.Key(Qt::Key_Backspace);
    control.Key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(control.Seen(), "[youy");
    Check(control);
    for (int i = 0; i < 20; ++i)
        control.Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(control.Seen(), "");
    for (int i = 0; i < 20; ++i)
        control.edit.RedoCommand()->trigger();
    EXPECT_EQ(control.Seen(), "[youy");
    EXPECT_EQ(control.edit.textCursor().position(), control.editor.Caret());
    control.Key(Qt::Key_A, Qt::ControlModifier);
    control.Keys("x");
    EXPECT_EQ(control.Seen(), "x");
    Check(control);
}

TEST_F(EditTest, WhateverIsPressedTheControlShowsTheModel) {
    static constexpr std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_Backspace, Qt::NoModifier},
        {Qt::Key_Delete, Qt::NoModifier},
        {Qt::Key_Backspace, Qt::ControlModifier},
        {Qt::Key_Delete, Qt::ControlModifier},
        {Qt::Key_Return, Qt::NoModifier},
        {Qt::Key_Return, Qt::ShiftModifier},
        {Qt::Key_Left, Qt::NoModifier},
        {Qt::Key_Right, Qt::ShiftModifier},
        {Qt::Key_Left, Qt::ControlModifier},
        {Qt::Key_Up, Qt::NoModifier},
        {Qt::Key_Down, Qt::ShiftModifier},
        {Qt::Key_Home, Qt::NoModifier},
        {Qt::Key_End, Qt::ShiftModifier},
        {Qt::Key_A, Qt::ControlModifier},
        {Qt::Key_C, Qt::ControlModifier},
        {Qt::Key_X, Qt::ControlModifier},
        {Qt::Key_V, Qt::ControlModifier},
        {Qt::Key_Z, Qt::ControlModifier},
        {Qt::Key_Y, Qt::ControlModifier},
        {Qt::Key_K, Qt::ControlModifier},
        {Qt::Key_Insert, Qt::NoModifier},
        {Qt::Key_Insert, Qt::ShiftModifier},
        {Qt::Key_Tab, Qt::NoModifier},
        {Qt::Key_Escape, Qt::NoModifier}};
    std::mt19937 random(7);
    const auto pick = [&](size_t below) { return static_cast<size_t>(random() % below); };
    Control control;
    for (int step = 0; step < 500; ++step) {
        static const QString texts[] = {"a", "\u4E2D", "{", "\u05D0", "\U0001F600", "e\u0301"};
        switch (pick(5)) {
            case 0: {
                const auto& [key, modifiers] = keys[pick(std::size(keys))];
                control.Key(key, modifiers);
                break;
            }
            case 1:
                control.edit.ApplyFormat(
                    {.alignment = static_cast<uint8_t>(pick(4)), .underline = static_cast<uint8_t>(pick(2))});
                break;
            case 2:
                control.edit.InsertObject(pick(2) ? MessageObject::PredefinedAnimation(3) : DotPicture());
                break;
            default:
                control.Keys(texts[pick(std::size(texts))]);
        }
        Check(control);
        if (HasFatalFailure()) FAIL() << "step " << step;
        ASSERT_EQ(control.edit.textCursor().position(), control.editor.Caret()) << "step " << step;
    }
}

TEST_F(EditTest, WhatDoesNotFitChangesNothingAndIsSaid) {
    Control full;
    QApplication::clipboard()->setText(QString(1530, u'x'));
    full.Key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(full.editor.Shown().Length(), 1530);
    QSignalSpy refused(&full.edit, &MessageEdit::refused);
    QSignalSpy edited(&full.edit, &MessageEdit::edited);
    full.Keys("y");
    ASSERT_EQ(refused.size(), 1);
    EXPECT_EQ(refused[0][0].toString(), QWords(Word::EmsMessageTooLong));
    full.edit.InsertObject(DotPicture());
    EXPECT_EQ(refused.size(), 2);
    EXPECT_TRUE(edited.isEmpty());
    // What is selected makes room, and stays selected while there isn't enough.
    full.Select(3, 5);
    QApplication::clipboard()->setText("abc");
    full.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(refused.size(), 3);
    EXPECT_EQ(full.edit.textCursor().selectedText(), "xx");
    full.Keys("\u00E9");
    EXPECT_EQ(refused.size(), 4) << "the whole message would be UCS2";
    full.Keys("y");
    EXPECT_EQ(edited.size(), 1);
    EXPECT_EQ(full.editor.Shown().Length(), 1529);
    Check(full);
}

TEST_F(EditTest, TheCodingFollowsTheText) {
    Control control;
    control.Keys(QString(160, u'a'));
    EXPECT_EQ(control.editor.CounterText(), u"160 / 0 (Total = 1 SMS)");
    control.Keys("a");
    EXPECT_EQ(Figures(control.editor), "161/145/2");
    control.Keys("\u0431");
    EXPECT_EQ(Figures(control.editor), "162/39/3");
    control.Key(Qt::Key_Backspace);
    EXPECT_EQ(Figures(control.editor), "161/145/2");
    Check(control);
}

TEST_F(EditTest, CaretKeysAndErasersTakeObjectsAndPairsWhole) {
    Control control;
    control.Keys("a");
    control.edit.InsertObject(DotPicture());
    control.Keys("\U0001F600");
    control.Keys("b");
    ASSERT_EQ(control.editor.Shown().Length(), 5);
    std::vector<int> places;
    for (int i = 0; i < 5; ++i) {
        places.push_back(control.edit.textCursor().position());
        control.Key(Qt::Key_Left);
    }
    EXPECT_EQ(places, (std::vector<int>{5, 4, 2, 1, 0}));
    control.Key(Qt::Key_Right);
    control.Key(Qt::Key_Delete);
    EXPECT_EQ(control.editor.Shown().Text(), u"a\U0001F600b");
    control.Key(Qt::Key_Delete);
    EXPECT_EQ(control.Seen(), "ab");
    control.Key(Qt::Key_Z, Qt::ControlModifier);
    control.Key(Qt::Key_End);
    control.Key(Qt::Key_Left);
    control.Key(Qt::Key_Backspace);
    EXPECT_EQ(control.Seen(), "ab");
    Check(control);
}

TEST_F(EditTest, FormatsGoToTheSelectionOrToWhatIsTypedNext) {
    Control control;
    control.edit.ApplyFormat({.alignment = 1});
    EXPECT_EQ(control.edit.document()->begin().blockFormat().alignment(), Qt::AlignHCenter)
        << "an empty line shows where its text will stand";
    control.edit.ApplyFormat(bold);
    control.Keys("one");
    EXPECT_EQ(control.Seen(), "[b1]one");
    control.edit.ApplyFormat({.bold = 0});
    control.Keys("two");
    control.Select(5, 1);
    QSignalSpy looks(&control.edit, &MessageEdit::lookChanged);
    control.edit.ApplyFormat(italic);
    EXPECT_FALSE(looks.isEmpty());
    EXPECT_EQ(control.Seen(), "[b1]o[bi1]ne[i1]tw[1]o");
    EXPECT_EQ(control.edit.textCursor().anchor(), 5);
    EXPECT_EQ(control.edit.textCursor().position(), 1);
    EXPECT_FALSE(control.edit.CommonFormat().bold);
    EXPECT_EQ(control.edit.CommonFormat().italic, 1);
    Check(control);
}

TEST_F(EditTest, PartsGoFromEditorToEditorAndTextToAndFromOthers) {
    Control source;
    source.edit.ApplyFormat(bold);
    source.Keys("one");
    source.edit.InsertObject(MessageObject::PredefinedSound(2));
    source.edit.ApplyFormat({.bold = 0});
    source.Keys("two");
    source.Key(Qt::Key_A, Qt::ControlModifier);
    source.Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "onetwo");
    EXPECT_TRUE(source.edit.PasteCommand()->isEnabled());
    Control target;
    target.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(target.Seen(), source.Seen());
    target.Select(1, 5);
    target.Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(target.Seen(), "[b]o[]wo");
    QApplication::clipboard()->setText("x\r\ny\tz\u0001\uFFFC\u2029");
    target.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(target.Seen(), "[b]ox¶y z¶[]wo");
    auto* const picture = new QMimeData;
    picture->setImageData(QImage(4, 4, QImage::Format_RGB32));
    QApplication::clipboard()->setMimeData(picture);
    EXPECT_FALSE(target.edit.PasteCommand()->isEnabled());
    Check(target);
}

TEST_F(EditTest, DraggingMovesWithinTheTextAndCopiesFromElsewhere) {
    Control control;
    control.Keys("one two three");
    const auto drop = [](const Control& from, Control& to, int position) {
        const std::unique_ptr<QMimeData> content(from.edit.createMimeDataFromSelection());
        QDropEvent event(to.PlaceOf(position), Qt::CopyAction | Qt::MoveAction, content.get(), Qt::LeftButton,
                         {});
        event.setDropAction(Qt::MoveAction);
        to.edit.dropEvent(&event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    };
    control.Select(4, 8);
    EXPECT_EQ(drop(control, control, 0), Qt::CopyAction) << "nothing is left to be taken out";
    EXPECT_EQ(control.Seen(), "two one three");
    control.Select(0, 4);
    drop(control, control, 13);
    EXPECT_EQ(control.Seen(), "one threetwo ");
    Check(control);
    control.Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(control.Seen(), "two one three") << "one step";
    control.Select(0, 4);
    drop(control, control, 3);
    EXPECT_EQ(control.Seen(), "two one three") << "into itself";

    Control other;
    other.edit.ApplyFormat(bold);
    other.Keys("<>");
    EXPECT_EQ(drop(control, other, 1), Qt::MoveAction);
    EXPECT_EQ(other.Seen(), "[b]<[]two [b]>");
    Check(other);
    for (int before = 0; before < other.editor.Shown().Length();) {
        before = other.editor.Shown().Length();
        other.Keys("x");
    }
    EXPECT_EQ(drop(control, other, 1), Qt::IgnoreAction) << "it must stay where it is";
}

TEST_F(EditTest, AnInputMethodWritesWhatItCommits) {
    Control control;
    control.Keys("ab");
    control.Select(1, 2);
    const auto compose = [&](const QString& preedit, const QString& commit, int start = 0, int length = 0) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit, start, length);
        QApplication::sendEvent(&control.edit, &event);
    };
    compose("zh", "");
    EXPECT_EQ(control.Seen(), "a") << "composing replaces the selection";
    EXPECT_EQ(control.edit.textCursor().block().layout()->preeditAreaText(), "zh");
    compose("zho", "");
    compose("", "\u4E2D\u56FD");
    EXPECT_EQ(control.Seen(), "a\u4E2D\u56FD");
    EXPECT_EQ(control.edit.textCursor().block().layout()->preeditAreaText(), "");
    EXPECT_EQ(control.edit.textCursor().position(), 3);
    compose("", "X", -2, 2);
    EXPECT_EQ(control.Seen(), "aX");
    Check(control);
}

TEST_F(EditTest, ChangesThatPassTheControlByReachTheModelOrAreTakenBack) {
    Control control;
    control.Keys("one two");
    control.Select(3, 7);
    control.edit.textCursor().removeSelectedText();
    QApplication::processEvents();
    EXPECT_EQ(control.Seen(), "one");
    Check(control);

    QTextCursor(control.edit.document()).insertText("\u0002" + QString(400, u'\u4E2D'));
    QApplication::processEvents();
    EXPECT_EQ(control.editor.Shown().Length(), 403);
    QSignalSpy refused(&control.edit, &MessageEdit::refused);
    QTextCursor(control.edit.document()).insertHtml("<table><tr><td>" + QString(800, u'\u4E2D'));
    QApplication::processEvents();
    EXPECT_EQ(refused.size(), 1);
    EXPECT_EQ(control.editor.Shown().Length(), 403);
    Check(control);
    control.edit.setPlainText("all new");
    control.Keys("!");
    Check(control);
}

TEST_F(EditTest, LettersThatWillArriveOtherwiseAreMarkedAndTold) {
    Control control({.automatic = false});
    control.Keys(QStringLiteral("caf\u00E9 \u20AC"));
    ASSERT_EQ(control.edit.extraSelections().size(), 1);
    EXPECT_EQ(control.edit.extraSelections().front().cursor.selectedText(), QStringLiteral("\u00E9"));
    EXPECT_EQ(control.edit.TipAt(control.PlaceOf(3)), QStringLiteral("Arrives as: e"));
    EXPECT_EQ(control.edit.TipAt(control.PlaceOf(1)), QString());
    EXPECT_EQ(control.edit.accessibleDescription(),
              QStringLiteral("Letters that will arrive otherwise: \u00E9 \u2192 e"));
    Check(control);
    control.Select(0, 6);
    control.Key(Qt::Key_Delete);
    EXPECT_TRUE(control.edit.extraSelections().isEmpty());
    EXPECT_EQ(control.edit.accessibleDescription(), QString());
}

TEST_F(EditTest, TheObjectsAreToldToThoseWhoDoNotSeeThem) {
    Control control;
    control.edit.InsertObject(MessageObject::PredefinedSound(4));
    control.edit.InsertObject(DotPicture());
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&control.edit);
    EXPECT_EQ(accessible->text(QAccessible::Description), "Sound 4: Notify; Picture, 16 x 16");
    control.Key(Qt::Key_Backspace);
    EXPECT_EQ(accessible->text(QAccessible::Description), "Sound 4: Notify");
}

}  // namespace
}  // namespace tarnbridge::test
