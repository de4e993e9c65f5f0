#include "ui/frame/ConnectionPane.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

#include "ui/Icons.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr int wordsWidth = 120;
constexpr int pictureSide = 16;

}  // namespace

ConnectionPane::ConnectionPane(QWidget* parent) : QWidget(parent), words_(new QLabel), picture_(new QLabel) {
    words_->setObjectName(QStringLiteral("connectionWords"));
    words_->setMinimumWidth(wordsWidth);
    picture_->setObjectName(QStringLiteral("connectionPicture"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 4, 0);
    words_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(words_);
    layout->addWidget(picture_);
    SetConnected(false);
}

void ConnectionPane::SetConnected(bool connected) {
    connected_ = connected;
    words_->setText(QWords(connected ? Word::Connected : Word::Disconnected));
    words_->setAccessibleName(QWords(Word::ConnectionName) + QStringLiteral(": ") + words_->text());
    Draw();
}

void ConnectionPane::Draw() {
    const QIcon icon = ThemedIcon(connected_ ? QStringLiteral("connected") : QStringLiteral("disconnected"));
    picture_->setPixmap(icon.pixmap(QSize(pictureSide, pictureSide), devicePixelRatio()));
}

void ConnectionPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) Draw();
    QWidget::changeEvent(event);
}

}  // namespace tarnbridge
