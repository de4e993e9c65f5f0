#include "messaging/ems/EmsFormats.h"

#include <tuple>

#include "messaging/ems/EmsObjects.h"

namespace tarnbridge {
namespace {

auto Attributes(const EmsTextFormat& format) {
    return std::tie(format.size, format.alignment, format.bold, format.italic, format.underline,
                    format.strikethrough, format.background, format.foreground);
}

void PlaceFormat(EmsMessage& message, const EmsTextFormat& format, int position, int length) {
    EmsObject* const node = NewObject(*message.state);
    if (!node) return;
    node->kind = EmsKind::TextFormat;
    node->position = static_cast<uint16_t>(position);
    node->format = format;
    node->format.length = static_cast<uint16_t>(length);
    LinkSorted(message, node);
}

void Lengthen(EmsObject& node, int bytes) {
    node.format.length = static_cast<uint16_t>(node.format.length + bytes);
}

}  // namespace

bool SameFormat(const EmsTextFormat& first, const EmsTextFormat& second) {
    return Attributes(first) == Attributes(second);
}

bool IsDefaultFormat(const EmsTextFormat& format) {
    return SameFormat(format, EmsTextFormat{});
}

bool IsValidFormat(const EmsTextFormat& format) {
    return format.alignment <= 3 && (format.size == 0 || format.size == 4 || format.size == 8) &&
           format.bold <= 1 && format.italic <= 1 && format.underline <= 1 && format.strikethrough <= 1 &&
           format.background <= 15 && format.foreground <= 15;
}

uint8_t FormatOctet(const EmsTextFormat& format) {
    return static_cast<uint8_t>(format.alignment | format.size | format.bold << 4 | format.italic << 5 |
                                format.underline << 6 | format.strikethrough << 7);
}

uint8_t ColourOctet(const EmsTextFormat& format) {
    return static_cast<uint8_t>(format.background << 4 | format.foreground);
}

bool HasColourOctet(const EmsTextFormat& format) {
    return ColourOctet(format) != ColourOctet({});
}

EmsTextFormat FormatFromOctets(uint8_t octet, const uint8_t* colour) {
    EmsTextFormat format;
    format.alignment = octet & 3;
    format.size = octet & 12;
    format.bold = octet >> 4 & 1;
    format.italic = octet >> 5 & 1;
    format.underline = octet >> 6 & 1;
    format.strikethrough = octet >> 7 & 1;
    if (colour) {
        format.background = *colour >> 4;
        format.foreground = *colour & 15;
    }
    return format;
}

void FormatInsertedText(EmsMessage& message, int at, int bytes, const EmsTextFormat* format) {
    EmsObject* const active = message.activeFormat;
    EmsObject* const behind = message.current ? message.current->next : message.first;
    for (EmsObject* node = message.first; node != behind; node = node->next) {
        if (node != active && node->kind == EmsKind::TextFormat && FormatEnd(*node) > at)
            Lengthen(*node, bytes);
    }
    if (active) {
        const int end = FormatEnd(*active);
        if (format ? SameFormat(*format, active->format) : end > at) {
            Lengthen(*active, bytes);
            return;
        }
        if (end > at) {
            active->format.length = static_cast<uint16_t>(at - active->position);
            PlaceFormat(message, active->format, at + bytes, end - at);
        }
    }
    if (!format || IsDefaultFormat(*format)) return;
    for (EmsObject* node = behind; node && node->position <= at + bytes; node = node->next) {
        if (node->kind == EmsKind::TextFormat && SameFormat(node->format, *format)) {
            node->position = static_cast<uint16_t>(at);
            Lengthen(*node, bytes);
            return;
        }
    }
    PlaceFormat(message, *format, at, bytes);
}

void JoinFormats(EmsMessage& message) {
    for (EmsObject* node = message.first; node; node = node->next) {
        if (node->kind != EmsKind::TextFormat) continue;
        for (EmsObject* later = node->next; later && later->position <= FormatEnd(*node);) {
            EmsObject* const following = later->next;
            if (later->kind == EmsKind::TextFormat && later->position == FormatEnd(*node) &&
                SameFormat(later->format, node->format)) {
                Lengthen(*node, later->format.length);
                RemoveObject(message, later);
            }
            later = following;
        }
    }
}

}  // namespace tarnbridge
