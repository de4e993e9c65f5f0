#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsLayout.h"
#include "messaging/ems/EmsState.h"

namespace tarnbridge {

EmsResult Generate(EmsMessage* message, bool generating, int* segmentCount, uint8_t* const* buffers,
                   int* lengths) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    if (!segmentCount || (generating && (!buffers || !lengths))) return EmsResult::NullPointer;
    if (const EmsResult result = LayOut(*message); result != EmsResult::Done) return result;
    *segmentCount = message->segmentsUsed;
    if (!generating) return EmsResult::Done;
    for (int i = 0; i < *segmentCount; ++i) {
        if (!buffers[i]) return EmsResult::NullPointer;
    }
    const uint16_t reference = message->isConcatenated ? NextConcatenationReference() : uint16_t{0};
    const SegmentOutput output{buffers, lengths, reference, *segmentCount};
    return LayOut(*message, &output);
}

}  // namespace tarnbridge
