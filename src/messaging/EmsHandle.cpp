#include "messaging/EmsHandle.h"

#include <utility>

#include "messaging/ems/Ems.h"

namespace tarnbridge {

EmsHandle::EmsHandle() = default;
EmsHandle::EmsHandle(EmsHandle&& other) noexcept = default;
EmsHandle::~EmsHandle() = default;

EmsHandle EmsHandle::Make(int dcs) {
    EmsHandle handle;
    handle.message_ = std::make_unique<EmsMessage>();
    if (EmsCreate(handle.Get(), static_cast<uint8_t>(dcs)) != EmsResult::Done) handle.message_.reset();
    return handle;
}

EmsHandle::EmsHandle(const EmsHandle& other) {
    if (!other) return;
    *this = Make(other.message_->dcs);
    if (*this && EmsCopy(Get(), other.Get()) != EmsResult::Done) message_.reset();
}

EmsHandle& EmsHandle::operator=(EmsHandle other) noexcept {
    std::swap(message_, other.message_);
    return *this;
}

bool EmsHandle::HasHeader() const {
    return message_ && message_->hasHeader != 0;
}

}  // namespace tarnbridge
