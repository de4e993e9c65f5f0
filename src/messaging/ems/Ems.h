#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "messaging/ems/EmsMessage.h"
#include "messaging/ems/EmsResult.h"

namespace tarnbridge {

// Messages with Enhanced Messaging content (3GPP TS 23.040, 9.2.3.24.10), laid out over at most 10 segments.
//
// Every function below that takes a message answers NotInitialised before EmsInit, NullPointer without a
// message and InvalidMessage for one that isn't created; those that give a number answer 0. Only the
// functions that say so use anything that messages share, and that is guarded: two threads may work on two
// messages.

/// Must come first, once. The number of the first concatenated message is drawn by chance unless it is given.
EmsResult EmsInit(std::optional<uint8_t> firstReference = {});

/// Messages that are still there become invalid; they may be destroyed later.
EmsResult EmsShutdown();

/// Gives the 16-bit (or, in its low octet, the 8-bit) reference of each concatenated message in place of the
/// counter. May be called from several threads at a time. Null puts the counter back.
using EmsReferenceSource = uint16_t (*)();
void EmsSetReferenceSource(EmsReferenceSource source);

/// Takes the lowest free slot and makes the message empty, with 10 segments allowed and the compression of
/// extended objects on. A message that has a slot gives it back first. `dcs` is 0, 16, 4 or 8. Uses the
/// shared pool.
EmsResult EmsCreate(EmsMessage* message, uint8_t dcs);

/// Gives back all that EmsCreate and later calls took. Uses the shared pool.
EmsResult EmsRelease(EmsMessage* message);

/// Puts the cursor before the first unit.
EmsResult EmsResetCursor(EmsMessage* message);

/// Makes `target`, which must be created, equal to `source` in all but its slot.
EmsResult EmsCopy(EmsMessage* target, const EmsMessage* source);

/// Changes the coding and lays the message out anew. Between UCS2 and the other codings the marks 0x1B in
/// front of | ^ { } [ ~ ] \ and the euro sign are taken out of the text or put into it, and the characters
/// change places with the bytes of CharacterOfPart. When that doesn't fit, the message stays as it was.
EmsResult EmsSetDcs(EmsMessage* message, uint8_t dcs);

/// Allows 1 to 10 segments. NoRoom, with nothing changed, when the content needs more of them.
EmsResult EmsAllowSegments(EmsMessage* message, int segments);

/// Puts the application port element (16-bit) into every segment, or takes it out. NoRoom, with nothing
/// changed, when the content doesn't fit beside it. Objects that are added later may become extended for it.
EmsResult EmsSetPorts(EmsMessage* message, bool present, uint16_t sourcePort, uint16_t destPort);

/// Whether extended objects may go out as one compressed block, which they do when it is shorter. NoRoom,
/// with nothing changed, when the content doesn't fit without it.
EmsResult EmsSetCompression(EmsMessage* message, bool on);

/// Inserts `count` characters of UCS2 big-endian text, which isn't the message's own, at the cursor, which
/// moves behind them. With a format the text takes that format; without one it becomes part of a format that
/// it is put into. The message stays as it was unless the result is Done.
EmsResult AddText(EmsMessage* message, const uint8_t* text, int count, const EmsTextFormat* format = nullptr);
EmsResult AddText(EmsMessage* message, std::u16string_view text, const EmsTextFormat* format = nullptr);

/// Inserts an object, whose bytes are copied, at the cursor, which is behind it then. `number` is for the
/// predefined kinds, which need no data. The message stays as it was unless the result is Done.
EmsResult AddObject(EmsMessage* message, EmsKind kind, const EmsObjectData* data, uint8_t number = 0);

/// Removes up to `count` units before the cursor, a unit being a character or an object that isn't a format,
/// and gives their number.
int Backspace(EmsMessage* message, int count);

/// Backspace without a new layout: the counts of the message are out of date until the next change.
int DeleteUnits(EmsMessage* message, int count);

/// Move over up to `count` units and give their number.
int MoveCursorForward(EmsMessage* message, int count);
int MoveCursorBackward(EmsMessage* message, int count);

/// Lays the message out and gives the number of its segments; when `generating`, also writes them into the 10
/// `buffers` of emsSegmentBuffer bytes, each beginning with its user data header when the message has one,
/// the text not packed: one byte a character, the low one, or two for dcs 8. A concatenated message takes a
/// new reference number from the shared counter.
EmsResult Generate(EmsMessage* message, bool generating, int* segmentCount, uint8_t* const* buffers,
                   int* lengths);

/// Replaces the content by that of received segments, each in the form that Generate writes and with a coding
/// of its own. A missing one (null) or one that can't be read leaves "(.....)" in the text. InvalidData,
/// InvalidExtendedObject and NoMemory also tell that an object was left out; the rest of the message is
/// there. A message that can't be laid out anew in the segments allowed has a segmentsUsed above them.
EmsResult Parse(EmsMessage* message, bool hasHeader, int segmentCount, const uint8_t* const* buffers,
                const int* lengths, const uint8_t* dcsList);

/// The whole text, marks included.
std::u16string EmsText(const EmsMessage& message);

/// The colour on the screen, 0xRRGGBB, of a colour index; and back, where any other colour gives 9.
uint32_t EmsScreenColour(uint8_t index);
uint8_t EmsColourIndex(uint32_t colour);

/// The default members but for the length.
bool IsDefaultFormat(const EmsTextFormat& format);
bool IsValidFormat(const EmsTextFormat& format);

}  // namespace tarnbridge
