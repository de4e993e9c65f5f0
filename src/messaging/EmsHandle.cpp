#include "messaging/EmsHandle.h"

#include <utility>

namespace tarnbridge {

EmsHandle::EmsHandle(EmsMessage* message, const EmsOperations& operations)
    : message_(message), operations_(&operations) {}

EmsHandle::EmsHandle(const EmsHandle& other)
    : message_(other.message_ ? other.operations_->copy(*other.message_) : nullptr),
      operations_(other.operations_) {}

EmsHandle::EmsHandle(EmsHandle&& other) noexcept
    : message_(std::exchange(other.message_, nullptr)), operations_(other.operations_) {}

EmsHandle& EmsHandle::operator=(EmsHandle other) noexcept {
    std::swap(message_, other.message_);
    std::swap(operations_, other.operations_);
    return *this;
}

EmsHandle::~EmsHandle() {
    if (message_) operations_->release(message_);
}

bool EmsHandle::HasHeader() const {
    return message_ && operations_->hasHeader(*message_);
}

}  // namespace tarnbridge
