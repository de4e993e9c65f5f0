#include "messaging/ems/EmsElements.h"

#include <algorithm>

#include "messaging/ems/EmsFormats.h"

namespace tarnbridge {
namespace {

uint8_t ElementNumber(const EmsObject& object) {
    const EmsObjectData& data = object.data;
    switch (object.kind) {
        case EmsKind::TextFormat:
            return element::textFormat;
        case EmsKind::PredefinedSound:
            return element::predefinedSound;
        case EmsKind::Melody:
            return element::melody;
        case EmsKind::PredefinedAnimation:
            return element::predefinedAnimation;
        case EmsKind::Animation:
            return data.width == smallSide ? element::smallAnimation : element::largeAnimation;
        default:
            if (data.width != data.height) return element::variablePicture;
            return data.width == largeSide    ? element::largePicture
                   : data.width == middleSide ? element::smallPicture
                                              : element::variablePicture;
    }
}

/// Octets between the head of the element and the object's bytes.
int PrefixSize(uint8_t number) {
    return number == element::variablePicture ? 3 : 1;
}

}  // namespace

int ElementSize(const EmsObject& object) {
    if (object.kind == EmsKind::TextFormat) return elementHead + 3 + (HasColourOctet(object.format) ? 1 : 0);
    if (!object.data.bytes) return elementHead + 2;
    return elementHead + PrefixSize(ElementNumber(object)) + object.data.size;
}

void WriteElement(const EmsObject& object, int position, uint8_t* out) {
    const EmsObjectData& data = object.data;
    *out++ = ElementNumber(object);
    *out++ = static_cast<uint8_t>(ElementSize(object) - elementHead);
    *out++ = static_cast<uint8_t>(position);
    if (!data.bytes) {
        *out = object.number;
        return;
    }
    if (ElementNumber(object) == element::variablePicture) {
        *out++ = data.width / 8;
        *out++ = data.height;
    }
    std::copy_n(data.bytes, data.size, out);
}

}  // namespace tarnbridge
