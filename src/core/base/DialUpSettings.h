#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/base/OperatorRecord.h"
#include "platform/CodePage.h"
#include "platform/Result.h"

namespace tarnbridge {

/// What `DialUpSetting.ini` holds: the operators, and the groups in which they are shown.
struct DialUpSettings {
    std::u16string usedGroupName;  ///< as the file has it, even if there is no such group
    std::vector<std::u16string> groupNames;
    std::vector<OperatorRecord> operators;

    bool operator==(const DialUpSettings&) const = default;
};

/// Reads the content of the file, a private profile. Anything that is missing or makes no sense reads as
/// empty. At most 1,000 groups are read.
DialUpSettings ReadDialUpSettings(std::string_view content, const CodePage& codePage = CodePage::System());

/// The content of the file. Lines end with LF; one blank line stands between two sections. A line break in a
/// text becomes a blank, since it would break the file.
std::string WriteDialUpSettings(const DialUpSettings& settings,
                                const CodePage& codePage = CodePage::System());

/// Reads `DialUpSetting.ini`, wherever FindData finds it. False, with `settings` empty, when it isn't found
/// or can't be read.
bool LoadDialUpSettings(DialUpSettings& settings);

/// Replaces `DialUpSetting.ini` in the program folder; a failure leaves the old file.
Outcome SaveDialUpSettings(const DialUpSettings& settings);

}  // namespace tarnbridge
