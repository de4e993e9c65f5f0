#include "messaging/SmsTimestamp.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdlib>

#include <fmt/format.h>

namespace tarnbridge {
namespace {

constexpr int mostQuarters = 79;  // of the hour, that the zone of a PDU can hold

}  // namespace

SmsTimestamp SmsTimestamp::FromLocal(const LocalTime& local) {
    SmsTimestamp time;
    const int year = local.year - 1900;
    time.year = static_cast<uint16_t>(year > 100 ? year - 100 : year);
    time.month = static_cast<uint8_t>(local.month);
    time.day = static_cast<uint8_t>(local.day);
    time.hour = static_cast<uint8_t>(local.hour);
    time.minute = static_cast<uint8_t>(local.minute);
    time.second = static_cast<uint8_t>(local.second);
    time.zoneMinutes = static_cast<uint16_t>(std::abs(local.minutesEastOfUtc));
    time.zonePositive = local.minutesEastOfUtc >= 0 ? 1 : 0;
    return time;
}

SmsTimestamp SmsTimestamp::FromText(std::string_view text, int minutesEastOfUtc) {
    std::array<int, 6> fields{};
    constexpr std::string_view separators = "// ::";
    for (size_t i = 0; i < fields.size(); ++i) {
        text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
        const auto [stop, failure] = std::from_chars(text.data(), text.data() + text.size(), fields[i]);
        if (failure != std::errc()) break;
        text.remove_prefix(stop - text.data());
        if (i == separators.size() || separators[i] == ' ') continue;
        if (!text.starts_with(separators[i])) break;
        text.remove_prefix(1);
    }
    SmsTimestamp time;
    time.year = static_cast<uint16_t>(static_cast<unsigned>(fields[0]) - 1900);
    time.month = static_cast<uint8_t>(fields[1]);
    time.day = static_cast<uint8_t>(fields[2]);
    time.hour = static_cast<uint8_t>(fields[3]);
    time.minute = static_cast<uint8_t>(fields[4]);
    time.second = static_cast<uint8_t>(fields[5]);
    time.zoneMinutes = static_cast<uint16_t>(-minutesEastOfUtc);
    return time;
}

SmsTimestamp SmsTimestamp::Read(PduBuffer& buffer) {
    SmsTimestamp time;
    time.year = static_cast<uint16_t>(buffer.getBcd(2));
    for (uint8_t* const field : {&time.month, &time.day, &time.hour, &time.minute, &time.second})
        *field = static_cast<uint8_t>(buffer.getBcd(2));
    bool positive = true;
    time.zoneMinutes = static_cast<uint16_t>(buffer.getZone(positive) * 15);
    time.zonePositive = positive ? 1 : 0;
    return time;
}

void SmsTimestamp::Write(PduBuffer& buffer) const {
    for (const unsigned field :
         {unsigned{year}, unsigned{month}, unsigned{day}, unsigned{hour}, unsigned{minute}, unsigned{second}})
        buffer.putBcdValue(field % 100, 2);
    // A time from a text holds minutes west of UTC, which are negative in the east.
    const auto minutes = static_cast<int16_t>(zoneMinutes);
    const bool positive = zonePositive != 0 || minutes < 0;
    buffer.putZone(static_cast<unsigned>(std::min(std::abs(minutes) / 15, mostQuarters)), positive);
}

bool SmsTimestamp::IsDate() const {
    if (FullYear() > 9999) return false;
    const std::chrono::year_month_day date{std::chrono::year{FullYear()}, std::chrono::month{month},
                                           std::chrono::day{day}};
    return date.ok() && hour < 24 && minute < 60 && second < 60;
}

int64_t SmsTimestamp::ToSeconds() const {
    // A month that no calendar has is only to be in its order.
    const int64_t sinceMarch = (month + 9) % 12 + month / 13 * 12;
    const int64_t fullYear = FullYear() - (month < 3 ? 1 : 0);
    const int64_t days =
        fullYear * 365 + fullYear / 4 - fullYear / 100 + fullYear / 400 + (sinceMarch * 306 + 5) / 10 + day;
    const int64_t east = zonePositive ? zoneMinutes : -static_cast<int64_t>(zoneMinutes);
    return ((days * 24 + hour) * 60 + minute - east) * 60 + second;
}

std::tm SmsTimestamp::ToCalendar() const {
    std::tm calendar{};
    calendar.tm_year = FullYear() - 1900;
    calendar.tm_mon = month == 0 ? 0 : month - 1;
    calendar.tm_mday = day;
    calendar.tm_hour = hour;
    calendar.tm_min = minute;
    calendar.tm_sec = second;
    return calendar;
}

std::string SmsTimestamp::ToText() const {
    // Fields that no clock shows aren't for the C library.
    if (month > 12 || day > 31 || hour > 23 || minute > 59 || second > 60) return ToFileText();
    const std::tm calendar = ToCalendar();
    std::array<char, 128> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y/%m/%d %X", &calendar)};
}

std::string SmsTimestamp::ToFileText() const {
    return fmt::format("{:04}/{:02}/{:02} {:02}:{:02}:{:02}", FullYear(), month == 0 ? 1 : month, day, hour,
                       minute, second);
}

}  // namespace tarnbridge
