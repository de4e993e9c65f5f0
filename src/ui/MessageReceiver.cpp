#include "ui/MessageReceiver.h"

#include <QMetaObject>
#include <utility>

namespace tarnbridge {
namespace {

/// A queue that wakes the event loop for each message.
class WakingQueue : public MessageQueue, public std::enable_shared_from_this<WakingQueue> {
public:
    WakingQueue(Handler handler, QObject& relay) : MessageQueue(std::move(handler)), relay_(relay) {}

protected:
    /// The queue's mutex is held, so the relay is there: its owner closes the queue first.
    void OnQueued() override {
        QMetaObject::invokeMethod(
            &relay_,
            // The queue outlives its handler, which may be the end of the receiver.
            [queue = shared_from_this()] { queue->ProcessOne(Milliseconds(0)); }, Qt::QueuedConnection);
    }

private:
    QObject& relay_;
};

}  // namespace

MessageReceiver::MessageReceiver(MessageQueue::Handler handler)
    : queue_(std::make_shared<WakingQueue>(std::move(handler), relay_)) {}

MessageReceiver::~MessageReceiver() {
    queue_->Close();
}

}  // namespace tarnbridge
