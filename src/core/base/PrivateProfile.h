#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tarnbridge {

/// A settings file in the grammar of Windows private profiles, read from text. Sections and keys are compared
/// without regard to the case of ASCII letters, and of two with the same name the first counts. Blanks round
/// a key and its value are dropped, then one pair of double quotes round the value. Lines that begin with `;`
/// and those without a `=` are passed over.
class PrivateProfile {
public:
    using Section = std::map<std::u16string, std::u16string>;

    PrivateProfile() = default;
    explicit PrivateProfile(std::u16string_view content);

    /// Empty when the section or the key is missing.
    std::u16string GetText(std::u16string_view section, std::u16string_view key) const;

    /// The decimal number with which the value begins, 0 if it begins with none; `otherwise` when the section
    /// or the key is missing.
    int32_t GetNumber(std::u16string_view section, std::u16string_view key, int32_t otherwise) const;

    /// The section's values by their keys, in lower case; empty when it is missing.
    const Section& GetSection(std::u16string_view section) const;

private:
    const std::u16string* Find(std::u16string_view section, std::u16string_view key) const;

    std::map<std::u16string, Section> sections_;
};

}  // namespace tarnbridge
