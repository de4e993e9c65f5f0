// sms raw-list, join.

#include "tarnctl/SmsCommands.h"

#include <fmt/format.h>

#include "messaging/MessageMemory.h"
#include "platform/Text.h"
#include "tarnctl/Command.h"
#include "tarnctl/Connection.h"
#include "tarnctl/Input.h"
#include "tarnctl/Output.h"
#include "tarnctl/PduJson.h"

namespace tarnbridge {
namespace {

constexpr int32_t emptyLocation = 321;  // 3GPP TS 27.005 clause 3.2.5: invalid memory index

/// Reads one location. True when it could be read or is empty.
bool ReadLocation(HandsetLink& link, const std::string& memory, int location, bool json, ATResult& result) {
    result = ATResult();
    result.prefix = "+CMGR";
    const bool answered =
        link.ExecCommand(fmt::format("AT+CMGR={}\r", location), link.commandTimeout, true, result);
    if (!answered) return false;
    if (result.ErrorNumber() == emptyLocation) return true;
    if (!result.HasPrefix("+CMGR")) return result.IsOk();
    const ATLine& line = result.lines[0];
    const int32_t stat = result.GetNumber(0, 1);
    const std::string& pdu = line.back().text;
    if (json) {
        PrintRecord({{"memory", memory}, {"location", location}, {"stat", stat}, {"pdu", pdu}});
    } else {
        PrintLine(fmt::format("{} {:>3} stat {} {}", memory, location, stat, pdu));
    }
    return true;
}

/// The handset numbers the locations of "SM" first, whichever memory is selected.
ExitCode ListLocations(Connection& connection, const std::string& memory, bool json) {
    HandsetLink& link = connection.Link();
    const std::u16string name = Utf8ToText(memory);
    MemoryUsage sim;
    MemoryUsage usage;
    const bool known =
        (memory == "SM" || !link.Features().hasSimMemory || QueryMessageMemory(link, u"SM", sim)) &&
        QueryMessageMemory(link, name, usage) && SelectMessageMemory(link, name);
    if (!known) {
        PrintWords(fmt::format("the memory {} can't be selected", memory));
        return OperationFailed;
    }
    const int offset = sim.total;
    const int total = usage.total;
    ExitCode code = Done;
    ProgressLine progress;
    for (int i = 1; i <= total; ++i) {
        if (connection.Cancelled()) {
            PrintWords("cancelled");
            return OperationFailed;
        }
        progress.Show(fmt::format("Reading {} {} of {}", memory, i, total));
        ATResult result;
        if (ReadLocation(link, memory, offset + i, json, result)) continue;
        PrintWords(
            fmt::format("{} {}: {}", memory, offset + i,
                        connection.Cancelled() ? "cancelled" : ExplainResult(connection.Link(), result)));
        code = OperationFailed;
        // Without an answer there is no point in asking on; an error holds for its location alone.
        if (result.lines.empty()) break;
    }
    return code;
}

ExitCode RawList(const GlobalOptions& options, const std::string& memory) {
    Connection connection(options);
    if (!connection.Open()) return NoLink;
    MemorySelection before;
    const bool known = GetMessageMemories(connection.Link(), before);
    const ExitCode code = ListLocations(connection, memory, options.json);
    if (known) RestoreMessageMemories(connection.Link(), before);
    return code;
}

ExitCode Join(const std::vector<std::string>& files) {
    SystemClock clock;
    PduJoiner joiner(clock);
    const ExitCode code = ForEachLine(files, [&](const std::string& line) -> std::optional<std::string> {
        const auto message = joiner.Take(line);
        return message ? PrintAnswer(*message) : std::nullopt;
    });
    joiner.Finish([](const Json& message) {
        if (!OutputFailed()) PrintRecord(message);
    });
    return code;
}

}  // namespace

void AddSmsCommands(CLI::App& app, Action& chosen) {
    CLI::App* sms = app.add_subcommand("sms", "Short messages");
    sms->require_subcommand(1);
    AddMessageCommands(*sms, chosen);
    AddComposeCommands(*sms, chosen);
    const auto memory = std::make_shared<std::string>();
    CLI::App* rawList =
        sms->add_subcommand("raw-list", "Print state and PDU of every used location of a memory");
    rawList->footer("Reading an unread message makes it a read one, as on the handset itself.");
    rawList->add_option("--memory", *memory, "SM for the SIM, ME for the handset")
        ->required()
        ->check(CLI::IsMember({"SM", "ME"}));
    rawList->callback([&chosen, memory] {
        chosen = [memory](const GlobalOptions& global) { return RawList(global, *memory); };
    });

    const auto files = std::make_shared<std::vector<std::string>>();
    CLI::App* join = sms->add_subcommand("join", "Join the parts of long messages, without a port");
    join->footer(
        "Takes hexadecimal PDUs of many messages, one a line. The output is JSON with and without --json: "
        "one "
        "object for each message, with the numbers of its lines.");
    AddFiles(*join, *files);
    join->callback([&chosen, files] { chosen = [files](const GlobalOptions&) { return Join(*files); }; });
}

}  // namespace tarnbridge
