#include "tarnctl/Input.h"

#include <fstream>
#include <iostream>
#include <iterator>

#include <fmt/format.h>

#include "platform/Files.h"
#include "tarnctl/Output.h"

namespace tarnbridge {
namespace {

ExitCode ForEachStream(const std::vector<std::string>& files,
                       const std::function<ExitCode(std::istream& stream)>& take) {
    if (files.empty()) return take(std::cin);
    ExitCode code = Done;
    for (const std::string& file : files) {
        if (file == "-") {
            if (take(std::cin) != Done) code = OperationFailed;
            continue;
        }
        std::ifstream stream(file, std::ios::binary);
        if (stream && take(stream) != Done) code = OperationFailed;
        if (stream.is_open() && !stream.bad()) continue;
        PrintWords(LastSystemFailure(stream.is_open() ? "read" : "open", file).text);
        code = OperationFailed;
    }
    return code;
}

}  // namespace

ExitCode ForEachInput(const std::vector<std::string>& files,
                      const std::function<ExitCode(const std::string& content)>& take) {
    return ForEachStream(files, [&](std::istream& stream) {
        return take({std::istreambuf_iterator<char>(stream), {}});
    });
}

ExitCode ForEachLine(const std::vector<std::string>& files,
                     const std::function<std::optional<std::string>(const std::string& line)>& take) {
    int number = 0;  // goes on from file to file
    return ForEachStream(files, [&](std::istream& stream) {
        ExitCode code = Done;
        for (std::string line; !OutputFailed() && std::getline(stream, line);) {
            ++number;
            if (const auto failure = take(line)) {
                PrintWords(fmt::format("line {}: {}", number, *failure));
                code = OperationFailed;
            }
        }
        return code;
    });
}

void AddFiles(CLI::App& command, std::vector<std::string>& files) {
    command.add_option("FILE", files, "Without any, the standard input is read")->type_name("");
}

}  // namespace tarnbridge
