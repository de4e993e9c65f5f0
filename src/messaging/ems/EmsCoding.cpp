#include <algorithm>
#include <array>

#include "messaging/GsmAlphabet.h"
#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsLayout.h"
#include "messaging/ems/EmsObjects.h"
#include "messaging/ems/EmsState.h"

namespace tarnbridge {
namespace {

constexpr char16_t mark = gsmEscape;
constexpr int singleSegmentText = 320;
constexpr int textPerSegment = 306;

char16_t UnitAt(const EmsMessage& message, int at) {
    return static_cast<char16_t>(message.text[at] << 8 | message.text[at + 1]);
}

/// Whether a unit, as text outside of UCS2 has it, needs a mark.
bool NeedsMark(char16_t unit) {
    return IsGsmExtension(CharacterOfPart(unit));
}

/// Text and positions as they were before a switch of coding.
class Snapshot {
public:
    explicit Snapshot(const EmsMessage& message)
        : text_(message.text),
          textLength_(message.textLength),
          cursor_(message.cursor),
          dcs_(message.dcs),
          dcsByte_(message.dcsByte) {
        for (EmsObject* node = message.first; node; node = node->next) {
            places_[count_++] = {node, node->position, node->format.length};
        }
    }

    void Restore(EmsMessage& message) const {
        message.text = text_;
        message.textLength = textLength_;
        message.cursor = cursor_;
        message.dcs = dcs_;
        message.dcsByte = dcsByte_;
        for (int i = 0; i < count_; ++i) {
            places_[i].node->position = places_[i].position;
            places_[i].node->format.length = places_[i].length;
        }
    }

private:
    struct Place {
        EmsObject* node;
        uint16_t position;
        uint16_t length;
    };

    std::array<uint8_t, emsLongestReadText + 2> text_;
    uint16_t textLength_;
    uint16_t cursor_;
    uint8_t dcs_;
    uint8_t dcsByte_;
    std::array<Place, emsMostObjects> places_;
    int count_ = 0;
};

/// Puts a mark in front of each character that needs one and has none, or takes these marks out, and turns
/// what has another value in UCS2. Positions and the cursor follow. False when the text becomes too long,
/// with the message half changed.
bool RewriteMarks(EmsMessage& message, bool marked) {
    const auto text = message.text;
    const int length = message.textLength;
    std::array<uint16_t, emsLongestReadText / 2 + 1> moved;
    int out = 0;
    for (int at = 0; at < length; at += 2) {
        moved[at / 2] = static_cast<uint16_t>(out);
        const auto before = static_cast<char16_t>(text[at] << 8 | text[at + 1]);
        const char16_t unit = marked ? PartOfCharacter(before) : CharacterOfPart(before);
        const bool isMark = before == mark && at + 2 < length &&
                            NeedsMark(static_cast<char16_t>(text[at + 2] << 8 | text[at + 3]));
        if (isMark && !marked) continue;
        if (marked && NeedsMark(unit) && (out == 0 || UnitAt(message, out - 2) != mark)) {
            if (out + 4 > message.textCapacity) return false;
            message.text[out++] = 0;
            message.text[out++] = mark;
        }
        if (out + 2 > static_cast<int>(message.text.size()) - 2) return false;
        message.text[out++] = static_cast<uint8_t>(unit >> 8);
        message.text[out++] = static_cast<uint8_t>(unit);
    }
    moved[length / 2] = static_cast<uint16_t>(out);
    message.textLength = static_cast<uint16_t>(out);
    message.text[out] = message.text[out + 1] = 0;
    for (EmsObject* node = message.first; node; node = node->next) {
        const int end = moved[std::min(FormatEnd(*node), length) / 2];
        node->position = moved[node->position / 2];
        if (node->kind == EmsKind::TextFormat)
            node->format.length = static_cast<uint16_t>(end - node->position);
    }
    message.cursor = moved[message.cursor / 2];
    return true;
}

/// Formats that a rewriting left without text.
void RemoveEmptyFormats(EmsMessage& message) {
    for (EmsObject* node = message.first; node;) {
        EmsObject* const following = node->next;
        if (node->kind == EmsKind::TextFormat && node->format.length == 0) RemoveObject(message, node);
        node = following;
    }
}

}  // namespace

EmsResult EmsSetDcs(EmsMessage* message, uint8_t dcs) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    if (dcs != 0 && dcs != 16 && dcs != 4 && dcs != 8) return EmsResult::InvalidDcs;
    if (dcs == message->dcs) return EmsResult::Done;
    const Snapshot before(*message);
    EmsObject* const object = ObjectBeforeCursor(*message);
    const bool rewrites = IsUcs2(dcs) != IsUcs2(message->dcs);
    message->dcs = dcs;
    message->dcsByte = static_cast<uint8_t>((message->dcsByte & ~12) | (dcs & 12));
    EmsResult result = EmsResult::Done;
    if (rewrites && !RewriteMarks(*message, !IsUcs2(dcs))) result = EmsResult::NoRoom;
    if (result == EmsResult::Done) result = LayOut(*message);
    if (result != EmsResult::Done) {
        before.Restore(*message);
        LayOut(*message);
        return result;
    }
    RemoveEmptyFormats(*message);
    SortObjects(*message);
    SettleCursor(*message, object);
    return LayOut(*message);
}

EmsResult EmsAllowSegments(EmsMessage* message, int segments) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    if (segments < 1 || segments > emsSegments) return EmsResult::InvalidData;
    const int allowedBefore = message->state->segmentsAllowed;
    const int capacity = segments == 1 ? singleSegmentText : textPerSegment * segments;
    message->state->segmentsAllowed = segments;
    if (LayOut(*message) != EmsResult::Done || message->textLength > capacity) {
        message->state->segmentsAllowed = allowedBefore;
        LayOut(*message);
        return EmsResult::NoRoom;
    }
    message->textCapacity = static_cast<uint16_t>(capacity);
    return EmsResult::Done;
}

EmsResult EmsSetPorts(EmsMessage* message, bool present, uint16_t sourcePort, uint16_t destPort) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    const int before = message->hasPorts;
    message->hasPorts = present ? 1 : 0;
    if (const EmsResult result = LayOut(*message); result != EmsResult::Done) {
        message->hasPorts = before;
        LayOut(*message);
        return result;
    }
    message->sourcePort = present ? sourcePort : uint16_t{0};
    message->destPort = present ? destPort : uint16_t{0};
    return EmsResult::Done;
}

EmsResult EmsSetCompression(EmsMessage* message, bool on) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    const bool before = message->state->compression;
    message->state->compression = on;
    if (const EmsResult result = LayOut(*message); result != EmsResult::Done) {
        message->state->compression = before;
        LayOut(*message);
        return result;
    }
    return EmsResult::Done;
}

}  // namespace tarnbridge
