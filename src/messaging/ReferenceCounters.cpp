#include "messaging/ReferenceCounters.h"

#include <memory>
#include <random>
#include <utility>

namespace tarnbridge {

ReferenceCounters::ReferenceCounters(Random random)
    : random_(std::move(random)), concatenation_(static_cast<uint8_t>(random_())) {}

ReferenceCounters& ReferenceCounters::OfProcess() {
    static ReferenceCounters counters(
        [device = std::make_shared<std::random_device>()] { return (*device)(); });
    return counters;
}

void ReferenceCounters::SetRandom(Random random) {
    const std::scoped_lock lock(mutex_);
    random_ = std::move(random);
}

uint8_t ReferenceCounters::TakeMessageReference() {
    const std::scoped_lock lock(mutex_);
    return messageReference_++;
}

void ReferenceCounters::SetMessageReference(uint8_t next) {
    const std::scoped_lock lock(mutex_);
    messageReference_ = next;
}

uint8_t ReferenceCounters::NextConcatenation() {
    const std::scoped_lock lock(mutex_);
    concatenation_ = static_cast<uint8_t>(concatenation_ + random_() % 256 + 1);
    return concatenation_;
}

}  // namespace tarnbridge
