#include "core/base/DialUpSettings.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "core/base/IniScan.h"
#include "core/base/PrivateProfile.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr const char* fileName = "DialUpSetting.ini";
constexpr int32_t mostGroups = 1'000;

std::u16string NumberedKey(std::u16string_view name, int32_t number) {
    return std::u16string(name) + WidenBytes(std::to_string(number));
}

/// The n of a key `operatorN` that is written as a program would write it.
std::optional<int32_t> OperatorNumber(std::u16string_view key) {
    constexpr std::u16string_view prefix = u"operator";
    if (!key.starts_with(prefix)) return std::nullopt;
    const std::string digits = TextToUtf8(key.substr(prefix.size()));
    int32_t number = -1;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (number < 0 || digits != std::to_string(number)) return std::nullopt;
    return number;
}

/// The operators of numbers below `limit`, by number. It is the keys that are walked and not the numbers,
/// of which the file may claim any count.
std::vector<OperatorRecord> ReadOperators(const PrivateProfile& profile, int32_t limit) {
    std::vector<OperatorRecord> operators;
    for (const auto& [key, name] : profile.GetSection(u"Operators")) {
        const auto number = OperatorNumber(key);
        if (!number || *number >= limit || name.empty()) continue;
        operators.push_back({*number, name, profile.GetText(name, u"apn"), profile.GetText(name, u"number"),
                             profile.GetText(name, u"username"), profile.GetText(name, u"password"),
                             profile.GetText(name, u"GroupName")});
    }
    std::sort(operators.begin(), operators.end(), [](const OperatorRecord& one, const OperatorRecord& other) {
        return one.number < other.number;
    });
    return operators;
}

std::u16string OnOneLine(std::u16string text) {
    std::replace_if(
        text.begin(), text.end(), [](char16_t unit) { return unit == u'\n' || unit == u'\r'; }, u' ');
    return text;
}

std::u16string Line(std::u16string_view key, const std::u16string& value) {
    return std::u16string(key) + u" = \"" + OnOneLine(value) + u"\"\n";
}

}  // namespace

DialUpSettings ReadDialUpSettings(std::string_view content, const CodePage& codePage) {
    const PrivateProfile profile(codePage.ToText(content));
    DialUpSettings settings;
    settings.usedGroupName = profile.GetText(u"Setting", u"used_group_name");
    const int32_t groups = std::min(profile.GetNumber(u"Setting", u"group_num", 0), mostGroups);
    for (int32_t group = 0; group < groups; ++group)
        settings.groupNames.push_back(profile.GetText(u"Groups", NumberedKey(u"group", group)));
    if (settings.usedGroupName.empty() && !settings.groupNames.empty())
        settings.usedGroupName = settings.groupNames.front();
    settings.operators = ReadOperators(profile, profile.GetNumber(u"Setting", u"max_operator_num", 500));
    return settings;
}

std::string WriteDialUpSettings(const DialUpSettings& settings, const CodePage& codePage) {
    const auto groups = static_cast<int32_t>(settings.groupNames.size());
    std::u16string text = u"[Setting]\nmax_operator_num = 600\n";
    text += u"group_num  = " + WidenBytes(std::to_string(groups)) + u"\n";
    text += Line(u"used_group_name", settings.usedGroupName);
    text += u"\n[Groups]\n";
    for (int32_t group = 0; group < groups; ++group)
        text += Line(NumberedKey(u"group", group), settings.groupNames[static_cast<size_t>(group)]);
    text += u"\n[Operators]\n";
    for (const OperatorRecord& record : settings.operators)
        text += Line(NumberedKey(u"operator", record.number), record.name);
    for (const OperatorRecord& record : settings.operators) {
        text += u"\n[" + OnOneLine(record.name) + u"]\n";
        text += Line(u"apn", record.apn);
        text += Line(u"number", record.dialNumber);
        text += Line(u"username", record.username);
        text += Line(u"password", record.password);
        text += Line(u"GroupName", record.groupName);
    }
    return codePage.ToBytes(text);
}

bool LoadDialUpSettings(DialUpSettings& settings) {
    settings = {};
    const auto path = FindData(fileName);
    if (!path) return false;
    const auto content = ReadFile(*path, largestSettingsFile);
    if (!content) return false;
    settings = ReadDialUpSettings(*content);
    return true;
}

Outcome SaveDialUpSettings(const DialUpSettings& settings) {
    return WriteFileAtomically(ProgramFolder() / fileName, WriteDialUpSettings(settings));
}

}  // namespace tarnbridge
