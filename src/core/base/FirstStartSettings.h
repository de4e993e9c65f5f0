#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/CodePage.h"
#include "platform/EntryStore.h"

namespace tarnbridge {

/// What an installer leaves in `DefTarnbridge.ini` for the first start.
struct FirstStartSettings {
    std::optional<int32_t> languageId;
    std::optional<std::u16string> usedGroupName;
};

/// Reads the content of the file: lines `name = value` with a blank before the `=`, whatever the section.
/// `def_lang` is hexadecimal; `def_group_name` may stand in double quotes and then hold blanks.
FirstStartSettings ReadFirstStartSettings(std::string_view content,
                                          const CodePage& codePage = CodePage::System());

/// Reads `DefTarnbridge.ini`, wherever FindData finds it, and deletes it, so that the next start doesn't find
/// it. One that can't be deleted is remembered in the store by its path and not read again. Empty when there
/// is none.
FirstStartSettings TakeFirstStartSettings(EntryStore& store);

}  // namespace tarnbridge
