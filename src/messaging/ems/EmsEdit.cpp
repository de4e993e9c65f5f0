#include <algorithm>
#include <cstring>
#include <string>

#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsFormats.h"
#include "messaging/ems/EmsLayout.h"
#include "messaging/ems/EmsObjects.h"
#include "messaging/ems/EmsState.h"

namespace tarnbridge {
namespace {

/// A new format in the middle of another needs a record for itself and one for the rest of the other.
constexpr int recordsForText = 2;

void CloseText(EmsMessage& message) {
    message.text[message.textLength] = message.text[message.textLength + 1] = 0;
}

void InsertText(EmsMessage& message, const uint8_t* text, int bytes, const EmsTextFormat* format) {
    EmsObject* const before = ObjectBeforeCursor(message);
    const int at = message.cursor;
    uint8_t* const place = message.text.data() + at;
    std::memmove(place + bytes, place, message.textLength - at);
    std::memcpy(place, text, bytes);
    message.textLength = static_cast<uint16_t>(message.textLength + bytes);
    CloseText(message);
    for (EmsObject* node = message.current ? message.current->next : message.first; node; node = node->next) {
        node->position = static_cast<uint16_t>(node->position + bytes);
    }
    FormatInsertedText(message, at, bytes, format);
    message.cursor = static_cast<uint16_t>(at + bytes);
    SortObjects(message);
    SettleCursor(message, before);
}

/// Removes the text from `from` to the cursor, in front of which no object but formats lies in that stretch.
void RemoveText(EmsMessage& message, int from) {
    EmsObject* const before = ObjectBeforeCursor(message);
    const int to = message.cursor;
    std::memmove(message.text.data() + from, message.text.data() + to, message.textLength - to);
    message.textLength = static_cast<uint16_t>(message.textLength - (to - from));
    CloseText(message);
    const auto moved = [&](int position) {
        return position >= to ? position - (to - from) : std::min(position, from);
    };
    for (EmsObject* node = message.first; node;) {
        EmsObject* const following = node->next;
        const int end = moved(FormatEnd(*node));
        node->position = static_cast<uint16_t>(moved(node->position));
        if (node->kind == EmsKind::TextFormat) {
            node->format.length = static_cast<uint16_t>(end - node->position);
            if (node->format.length == 0) RemoveObject(message, node);
        }
        node = following;
    }
    message.cursor = static_cast<uint16_t>(from);
    JoinFormats(message);
    SortObjects(message);
    SettleCursor(message, before);
}

/// The next object behind the cursor that isn't a format and stands at its position, or null.
EmsObject* ObjectAtCursor(const EmsMessage& message) {
    EmsObject* const next = message.current ? message.current->next : message.first;
    const bool isThere = next && next->position == message.cursor && next->kind != EmsKind::TextFormat;
    return isThere ? next : nullptr;
}

/// Of two objects with one content the first in the list carries it: a reader must have met the content
/// before a reference to it.
void LetTheFirstCarry(const EmsMessage& message, EmsObject& added, EmsObject& earlier) {
    const EmsObject* first = message.first;
    while (first != &added && first != &earlier)
        first = first->next;
    earlier.isReused = first == &added ? 1 : 0;
    added.isReused = first == &added ? 0 : 1;
}

}  // namespace

EmsResult AddText(EmsMessage* message, const uint8_t* text, int count, const EmsTextFormat* format) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    if (!text) return EmsResult::NullPointer;
    if (count <= 0) return EmsResult::InvalidData;
    if (format && !IsValidFormat(*format)) return EmsResult::InvalidObject;
    if (count > (message->textCapacity - message->textLength) / 2) return EmsResult::NoRoom;
    if (format && !HasRecords(*message->state, recordsForText)) return EmsResult::NoMemory;
    InsertText(*message, text, count * 2, format);
    const EmsResult result = LayOut(*message);
    if (result != EmsResult::Done) Backspace(message, count);
    return result;
}

EmsResult AddText(EmsMessage* message, std::u16string_view text, const EmsTextFormat* format) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit >> 8));
        bytes.push_back(static_cast<char>(unit));
    }
    const int count = static_cast<int>(std::min<size_t>(text.size(), emsLongestText));
    return AddText(message, reinterpret_cast<const uint8_t*>(bytes.data()), count, format);
}

