#include "ui/messages/NoteLine.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

#include "ui/Icons.h"

namespace tarnbridge {
namespace {

constexpr int iconSide = 18;

}  // namespace

NoteLine::NoteLine(QWidget* parent) : QFrame(parent), icon_(new QLabel), words_(new QLabel) {
    setObjectName(QStringLiteral("note"));
    setFrameShape(QFrame::StyledPanel);
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(icon_);
    layout->addWidget(words_, 1);
    Draw();
    hide();
}

void NoteLine::Show(const QString& words) {
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
