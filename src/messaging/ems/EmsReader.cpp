#include <algorithm>
#include <array>
#include <string_view>

#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsCompression.h"
#include "messaging/ems/EmsElements.h"
#include "messaging/ems/EmsExtended.h"
#include "messaging/ems/EmsFormats.h"
#include "messaging/ems/EmsLayout.h"
#include "messaging/ems/EmsObjects.h"
#include "messaging/ems/EmsState.h"

namespace tarnbridge {
namespace {

constexpr std::string_view lostPart = "(.....)";
constexpr int longestHeader = 140;
/// Octets of an extended object or compressed block in one segment: all but the header's length and the
/// element's head.
constexpr int chunkInSegment = 140 - 1 - elementHead;
constexpr int longestPending = emsSegments * chunkInSegment;
/// Octets at the front of both kinds of blocks that end in the 16-bit length.
constexpr int lengthEnd = 3;
constexpr int wholeRun = 255;

/// An extended object or a compressed block whose elements are being collected.
struct Pending {
    uint8_t number = 0;  ///< of the elements, 0 while there is none
    int total = 0;       ///< octets that its first element tells of
    int received = 0;
    std::array<uint8_t, longestPending> bytes;
};

class Reader {
public:
    explicit Reader(EmsMessage& message) : message_(message) {}

    /// False when the text is full.
    bool ReadSegment(bool hasHeader, const uint8_t* bytes, int length, uint8_t dcs) {
        const int headerLength = hasHeader && bytes && length > 0 ? bytes[0] : 0;
        if (!bytes || headerLength >= longestHeader || (dcs != 0 && dcs != 16 && dcs != 8 && dcs != 4)) {
            DropPending();
            return AppendText(reinterpret_cast<const uint8_t*>(lostPart.data()),
                              static_cast<int>(lostPart.size()), true);
        }
        hasUcs2_ = hasUcs2_ || IsUcs2(dcs);
        hasOctets_ = hasOctets_ || dcs == 4;
        // A header of length 0 is none, but its length octet stands in front of the text all the same.
        const int header = hasHeader ? std::min(headerLength + 1, length) : 0;
        segmentStart_ = message_.textLength;
        const bool isRoomLeft = AppendText(bytes + header, std::max(length - header, 0), !IsUcs2(dcs));
        if (headerLength > 0) WalkHeader(bytes + 1, header - 1, headerLength);
        return isRoomLeft;
    }

    EmsResult Finish() {
        DropPending();
        const int end = message_.textLength;
        for (EmsObject* node = message_.first; node; node = node->next) {
            node->position = static_cast<uint16_t>(std::min<int>(node->position, end));
        }
        SortObjects(message_);
        JoinFormats(message_);
        message_.dcs = hasUcs2_ ? 8 : hasOctets_ ? 4 : 0;
        message_.dcsByte = static_cast<uint8_t>((message_.dcsByte & ~12) | message_.dcs);
        LayOut(message_);
        EmsResetCursor(&message_);
        return firstFault_;
    }

private:
    void Note(EmsResult result) {
        if (firstFault_ == EmsResult::Done) firstFault_ = result;
    }

    bool AppendText(const uint8_t* bytes, int length, bool oneByteCharacters) {
        const int wanted = oneByteCharacters ? length * 2 : length & ~1;
        const int taken = std::min(wanted, emsLongestReadText - message_.textLength);
        uint8_t* const out = message_.text.data() + message_.textLength;
        for (int at = 0; at < taken; at += 2) {
            out[at] = oneByteCharacters ? uint8_t{0} : bytes[at];
            out[at + 1] = oneByteCharacters ? bytes[at / 2] : bytes[at + 1];
        }
        out[taken] = out[taken + 1] = 0;
        message_.textLength = static_cast<uint16_t>(message_.textLength + taken);
        return taken == wanted;
    }

    void WalkHeader(const uint8_t* bytes, int size, int statedSize) {
        int at = 0;
        while (at + elementHead <= size && bytes[at + 1] <= size - at - elementHead) {
            ReadElement(bytes[at], bytes + at + elementHead, bytes[at + 1]);
            at += elementHead + bytes[at + 1];
        }
        if (at != size || size != statedSize) Note(EmsResult::InvalidData);
    }

