#include "ui/EmptyHint.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/Icons.h"

namespace tarnbridge {
namespace {

constexpr int pictureSide = 64;
constexpr qreal titleScale = 1.3;

}  // namespace

EmptyHint::EmptyHint(const QString& icon, const QString& title, const QString& hint, QWidget* parent)
    : QWidget(parent), icon_(icon), picture_(new QLabel), title_(new QLabel), layout_(new QVBoxLayout(this)) {
    QFont font = title_->font();
    font.setPointSizeF(font.pointSizeF() * titleScale);
    font.setBold(true);
    title_->setFont(font);
    SetTitle(title);
    auto* const hintLabel = new QLabel(hint);
    hintLabel->setWordWrap(true);
    setAccessibleDescription(hint);

    layout_->addStretch(2);
    for (QLabel* const label : {picture_, title_, hintLabel}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        layout_->addWidget(label);
    }
    layout_->addStretch(3);
    Draw();
}

void EmptyHint::SetTitle(const QString& title) {
    title_->setText(title);
    setAccessibleName(title);
}

void EmptyHint::Offer(QAction* action) {
    auto* const button = new QToolButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    layout_->insertWidget(layout_->count() - 1, button, 0, Qt::AlignHCenter);
}

void EmptyHint::Draw() {
    picture_->setPixmap(
        ThemedIcon(icon_).pixmap(QSize(pictureSide, pictureSide), devicePixelRatio(), QIcon::Disabled));
}

void EmptyHint::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) Draw();
    QWidget::changeEvent(event);
}

}  // namespace tarnbridge
