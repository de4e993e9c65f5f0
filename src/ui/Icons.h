#pragma once

#include <QIcon>
#include <QString>

#include "core/base/UserInteraction.h"

namespace tarnbridge {

/// One of the program's drawings, by the name of its file under resources/icons. It takes the colours of the
/// palette each time it is painted, so it follows a change between light and dark, and it is drawn at any
/// size and resolution. Empty when there is no such drawing.
QIcon ThemedIcon(const QString& name);

QIcon FolderIcon(FolderLook look);

/// The program's own, in its own colours.
QIcon ProgramIcon();

}  // namespace tarnbridge
