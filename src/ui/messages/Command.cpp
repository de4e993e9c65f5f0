#include "ui/messages/Command.h"

#include <QAction>

#include "ui/Icons.h"
#include "ui/QtText.h"

namespace tarnbridge {

QAction* MakeCommand(QObject* parent, const CommandLook& look, const QKeySequence& key) {
    auto* const action = new QAction(QWords(look.words), parent);
    action->setObjectName(QLatin1String(look.name));
    if (look.icon) action->setIcon(ThemedIcon(QLatin1String(look.icon)));
    QString tip = PlainWords(look.words);
    if (tip.endsWith(QLatin1String("..."))) tip.chop(3);
    action->setToolTip(TipWithKey(tip, key));
    action->setShortcut(key);
    return action;
}

}  // namespace tarnbridge
