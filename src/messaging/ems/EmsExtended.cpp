#include "messaging/ems/EmsExtended.h"

#include <algorithm>
#include <array>

#include "messaging/ems/EmsCompression.h"
#include "messaging/ems/EmsElements.h"
#include "messaging/ems/EmsObjects.h"

namespace tarnbridge {
namespace {

namespace type {
constexpr uint8_t predefinedSound = 0;
constexpr uint8_t melody = 1;
constexpr uint8_t picture = 2;
constexpr uint8_t predefinedAnimation = 5;
constexpr uint8_t animation = 6;
constexpr uint8_t vCard = 9;
constexpr uint8_t vCalendar = 10;
}  // namespace type

constexpr uint8_t depths[] = {1, 2, 6};  ///< of the three types of pictures, and of animations
constexpr int pictureHead = 2;
constexpr int animationHead = 4;

uint8_t DepthIndex(uint8_t depth) {
    return static_cast<uint8_t>(std::find(std::begin(depths), std::end(depths), depth) - std::begin(depths));
}

uint8_t RecordType(const EmsObject& object) {
    switch (object.kind) {
        case EmsKind::PredefinedSound:
            return type::predefinedSound;
        case EmsKind::Melody:
            return type::melody;
        case EmsKind::PredefinedAnimation:
            return type::predefinedAnimation;
        case EmsKind::Animation:
            return type::animation + DepthIndex(object.data.depth);
        case EmsKind::Picture:
            return type::picture + DepthIndex(object.data.depth);
        case EmsKind::VCard:
            return type::vCard;
        default:
            return type::vCalendar;
    }
}

void Put16(uint8_t* out, int value) {
    out[0] = static_cast<uint8_t>(value >> 8);
    out[1] = static_cast<uint8_t>(value);
}

int DataHead(EmsKind kind) {
    return kind == EmsKind::Picture ? pictureHead : kind == EmsKind::Animation ? animationHead : 0;
}

}  // namespace

int ExtendedRecordSize(const EmsObject& object) {
    if (IsPredefined(object.kind)) return extendedHead + 1;
    return extendedHead + DataHead(object.kind) + object.data.size;
}

void WriteExtendedRecord(const EmsObject& object, uint8_t* out) {
    const EmsObjectData& data = object.data;
    out[0] = object.reference;
    Put16(out + 1, ExtendedRecordSize(object) - extendedHead);
    out[3] = IsPredefined(object.kind) ? 0 : data.flags;
    out[4] = RecordType(object);
    Put16(out + 5, object.position / 2);
    out += extendedHead;
    if (IsPredefined(object.kind)) {
        *out = object.number;
        return;
    }
    if (object.kind == EmsKind::Picture || object.kind == EmsKind::Animation) {
        *out++ = data.width;
        *out++ = data.height;
    }
    if (object.kind == EmsKind::Animation) {
        *out++ = data.frames;
        *out++ = static_cast<uint8_t>(data.animationHigh << 4 | (data.animationLow & 15));
    }
    std::copy_n(data.bytes, data.size, out);
}

void WriteReusedRecord(const EmsObject& object, uint8_t* out) {
    out[0] = object.reference;
    Put16(out + 1, object.position / 2);
}

uint16_t RecordPosition(const uint8_t* bytes) {
    return static_cast<uint16_t>(std::min((bytes[0] << 8 | bytes[1]) * 2, emsLongestReadText));
}

EmsResult ReadExtendedRecord(const uint8_t* bytes, int size, ExtendedRecord& record) {
    EmsObject& object = record.object;
    EmsObjectData& data = object.data;
    const uint8_t type = bytes[4];
    if (type >= firstSpareType && type <= lastSpareType) return EmsResult::InvalidExtendedObject;
    object.isExtended = 1;
    object.reference = bytes[0];
    object.position = RecordPosition(bytes + 5);
    data.flags = bytes[3];
    const uint8_t* const content = bytes + extendedHead;
    int length = size - extendedHead;
    record.isKnown = true;
    if (type == type::predefinedSound || type == type::predefinedAnimation) {
        object.kind = type == type::predefinedSound ? EmsKind::PredefinedSound : EmsKind::PredefinedAnimation;
        data = {};
        if (length != 1) return EmsResult::InvalidData;
        object.number = *content;
    } else if (type == type::melody || type == type::vCard || type == type::vCalendar) {
        object.kind = type == type::melody  ? EmsKind::Melody
                      : type == type::vCard ? EmsKind::VCard
                                            : EmsKind::VCalendar;
    } else if (type < type::vCard) {
        const bool isPicture = type < type::predefinedAnimation;
        object.kind = isPicture ? EmsKind::Picture : EmsKind::Animation;
        data.depth = depths[type - (isPicture ? type::picture : type::animation)];
        if (length < DataHead(object.kind)) return EmsResult::InvalidData;
        data.width = content[0];
        data.height = content[1];
        if (!isPicture) {
            data.frames = content[2];
            data.animationLow = content[3] & 15;
            data.animationHigh = content[3] >> 4;
        }
    } else {
        record.isKnown = false;
        return EmsResult::Done;
    }
    if (!IsPredefined(object.kind)) {
        data.bytes = content + DataHead(object.kind);
        length -= DataHead(object.kind);
        // The size field of an object is the record's own 16 bits, so that it can't be exceeded.
        data.size = static_cast<uint16_t>(length);
    }
    bool extended = false;
    const EmsResult result = ClassifyObject(object.kind, data, object.number, false, extended);
    return result == EmsResult::Done ? result : EmsResult::InvalidData;
}

int WriteCompressedBlock(const EmsMessage& message, uint8_t* out) {
    std::array<uint8_t, longestCompressInput> block;
    int size = 0;
    int plainSize = 0;
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (!node->isExtended) continue;
        const int recordSize = node->isReused ? reusedElementSize - elementHead : ExtendedRecordSize(*node);
        plainSize += elementHead + recordSize;
        if (size + 1 + recordSize > longestCompressInput) return 0;
        block[size++] = node->isReused ? element::reusedObject : element::extendedObject;
        if (node->isReused) {
            WriteReusedRecord(*node, block.data() + size);
        } else {
            WriteExtendedRecord(*node, block.data() + size);
        }
        size += recordSize;
    }
    const int compressed =
        Compress(block.data(), size, out + compressedHead, longestCompressedBlock - compressedHead);
    if (compressed < 0 || elementHead + compressedHead + compressed >= plainSize) return 0;
    out[0] = 0;
    Put16(out + 1, compressed);
    return compressedHead + compressed;
}

}  // namespace tarnbridge
