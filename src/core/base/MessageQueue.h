#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "core/base/MessageTarget.h"
#include "platform/Event.h"

namespace tarnbridge {

/// A target whose owner handles its messages one by one when it asks for them, for programs without an event
/// loop. ProcessOne, Close and the end of its life belong to the thread that made it.
class MessageQueue : public MessageTarget {
public:
    using Handler = std::function<intptr_t(Message&)>;

    /// `handler` runs inside ProcessOne, without any lock.
    explicit MessageQueue(Handler handler);
    ~MessageQueue() override;

    void Post(Message message) override;

    /// On the owner's thread the handler is called at once, before what is queued.
    intptr_t Send(Message message) override;

    /// Handles the first message; waits for one if there is none. False is a time-out, or a closed queue.
    bool ProcessOne(Milliseconds timeout);

    /// Drops what is queued, frees those who wait in Send with the answer 0, and receives nothing any more.
    void Close();

protected:
    /// A message has been queued. Called by the sender's thread, with the queue locked, so never after Close.
    virtual void OnQueued() {}

private:
    /// Shared with the sender that waits for it, who may outlive the queue.
    struct Entry {
        Message message;
        intptr_t answer = 0;
        Event handled{ResetMode::Manual};
    };

    bool Enqueue(std::shared_ptr<Entry> entry);

    const Handler handler_;
    const std::thread::id owner_ = std::this_thread::get_id();
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::shared_ptr<Entry>> entries_;
    bool closed_ = false;
};

}  // namespace tarnbridge