    void ReadElement(uint8_t number, const uint8_t* bytes, int length) {
        switch (number) {
            case element::ports8:
                if (length == 2) SetPorts(bytes[0], bytes[1]);
                return;
            case element::ports16:
                if (length == 4) SetPorts(bytes[0] << 8 | bytes[1], bytes[2] << 8 | bytes[3]);
                return;
            case element::distribution:
                if (length == 2) runLeft_ = (bytes[1] & 1) == 0 ? 0 : bytes[0] == 0 ? wholeRun : bytes[0];
                return;
            case element::compression:
                Collect(number, bytes, length);
                return;
            default:
                break;
        }
        if (number < element::textFormat || number > element::reusedObject) return;
        const bool isInRun = runLeft_ > 0;
        if (isInRun) --runLeft_;
        if (number == element::extendedObject) {
            Collect(number, bytes, length);
        } else if (number == element::reusedObject) {
            if (length < lengthEnd) {
                Note(EmsResult::InvalidData);
            } else {
                PlaceReused(bytes);
            }
        } else if (length == 0) {
            Note(EmsResult::InvalidData);
        } else if (segmentStart_ + bytes[0] * 2 <= message_.textLength) {
            ReadPlaced(number, segmentStart_ + bytes[0] * 2, bytes + 1, length - 1, isInRun);
        }
    }

    void SetPorts(int destination, int source) {
        message_.hasPorts = 1;
        message_.destPort = static_cast<uint16_t>(destination);
        message_.sourcePort = static_cast<uint16_t>(source);
    }

    /// An element that begins with a position, which `bytes` stand behind.
    void ReadPlaced(uint8_t number, int position, const uint8_t* bytes, int length, bool isInRun) {
        EmsObject object;
        EmsObjectData& data = object.data;
        const auto setImage = [&](EmsKind kind, int width, int height, int frames) {
            object.kind = kind;
            data.width = static_cast<uint8_t>(width);
            data.height = static_cast<uint8_t>(height);
            data.frames = static_cast<uint8_t>(frames);
            data.depth = 1;
        };
        object.position = static_cast<uint16_t>(position);
        data.bytes = bytes;
        data.size = static_cast<uint16_t>(length);
        data.flags = isInRun ? 1 : 0;
        switch (number) {
            case element::textFormat:
                ReadFormat(position, bytes, length);
                return;
            case element::predefinedSound:
            case element::predefinedAnimation:
                object.kind = number == element::predefinedSound ? EmsKind::PredefinedSound
                                                                 : EmsKind::PredefinedAnimation;
                data = {};
                if (length == 0) return Note(EmsResult::InvalidData);
                object.number = bytes[0];
                break;
            case element::melody:
                object.kind = EmsKind::Melody;
                break;
            case element::largeAnimation:
                setImage(EmsKind::Animation, middleSide, middleSide, animationFrames);
                break;
            case element::smallAnimation:
                setImage(EmsKind::Animation, smallSide, smallSide, animationFrames);
                break;
            case element::largePicture:
                setImage(EmsKind::Picture, largeSide, largeSide, 0);
                break;
            case element::smallPicture:
                setImage(EmsKind::Picture, middleSide, middleSide, 0);
                break;
            case element::variablePicture:
                if (length < 2 || bytes[0] > 31) return Note(EmsResult::InvalidData);
                setImage(EmsKind::Picture, bytes[0] * 8, bytes[1], 0);
                data.bytes = bytes + 2;
                data.size = static_cast<uint16_t>(length - 2);
                break;
            default:
                return;
        }
        bool needsExtended = false;
        const EmsResult result =
            ClassifyObject(object.kind, object.data, object.number, false, needsExtended);
        Note(result != EmsResult::Done || needsExtended ? EmsResult::InvalidData : Place(object));
    }

    void ReadFormat(int position, const uint8_t* bytes, int length) {
        if (length < 2) return Note(EmsResult::InvalidData);
        EmsTextFormat format = FormatFromOctets(bytes[1], length > 2 ? bytes + 2 : nullptr);
        format.length = static_cast<uint16_t>(std::min(bytes[0] * 2, message_.textLength - position));
        if (format.length == 0 || IsDefaultFormat(format) || !IsValidFormat(format)) return;
        EmsObject* before = message_.last;
        while (before && before->kind != EmsKind::TextFormat)
            before = before->prev;
        if (before && FormatEnd(*before) == position && SameFormat(before->format, format)) {
            before->format.length = static_cast<uint16_t>(before->format.length + format.length);
            return;
        }
        EmsObject* const node = NewObject(*message_.state);
        if (!node) return Note(EmsResult::NoMemory);
        node->kind = EmsKind::TextFormat;
        node->position = static_cast<uint16_t>(position);
        node->format = format;
        LinkSorted(message_, node);
    }

    /// Copies an object that was found valid into the message, with a reference of its own.
    EmsResult Place(const EmsObject& object) {
        EmsState& state = *message_.state;
        EmsObject* const node = NewObject(state);
        if (!node) return EmsResult::NoMemory;
        *node = object;
        const bool isStored = !object.data.bytes || StoreData(state, *node, object.data);
        if (!isStored || ((object.isExtended || state.compression) && !GiveReference(message_, *node))) {
            if (isStored && node->data.bytes) state.arena.Drop(node->data.bytes);
            FreeRecord(state, node);
            return EmsResult::NoMemory;
        }
        if (object.isExtended) references_[object.reference] = node->reference;
        LinkSorted(message_, node);
        return EmsResult::Done;
    }

