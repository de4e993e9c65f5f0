#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "messaging/SmsRecord.h"

namespace tarnbridge {

using SmsRecordList = std::vector<std::unique_ptr<SmsRecord>>;

/// What the parts of one message have in common: reference, total, with an 8-bit reference whether they were
/// read, coding, and sender or receiver. Messages may share it. Nothing for what isn't one part at one
/// location.
std::optional<std::string> JoinKey(const SmsRecord& record);

/// Joins the parts of long messages in one list, whose lock the caller holds. Parts are joined by their
/// JoinKey. Where one number of the sequence is there several times, there are as many messages, and each
/// further part goes to the one that is nearest by the service centre's time and then by the order of the
/// list. An exact double isn't a part of its own: its location is added to those of the message. A part that
/// is missing leaves a gap. Nothing is dropped.
///
/// Records that aren't parts keep their order; the joined messages follow, in the order of the key of their
/// first part. The cost grows with the number of parts, but for sorting them.
void JoinParts(SmsRecordList& records, const CodePage& page = CodePage::System());

}  // namespace tarnbridge
