#include "ui/Await.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTimer>

namespace tarnbridge::test {
namespace {

constexpr int limit = 10'000;  // milliseconds
constexpr int lookAgain = 10;  // for what changes without an event

}  // namespace

bool Await(const std::function<bool()>& condition) {
    QTimer look;
    look.start(lookAgain);
    for (const QDeadlineTimer deadline(limit); !condition();) {
        if (deadline.hasExpired()) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

}  // namespace tarnbridge::test
