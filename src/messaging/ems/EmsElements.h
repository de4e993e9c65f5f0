#pragma once

#include <cstdint>

#include "messaging/ems/EmsObject.h"

namespace tarnbridge {

/// Numbers of the information elements of a user data header (3GPP TS 23.040, 9.2.3.24).
namespace element {
inline constexpr uint8_t concatenation8 = 0;
inline constexpr uint8_t ports8 = 4;
inline constexpr uint8_t ports16 = 5;
inline constexpr uint8_t concatenation16 = 8;
inline constexpr uint8_t textFormat = 10;
inline constexpr uint8_t predefinedSound = 11;
inline constexpr uint8_t melody = 12;
inline constexpr uint8_t predefinedAnimation = 13;
inline constexpr uint8_t largeAnimation = 14;
inline constexpr uint8_t smallAnimation = 15;
inline constexpr uint8_t largePicture = 16;
inline constexpr uint8_t smallPicture = 17;
inline constexpr uint8_t variablePicture = 18;
inline constexpr uint8_t extendedObject = 20;
inline constexpr uint8_t reusedObject = 21;
inline constexpr uint8_t compression = 22;
inline constexpr uint8_t distribution = 23;
}  // namespace element

inline constexpr int animationFrames = 4;
inline constexpr int smallSide = 8;    ///< pixels, of a small animation
inline constexpr int middleSide = 16;  ///< of a large animation and a small picture
inline constexpr int largeSide = 32;   ///< of a large picture

inline constexpr int elementHead = 2;  ///< octets: number and length
inline constexpr int reusedElementSize = elementHead + 3;
inline constexpr int distributionElementSize = elementHead + 2;

/// Octets of the element, with its head, of an object that isn't extended.
int ElementSize(const EmsObject& object);

/// Writes that element, for any object but a text format. `position` is in characters of the segment.
void WriteElement(const EmsObject& object, int position, uint8_t* out);

}  // namespace tarnbridge
