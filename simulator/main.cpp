#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "platform/Files.h"
#include "platform/TerminationSignal.h"
#include "simulator/HandsetServer.h"

namespace {

using namespace tarnbridge;
using namespace tarnbridge::simulator;

constexpr int failed = 1;
constexpr int wrongUsage = 2;
constexpr uint64_t largestState = 64 << 20;

int Fail(int code, const std::string& why) {
    fmt::print(stderr, "virtual-handset: {}\n", why);
    return code;
}

/// The content of the state file, or the seed's if there is no such file yet.
Result<HandsetContent> Load(const std::filesystem::path& state, const std::string& seed) {
    std::error_code error;
    if (state.empty() || !std::filesystem::exists(std::filesystem::symlink_status(state, error))) {
        return seed == "empty" ? HandsetContent::Empty() : HandsetContent::Demo();
    }
    const Result<std::string> text = ReadFile(state, largestState);
    if (!text) return text.Failure();
    Result<HandsetContent> content = HandsetContent::FromJson(*text);
    if (!content) {
        return SystemFailure{0, fmt::format("{} is left as it is, since it can't be read: {}", state.string(),
                                            content.Failure().text)};
    }
    return content;
}

}  // namespace

int main(int argc, char** argv) {
    LetOversizedWritesFail();
    HandsetServer::Options options;
    std::vector<std::string> specifications;
    std::string seed = "demo";
    std::string otherSeed;
    CLI::App app("Plays a phone that speaks AT commands on a pseudo-terminal, until SIGINT or SIGTERM.",
                 "virtual-handset");
    app.add_option("--link", options.link,
                   "Where the phone's device is linked; a link that is there is replaced")
        ->required();
    app.add_option("--state", options.state,
                   "JSON file that keeps the phone's content; made if it isn't there");
    app.add_option("--baud", options.baud, "Pace the bytes as a line of this speed would, 10 bits a byte")
        ->check(CLI::Range(300, 4'000'000));
    app.add_option("--log", options.log, "Write the dialogue to this file, control characters visible");
    app.add_option("--fault", specifications,
                   "Let something go wrong (see below); may be given several times")
        ->allow_extra_args(false);
    app.add_option("--seed", seed, "Content of a phone without a state file: demo (the default) or empty")
        ->check(CLI::IsMember({"demo", "empty"}));
    app.add_option("--other-state", options.otherState,
                   "The same as --state for the phone that the faults put in this one's place");
    app.add_option("--other-seed", otherSeed, "The same as --seed for it; if neither is said, it is empty")
        ->check(CLI::IsMember({"demo", "empty"}));
    app.footer(Fault::Help());
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : wrongUsage;
    }

    Result<Faults> faults = Faults::Parse(specifications);
    if (!faults) return Fail(wrongUsage, faults.Failure().text);
    Result<HandsetContent> content = Load(options.state, seed);
    if (!content) return Fail(failed, content.Failure().text);

    Result<HandsetContent> other = Load(options.otherState, otherSeed.empty() ? "empty" : otherSeed);
    if (!other) return Fail(failed, other.Failure().text);

    TerminationSignal termination;
    HandsetServer server(std::move(*content), std::move(*faults), options);
    if (!options.otherState.empty() || !otherSeed.empty()) server.SetOther(std::move(*other));
    if (const Outcome started = server.Start(); !started) return Fail(failed, started.Failure().text);
    fmt::print("virtual-handset: ready at {}\n", options.link.string());
    std::fflush(stdout);
    termination.Requested().Wait(forever);
    if (const Outcome stopped = server.Stop(); !stopped) return Fail(failed, stopped.Failure().text);
    return 0;
}
