#include "messaging/ems/EmsLayout.h"

#include <algorithm>
#include <array>

#include "messaging/GsmAlphabet.h"
#include "messaging/ems/EmsElements.h"
#include "messaging/ems/EmsExtended.h"
#include "messaging/ems/EmsFormats.h"
#include "messaging/ems/EmsObjects.h"

namespace tarnbridge {
namespace {

constexpr int septetCapacity = 160;
constexpr int octetCapacity = 140;
constexpr int headerLengthOctet = 1;
constexpr int concatenation8Size = elementHead + 3;
constexpr int concatenation16Size = elementHead + 4;
constexpr int portsSize = elementHead + 4;
/// More text formats don't fit into one segment.
constexpr int mostOpenFormats = 28;
/// Octets of an extended object or of a compressed block that its first element holds at least: the head that
/// says how long it is, and one more.
constexpr int leastExtendedChunk = extendedHead + 1;
constexpr int leastCompressedChunk = compressedHead + 1;

/// Room in a segment is counted in units: septets, or octets where the coding is UCS2.
struct Plan {
    bool septets = true;
    int capacity = 0;  ///< units of a segment
    int unitsPerCharacter = 1;
    int segmentsAllowed = 0;
    bool wideReference = false;
    bool isConcatenated = false;
    int baseHeader = 0;      ///< octets that every segment's header begins with; 0 without a header
    int compressedSize = 0;  ///< 0 when the extended objects go out by themselves
    const uint8_t* compressed = nullptr;

    int HeaderUnits(int octets) const { return septets ? (octets * 8 + 6) / 7 : octets; }
    int MostHeaderOctets(int units) const { return septets ? units * 7 / 8 : units; }
};

bool IsFlagged(const EmsObject* object) {
    return object && !object->isExtended && object->kind != EmsKind::TextFormat &&
           (object->data.flags & 1) != 0;
}

/// Octets of all elements but those of extended objects.
int NormalOctets(const EmsMessage& message) {
    int octets = 0;
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (node->isExtended) continue;
        octets += ElementSize(*node);
        if (IsFlagged(node) && !IsFlagged(node->prev)) octets += distributionElementSize;
    }
    return octets;
}

int ExtendedOctets(const EmsMessage& message) {
    int octets = 0;
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (node->isExtended)
            octets += node->isReused ? reusedElementSize : elementHead + ExtendedRecordSize(*node);
    }
    return octets;
}

/// One run over the message that fills segment after segment.
class Pass {
public:
    Pass(const EmsMessage& message, const Plan& plan, const SegmentOutput* output)
        : message_(message), plan_(plan), output_(output) {}

    /// False when the segments allowed are too few.
    bool Run() {
        Open();
        if (!PutChunks(element::compression, plan_.compressed, plan_.compressedSize, leastCompressedChunk)) {
            return false;
        }
        for (const EmsObject* node = message_.first; node; node = node->next) {
            if (!PutTextUpTo(node->position) || !PutObject(*node)) return false;
        }
        if (!PutTextUpTo(message_.textLength)) return false;
        Close();
        return true;
    }

    int SegmentsUsed() const { return segment_ + 1; }
    int LastUsed() const { return plan_.HeaderUnits(header_) + textUnits_; }

private:
    struct OpenFormat {
        const EmsObject* node;
        int from;      ///< byte offset in the text where its part in this segment begins
        int lengthAt;  ///< offset of the length octet in the segment, 0 while its element isn't written
    };

    bool Fits(int octets, int units) const {
        return plan_.HeaderUnits(header_ + octets) + textUnits_ + units <= plan_.capacity;
    }

    bool FitsFreshSegment(int octets, int units) const {
        return plan_.HeaderUnits(plan_.baseHeader + octets) + units <= plan_.capacity;
    }

    bool IsFresh() const { return header_ == plan_.baseHeader && textUnits_ == 0; }

    /// Makes room in the header; gives null when nothing is written.
    uint8_t* Reserve(int octets) {
        uint8_t* const at = output_ ? output_->buffers[segment_] + header_ : nullptr;
        header_ += octets;
        return at;
    }

