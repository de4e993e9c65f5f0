#include "simulator/CommandTable.h"

#include <chrono>

namespace tarnbridge::simulator {

LocalTime Call::Now() const {
    using namespace std::chrono;
    const LocalTime given = time_();
    const sys_days today = year(given.year) / given.month / given.day;
    const sys_seconds moment =
        today + hours(given.hour) + minutes(given.minute) + seconds(given.second) + session.clockAhead;
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count()),
            session.minutesEastOfUtc.value_or(given.minutesEastOfUtc)};
}

CommandTable MakeCommandTable() {
    CommandTable table;
    AddBasicCommands(table);
    AddNetworkCommands(table);
    AddSessionCommands(table);
    AddMessageCommands(table);
    AddPhonebookCommands(table);
    return table;
}

}  // namespace tarnbridge::simulator
