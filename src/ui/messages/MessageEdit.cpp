#include "ui/messages/MessageEdit.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "ui/QtText.h"
#include "ui/messages/Command.h"
#include "ui/messages/MessageMimeData.h"

namespace tarnbridge {
namespace {

constexpr QColor underlineColour(0xC0, 0x70, 0x00);

/// Whether a key's text is to be written, rather than being a command.
bool IsTyping(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) return false;
    const QChar first = text.at(0);
    if (first.category() == QChar::Other_Format) return true;  // marks of direction and joiners
    // Control with Alt is how AltGr arrives on some systems.
    const Qt::KeyboardModifiers command = event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
    if (command && !event.modifiers().testFlag(Qt::AltModifier)) return false;
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_PrivateUse;
}

}  // namespace

MessageEdit::MessageEdit(MessageEditor& editor, QWidget* parent) : MessageTextView(parent), editor_(editor) {
    setReadOnly(false);
    MakeCommands();
    ShowEditor();
    // Selecting all moves the caret without a word of it.
    for (const auto moved : {&QTextEdit::cursorPositionChanged, &QTextEdit::selectionChanged}) {
        connect(this, moved, this, [this] {
            if (showing_) return;
            editor_.MoveCaret(textCursor().position());
            Q_EMIT lookChanged();
        });
    }
    connect(&Document(), &QTextDocument::contentsChange, this, &MessageEdit::MarkForeignChange);
}

void MessageEdit::MakeCommands() {
    const auto make = [this](const CommandLook& look, const QKeySequence& key, void (MessageEdit::*run)()) {
        QAction* const command = MakeCommand(this, look, key);
        connect(command, &QAction::triggered, this, run);
        return command;
    };
    undo_ = make({"undo", Word::CommandUndo, "undo"}, QKeySequence::Undo, &MessageEdit::Undo);
    redo_ = make({"redo", Word::CommandRedo, "redo"}, QKeySequence::Redo, &MessageEdit::Redo);
    cut_ = make({"cut", Word::CommandCut, "cut"}, QKeySequence::Cut, &MessageEdit::Cut);
    paste_ = make({"paste", Word::CommandPaste, "paste"}, QKeySequence::Paste, &MessageEdit::Paste);
    // Its key also erases without a selection, so it is the text's own.
    delete_ = make({"delete", Word::CommandDelete, "delete"}, {}, &MessageEdit::Delete);
    AddCommands({undo_, redo_, MakeSeparator(), cut_}, CopyCommand());
    AddCommands({paste_, delete_}, SelectAllCommand());
    cut_->setEnabled(false);
    delete_->setEnabled(false);
    connect(this, &QTextEdit::copyAvailable, cut_, &QAction::setEnabled);
    connect(this, &QTextEdit::copyAvailable, delete_, &QAction::setEnabled);
    const auto enablePaste = [this] { paste_->setEnabled(canPaste()); };
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, enablePaste);
    enablePaste();
}

MessageEdit::Range MessageEdit::Selection() const {
    const QTextCursor cursor = textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd()};
}

MessageEdit::Range MessageEdit::SelectionOr(QTextCursor::MoveOperation move) const {
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) cursor.movePosition(move, QTextCursor::KeepAnchor);
    return {cursor.selectionStart(), cursor.selectionEnd()};
}

void MessageEdit::keyPressEvent(QKeyEvent* event) {
    if (foreign_) TakeForeignChange();
    if (HandleKey(*event))
        event->accept();
    else if (event->key() == Qt::Key_Tab)
        event->ignore();  // it came to nobody else, and isn't to be written
    else
        MessageTextView::keyPressEvent(event);
}

