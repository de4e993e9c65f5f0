#pragma once

#include <QObject>

#include "core/base/StringTable.h"
#include "core/base/UserInteraction.h"

class QAction;
class QMenu;
class QToolBar;

namespace tarnbridge {

class MessageEdit;
struct ObjectFile;

/// The commands that put pictures, sounds and animations into a text.
class ObjectCommands : public QObject {
    Q_OBJECT

public:
    /// Belongs to the text. `user` chooses files, and must outlive it.
    ObjectCommands(MessageEdit& text, UserInteraction& user);

    void AddTo(QMenu& menu) const;
    void AddTo(QToolBar& bar) const;

Q_SIGNALS:
    /// A file can't be put into a message, for this reason.
    void refused(const QString& words);

private:
    using Reader = ObjectFile (*)(const std::filesystem::path&);

    QMenu* MakeMenu(const char* name, Word title, const char* icon);
    void AddFile(QMenu& menu, const char* name, const FileFilter& filter, Reader read);
    void InsertFile(const QString& title, const FileFilter& filter, Reader read);

    MessageEdit& text_;
    UserInteraction& user_;
    QAction* picture_ = nullptr;
    QMenu* sounds_ = nullptr;
    QMenu* animations_ = nullptr;
};

}  // namespace tarnbridge
