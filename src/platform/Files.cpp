#include "platform/Files.h"

#include <algorithm>
#include <system_error>

namespace tarnbridge {

bool MatchesPattern(std::string_view name, std::string_view pattern) {
    size_t position = 0;
    size_t wanted = 0;
    size_t star = std::string_view::npos;  // the last `*`, and where the name stood when it was met
    size_t retry = 0;
    while (position < name.size()) {
        if (wanted < pattern.size() && pattern[wanted] == '*') {
            star = wanted++;
            retry = position;
        } else if (wanted < pattern.size() && (pattern[wanted] == '?' || pattern[wanted] == name[position])) {
            ++wanted;
            ++position;
        } else if (star != std::string_view::npos) {
            wanted = star + 1;
            position = ++retry;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', wanted) == std::string_view::npos;
}

std::vector<std::filesystem::path> FindFiles(const std::filesystem::path& folder, std::string_view pattern) {
    std::vector<std::filesystem::path> found;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (const std::filesystem::directory_iterator end; !error && entry != end; entry.increment(error)) {
        if (MatchesPattern(entry->path().filename().string(), pattern)) found.push_back(entry->path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

}  // namespace tarnbridge
