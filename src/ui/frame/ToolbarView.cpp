#include "ui/frame/ToolbarView.h"

#include <QActionEvent>

namespace tarnbridge {
namespace {

constexpr int paneHeight = 39;
constexpr int iconSide = 24;

}  // namespace

ToolbarView::ToolbarView() {
    setMinimumHeight(paneHeight);
    setIconSize({iconSide, iconSide});
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void ToolbarView::actionEvent(QActionEvent* event) {
    QToolBar::actionEvent(event);
    QWidget* const button = widgetForAction(event->action());
    if (event->type() == QEvent::ActionAdded && button && !event->action()->isSeparator())
        button->setFocusPolicy(Qt::TabFocus);
}

}  // namespace tarnbridge
