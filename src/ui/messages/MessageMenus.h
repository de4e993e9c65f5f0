#pragma once

#include <QList>

class QMenu;
class QWidget;

namespace tarnbridge {

class MessageCommands;

/// The menus of the messages, which show the same commands. They belong to the view.
struct MessageMenus {
    QList<QMenu*> inBar;
    QMenu* ofList = nullptr;
    QMenu* ofTree = nullptr;
};

MessageMenus MakeMessageMenus(const MessageCommands& commands, QWidget* view);

}  // namespace tarnbridge
