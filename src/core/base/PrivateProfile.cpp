#include "core/base/PrivateProfile.h"

#include <algorithm>

#include "core/base/IniScan.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

std::u16string InLowerCase(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded) {
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
    }
    return folded;
}

std::u16string_view Trim(std::u16string_view text) {
    constexpr std::u16string_view blanks = u" \t\v\f\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::u16string_view WithoutQuotes(std::u16string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == u'"' && text.back() == u'"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

PrivateProfile::PrivateProfile(std::u16string_view content) {
    Section nowhere;  // for lines before the first section, and those of a section that comes twice
    Section* section = &nowhere;
    while (!content.empty()) {
        const size_t end = std::min(content.find(u'\n'), content.size());
        const std::u16string_view line = Trim(content.substr(0, end));
        content.remove_prefix(std::min(end + 1, content.size()));
        if (line.starts_with(u';')) continue;
        if (line.starts_with(u'[') && line.find(u']') != line.npos) {
            const auto [place, isNew] =
                sections_.try_emplace(InLowerCase(line.substr(1, line.rfind(u']') - 1)));
            section = isNew ? &place->second : &nowhere;
        } else if (const size_t equals = line.find(u'='); equals != line.npos) {
            section->try_emplace(InLowerCase(Trim(line.substr(0, equals))),
                                 WithoutQuotes(Trim(line.substr(equals + 1))));
        }
    }
}

const PrivateProfile::Section& PrivateProfile::GetSection(std::u16string_view section) const {
    static const Section none;
    const auto found = sections_.find(InLowerCase(section));
    return found == sections_.end() ? none : found->second;
}

const std::u16string* PrivateProfile::Find(std::u16string_view section, std::u16string_view key) const {
    const Section& values = GetSection(section);
    const auto found = values.find(InLowerCase(key));
    return found == values.end() ? nullptr : &found->second;
}

std::u16string PrivateProfile::GetText(std::u16string_view section, std::u16string_view key) const {
    const std::u16string* value = Find(section, key);
    return value ? *value : std::u16string();
}

int32_t PrivateProfile::GetNumber(std::u16string_view section, std::u16string_view key,
                                  int32_t otherwise) const {
    const std::u16string* value = Find(section, key);
    return value ? ScanNumber(TextToUtf8(*value)) : otherwise;
}

}  // namespace tarnbridge
