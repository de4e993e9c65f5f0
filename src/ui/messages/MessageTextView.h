#pragma once

#include <QTextEdit>

#include "ui/messages/MessageDocument.h"

namespace tarnbridge {

/// The text of a message in a window: its objects have tips and are told to those who don't see them, its
/// animations run while it is shown, and it can be enlarged. It is read-only in itself.
class MessageTextView : public QTextEdit {
    Q_OBJECT

public:
    explicit MessageTextView(QWidget* parent = nullptr);

    /// What it shows from now on.
    /// \param atEnd  as in MessageDocument::Show
    void ShowMessage(const ShownMessage& message, const EmsTextFormat& atEnd = {});

    MessageDocument& Document() { return *document_; }

    // Commands, which also make up the context menu. Their keys work while the text has the focus.
    QAction* CopyCommand() const { return copy_; }
    QAction* SelectAllCommand() const { return selectAll_; }
    QList<QAction*> ZoomCommands() const { return zooms_; }

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

    /// What the tip at a place of the document says; nothing where there is none.
    virtual QString TipAt(const QPoint& place) const;

    /// Puts commands into the context menu, in front of one that is there or at its end.
    void AddCommands(const QList<QAction*>& commands, QAction* before = nullptr);
    QAction* MakeSeparator();

private:
    void MakeCommands();
    void Zoom(int steps);

    MessageDocument* const document_;
    QAction* copy_ = nullptr;
    QAction* selectAll_ = nullptr;
    QList<QAction*> zooms_;
    int zoom_ = 0;  // steps
};

}  // namespace tarnbridge