bool MessageEdit::HandleKey(const QKeyEvent& event) {
    struct Command {
        QKeySequence::StandardKey key;
        void (MessageEdit::*run)();
    };
    static constexpr Command commands[] = {{QKeySequence::Undo, &MessageEdit::Undo},
                                           {QKeySequence::Redo, &MessageEdit::Redo},
                                           {QKeySequence::Cut, &MessageEdit::Cut},
                                           {QKeySequence::Copy, &MessageEdit::Copy},
                                           {QKeySequence::Paste, &MessageEdit::Paste}};
    struct Eraser {
        QKeySequence::StandardKey key;
        QTextCursor::MoveOperation move;
    };
    static constexpr Eraser erasers[] = {{QKeySequence::Delete, QTextCursor::NextCharacter},
                                         {QKeySequence::DeleteStartOfWord, QTextCursor::PreviousWord},
                                         {QKeySequence::DeleteEndOfWord, QTextCursor::NextWord},
                                         {QKeySequence::DeleteEndOfLine, QTextCursor::EndOfBlock}};
    for (const Command& command : commands) {
        if (!event.matches(command.key)) continue;
        (this->*command.run)();
        return true;
    }
    for (const Eraser& eraser : erasers) {
        if (!event.matches(eraser.key)) continue;
        Erase(SelectionOr(eraser.move));
        return true;
    }
    const bool isPlain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    if (event.key() == Qt::Key_Backspace && isPlain) {
        // One character, not all that are drawn as one with it: the last accent is corrected by itself.
        const Range selection = Selection();
        Erase(HasSelection() ? selection : Range{selection.from - 1, selection.to});
        return true;
    }
    if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && isPlain) {
        Insert(Selection(), QStringLiteral("\n"));
        return true;
    }
    if (!IsTyping(event)) return false;
    Insert(Selection(), event.text());
    return true;
}

void MessageEdit::inputMethodEvent(QInputMethodEvent* event) {
    const bool hasText = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (hasText && HasSelection()) Erase(Selection());
    if (!event->commitString().isEmpty() || event->replacementLength() > 0) {
        const int from = textCursor().position() + event->replacementStart();
        Insert({from, from + event->replacementLength()}, event->commitString());
    }
    // What is being composed isn't part of the message yet, and is the control's own.
    QInputMethodEvent composed(event->preeditString(), event->attributes());
    MessageTextView::inputMethodEvent(&composed);
    event->accept();
}

void MessageEdit::dropEvent(QDropEvent* event) {
    const int position = cursorForPosition(event->position().toPoint()).position();
    const auto* const part = qobject_cast<const MessageMimeData*>(event->mimeData());
    if (part && part->IsFrom(this) && event->dropAction() == Qt::MoveAction) {
        Move(Selection(), position);
        // Who began the drag must not take out what has been moved already.
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else if (canInsertFromMimeData(event->mimeData())) {
        QTextCursor cursor = textCursor();
        cursor.setPosition(position);
        setTextCursor(cursor);
        // What isn't taken must stay where it comes from.
        event->setAccepted(InsertContent(*event->mimeData()));
    }
    // The rest of what ends a drag here: the mark of the place, scrolling by itself.
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave);
    setFocus();
}

bool MessageEdit::canInsertFromMimeData(const QMimeData* source) const {
    return qobject_cast<const MessageMimeData*>(source) || source->hasText();
}

QMimeData* MessageEdit::createMimeDataFromSelection() const {
    const Range selection = Selection();
    return new MessageMimeData(editor_.Fragment(selection.from, selection.to), this);
}

void MessageEdit::insertFromMimeData(const QMimeData* source) {
    InsertContent(*source);
}

bool MessageEdit::InsertContent(const QMimeData& source) {
    const Range selection = Selection();
    if (const auto* const part = qobject_cast<const MessageMimeData*>(&source))
        return Take(editor_.Replace(selection.from, selection.to, part->Fragment()));
    return Insert(selection, source.text());
}

void MessageEdit::InsertObject(const MessageObject& object) {
    const Range selection = Selection();
    Take(editor_.Replace(selection.from, selection.to, {object}));
}

