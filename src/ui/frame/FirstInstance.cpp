#include "ui/frame/FirstInstance.h"

#include <QLocalServer>
#include <QLocalSocket>

#include "platform/ProgramFolder.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr int longestWait = 1000;  // milliseconds

QString SocketName() {
    return PathToQString(RuntimeFolder() / "TarnbridgeClassName.socket");
}

}  // namespace

FirstInstance::FirstInstance(QObject* parent) : QObject(parent), server_(new QLocalServer(this)) {
    connect(server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* const caller = server_->nextPendingConnection())
            caller->deleteLater();
        Q_EMIT shownWanted();
    });
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    // The guard has seen to it that no other instance runs: a socket that is there is one that a killed
    // instance has left.
    QLocalServer::removeServer(SocketName());
    server_->listen(SocketName());
}

bool FirstInstance::AskToShow() {
    QLocalSocket socket;
    socket.connectToServer(SocketName());
    return socket.waitForConnected(longestWait);
}

}  // namespace tarnbridge
