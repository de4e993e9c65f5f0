#pragma once

#include <cstdint>
#include <memory>
#include <utility>

namespace tarnbridge {

/// The numbers of messages between threads. A feature gives its own numbers in its folder, as constants of
/// this type.
enum MessageId : int {
    WorkerResult = 1028,      ///< the background worker has done what it was asked for
    HandsetConnected = 1029,  ///< a handset answers that didn't before
};

/// An owned value of some type, or nothing, that travels with a message.
class MessagePayload {
public:
    MessagePayload() = default;

    template <typename Type>
    static MessagePayload Of(Type value) {
        MessagePayload payload;
        payload.content_ = std::make_unique<Content<Type>>(std::move(value));
        return payload;
    }

    /// The value if it is exactly of this type, otherwise null. It may be moved from.
    template <typename Type>
    Type* Get() {
        auto* content = dynamic_cast<Content<Type>*>(content_.get());
        return content ? &content->value : nullptr;
    }

private:
    struct AnyContent {
        virtual ~AnyContent() = default;
    };
    template <typename Type>
    struct Content : AnyContent {
        explicit Content(Type&& moved) : value(std::move(moved)) {}
        Type value;
    };

    std::unique_ptr<AnyContent> content_;
};

/// A message: its number, two numbers whose meaning depends on it, and what it carries.
struct Message {
    MessageId id{};
    intptr_t wParam = 0;
    intptr_t lParam = 0;
    MessagePayload payload{};
};

/// Who receives messages, on a thread of his own choice. Those who write to him hold a weak pointer, so that
/// one who has gone is never called. All operations may be called from any thread.
class MessageTarget {
public:
    virtual ~MessageTarget() = default;

    /// Queues the message and returns at once. A target that no longer receives drops it.
    virtual void Post(Message message) = 0;

    /// Waits until the message has been handled and gives the handler's answer; 0 from a target that no
    /// longer receives.
    virtual intptr_t Send(Message message) = 0;
};

}  // namespace tarnbridge