    void Open() {
        header_ = 0;
        textUnits_ = 0;
        segmentStart_ = textAt_;
        runCountAt_ = 0;
        if (!output_) {
            header_ = plan_.baseHeader;
            return;
        }
        if (plan_.baseHeader == 0) return;
        Reserve(headerLengthOctet);
        if (message_.hasPorts) {
            const uint8_t ports[portsSize] = {element::ports16,
                                              portsSize - elementHead,
                                              static_cast<uint8_t>(message_.destPort >> 8),
                                              static_cast<uint8_t>(message_.destPort),
                                              static_cast<uint8_t>(message_.sourcePort >> 8),
                                              static_cast<uint8_t>(message_.sourcePort)};
            std::copy_n(ports, portsSize, Reserve(portsSize));
        }
        if (!plan_.isConcatenated) return;
        const auto low = static_cast<uint8_t>(output_->reference);
        const auto total = static_cast<uint8_t>(output_->total);
        const auto sequence = static_cast<uint8_t>(segment_ + 1);
        if (plan_.wideReference) {
            const uint8_t wide[] = {element::concatenation16,
                                    concatenation16Size - elementHead,
                                    static_cast<uint8_t>(output_->reference >> 8),
                                    low,
                                    total,
                                    sequence};
            std::copy_n(wide, concatenation16Size, Reserve(concatenation16Size));
        } else {
            const uint8_t narrow[] = {element::concatenation8, concatenation8Size - elementHead, low, total,
                                      sequence};
            std::copy_n(narrow, concatenation8Size, Reserve(concatenation8Size));
        }
    }

    void Close() {
        for (int i = 0; i < openCount_; ++i) {
            FinishFormat(open_[i]);
            open_[i].lengthAt = 0;
        }
        if (!output_) return;
        uint8_t* const segment = output_->buffers[segment_];
        if (header_ > 0) segment[0] = static_cast<uint8_t>(header_ - headerLengthOctet);
        uint8_t* out = segment + header_;
        for (int at = segmentStart_; at < textAt_; at += 2) {
            if (IsUcs2(message_.dcs)) *out++ = message_.text[at];
            *out++ = message_.text[at + 1];
        }
        output_->lengths[segment_] = static_cast<int>(out - segment);
    }

    /// Whether the character here must stay in one segment with the next one, which lies in front of `end`: a
    /// mark with what it marks, and a surrogate pair. An object or the edge of a format between them parts
    /// them.
    bool StaysWithNext(int at, int end) const {
        if (at + 4 > end) return false;
        const auto unit = [this](int place) { return message_.text[place] << 8 | message_.text[place + 1]; };
        if (!IsUcs2(message_.dcs)) return unit(at) == gsmEscape;
        return (unit(at) & 0xFC00) == 0xD800 && (unit(at + 2) & 0xFC00) == 0xDC00;
    }

    bool NextSegment() {
        if (segment_ + 1 >= plan_.segmentsAllowed) return false;
        Close();
        ++segment_;
        Open();
        return true;
    }

    /// Writes the number of characters that the format covers in this segment.
    void FinishFormat(const OpenFormat& format) {
        if (!output_ || format.lengthAt == 0) return;
        const int end = std::min(FormatEnd(*format.node), textAt_);
        output_->buffers[segment_][format.lengthAt] = static_cast<uint8_t>((end - format.from) / 2);
    }

    void DropEndedFormats() {
        int kept = 0;
        for (int i = 0; i < openCount_; ++i) {
            if (FormatEnd(*open_[i].node) > textAt_) {
                open_[kept++] = open_[i];
            } else {
                FinishFormat(open_[i]);
            }
        }
        openCount_ = kept;
    }

    /// Every format of the next character gets its element in this segment, which then holds that character
    /// at least, and the one that must stay with it.
    bool PutDueFormats(int end) {
        const int characters = StaysWithNext(textAt_, end) ? 2 : 1;
        for (;;) {
            int octets = 0;
            for (int i = 0; i < openCount_; ++i) {
                if (open_[i].lengthAt == 0) octets += ElementSize(*open_[i].node);
            }
            if (Fits(octets, characters * plan_.unitsPerCharacter)) break;
            if (IsFresh() || !NextSegment()) return false;
        }
        for (int i = 0; i < openCount_; ++i) {
            if (open_[i].lengthAt == 0) PutFormat(open_[i]);
        }
        return true;
    }

