#pragma once

#include <string>

#include "messaging/SmsRecord.h"

namespace tarnbridge {

// No EmsMessage is made for these: there are more records than slots, and a message may have more parts than
// one can hold.

/// The text of all raw parts as the EMS layer reads it, without marks 0x1B: septets as TextOfPart has them.
std::u16string TextOfRawParts(const SmsRecord& record);

/// The whole text as lists, readers, searches and files show it, without marks 0x1B: what a default alphabet
/// text was received as, where there are raw parts or an EmsMessage. Of an unreadable record it is what was
/// found in its place.
std::u16string ShownText(const SmsRecord& record, const CodePage& page = CodePage::System());

}  // namespace tarnbridge
