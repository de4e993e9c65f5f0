#include "tarnctl/TarnctlFixture.h"

#include <algorithm>
#include <sstream>

namespace tarnbridge {

TarnctlFixture::TarnctlFixture() {
    setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
}

ProcessOutput TarnctlFixture::Run(const std::vector<std::string>& arguments, const std::string& input) {
    const auto output = RunProcess(TARNCTL, arguments, input, std::chrono::seconds(60));
    EXPECT_TRUE(output) << "did not end in time";
    return output ? *output : ProcessOutput();
}

std::vector<Json> TarnctlFixture::Records(const std::string& output) {
    std::vector<Json> records;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);)
        records.push_back(Json::parse(line));
    return records;
}

size_t TarnctlFixture::CountLines(const std::string& text) {
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace tarnbridge
