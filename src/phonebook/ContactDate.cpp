#include "phonebook/ContactDate.h"

#include <chrono>
#include <optional>

namespace tarnbridge {
namespace {

std::optional<unsigned> ParseDigits(std::u16string_view text, size_t fewest, size_t most) {
    if (text.size() < fewest || text.size() > most) return std::nullopt;
    unsigned value = 0;
    for (const char16_t unit : text) {
        if (unit < u'0' || unit > u'9') return std::nullopt;
        value = value * 10 + (unit - u'0');
    }
    return value;
}

}  // namespace

bool ParseDate(std::u16string_view text, ContactDate& date) {
    date = {};
    if (text.empty()) return true;
    const size_t first = text.find(u'/');
    if (first == std::u16string_view::npos) return false;
    const size_t second = text.find(u'/', first + 1);
    if (second == std::u16string_view::npos) return false;
    const auto day = ParseDigits(text.substr(0, first), 1, 2);
    const auto month = ParseDigits(text.substr(first + 1, second - first - 1), 1, 2);
    const auto year = ParseDigits(text.substr(second + 1), 4, 4);
    if (!day || !month || !year || *year < 1900 || *year > 2030) return false;
    using namespace std::chrono;
    if (!year_month_day{std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                        std::chrono::day(*day)}
             .ok())
        return false;
    const ContactDate parsed{static_cast<uint16_t>(*year), static_cast<uint8_t>(*month),
                             static_cast<uint8_t>(*day)};
    if (!parsed.IsSet()) return false;
    date = parsed;
    return true;
}

}  // namespace tarnbridge
