#include "core/base/MessageQueue.h"

namespace tarnbridge {

MessageQueue::MessageQueue(Handler handler) : handler_(std::move(handler)) {}

MessageQueue::~MessageQueue() {
    Close();
}

bool MessageQueue::Enqueue(std::shared_ptr<Entry> entry) {
    const std::lock_guard guard(mutex_);
    if (closed_) return false;
    entries_.push_back(std::move(entry));
    changed_.notify_one();
    OnQueued();
    return true;
}

void MessageQueue::Post(Message message) {
    const auto entry = std::make_shared<Entry>();
    entry->message = std::move(message);
    Enqueue(entry);
}

intptr_t MessageQueue::Send(Message message) {
    if (std::this_thread::get_id() == owner_) return handler_(message);
    const auto entry = std::make_shared<Entry>();
    entry->message = std::move(message);
    // From here on the queue may end at any moment: only the entry is touched after the wait.
    if (Enqueue(entry)) entry->handled.Wait(forever);
    return entry->answer;
}

bool MessageQueue::ProcessOne(Milliseconds timeout) {
    std::shared_ptr<Entry> entry;
    {
        std::unique_lock lock(mutex_);
        const auto ready = [this] { return closed_ || !entries_.empty(); };
        if (timeout == forever) {
            changed_.wait(lock, ready);
        } else if (!changed_.wait_for(lock, timeout, ready)) {
            return false;
        }
        if (closed_) return false;
        entry = std::move(entries_.front());
        entries_.pop_front();
    }
    entry->answer = handler_(entry->message);
    entry->handled.Set();
    return true;
}

void MessageQueue::Close() {
    std::deque<std::shared_ptr<Entry>> dropped;
    {
        const std::lock_guard guard(mutex_);
        closed_ = true;
        dropped.swap(entries_);
    }
    for (const auto& entry : dropped)
        entry->handled.Set();
}

}  // namespace tarnbridge
