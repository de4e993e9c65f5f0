#pragma once

#include <cstdint>

#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsState.h"

namespace tarnbridge {

inline constexpr uint8_t mostPredefinedSounds = 10;
inline constexpr uint8_t mostPredefinedAnimations = 15;
inline constexpr uint8_t lastObjectReference = 254;

inline bool IsPredefined(EmsKind kind) {
    return kind == EmsKind::PredefinedSound || kind == EmsKind::PredefinedAnimation;
}

inline int FormatEnd(const EmsObject& format) {
    return format.position + format.format.length;
}

/// Bytes of a picture, or of one frame.
inline int BitmapSize(int width, int height, int depth) {
    return (width * height * depth + 7) / 8;
}

/// Whether the object is one that a message can hold, and, in `extended`, whether it needs the extended form.
EmsResult ClassifyObject(EmsKind kind, const EmsObjectData& data, uint8_t number, bool hasPorts,
                         bool& extended);

/// A free record, cleared, or null when the message holds as many as it may.
EmsObject* NewObject(EmsState& state);

/// Whether NewObject will succeed that many times.
bool HasRecords(const EmsState& state, int count);

/// Frees a record that isn't in the list.
void FreeRecord(EmsState& state, EmsObject* node);

/// Puts the node into the list, behind `before` (null for the front), or where its position belongs.
void LinkAfter(EmsMessage& message, EmsObject* node, EmsObject* before);
void LinkSorted(EmsMessage& message, EmsObject* node);

/// Takes the node out of the list and frees it. The next object that reuses it takes over its data. The
/// cursor's pointers are left to SettleCursor.
void RemoveObject(EmsMessage& message, EmsObject* node);

/// Copies the data into the arena; false when there is no room.
bool StoreData(EmsState& state, EmsObject& node, const EmsObjectData& data);

/// Gives the node the content and the reference of `original`, as a reused object.
void Reuse(EmsState& state, EmsObject& node, const EmsObject& original);

/// The extended object of equal content that isn't itself reused, or null.
EmsObject* FindEqualExtended(EmsMessage& message, EmsKind kind, const EmsObjectData& data);

/// The extended object that a reused one refers to, or null.
EmsObject* FindReference(EmsMessage& message, uint8_t reference);

/// Gives the node the next reference number. False when 254 extended objects have one each.
bool GiveReference(EmsMessage& message, EmsObject& node);

/// The node, or else the nearest in front of it, that isn't a format; or null.
EmsObject* ObjectUpTo(EmsObject* node);

/// The last object before the cursor that isn't a format, or null.
EmsObject* ObjectBeforeCursor(const EmsMessage& message);

/// Sorts the list by position, formats last, otherwise keeping the order.
void SortObjects(EmsMessage& message);

/// Finds `current` and `activeFormat` anew. Of the objects at the cursor's position those up to `before` lie
/// in front of it.
void SettleCursor(EmsMessage& message, EmsObject* before);

/// Removes all objects and all text.
void ClearContent(EmsMessage& message);

}  // namespace tarnbridge
