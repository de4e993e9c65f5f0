#include "ui/messages/CSmsToolbarView.h"

#include <QToolButton>

#include "ui/messages/CSmsFormView.h"

namespace tarnbridge {

CSmsToolbarView::CSmsToolbarView(CSmsFormView& form) {
    using C = MessageCommands;
    const auto add = [&](C::Command command, Qt::ToolButtonStyle style) {
        QAction* const action = form.Commands().Get(command);
        addAction(action);
        qobject_cast<QToolButton*>(widgetForAction(action))->setToolButtonStyle(style);
    };
    for (const C::Command command : {C::ReadMessages, C::NewMessage, C::ReplyMessage})
        add(command, Qt::ToolButtonTextBesideIcon);
    for (const C::Command command : {C::ForwardMessage, C::SendMessage, C::SendAllMessages})
        add(command, Qt::ToolButtonIconOnly);
    addSeparator();
    for (const C::Command command : {C::CutMessages, C::CopyMessages, C::PasteMessages, C::DeleteMessages})
        add(command, Qt::ToolButtonIconOnly);
    addSeparator();
    for (const C::Command command : {C::SaveText, C::PrintMessage, C::FindMessages})
        add(command, Qt::ToolButtonIconOnly);
}

}  // namespace tarnbridge
