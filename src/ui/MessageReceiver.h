#pragma once

#include <QObject>
#include <memory>

#include "core/base/MessageQueue.h"

namespace tarnbridge {

/// Brings messages of any thread into Qt's event queue of the thread that makes it. A member of the view or
/// the dialog that receives: the handler is never called once the receiver has gone, and those who wait for
/// an answer then get 0.
class MessageReceiver {
public:
    /// `handler` runs in the event loop.
    explicit MessageReceiver(MessageQueue::Handler handler);
    MessageReceiver(const MessageReceiver&) = delete;
    MessageReceiver& operator=(const MessageReceiver&) = delete;
    ~MessageReceiver();

    /// What is handed to those who write.
    std::weak_ptr<MessageTarget> Target() const { return queue_; }

private:
    QObject relay_;  // what stands in Qt's queue for it goes with it
    const std::shared_ptr<MessageQueue> queue_;
};

}  // namespace tarnbridge
