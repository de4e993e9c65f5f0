#include "ui/messages/ColourMenu.h"

#include <QActionGroup>
#include <QPainter>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/messages/MessageLook.h"

namespace tarnbridge {
namespace {

constexpr int swatchSide = 16;

QIcon Swatch(const QColor& colour) {
    QIcon icon;
    for (const int ratio : {1, 2, 3}) {
        QPixmap pixmap(QSize(swatchSide, swatchSide) * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        // Grey can be told from every one of the colours' neighbours, the menu included.
        painter.setPen(Qt::gray);
        painter.setBrush(colour);
        painter.drawRoundedRect(QRectF(0.5, 0.5, swatchSide - 1, swatchSide - 1), 3, 3);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

ColourMenu::ColourMenu(const char* name, Word title, const char* icon, int ordinary, QWidget* parent)
    : QMenu(QWords(title), parent) {
    setObjectName(QLatin1String(name));
    setIcon(ThemedIcon(QLatin1String(icon)));
    menuAction()->setToolTip(PlainWords(title));
    auto* const group = new QActionGroup(this);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (int colour = 0; colour < messageColours; ++colour) {
        const Word words = NameOfMessageColour(colour);
        const QString label =
            colour == ordinary ? QWords(Word::ColourDefault, {Words(words)}) : QWords(words);
        QAction* const action = addAction(Swatch(MessageColour(colour)), label);
        action->setObjectName(QStringLiteral("%1%2").arg(objectName()).arg(colour));
        action->setCheckable(true);
        action->setActionGroup(group);
        connect(action, &QAction::triggered, this, [this, colour] { Q_EMIT chosen(colour); });
    }
}

void ColourMenu::SetCurrent(std::optional<int> colour) {
    for (int i = 0; i < messageColours; ++i)
        actions().at(i)->setChecked(colour == i);
}

}  // namespace tarnbridge
