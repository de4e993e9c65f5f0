#pragma once

#include <string>
#include <string_view>

#include "messaging/SmsRecord.h"

namespace tarnbridge {

// A message as a line of text: the number, the time and the text, each in quotation marks, separated by tabs
// and closed by CR LF. Pictures, sounds and formats aren't part of it.

/// The line with its end, or nothing for a message without text and for an unreadable record. The text is the
/// one that the EmsMessage holds or would hold, up to its first U+0000, without marks 0x1B, CR and LF; a
/// quotation mark is doubled. The number loses quotation marks, CR and LF. No EmsMessage is made.
std::u16string MessageLineOf(const SmsRecord& record, const CodePage& page = CodePage::System());

/// Why a line gives no message.
enum class MessageLineFault {
    None,
    Malformed,  ///< not three fields in quotation marks with LF at the end, or U+0000 in it
    TooLong,    ///< the text needs more than 10 segments
    NoSlot,     ///< every slot of the EMS layer is taken, or it isn't initialised
};

/// Reads a line, its end included, into a new record; with a fault the record is of no use. The number is cut
/// at 256 characters, and the time, which is taken for one of this zone, at 64. The record is composed, in
/// "PC", UCS2 where a character lies above 127 and else of the GSM alphabet, and has its parts but no
/// EmsMessage; a slot is needed meanwhile. In the GSM alphabet the characters that need a mark 0x1B get it,
/// and control characters that parts have for Greek letters are left out.
MessageLineFault ReadMessageLine(std::u16string_view line, int minutesEastOfUtc, SmsRecord& record,
                                 const CodePage& page = CodePage::System());

}  // namespace tarnbridge
