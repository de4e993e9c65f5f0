#pragma once

#include <nlohmann/json.hpp>
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
    TarnctlFixture();

    static ProcessOutput Run(const std::vector<std::string>& arguments, const std::string& input = "");
    static std::vector<Json> Records(const std::string& output);
    static size_t CountLines(const std::string& text);

    test::TemporaryFolder folder;
};

}  // namespace tarnbridge
