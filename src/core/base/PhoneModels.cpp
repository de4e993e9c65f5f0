#include "core/base/PhoneModels.h"

#include <algorithm>
#include <array>

#include "core/base/IniScan.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr std::array<int32_t, 16> portRates = {110,   300,   600,   1200,  2400,   4800,   9600,   14400,
                                               19200, 38400, 56000, 57600, 115200, 128000, 256000, 921600};

PhoneModels::Map BuiltInModels() {
    PhoneModelInfo small;
    small.baudRate = 57600;
    small.flowControl = FlowControl::Software;
    PhoneModelInfo large;
    large.hasMms = true;
    large.hasFileManager = true;
    return {{u"ZVK4010", small}, {u"ZVK4100", large}};
}

/// The word of a header `[KEY]` without its last character, which is taken for the bracket even when a blank
/// has ended the word before it.
std::string_view ScanKey(std::string_view header) {
    header.remove_prefix(1);
    const auto word = TakeWord(header);
    return word ? word->substr(0, word->size() - 1) : std::string_view();
}

void SetFlag(bool& flag, std::string_view value) {
    if (value == "true") flag = true;
    if (value == "false") flag = false;
}

void SetField(PhoneModelInfo& info, std::string_view name, std::string_view value, const CodePage& codePage) {
    if (name == "flowcontrol") {
        if (value == "hardware") info.flowControl = FlowControl::Hardware;
        if (value == "software") info.flowControl = FlowControl::Software;
        if (value == "noflowcontrol") info.flowControl = FlowControl::None;
    } else if (name == "baudrate") {
        const int32_t rate = ScanNumber(value);
        const bool known = std::find(portRates.begin(), portRates.end(), rate) != portRates.end();
        info.baudRate = known ? static_cast<uint32_t>(rate) : 115200;
    } else if (name == "mms") {
        SetFlag(info.hasMms, value);
    } else if (name == "filemanager") {
        SetFlag(info.hasFileManager, value);
    } else if (name == "lcd_width") {
        info.lcdWidth = ScanNumber(value);
    } else if (name == "lcd_height") {
        info.lcdHeight = ScanNumber(value);
    } else if (name == "phonemodel") {
        info.phoneModel = codePage.ToText(value);
    }
}

}  // namespace

PhoneModels::PhoneModels() : models_(BuiltInModels()) {}

void PhoneModels::Load() {
    const auto path = FindData("Tarnbridge.ini");
    const auto content = path ? ReadFile(*path, largestSettingsFile) : Result<std::string>(std::string());
    Load(content ? std::string_view(*content) : std::string_view());
}

void PhoneModels::Load(std::string_view content, const CodePage& codePage) {
    models_.clear();
    std::u16string key;
    PhoneModelInfo info;
    const auto finish = [&] {
        if (!key.empty()) models_[key] = std::move(info);
        info = {};
    };
    for (const std::string_view piece : SplitIntoPieces(content)) {
        if (piece.starts_with('[')) {
            finish();
            key = codePage.ToText(ScanKey(piece));
        } else if (const auto assignment = ScanAssignment(piece)) {
            SetField(info, assignment->first, assignment->second, codePage);
        }
    }
    finish();
    if (models_.empty()) models_ = BuiltInModels();
}

PhoneModels::Map::const_iterator PhoneModels::Locate(std::u16string_view key) const {
    const std::string wanted = TextToUtf8(key);
    return std::find_if(models_.begin(), models_.end(), [&](const Map::value_type& model) {
        return EqualIgnoringCase(TextToUtf8(model.first), wanted);
    });
}

bool PhoneModels::Find(std::u16string_view key, PhoneModelInfo& info) const {
    const auto found = Locate(key);
    if (found == models_.end()) return false;
    info = found->second;
    return true;
}

const PhoneModels::Map::value_type& PhoneModels::InUse(std::u16string_view key) const {
    const auto found = Locate(key);
    return found == models_.end() ? *models_.begin() : *found;
}

}  // namespace tarnbridge
