#pragma once

#include <optional>

#include "messaging/MessageEditor.h"
#include "ui/messages/MessageTextView.h"

namespace tarnbridge {

/// The text control of a MessageEditor. Whatever the user does goes to the editor, and what is shown comes
/// from it; only selection and scrolling are the control's own. What the editor refuses leaves everything as
/// it was. Letters that will arrive otherwise are underlined, and a tip and the accessible description tell
/// how.
class MessageEdit : public MessageTextView {
    Q_OBJECT

public:
    /// `editor` must outlive the control, and nobody else changes it meanwhile.
    explicit MessageEdit(MessageEditor& editor, QWidget* parent = nullptr);

    const MessageEditor& Editor() const { return editor_; }

    bool HasSelection() const { return textCursor().hasSelection(); }

    /// Puts an object in the place of the selection.
    void InsertObject(const MessageObject& object);

    /// Changes the look of the selection, or of what is typed next.
    void ApplyFormat(const FormatChange& change);

    /// What the selection, or what is typed next, has in common.
    FormatChange CommonFormat() const;

    // Commands, which also stand in the context menu. Their keys work while the text has the focus.
    QAction* UndoCommand() const { return undo_; }
    QAction* RedoCommand() const { return redo_; }
    QAction* CutCommand() const { return cut_; }
    QAction* PasteCommand() const { return paste_; }
    QAction* DeleteCommand() const { return delete_; }

Q_SIGNALS:
    /// The message has changed.
    void edited();
    /// CommonFormat may have changed.
    void lookChanged();
    /// The message stays as it is, for this reason.
    void refused(const QString& words);

protected:
    QString TipAt(const QPoint& place) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    struct Range {
        int from = 0;
        int to = 0;
    };

    void MakeCommands();
    void Undo();
    void Redo();
    void Cut();
    void Copy();
    void Paste();
    void Delete();
    Range Selection() const;
    /// The selection, or without one what lies between the caret and where it would move.
    Range SelectionOr(QTextCursor::MoveOperation move) const;
    bool HandleKey(const QKeyEvent& event);
    void Erase(Range range);
    bool Insert(Range range, const QString& text);
    bool InsertContent(const QMimeData& source);
    void Move(Range range, int position);
    bool Take(EmsResult result);
    void ShowEditor();
    void MarkArrival();
    void MarkForeignChange();
    void TakeForeignChange();

    MessageEditor& editor_;
    ArrivingText arriving_;
    bool showing_ = false;  // what changes in the document comes from the editor
    bool foreign_ = false;  // somebody else has changed it
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QAction* cut_ = nullptr;
    QAction* paste_ = nullptr;
    QAction* delete_ = nullptr;
};

}  // namespace tarnbridge
