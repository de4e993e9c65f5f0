#include "ui/messages/NoteLine.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "ui/Icons.h"

namespace tarnbridge {
namespace {

constexpr int iconSide = 18;

}  // namespace

NoteLine::NoteLine(QWidget* parent)
    : QFrame(parent), icon_(new QLabel), words_(new QLabel), layout_(new QHBoxLayout(this)) {
    setObjectName(QStringLiteral("note"));
    setFrameShape(QFrame::StyledPanel);
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    layout_->setContentsMargins(8, 4, 8, 4);
    layout_->addWidget(icon_);
    layout_->addWidget(words_, 1);
    Draw();
    hide();
}

void NoteLine::Offer(QAction* command) {
    auto* const button = new QToolButton;
    button->setDefaultAction(command);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    layout_->addWidget(button);
}

void NoteLine::Show(const QString& words) {
    if (Words() == words) return;
    words_->setText(words);
    show();
    QAccessibleEvent alert(words_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString NoteLine::Words() const {
    return isHidden() ? QString() : words_->text();
}

void NoteLine::Draw() {
    icon_->setPixmap(
        ThemedIcon(QStringLiteral("warning")).pixmap(QSize(iconSide, iconSide), devicePixelRatio()));
}

void NoteLine::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) Draw();
    QFrame::changeEvent(event);
}

}  // namespace tarnbridge
