#pragma once

#include <QKeySequence>

#include "core/base/StringTable.h"

class QAction;
class QObject;

namespace tarnbridge {

/// What a command is called, in the program and on the screen.
struct CommandLook {
    const char* name;  ///< for objectName
    Word words;
    const char* icon = nullptr;  ///< of a ThemedIcon
};

/// An action that belongs to `parent`, with its tip. Its key works where the action has been added.
QAction* MakeCommand(QObject* parent, const CommandLook& look, const QKeySequence& key = {});

}  // namespace tarnbridge
