#pragma once

#include <cstdint>

namespace tarnbridge {

enum class EmsKind : uint8_t {
    TextFormat = 0,
    PredefinedSound = 1,      ///< number 0 to 9
    Melody = 2,               ///< iMelody
    PredefinedAnimation = 3,  ///< number 0 to 14
    Animation = 4,
    Picture = 5,
    VCard = 7,
    VCalendar = 8,
};

/// How a stretch of text looks. The default members are the default format.
struct EmsTextFormat {
    uint8_t size = 0;       ///< 0 normal, 4 large, 8 small
    uint8_t alignment = 3;  ///< 0 left, 1 centre, 2 right, 3 as the language has it
    uint8_t bold = 0;
    uint8_t italic = 0;
    uint8_t underline = 0;
    uint8_t strikethrough = 0;
    uint8_t background = 9;  ///< colour index, 0 to 15
    uint8_t foreground = 0;  ///< colour index, 0 to 15
    uint16_t length = 0;     ///< bytes of text covered; ignored in a format that is handed to AddText
};

/// The content of a melody, animation, picture, vCard or vCalendar. Pixels are packed from the most
/// significant bit, row after row without filling, 1 = black at depth 1; an animation's frames follow one
/// another.
struct EmsObjectData {
    const uint8_t* bytes = nullptr;
    uint16_t size = 0;   ///< of bytes; (width * height * depth + 7) / 8 for each frame of an image
    uint8_t flags = 0;   ///< bit 0: may not be passed on
    uint8_t depth = 0;   ///< bits a pixel: 1, 2 or 6
    uint8_t height = 0;  ///< pixels
    uint8_t width = 0;   ///< pixels
    uint8_t frames = 0;
    uint8_t animationLow = 0;   ///< low nibble of an extended animation's control octet
    uint8_t animationHigh = 0;  ///< its high nibble
};

/// A node of a message's list, which is sorted by position; at one position the text formats come last.
/// `data.bytes` points into the message and stays valid until the message is changed.
struct EmsObject {
    EmsKind kind = EmsKind::TextFormat;
    uint8_t number = 0;     ///< of a predefined sound or animation
    uint16_t position = 0;  ///< byte offset in the message's text
    EmsObject* prev = nullptr;
    EmsObject* next = nullptr;
    uint8_t isExtended = 0;  ///< goes out as an extended object (3GPP TS 23.040, 9.2.3.24.10.1.13)
    uint8_t isReused = 0;    ///< an extended object that goes out as a reference to an earlier one
    uint8_t reference = 0;   ///< of an extended object
    EmsTextFormat format;    ///< of a TextFormat
    EmsObjectData data;      ///< of all other kinds but the predefined ones
};

}  // namespace tarnbridge
