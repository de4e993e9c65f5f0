#include "ui/messages/MessageTextView.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "ui/messages/Command.h"
#include "ui/messages/ObjectLook.h"

namespace tarnbridge {
namespace {

constexpr int fewestSteps = -3;
constexpr int mostSteps = 8;
constexpr qreal stepFactor = 1.15;
constexpr int margin = 8;  // pixels

}  // namespace

MessageTextView::MessageTextView(QWidget* parent) : QTextEdit(parent), document_(new MessageDocument(this)) {
    setDocument(document_);
    document_->documentLayout()->setPaintDevice(viewport());
    document_->setDocumentMargin(margin);
    document_->setDefaultFont(font());
    document_->SetPalette(palette());
    setReadOnly(true);
    setTabChangesFocus(true);
    setAcceptRichText(false);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    MakeCommands();
}

void MessageTextView::MakeCommands() {
    copy_ = MakeCommand(this, {"copy", Word::CommandCopy, "copy"}, QKeySequence::Copy);
    copy_->setEnabled(false);
    connect(this, &QTextEdit::copyAvailable, copy_, &QAction::setEnabled);
    connect(copy_, &QAction::triggered, this, &QTextEdit::copy);
    selectAll_ =
        MakeCommand(this, {"selectAll", Word::CommandSelectAll, "select-all"}, QKeySequence::SelectAll);
    connect(selectAll_, &QAction::triggered, this, &QTextEdit::selectAll);

    const auto addZoom = [this](const CommandLook& look, const QKeySequence& key, const auto& steps) {
        zooms_ << MakeCommand(this, look, key);
        connect(zooms_.back(), &QAction::triggered, this, [this, steps] { Zoom(steps()); });
    };
    addZoom({"zoomIn", Word::CommandZoomIn, "zoom-in"}, QKeySequence::ZoomIn, [this] { return zoom_ + 1; });
    addZoom({"zoomOut", Word::CommandZoomOut, "zoom-out"}, QKeySequence::ZoomOut,
            [this] { return zoom_ - 1; });
    addZoom({"zoomReset", Word::CommandZoomReset}, Qt::CTRL | Qt::Key_0, [] { return 0; });
    AddCommands({copy_, selectAll_, MakeSeparator(), zooms_[0], zooms_[1], zooms_[2]});
}

void MessageTextView::AddCommands(const QList<QAction*>& commands, QAction* before) {
    for (QAction* const command : commands)
        command->setShortcutContext(Qt::WidgetShortcut);
    insertActions(before, commands);
}

QAction* MessageTextView::MakeSeparator() {
    auto* const separator = new QAction(this);
    separator->setSeparator(true);
    return separator;
}

QMimeData* MessageTextView::createMimeDataFromSelection() const {
    QString text = textCursor().selectedText();
    text.remove(QChar(objectCharacter)).replace(QChar::ParagraphSeparator, u'\n');
    auto* const content = new QMimeData;
    content->setText(text);
    return content;
}

void MessageTextView::ShowMessage(const ShownMessage& message, const EmsTextFormat& atEnd) {
    document_->Show(message, atEnd);
    const QString words = document_->ObjectWords();
    if (words != accessibleDescription()) setAccessibleDescription(words);
}

bool MessageTextView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTextEdit::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const QString tip = TipAt(viewport()->mapFrom(this, help->pos()) + scrolled);
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, viewport());
    return true;
}

QString MessageTextView::TipAt(const QPoint& place) const {
    const int position = document_->ObjectAt(place);
    return position < 0 ? QString() : DescriptionOfObject(*document_->Shown().ObjectAt(position));
}

void MessageTextView::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) document_->SetPalette(palette());
}

void MessageTextView::showEvent(QShowEvent* event) {
    QTextEdit::showEvent(event);
    document_->SetAnimated(true);
}

void MessageTextView::hideEvent(QHideEvent* event) {
    QTextEdit::hideEvent(event);
    document_->SetAnimated(false);
}

void MessageTextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextEdit::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0) Zoom(zoom_ + 1);
    if (event->angleDelta().y() < 0) Zoom(zoom_ - 1);
    event->accept();
}

void MessageTextView::Zoom(int steps) {
    zoom_ = std::clamp(steps, fewestSteps, mostSteps);
    const qreal scale = std::pow(stepFactor, zoom_);
    QFont enlarged = QApplication::font(this);
    enlarged.setPointSizeF(enlarged.pointSizeF() * scale);
    setFont(enlarged);
    document_->SetScale(scale);
}

}  // namespace tarnbridge
