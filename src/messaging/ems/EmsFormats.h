#pragma once

#include <cstdint>

#include "messaging/ems/Ems.h"

namespace tarnbridge {

/// Everything but the length.
bool SameFormat(const EmsTextFormat& first, const EmsTextFormat& second);

/// The octets of a text format element behind its length (3GPP TS 23.040, 9.2.3.24.10.1.1): the format octet
/// and, unless the colours are the default ones, the colour octet.
uint8_t FormatOctet(const EmsTextFormat& format);
uint8_t ColourOctet(const EmsTextFormat& format);
bool HasColourOctet(const EmsTextFormat& format);

/// The reverse; `colour` is the optional octet. The result needn't be valid.
EmsTextFormat FormatFromOctets(uint8_t octet, const uint8_t* colour);

/// Keeps the formats right when `bytes` of text were put in at `at` and the objects behind the cursor, which
/// still stands there, have moved. Needs up to two free records.
void FormatInsertedText(EmsMessage& message, int at, int bytes, const EmsTextFormat* format);

/// Joins formats of equal attributes that touch.
void JoinFormats(EmsMessage& message);

}  // namespace tarnbridge
