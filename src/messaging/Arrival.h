#pragma once

#include <string>
#include <vector>

#include "messaging/ShownMessage.h"
#include "messaging/SmsRecord.h"

namespace tarnbridge {

// The GSM default alphabet (3GPP TS 23.038, 6.2.1) lacks letters, and others are folded when a message goes
// out in it: "é" arrives as "e".

/// What the receiver of a message will see.
struct ArrivingText {
    std::u16string text;         ///< as long as the shown text
    std::vector<int> differing;  ///< positions of it that arrive otherwise, in order
};

/// \param shown  that of the message
ArrivingText ArrivingTextOf(const EmsMessage& message, const ShownMessage& shown);

/// Makes a record's text what has gone out of it: what is kept as sent is what was sent. It loses its
/// EmsMessage where it can be laid out.
void KeepAsSent(SmsRecord& record);

}  // namespace tarnbridge
