#pragma once

#include <cstdint>
#include <string_view>

namespace tarnbridge {

/// A day of the calendar. All zero means not set; so does 1 January 1900 wherever a date is shown or
/// exported.
struct ContactDate {
    bool operator==(const ContactDate&) const = default;

    /// Whether there is a date to show or to export.
    bool IsSet() const { return *this != ContactDate() && *this != ContactDate{1900, 1, 1}; }

    uint16_t year = 0;
    uint8_t month = 0;
    uint8_t day = 0;
};

/// Reads "day/month/year": one or two digits each, then four from 1900 to 2030, a day that exists and isn't
/// 1 January 1900. An empty text is accepted too; it gives, as every refusal does, a date that isn't set.
bool ParseDate(std::u16string_view text, ContactDate& date);

}  // namespace tarnbridge
