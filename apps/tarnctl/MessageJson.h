#pragma once

#include <string>

#include "messaging/SmsRecord.h"
#include "tarnctl/Output.h"

namespace tarnbridge {

/// A message in its folder, as `sms list` gives it. `number` is its place in a folder of the PC, 0 on the
/// handset. `time` is left out where it is no date. What can't be decoded has `unreadable`, the text that was
/// found, and an empty `text`. The record is copied to look into it.
Json MessageToJson(const SmsRecord& record, const std::string& folder, size_t number);

/// The same on one line for people, out of that object.
std::string MessageToLine(const Json& message);

/// On several lines, with the whole text.
std::string MessageToPage(const Json& message);

}  // namespace tarnbridge