    void PlaceReused(const uint8_t* bytes) {
        EmsObject* const original = FindReference(message_, references_[bytes[0]]);
        const uint16_t position = RecordPosition(bytes + 1);
        if (!original || position < original->position) return Note(EmsResult::InvalidExtendedObject);
        EmsObject* const node = NewObject(*message_.state);
        if (!node) return Note(EmsResult::NoMemory);
        Reuse(*message_.state, *node, *original);
        node->position = position;
        LinkSorted(message_, node);
    }

    void Collect(uint8_t number, const uint8_t* bytes, int length) {
        if (pending_.number != number) DropPending();
        if (pending_.number == 0) {
            if (length < lengthEnd) return Note(EmsResult::InvalidExtendedObject);
            pending_.number = number;
            pending_.total =
                (number == element::compression ? compressedHead : extendedHead) + (bytes[1] << 8 | bytes[2]);
            pending_.received = 0;
        }
        if (length > pending_.total - pending_.received) return DropPending();
        // A block that is too long is followed to its end, so that the elements behind it are read aright.
        const int room = longestPending - pending_.received;
        if (room > 0) std::copy_n(bytes, std::min(length, room), pending_.bytes.data() + pending_.received);
        pending_.received += length;
        if (pending_.received < pending_.total) return;
        pending_.number = 0;
        if (pending_.total > longestPending) {
            Note(EmsResult::InvalidExtendedObject);
        } else if (number == element::compression) {
            ReadCompressedBlock();
        } else {
            ReadRecord(pending_.bytes.data(), pending_.total);
        }
    }

    void DropPending() {
        if (pending_.number != 0) Note(EmsResult::InvalidExtendedObject);
        pending_.number = 0;
    }

    void ReadRecord(const uint8_t* bytes, int size) {
        ExtendedRecord record;
        const EmsResult result = ReadExtendedRecord(bytes, size, record);
        if (result != EmsResult::Done) return Note(result);
        if (record.isKnown) Note(Place(record.object));
    }

    void ReadCompressedBlock() {
        std::array<uint8_t, longestCompressInput> block;
        const bool isKnownMethod = (pending_.bytes[0] & 15) == 0;
        const int size = isKnownMethod
                             ? Decompress(pending_.bytes.data() + compressedHead,
                                          pending_.total - compressedHead, block.data(), block.size())
                             : -1;
        for (int at = 0; at < size;) {
            const uint8_t number = block[at++];
            const int left = size - at;
            const uint8_t* const bytes = block.data() + at;
            if (number == element::extendedObject && left >= extendedHead &&
                left - extendedHead >= (bytes[1] << 8 | bytes[2])) {
                const int recordSize = extendedHead + (bytes[1] << 8 | bytes[2]);
                ReadRecord(bytes, recordSize);
                at += recordSize;
            } else if (number == element::reusedObject && left >= reusedElementSize - elementHead) {
                PlaceReused(bytes);
                at += reusedElementSize - elementHead;
            } else {
                return Note(EmsResult::InvalidExtendedObject);
            }
        }
        if (size < 0) Note(EmsResult::InvalidExtendedObject);
    }

    EmsMessage& message_;
    EmsResult firstFault_ = EmsResult::Done;
    bool hasUcs2_ = false;
    bool hasOctets_ = false;
    int segmentStart_ = 0;  ///< byte offset in the message's text
    int runLeft_ = 0;       ///< elements that the object distribution indicator still applies to
    Pending pending_;
    std::array<uint8_t, 256> references_{};  ///< this message's number for a sender's, 0 for none
};

}  // namespace

EmsResult Parse(EmsMessage* message, bool hasHeader, int segmentCount, const uint8_t* const* buffers,
                const int* lengths, const uint8_t* dcsList) {
    if (const EmsResult result = CheckMessage(message); result != EmsResult::Done) return result;
    if (segmentCount <= 0 || (!hasHeader && segmentCount > 1)) return EmsResult::InvalidData;
    if (!buffers || !lengths || !dcsList) return EmsResult::NullPointer;
    if (std::all_of(buffers, buffers + segmentCount, [](const uint8_t* buffer) { return !buffer; })) {
        return EmsResult::NullPointer;
    }
    ClearContent(*message);
    message->hasPorts = 0;
    message->sourcePort = message->destPort = 0;
    Reader reader(*message);
    for (int i = 0; i < segmentCount; ++i) {
        if (!reader.ReadSegment(hasHeader, buffers[i], lengths[i], dcsList[i])) break;
    }
    return reader.Finish();
}

}  // namespace tarnbridge
