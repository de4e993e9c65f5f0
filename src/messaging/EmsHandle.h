#pragma once

namespace tarnbridge {

struct EmsMessage;

/// What a record needs of the layer that makes its EmsMessage.
struct EmsOperations {
    EmsMessage* (*copy)(const EmsMessage& message);  ///< a message of its own, or none where there is no room
    void (*release)(EmsMessage* message);
    bool (*hasHeader)(const EmsMessage& message);
};

/// Owns the EmsMessage of a record, or none. A copy gets a message of its own.
class EmsHandle {
public:
    EmsHandle() = default;
    /// Takes the message over. The operations live as long as the program.
    EmsHandle(EmsMessage* message, const EmsOperations& operations);
    EmsHandle(const EmsHandle& other);
    EmsHandle(EmsHandle&& other) noexcept;
    EmsHandle& operator=(EmsHandle other) noexcept;
    ~EmsHandle();

    explicit operator bool() const { return message_ != nullptr; }
    EmsMessage* Get() const { return message_; }
    /// Whether the segments of the message need a user data header; false where there is none.
    bool HasHeader() const;

private:
    EmsMessage* message_ = nullptr;
    const EmsOperations* operations_ = nullptr;
};

}  // namespace tarnbridge
