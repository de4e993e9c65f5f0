#include "core/base/FirstStartSettings.h"

#include <charconv>
#include <filesystem>
#include <limits>

#include "core/base/IniScan.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr const char* fileName = "DefTarnbridge.ini";
constexpr const char* storeSection = "FirstStart";
constexpr const char* storeEntry = "Read";

std::optional<int32_t> ScanHexadecimal(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
    uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc{} || value > static_cast<uint32_t>(std::numeric_limits<int32_t>::max()))
        return std::nullopt;
    return static_cast<int32_t>(value);
}

/// What stands between the first two quotes of a line; up to its end if there is but one.
std::string_view BetweenQuotes(std::string_view line) {
    line.remove_prefix(line.find('"') + 1);
    return line.substr(0, line.find_first_of("\"\r\n"));
}

}  // namespace

FirstStartSettings ReadFirstStartSettings(std::string_view content, const CodePage& codePage) {
    FirstStartSettings settings;
    for (const std::string_view piece : SplitIntoPieces(content)) {
        const auto assignment = ScanAssignment(piece);
        if (!assignment || piece.starts_with('[')) continue;
        const auto [name, value] = *assignment;
        if (name == "def_lang") {
            if (const auto id = ScanHexadecimal(value)) settings.languageId = id;
        } else if (name == "def_group_name") {
            const bool quoted = value.find('"') != value.npos;
            settings.usedGroupName = codePage.ToText(quoted ? BetweenQuotes(piece) : value);
        }
    }
    return settings;
}

FirstStartSettings TakeFirstStartSettings(EntryStore& store) {
    const auto path = FindData(fileName);
    if (!path) return {};
    const std::u16string name = Utf8ToText(path->string());
    if (store.GetText(storeSection, storeEntry) == name) return {};
    const auto content = ReadFile(*path, largestSettingsFile);
    std::error_code failure;
    if (!std::filesystem::remove(*path, failure) || failure) store.SetText(storeSection, storeEntry, name);
    return content ? ReadFirstStartSettings(*content) : FirstStartSettings();
}

}  // namespace tarnbridge
