#include "messaging/MessageObject.h"

#include <algorithm>
#include <limits>

namespace tarnbridge {
namespace {

constexpr uint8_t noSuchNumber = 0xFF;

/// A side or a count that is out of range becomes 0, which no image has.
uint8_t ImageByte(int value) {
    return value >= 0 && value <= 0xFF ? static_cast<uint8_t>(value) : uint8_t{0};
}

MessageObject Predefined(EmsKind kind, int number) {
    return {.kind = kind,
            .number = number >= 0 && number < noSuchNumber ? static_cast<uint8_t>(number) : noSuchNumber};
}

}  // namespace

MessageObject MessageObject::PredefinedSound(int number) {
    return Predefined(EmsKind::PredefinedSound, number);
}

MessageObject MessageObject::PredefinedAnimation(int number) {
    return Predefined(EmsKind::PredefinedAnimation, number);
}

MessageObject MessageObject::Melody(std::string_view iMelody) {
    return {.kind = EmsKind::Melody, .bytes = std::string(iMelody)};
}

MessageObject MessageObject::Picture(std::string_view pixels, int width, int height, int depth) {
    MessageObject picture = Animation(pixels, width, height, 0, depth);
    picture.kind = EmsKind::Picture;
    return picture;
}

MessageObject MessageObject::Animation(std::string_view pixels, int width, int height, int frames,
                                       int depth) {
    MessageObject animation{.kind = EmsKind::Animation, .bytes = std::string(pixels)};
    animation.attributes.width = ImageByte(width);
    animation.attributes.height = ImageByte(height);
    animation.attributes.frames = ImageByte(frames);
    animation.attributes.depth = ImageByte(depth);
    return animation;
}

MessageObject MessageObject::Of(const EmsObject& object) {
    MessageObject copy{.kind = object.kind, .number = object.number, .attributes = object.data};
    if (object.data.bytes)
        copy.bytes.assign(reinterpret_cast<const char*>(object.data.bytes), object.data.size);
    copy.attributes.bytes = nullptr;
    copy.attributes.size = 0;
    return copy;
}

EmsObjectData MessageObject::Data() const {
    EmsObjectData data = attributes;
    data.bytes = reinterpret_cast<const uint8_t*>(bytes.data());
    data.size = static_cast<uint16_t>(std::min<size_t>(bytes.size(), std::numeric_limits<uint16_t>::max()));
    return data;
}

}  // namespace tarnbridge