EmsResult AddObject(EmsMessage* message, EmsKind kind, const EmsObjectData* data, uint8_t number) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    const bool isPredefined = IsPredefined(kind);
    if (!isPredefined && (!data || !data->bytes)) return EmsResult::NullPointer;
    const EmsObjectData content = isPredefined ? EmsObjectData{} : *data;
    bool extended = false;
    const EmsResult form = ClassifyObject(kind, content, number, message->hasPorts != 0, extended);
    if (form != EmsResult::Done) return form;

    EmsState& state = *message->state;
    EmsObject* const node = NewObject(state);
    if (!node) return EmsResult::NoMemory;
    const uint8_t lastReference = state.lastReference;
    node->kind = kind;
    node->number = isPredefined ? number : uint8_t{0};
    node->position = message->cursor;
    node->isExtended = extended ? 1 : 0;
    EmsObject* const equal = extended ? FindEqualExtended(*message, kind, content) : nullptr;
    if (equal) {
        Reuse(state, *node, *equal);
    } else if ((!isPredefined && !StoreData(state, *node, content)) ||
               ((extended || state.compression) && !GiveReference(*message, *node))) {
        if (node->data.bytes) state.arena.Drop(node->data.bytes);
        FreeRecord(state, node);
        return EmsResult::NoMemory;
    }
    LinkAfter(*message, node, message->current);
    if (equal) LetTheFirstCarry(*message, *node, *equal);
    message->current = node;
    const EmsResult result = LayOut(*message);
    if (result != EmsResult::Done) {
        DeleteUnits(message, 1);
        state.lastReference = lastReference;
        LayOut(*message);
    }
    return result;
}

int DeleteUnits(EmsMessage* message, int count) {
    if (CheckMessage(message) != EmsResult::Done) return 0;
    int removed = 0;
    while (removed < count) {
        EmsObject* const object = ObjectBeforeCursor(*message);
        if (object && object->position == message->cursor) {
            EmsObject* const before = ObjectUpTo(object->prev);
            RemoveObject(*message, object);
            SettleCursor(*message, before);
            ++removed;
        } else {
            const int start = object ? object->position : 0;
            const int characters = std::min(count - removed, (message->cursor - start) / 2);
            if (characters == 0) break;
            RemoveText(*message, message->cursor - characters * 2);
            removed += characters;
        }
    }
    return removed;
}

int Backspace(EmsMessage* message, int count) {
    const int removed = DeleteUnits(message, count);
    if (removed > 0) LayOut(*message);
    return removed;
}

EmsResult EmsResetCursor(EmsMessage* message) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    message->cursor = 0;
    SettleCursor(*message, nullptr);
    return EmsResult::Done;
}

int MoveCursorForward(EmsMessage* message, int count) {
    if (CheckMessage(message) != EmsResult::Done) return 0;
    int moved = 0;
    for (; moved < count; ++moved) {
        if (EmsObject* const object = ObjectAtCursor(*message)) {
            message->current = object;
        } else if (message->cursor < message->textLength) {
            message->cursor = static_cast<uint16_t>(message->cursor + 2);
            SettleCursor(*message, nullptr);
        } else {
            break;
        }
    }
    return moved;
}

int MoveCursorBackward(EmsMessage* message, int count) {
    if (CheckMessage(message) != EmsResult::Done) return 0;
    int moved = 0;
    for (; moved < count; ++moved) {
        EmsObject* const object = ObjectBeforeCursor(*message);
        if (object && object->position == message->cursor) {
            EmsObject* const before = ObjectUpTo(object->prev);
            SettleCursor(*message, before);
        } else if (message->cursor > 0) {
            message->cursor = static_cast<uint16_t>(message->cursor - 2);
            SettleCursor(*message, object);
        } else {
            break;
        }
    }
    return moved;
}

std::u16string EmsText(const EmsMessage& message) {
    std::u16string text;
    text.reserve(message.textLength / 2);
    for (int at = 0; at < message.textLength; at += 2) {
        text.push_back(static_cast<char16_t>(message.text[at] << 8 | message.text[at + 1]));
    }
    return text;
}

}  // namespace tarnbridge
