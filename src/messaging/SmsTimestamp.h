#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

#include "messaging/PduBuffer.h"
#include "platform/Clock.h"

namespace tarnbridge {

/// A time with its zone as a PDU holds it (3GPP TS 23.040, 9.2.3.11). Nothing is checked: a field holds
/// whatever was received.
struct SmsTimestamp {
    /// The local time; a year from 2001 on is held as two digits, 2000 as 100.
    static SmsTimestamp FromLocal(const LocalTime& local);

    /// From "year/month/day hour:minute:second", as far as the text goes; the rest stays 0. The year is held
    /// less 1900, and the zone as minutes west of UTC, modulo 65,536, with the sign cleared.
    static SmsTimestamp FromText(std::string_view text, int minutesEastOfUtc);

    static SmsTimestamp Read(PduBuffer& buffer);

    /// Always seven octets: each field goes out modulo 100, and a zone beyond 79 quarter hours as 79.
    void Write(PduBuffer& buffer) const;

    /// Whether there is a time at all: a message that wasn't sent yet has none.
    bool IsSet() const { return month != 0; }

    /// Whether a calendar and a clock show it.
    bool IsDate() const;

    /// The four-digit year: below 80 counts from 2000, all else from 1900.
    int FullYear() const { return (year < 80 ? 2000 : 1900) + year; }

    /// A number of seconds for comparing times, the zone taken into account.
    int64_t ToSeconds() const;

    /// The fields as the C library has them; month 0 counts as January.
    std::tm ToCalendar() const;

    /// "%Y/%m/%d" and the time in the manner of the locale, at most 127 bytes.
    std::string ToText() const;

    /// "%Y/%m/%d %H:%M:%S" in every locale, as files hold it.
    std::string ToFileText() const;

    bool operator==(const SmsTimestamp&) const = default;

    uint16_t zoneMinutes = 0;  ///< distance from UTC
    uint16_t year = 0;         ///< less 1900 or less 2000
    uint8_t month = 0;         ///< 1 to 12
    uint8_t day = 0;
    uint8_t hour = 0;
    uint8_t minute = 0;
    uint8_t second = 0;
    uint8_t zonePositive = 0;  ///< 1 at UTC and east of it
};

}  // namespace tarnbridge
