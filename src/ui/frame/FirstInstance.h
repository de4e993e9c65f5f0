#pragma once

#include <QObject>

class QLocalServer;

namespace tarnbridge {

/// How a second start of the program reaches the first one: a local socket that only this user can open. That
/// somebody connects is the whole message.
class FirstInstance : public QObject {
    Q_OBJECT

public:
    /// For the first: listens from now on. Without a socket the second start is merely silent.
    explicit FirstInstance(QObject* parent = nullptr);

    /// For the second: asks the first to come to the front. False when it doesn't listen.
    static bool AskToShow();

Q_SIGNALS:
    void shownWanted();

private:
    QLocalServer* const server_;
};

}  // namespace tarnbridge
