#include "messaging/ems/EmsObjects.h"

#include <algorithm>
#include <bitset>
#include <cstring>

#include "messaging/ems/EmsElements.h"

namespace tarnbridge {
namespace {

/// Octets of an object's data that fit into one segment beside any header without ports.
constexpr int longestNormalData = 128;
/// Octets of data and of the element around it beside a header with ports.
constexpr int longestNormalWithPorts = 128;
constexpr int elementOverhead = 5;

bool IsDepth(uint8_t depth) {
    return depth == 1 || depth == 2 || depth == 6;
}

bool SortsBehind(const EmsObject& first, const EmsObject& second) {
    if (first.position != second.position) return first.position > second.position;
    return first.kind == EmsKind::TextFormat && second.kind != EmsKind::TextFormat;
}

void Unlink(EmsMessage& message, EmsObject* node) {
    (node->prev ? node->prev->next : message.first) = node->next;
    (node->next ? node->next->prev : message.last) = node->prev;
}

bool SameImage(const EmsObjectData& first, const EmsObjectData& second) {
    return first.depth == second.depth && first.height == second.height && first.width == second.width;
}

}  // namespace

EmsResult ClassifyObject(EmsKind kind, const EmsObjectData& data, uint8_t number, bool hasPorts,
                         bool& extended) {
    extended = false;
    switch (kind) {
        case EmsKind::PredefinedSound:
            return number < mostPredefinedSounds ? EmsResult::Done : EmsResult::InvalidObject;
        case EmsKind::PredefinedAnimation:
            return number < mostPredefinedAnimations ? EmsResult::Done : EmsResult::InvalidObject;
        case EmsKind::Melody:
            extended = data.size > longestNormalData;
            break;
        case EmsKind::Animation:
            if (!IsDepth(data.depth) ||
                BitmapSize(data.width, data.height, data.depth) * data.frames != data.size) {
                return EmsResult::InvalidObject;
            }
            extended = data.depth != 1 || data.frames != animationFrames || data.width != data.height ||
                       (data.width != smallSide && data.width != middleSide);
            break;
        case EmsKind::Picture:
            if (!IsDepth(data.depth) || BitmapSize(data.width, data.height, data.depth) != data.size) {
                return EmsResult::InvalidObject;
            }
            extended = data.depth != 1 || data.size > longestNormalData || data.width % 8 != 0;
            break;
        case EmsKind::VCard:
        case EmsKind::VCalendar:
            extended = true;
            break;
        default:
            return EmsResult::InvalidObject;
    }
    if (data.size == 0) return EmsResult::InvalidObject;
    if (hasPorts && data.size + elementOverhead > longestNormalWithPorts) extended = true;
    return EmsResult::Done;
}

EmsObject* NewObject(EmsState& state) {
    if (!state.freeRecords) {
        if (state.blockCount == static_cast<int>(state.records.size())) return nullptr;
        auto& block = state.records[state.blockCount++];
        block = std::make_unique<EmsState::RecordBlock>();
        for (EmsObject& node : *block)
            FreeRecord(state, &node);
    }
    EmsObject* const node = state.freeRecords;
    state.freeRecords = node->next;
    --state.freeCount;
    *node = {};
    return node;
}

bool HasRecords(const EmsState& state, int count) {
    const int unmade = static_cast<int>(state.records.size()) - state.blockCount;
    return state.freeCount + unmade * EmsState::recordsInBlock >= count;
}

void FreeRecord(EmsState& state, EmsObject* node) {
    node->next = state.freeRecords;
    state.freeRecords = node;
    ++state.freeCount;
}

void LinkAfter(EmsMessage& message, EmsObject* node, EmsObject* before) {
    node->prev = before;
    node->next = before ? before->next : message.first;
    (node->prev ? node->prev->next : message.first) = node;
    (node->next ? node->next->prev : message.last) = node;
}

void LinkSorted(EmsMessage& message, EmsObject* node) {
    EmsObject* before = message.last;
    while (before && SortsBehind(*before, *node))
        before = before->prev;
    LinkAfter(message, node, before);
}

void RemoveObject(EmsMessage& message, EmsObject* node) {
    EmsState& state = *message.state;
    if (node->isExtended && !node->isReused) {
        for (EmsObject* later = message.first; later; later = later->next) {
            if (later->isReused && later->reference == node->reference) {
                later->isReused = 0;
                break;
            }
        }
    }
    Unlink(message, node);
    if (const uint8_t* const bytes = node->data.bytes) {
        const int moved = state.arena.Drop(bytes);
        for (EmsObject* other = message.first; moved > 0 && other; other = other->next) {
            if (other->data.bytes && other->data.bytes > bytes) other->data.bytes -= moved;
        }
    }
    FreeRecord(state, node);
}

bool StoreData(EmsState& state, EmsObject& node, const EmsObjectData& data) {
    node.data = data;
    node.data.bytes = state.arena.Store(data.bytes, data.size);
    return node.data.bytes != nullptr;
}

void Reuse(EmsState& state, EmsObject& node, const EmsObject& original) {
    node.kind = original.kind;
    node.number = original.number;
    node.data = original.data;
    node.isExtended = 1;
    node.isReused = 1;
    node.reference = original.reference;
    if (original.data.bytes) state.arena.Share(original.data.bytes);
}

EmsObject* FindEqualExtended(EmsMessage& message, EmsKind kind, const EmsObjectData& data) {
    for (EmsObject* node = message.first; node; node = node->next) {
        const EmsObjectData& other = node->data;
        if (!node->isExtended || node->isReused || node->kind != kind || other.size != data.size) continue;
        if ((kind == EmsKind::Picture || kind == EmsKind::Animation) && !SameImage(other, data)) continue;
        if (kind == EmsKind::Animation &&
            (other.frames != data.frames || other.animationLow != data.animationLow ||
             other.animationHigh != data.animationHigh)) {
            continue;
        }
        if (std::memcmp(other.bytes, data.bytes, data.size) == 0) return node;
    }
    return nullptr;
}

EmsObject* FindReference(EmsMessage& message, uint8_t reference) {
    for (EmsObject* node = message.first; node; node = node->next) {
        if (node->isExtended && !node->isReused && node->reference == reference) return node;
    }
    return nullptr;
}

bool GiveReference(EmsMessage& message, EmsObject& node) {
    EmsState& state = *message.state;
    if (state.lastReference < lastObjectReference) {
        node.reference = ++state.lastReference;
        return true;
    }
    std::bitset<256> taken;
    for (const EmsObject* other = message.first; other; other = other->next) {
        if (other->isExtended && other != &node) taken.set(other->reference);
    }
    for (int reference = 1; reference <= lastObjectReference; ++reference) {
        if (taken[reference]) continue;
        node.reference = static_cast<uint8_t>(reference);
        return true;
    }
    return false;
}

EmsObject* ObjectUpTo(EmsObject* node) {
    while (node && node->kind == EmsKind::TextFormat)
        node = node->prev;
    return node;
}

EmsObject* ObjectBeforeCursor(const EmsMessage& message) {
    return ObjectUpTo(message.current);
}

void SortObjects(EmsMessage& message) {
    for (EmsObject* node = message.first; node;) {
        EmsObject* const following = node->next;
        if (node->prev && SortsBehind(*node->prev, *node)) {
            EmsObject* before = node->prev;
            Unlink(message, node);
            while (before && SortsBehind(*before, *node))
                before = before->prev;
            LinkAfter(message, node, before);
        }
        node = following;
    }
}

void SettleCursor(EmsMessage& message, EmsObject* before) {
    message.current = nullptr;
    message.activeFormat = nullptr;
    for (EmsObject* node = message.first; node && node->position < message.cursor; node = node->next) {
        message.current = node;
        if (node->kind == EmsKind::TextFormat && FormatEnd(*node) >= message.cursor)
            message.activeFormat = node;
    }
    if (before && before->position == message.cursor) message.current = before;
}

void ClearContent(EmsMessage& message) {
    EmsState& state = *message.state;
    for (EmsObject* node = message.first; node;) {
        EmsObject* const following = node->next;
        FreeRecord(state, node);
        node = following;
    }
    message.first = message.last = message.current = message.activeFormat = nullptr;
    state.arena = {};
    state.lastReference = 0;
    message.cursor = 0;
    message.textLength = 0;
    message.text[0] = message.text[1] = 0;
}

}  // namespace tarnbridge
