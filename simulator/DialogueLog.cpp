#include "simulator/DialogueLog.h"

#include <cerrno>
#include <cstring>

#include <fmt/format.h>

#include "platform/Files.h"

namespace tarnbridge::simulator {

std::string MakeVisible(std::string_view bytes) {
    std::string visible;
    for (const char c : bytes) {
        if (c == '\r') {
            visible += "<CR>";
        } else if (c == '\n') {
            visible += "<LF>";
        } else if (c >= ' ' && c < '\x7f') {
            visible += c;
        } else {
            visible += fmt::format("<{:02X}>", static_cast<unsigned char>(c));
        }
    }
    return visible;
}

Outcome DialogueLog::Open(const std::filesystem::path& file) {
    errno = 0;
    file_.open(file, std::ios::trunc);
    if (!file_) return LastSystemFailure("write", file);
    return std::monostate{};
}

void DialogueLog::Note(char who, std::string_view bytes, const LocalTime& time) {
    file_ << fmt::format("{:02}:{:02}:{:02} {} {}\n", time.hour, time.minute, time.second, who,
                         MakeVisible(bytes))
          << std::flush;
}

}  // namespace tarnbridge::simulator
