#pragma once

#include <memory>

namespace tarnbridge {

struct EmsMessage;

/// Owns the EmsMessage of a record, or none. A copy gets a message of its own, or none where every slot is
/// taken.
class EmsHandle {
public:
    /// None.
    EmsHandle();
    /// A new, empty message of this coding; none where every slot is taken or the EMS layer isn't
    /// initialised.
    static EmsHandle Make(int dcs);
    EmsHandle(const EmsHandle& other);
    EmsHandle(EmsHandle&& other) noexcept;
    EmsHandle& operator=(EmsHandle other) noexcept;
    ~EmsHandle();

    explicit operator bool() const { return message_ != nullptr; }
    EmsMessage* Get() const { return message_.get(); }
    /// Whether the segments of the message need a user data header; false where there is none.
    bool HasHeader() const;

private:
    std::unique_ptr<EmsMessage> message_;
};

}  // namespace tarnbridge