void MessageEdit::ApplyFormat(const FormatChange& change) {
    const int anchor = textCursor().anchor();
    const int position = textCursor().position();
    Take(editor_.ApplyFormat(std::min(anchor, position), std::max(anchor, position), change));
    if (anchor == position) return;
    QTextCursor cursor = textCursor();
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

FormatChange MessageEdit::CommonFormat() const {
    const Range selection = Selection();
    return editor_.CommonFormat(selection.from, selection.to);
}

void MessageEdit::Undo() {
    if (!editor_.CanUndo()) return;
    editor_.Undo();
    Take(EmsResult::Done);
}

void MessageEdit::Redo() {
    if (!editor_.CanRedo()) return;
    editor_.Redo();
    Take(EmsResult::Done);
}

void MessageEdit::Cut() {
    if (!HasSelection()) return;
    Copy();
    Erase(Selection());
}

void MessageEdit::Copy() {
    if (HasSelection()) QApplication::clipboard()->setMimeData(createMimeDataFromSelection());
}

void MessageEdit::Paste() {
    const QMimeData* const source = QApplication::clipboard()->mimeData();
    if (source && canInsertFromMimeData(source)) insertFromMimeData(source);
}

void MessageEdit::Delete() {
    Erase(SelectionOr(QTextCursor::NextCharacter));
}

void MessageEdit::Erase(Range range) {
    if (range.from < range.to && range.to > 0) Take(editor_.Delete(range.from, range.to));
}

bool MessageEdit::Insert(Range range, const QString& text) {
    return Take(editor_.Replace(range.from, range.to, ToText(text)));
}

/// In one step, and whole or not at all: what lies between the range and its new place changes sides with it.
void MessageEdit::Move(Range range, int position) {
    if (position >= range.from && position <= range.to) return;
    const bool forth = position > range.to;
    const Range between = forth ? Range{range.to, position} : Range{position, range.from};
    MessageFragment first = editor_.Fragment(between.from, between.to);
    MessageFragment second = editor_.Fragment(range.from, range.to);
    if (!forth) std::swap(first, second);
    first.insert(first.end(), second.begin(), second.end());
    Take(editor_.Replace(std::min(range.from, position), std::max(range.to, position), first));
}

/// Shows the result of a change; whether it was made.
bool MessageEdit::Take(EmsResult result) {
    if (result != EmsResult::Done) {
        QApplication::beep();
        Q_EMIT refused(ToQString(editor_.WordsFor(result)));
        return false;
    }
    ShowEditor();
    Q_EMIT edited();
    Q_EMIT lookChanged();
    return true;
}

void MessageEdit::ShowEditor() {
    const QScopedValueRollback showing(showing_, true);
    ShowMessage(editor_.Shown(), editor_.TypingFormat(editor_.Shown().Length()));
    QTextCursor cursor = textCursor();
    cursor.setPosition(editor_.Caret());
    setTextCursor(cursor);
    ensureCursorVisible();
    MarkArrival();
    undo_->setEnabled(editor_.CanUndo());
    redo_->setEnabled(editor_.CanRedo());
}

/// The underlines are the control's own, and no part of the document.
void MessageEdit::MarkArrival() {
    arriving_ = editor_.Arriving();
    QList<QTextEdit::ExtraSelection> marks;
    QStringList hints;
    for (const int position : arriving_.differing) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(&Document());
        mark.cursor.setPosition(position);
        mark.cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(underlineColour);
        marks << mark;
        const QString hint = ToQString(editor_.Shown().TextOf(position, position + 1)) +
                             QStringLiteral(" \u2192 ") +
                             ToQString(arriving_.text.substr(static_cast<size_t>(position), 1));
        if (!hints.contains(hint)) hints << hint;
    }
    setExtraSelections(marks);
    QString words = Document().ObjectWords();
    if (!hints.isEmpty()) {
        if (!words.isEmpty()) words += QStringLiteral("; ");
        words += QWords(Word::ArrivingOtherwise, {ToText(hints.join(QStringLiteral(", ")))});
    }
    if (words != accessibleDescription()) setAccessibleDescription(words);
}

QString MessageEdit::TipAt(const QPoint& place) const {
    const QString object = MessageTextView::TipAt(place);
    if (!object.isEmpty()) return object;
    const int position = document()->documentLayout()->hitTest(place, Qt::ExactHit);
    if (!std::binary_search(arriving_.differing.begin(), arriving_.differing.end(), position)) return {};
    return QWords(Word::ArrivesAs, {arriving_.text.substr(static_cast<size_t>(position), 1)});
}

/// Not all ways into the document can be barred: a selection that is dragged into another program is taken
/// out, and assistive technology writes, without asking the control. That is made up for as soon as it is
/// over.
void MessageEdit::MarkForeignChange() {
    if (showing_ || foreign_) return;
    foreign_ = true;
    QMetaObject::invokeMethod(this, &MessageEdit::TakeForeignChange, Qt::QueuedConnection);
}

void MessageEdit::TakeForeignChange() {
    if (!std::exchange(foreign_, false)) return;
    QString text = Document().toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    const QString known = ToQString(editor_.Shown().Text());
    if (text == known) return;
    const auto [begin, other] = std::mismatch(known.begin(), known.end(), text.begin(), text.end());
    const auto shorter = std::min(known.end() - begin, text.end() - other);
    const auto common =
        std::mismatch(known.rbegin(), known.rbegin() + shorter, text.rbegin(), text.rend()).first -
        known.rbegin();
    const auto from = begin - known.begin();
    const EmsResult result = editor_.Replace(static_cast<int>(from), static_cast<int>(known.size() - common),
                                             ToText(text.mid(from, text.size() - common - from)));
    {
        const QScopedValueRollback showing(showing_, true);
        Document().Rewrite();
    }
    Take(result);
}

}  // namespace tarnbridge
