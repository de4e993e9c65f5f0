#pragma once

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Process.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {

using Json = nlohmann::json;

/// The program as a script meets it: arguments in, exit code, standard output and standard error out. Its
/// settings and data are in a folder of the test's.
class TarnctlFixture : public ::testing::Test {
protected:
    TarnctlFixture() {
        setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
        setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    }

    static ProcessOutput Run(const std::vector<std::string>& arguments, const std::string& input = "") {
        const auto output = RunProcess(TARNCTL, arguments, input, std::chrono::seconds(60));
        EXPECT_TRUE(output) << "did not end in time";
        return output ? *output : ProcessOutput();
    }

    static std::vector<Json> Records(const std::string& output) {
        std::vector<Json> records;
        std::istringstream lines(output);
        for (std::string line; std::getline(lines, line);)
            records.push_back(Json::parse(line));
        return records;
    }

    static size_t CountLines(const std::string& text) {
        return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
    }

    test::TemporaryFolder folder;
};

}  // namespace tarnbridge
