#include "ui/PortWatcher.h"

#include "ui/QtText.h"

namespace tarnbridge {
namespace {

/// A device has its name first and its rights a moment later.
constexpr int settleTime = 250;  // milliseconds

}  // namespace

PortWatcher::PortWatcher(EntryStore& store, QObject* parent) : QObject(parent), ports_(store) {
    settled_.setSingleShot(true);
    settled_.setInterval(settleTime);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, &settled_, qOverload<>(&QTimer::start));
    connect(&settled_, &QTimer::timeout, this, [this] {
        WatchFolders();
        Q_EMIT changed();
    });
    WatchFolders();
}

/// Folders come and go with what is in them.
void PortWatcher::WatchFolders() {
    const QStringList watched = watcher_.directories();
    for (const std::filesystem::path& folder : ports_.WatchedFolders()) {
        const QString name = PathToQString(folder);
        if (!watched.contains(name)) watcher_.addPath(name);
    }
}

}  // namespace tarnbridge