    void PutFormat(OpenFormat& format) {
        const EmsTextFormat& attributes = format.node->format;
        const int size = ElementSize(*format.node);
        format.from = textAt_;
        format.lengthAt = header_ + 3;
        runCountAt_ = 0;
        uint8_t* const out = Reserve(size);
        if (!out) return;
        out[0] = element::textFormat;
        out[1] = static_cast<uint8_t>(size - elementHead);
        out[2] = PositionInSegment();
        out[4] = FormatOctet(attributes);
        if (HasColourOctet(attributes)) out[5] = ColourOctet(attributes);
    }

    bool PutTextUpTo(int position) {
        while (textAt_ < position) {
            DropEndedFormats();
            if (!PutDueFormats(position)) return false;
            const int room = (plan_.capacity - LastUsed()) / plan_.unitsPerCharacter;
            int characters = std::min(room, (position - textAt_) / 2);
            if (StaysWithNext(textAt_ + (characters - 1) * 2, position)) --characters;
            textAt_ += characters * 2;
            textUnits_ += characters * plan_.unitsPerCharacter;
            if (textAt_ < position && !NextSegment()) return false;
        }
        return true;
    }

    bool PutObject(const EmsObject& object) {
        if (!IsFlagged(&object)) runCountAt_ = 0;
        if (object.kind == EmsKind::TextFormat) {
            DropEndedFormats();
            if (openCount_ == mostOpenFormats) return false;
            open_[openCount_++] = {&object, 0, 0};
            return true;
        }
        if (!object.isExtended) return PutNormal(object);
        if (plan_.compressedSize > 0) return true;
        std::array<uint8_t, extendedHead + 4 + EmsArena::largestBlock> record;
        if (object.isReused) {
            WriteReusedRecord(object, record.data());
            constexpr int size = reusedElementSize - elementHead;
            return PutChunks(element::reusedObject, record.data(), size, size);
        }
        const int size = ExtendedRecordSize(object);
        if (output_) WriteExtendedRecord(object, record.data());
        return PutChunks(element::extendedObject, record.data(), size, leastExtendedChunk);
    }

    bool PutNormal(const EmsObject& object) {
        const int size = ElementSize(object);
        for (;;) {
            const bool startsRun = IsFlagged(&object) && runCountAt_ == 0;
            if (startsRun && !IsFresh() && RunWantsFreshSegment(object)) {
                if (!NextSegment()) return false;
                continue;
            }
            if (Fits(size + (startsRun ? distributionElementSize : 0), 0)) break;
            if (IsFresh() || !NextSegment()) return false;
        }
        if (IsFlagged(&object)) CountInRun();
        if (uint8_t* const out = Reserve(size)) WriteElement(object, PositionInSegment(), out);
        return true;
    }

    /// Whether the run of flagged objects from this one on would stay whole only in a segment of its own.
    bool RunWantsFreshSegment(const EmsObject& firstOfRun) const {
        int octets = distributionElementSize;
        int units = 0;
        for (const EmsObject* node = &firstOfRun; IsFlagged(node); node = node->next) {
            octets += ElementSize(*node);
            units = (node->position - firstOfRun.position) / 2 * plan_.unitsPerCharacter;
        }
        return !Fits(octets, units) && FitsFreshSegment(octets, units);
    }

    /// Puts an object distribution indicator in front of the run, or counts one more object in it.
    void CountInRun() {
        if (runCountAt_ == 0) {
            runCountAt_ = header_ + elementHead;
            if (uint8_t* const out = Reserve(distributionElementSize)) {
                const uint8_t mark[] = {element::distribution, distributionElementSize - elementHead, 0, 1};
                std::copy_n(mark, distributionElementSize, out);
            }
        }
        if (output_) ++output_->buffers[segment_][runCountAt_];
    }

    /// Puts a block into as many elements as it needs, none of which is begun with room for less than `least`
    /// octets or the rest.
    bool PutChunks(uint8_t number, const uint8_t* bytes, int size, int least) {
        while (size > 0) {
            const int room = plan_.MostHeaderOctets(plan_.capacity - textUnits_) - header_ - elementHead;
            if (room < std::min(least, size)) {
                if (IsFresh() || !NextSegment()) return false;
                continue;
            }
            const int chunk = std::min(room, size);
            if (uint8_t* const out = Reserve(elementHead + chunk)) {
                out[0] = number;
                out[1] = static_cast<uint8_t>(chunk);
                std::copy_n(bytes, chunk, out + elementHead);
            }
            bytes += chunk;
            size -= chunk;
        }
        return true;
    }

    uint8_t PositionInSegment() const { return static_cast<uint8_t>((textAt_ - segmentStart_) / 2); }

