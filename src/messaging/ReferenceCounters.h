#pragma once

#include <cstdint>
#include <functional>
#include <mutex>

namespace tarnbridge {

/// The two counters that tell messages of this program apart for a receiver. They live for the run of the
/// program and aren't saved. All operations may be called from any thread.
class ReferenceCounters {
public:
    using Random = std::function<uint32_t()>;

    /// The concatenation counter starts at a number of `random`, the message reference at 0.
    explicit ReferenceCounters(Random random);

    /// Those of the process, which the writers of PDUs use. Their random numbers come from the system.
    static ReferenceCounters& OfProcess();

    /// From now on random numbers come from here.
    void SetRandom(Random random);

    /// The counter as it stands (3GPP TS 23.040, 9.2.3.6), which is then moved on by one.
    uint8_t TakeMessageReference();
    void SetMessageReference(uint8_t next);

    /// The reference number of the next message of several parts (3GPP TS 23.040, 9.2.3.24.1): the last one
    /// and 1 to 256 more.
    uint8_t NextConcatenation();

private:
    std::mutex mutex_;
    Random random_;
    uint8_t messageReference_ = 0;
    uint8_t concatenation_;
};

}  // namespace tarnbridge
