#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "messaging/ems/EmsArena.h"
#include "messaging/ems/EmsMessage.h"
#include "messaging/ems/EmsResult.h"

namespace tarnbridge {

/// What a message keeps for the library, in its slot. Object records are made sixteen at a time.
struct EmsState {
    static constexpr int recordsInBlock = 16;
    using RecordBlock = std::array<EmsObject, recordsInBlock>;

    uint32_t session = 0;  ///< the EmsInit that the slot was taken under
    int segmentsAllowed = emsSegments;
    bool compression = true;
    uint8_t lastReference = 0;  ///< the last number given to an object; 254 once all were used
    EmsArena arena;
    std::array<std::unique_ptr<RecordBlock>, emsMostObjects / recordsInBlock> records;
    EmsObject* freeRecords = nullptr;
    int freeCount = 0;
    int blockCount = 0;
};

/// Done when the message may be worked on.
EmsResult CheckMessage(const EmsMessage* message);

/// The reference of the next concatenated message.
uint16_t NextConcatenationReference();

}  // namespace tarnbridge