    const EmsMessage& message_;
    const Plan& plan_;
    const SegmentOutput* output_;
    int segment_ = 0;
    int header_ = 0;        ///< octets in the segment's header so far
    int textUnits_ = 0;     ///< units of text in the segment so far
    int textAt_ = 0;        ///< byte offset of the next character
    int segmentStart_ = 0;  ///< byte offset of the segment's first character
    int runCountAt_ = 0;    ///< offset of the count octet of the run under way, 0 without one
    std::array<OpenFormat, mostOpenFormats> open_;
    int openCount_ = 0;
};

/// The counts for the editor, in characters. `lastUsed` is in units.
void SetCounts(EmsMessage& message, const Plan& plan, int withHeader, int segmentsUsed, int lastUsed) {
    const int units = plan.unitsPerCharacter;
    const int portsOnly = message.hasPorts ? plan.HeaderUnits(headerLengthOctet + portsSize) : 0;
    const int segmentSize = plan.isConcatenated ? withHeader : plan.capacity - portsOnly;
    const int left = (plan.capacity - lastUsed) / units;
    int total = left + (plan.segmentsAllowed - segmentsUsed) * (withHeader / units);
    if (segmentsUsed == 1) total -= plan.capacity / units - withHeader / units;
    message.segmentsUsed = static_cast<uint8_t>(segmentsUsed);
    message.segmentSize = static_cast<uint8_t>(segmentSize / units);
    message.lastSegmentLeft = static_cast<uint8_t>(left);
    message.totalLeft = static_cast<uint16_t>(std::max(total, 0));
}

EmsResult LayOutPlanned(EmsMessage& message, Plan& plan, int octets, const SegmentOutput* output) {
    if (message.hasPorts) octets += portsSize;
    const int textUnits = message.textLength / 2 * plan.unitsPerCharacter;
    const int headerUnits = octets > 0 ? plan.HeaderUnits(octets + headerLengthOctet) : 0;
    plan.isConcatenated = textUnits + headerUnits > plan.capacity;
    const int fullHeader = headerLengthOctet +
                           (plan.wideReference ? concatenation16Size : concatenation8Size) +
                           (message.hasPorts ? portsSize : 0);
    const int withHeader = plan.capacity - (plan.segmentsAllowed == 1 ? 0 : plan.HeaderUnits(fullHeader));
    message.isConcatenated = plan.isConcatenated ? 1 : 0;
    message.hasHeader = plan.isConcatenated || message.hasPorts || message.first ? 1 : 0;
    plan.baseHeader = plan.isConcatenated ? fullHeader
                      : message.hasHeader ? headerLengthOctet + (message.hasPorts ? portsSize : 0)
                                          : 0;
    Pass pass(message, plan, output);
    if (!pass.Run()) {
        SetCounts(message, plan, withHeader, plan.segmentsAllowed + 1, plan.capacity);
        message.totalLeft = 0;
        return EmsResult::NoRoom;
    }
    SetCounts(message, plan, withHeader, pass.SegmentsUsed(), pass.LastUsed());
    return EmsResult::Done;
}

EmsResult LayOutWithExtended(EmsMessage& message, Plan& plan, int octets, const SegmentOutput* output) {
    std::array<uint8_t, longestCompressedBlock> compressed;
    plan.wideReference = true;
    if (message.state->compression) plan.compressedSize = WriteCompressedBlock(message, compressed.data());
    plan.compressed = compressed.data();
    octets += plan.compressedSize > 0 ? elementHead + plan.compressedSize : ExtendedOctets(message);
    return LayOutPlanned(message, plan, octets, output);
}

}  // namespace

EmsResult LayOut(EmsMessage& message, const SegmentOutput* output) {
    Plan plan;
    plan.septets = CountsSeptets(message.dcs);
    plan.capacity = plan.septets ? septetCapacity : octetCapacity;
    plan.unitsPerCharacter = IsUcs2(message.dcs) ? 2 : 1;
    plan.segmentsAllowed = message.state->segmentsAllowed;
    bool hasExtended = false;
    for (const EmsObject* node = message.first; node; node = node->next)
        hasExtended |= node->isExtended != 0;
    const int octets = NormalOctets(message);
    return hasExtended ? LayOutWithExtended(message, plan, octets, output)
                       : LayOutPlanned(message, plan, octets, output);
}

}  // namespace tarnbridge
