#include <atomic>
#include <bitset>
#include <mutex>
#include <random>

#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsLayout.h"
#include "messaging/ems/EmsObjects.h"
#include "messaging/ems/EmsState.h"

namespace tarnbridge {
namespace {

/// What messages share. A message's own memory belongs to the message.
struct Pool {
    std::mutex mutex;  ///< of `used` and `lastSession`, and of changes of `session`
    std::bitset<emsSlots + 1> used;
    uint32_t lastSession = 0;
    std::atomic<uint32_t> session = 0;  ///< counts the calls of EmsInit; 0 while there is none in force
    std::atomic<uint8_t> nextReference = 0;
    std::atomic<EmsReferenceSource> referenceSource = nullptr;
};

Pool& ThePool() {
    static Pool pool;
    return pool;
}

bool IsDcs(uint8_t dcs) {
    return dcs == 0 || dcs == 16 || dcs == 4 || dcs == 8;
}

void Free(EmsMessage& message) {
    Pool& pool = ThePool();
    {
        const std::lock_guard lock(pool.mutex);
        if (message.state->session == pool.session) pool.used.reset(message.slot);
    }
    message.state.reset();
    message.slot = 0;
    message.first = message.last = message.current = message.activeFormat = nullptr;
}

}  // namespace

EmsMessage::EmsMessage() = default;

EmsMessage::~EmsMessage() {
    if (state) Free(*this);
}

EmsResult EmsInit(std::optional<uint8_t> firstReference) {
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    if (pool.session != 0) return EmsResult::AlreadyInitialised;
    pool.used.reset();
    pool.nextReference = firstReference ? *firstReference : static_cast<uint8_t>(std::random_device{}());
    pool.session = ++pool.lastSession;
    return EmsResult::Done;
}

EmsResult EmsShutdown() {
    Pool& pool = ThePool();
    const std::lock_guard lock(pool.mutex);
    return pool.session.exchange(0) == 0 ? EmsResult::NotInitialised : EmsResult::Done;
}

void EmsSetReferenceSource(EmsReferenceSource source) {
    ThePool().referenceSource = source;
}

uint16_t NextConcatenationReference() {
    Pool& pool = ThePool();
    if (const EmsReferenceSource source = pool.referenceSource) return source();
    return pool.nextReference++;
}

EmsResult CheckMessage(const EmsMessage* message) {
    const uint32_t session = ThePool().session;
    if (session == 0) return EmsResult::NotInitialised;
    if (!message) return EmsResult::NullPointer;
    return message->state && message->state->session == session ? EmsResult::Done : EmsResult::InvalidMessage;
}

EmsResult EmsCreate(EmsMessage* message, uint8_t dcs) {
    Pool& pool = ThePool();
    if (pool.session == 0) return EmsResult::NotInitialised;
    if (!message) return EmsResult::NullPointer;
    if (!IsDcs(dcs)) return EmsResult::InvalidDcs;
    if (message->state) Free(*message);
    auto state = std::make_unique<EmsState>();
    {
        const std::lock_guard lock(pool.mutex);
        int slot = 1;
        while (slot <= emsSlots && pool.used[slot])
            ++slot;
        if (slot > emsSlots) return EmsResult::NoFreeSlot;
        pool.used.set(slot);
        message->slot = slot;
        state->session = pool.session;
    }
    message->state = std::move(state);
    ClearContent(*message);
    message->textCapacity = emsLongestText;
    message->dcs = message->dcsByte = dcs;
    message->hasPorts = 0;
    message->sourcePort = message->destPort = 0;
    return LayOut(*message);
}

EmsResult EmsRelease(EmsMessage* message) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    Free(*message);
    return EmsResult::Done;
}

EmsResult EmsCopy(EmsMessage* target, const EmsMessage* source) {
    if (const EmsResult result = CheckMessage(source); result != EmsResult::Done) return result;
    if (const EmsResult result = CheckMessage(target); result != EmsResult::Done) return result;
    if (target == source) return EmsResult::Done;
    ClearContent(*target);
    target->text = source->text;
    target->textLength = source->textLength;
    target->textCapacity = source->textCapacity;
    target->cursor = source->cursor;
    target->dcs = source->dcs;
    target->dcsByte = source->dcsByte;
    target->hasPorts = source->hasPorts;
    target->sourcePort = source->sourcePort;
    target->destPort = source->destPort;
    EmsState& state = *target->state;
    state.segmentsAllowed = source->state->segmentsAllowed;
    state.compression = source->state->compression;
    state.lastReference = source->state->lastReference;
    state.arena = source->state->arena;
    for (const EmsObject* node = source->first; node; node = node->next) {
        EmsObject* const copy = NewObject(state);
        *copy = *node;
        if (copy->data.bytes)
            copy->data.bytes = state.arena.begin() + (node->data.bytes - source->state->arena.begin());
        LinkAfter(*target, copy, target->last);
        if (node == source->current) target->current = copy;
        if (node == source->activeFormat) target->activeFormat = copy;
    }
    LayOut(*target);
    return EmsResult::Done;
}

}  // namespace tarnbridge
