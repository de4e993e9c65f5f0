#pragma once

#include <memory>
#include <vector>

#include "messaging/SmsRecord.h"

namespace tarnbridge {

using SmsRecordList = std::vector<std::unique_ptr<SmsRecord>>;

/// Joins the parts of long messages in one list, whose lock the caller holds. Records without a concatenation
/// key keep their order; the joined messages follow, in the order of the key of their first part. A part that
/// is missing leaves a gap, a second part of the same key is dropped. The cost grows with the number of
/// parts, but for sorting their keys.
void JoinParts(SmsRecordList& records, const CodePage& page = CodePage::System());

}  // namespace tarnbridge
