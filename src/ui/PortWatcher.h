#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

#include "platform/PortMap.h"

namespace tarnbridge {

/// Tells when a port may have been plugged in or out.
class PortWatcher : public QObject {
    Q_OBJECT

public:
    explicit PortWatcher(EntryStore& store, QObject* parent);

Q_SIGNALS:
    void changed();

private:
    void WatchFolders();

    const PortMap ports_;
    QFileSystemWatcher watcher_;
    QTimer settled_;
};

}  // namespace tarnbridge
