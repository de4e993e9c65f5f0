// ports, info, ping, at.

#include <algorithm>

#include <fmt/format.h>

#include "tarnctl/Command.h"
#include "tarnctl/Connection.h"
#include "tarnctl/Output.h"

namespace tarnbridge {
namespace {

struct AtOptions {
    std::string text;
    std::optional<std::string> prefix;
    uint32_t timeout = 5000;  // milliseconds
    std::optional<std::string> body;
    bool pdu = false;
};

ExitCode ListPorts(const GlobalOptions& options) {
    const auto store = OpenUserStore();
    PortMap ports(*store);
    const std::vector<int> numbers = ports.Enumerate();
    for (const int number : numbers) {
        const std::string device = ports.DeviceOf(number).value_or("");
        if (options.json) {
            PrintRecord({{"number", number}, {"name", fmt::format("COM{}", number)}, {"device", device}});
        } else {
            PrintLine(fmt::format("COM{:<4} {}", number, device));
        }
    }
    if (numbers.empty()) PrintWords("no serial port is plugged in");
    return Done;
}

const char* KindName(LinkKind kind) {
    return kind == LinkKind::Modem ? "modem" : kind == LinkKind::Rs232 ? "rs232" : "other";
}

ExitCode ShowInfo(const GlobalOptions& options) {
    Connection connection(options);
    if (!connection.Open()) return NoLink;
    const HandsetFeatures features = connection.Link().Features();
    Json record;
    record["device"] = connection.Device();
    record["linkKind"] = KindName(connection.Kind());
    record["channelMode"] = connection.Link().ChannelMode();
    record["maxChunk"] = features.maxChunk;
    record["hasEfsCheck"] = features.hasEfsCheck;
    record["hasStoreQuery"] = features.hasStoreQuery;
    record["canStoreReceived"] = features.canStoreReceived;
    record["hasPackedUcs2"] = features.hasPackedUcs2;
    record["hasVCard"] = features.hasVCard;
    record["hasMeStore"] = features.hasMeStore;
    record["hasSimMemory"] = features.hasSimMemory;
    if (options.json) {
        PrintRecord(record);
        return Done;
    }
    for (const auto& [name, value] : record.items()) {
        PrintLine(fmt::format("{:<17} {}", name,
                              value.is_boolean()  ? (value.get<bool>() ? "yes" : "no")
                              : value.is_string() ? value.get<std::string>()
                                                  : value.dump()));
    }
    return Done;
}

ExitCode Ping(const GlobalOptions& options) {
    Connection connection(options);
    if (!connection.Open()) return NoLink;
    const auto start = std::chrono::steady_clock::now();
    if (!connection.Link().Ping()) {
        PrintWords(fmt::format("the handset on {} does not answer", connection.Device()));
        return OperationFailed;
    }
    const auto duration = std::chrono::steady_clock::now() - start;
    const double milliseconds = std::chrono::round<std::chrono::microseconds>(duration).count() / 1000.0;
    if (options.json) {
        PrintRecord({{"device", connection.Device()}, {"milliseconds", milliseconds}});
    } else {
        PrintLine(fmt::format("{} answers in {:.1f} ms", connection.Device(), milliseconds));
    }
    return Done;
}

/// `+CSQ` of `AT+CSQ?`: the prefix under which a handset answers most commands.
std::string PrefixOf(const std::string& command) {
    const size_t plus = command.find('+');
    if (plus == std::string::npos) return {};
    return command.substr(plus, command.find_first_of("=?;\r", plus) - plus);
}

void PrintResult(const ATResult& result, bool json) {
    for (const ATLine& line : result.lines) {
        if (json) {
            Json fields = Json::array();
            for (const ATParam& field : line)
                fields.push_back(FieldToJson(field));
            PrintRecord({{"fields", fields}});
            continue;
        }
        std::string words;
        for (size_t i = 0; i < line.size(); ++i) {
            const bool isWord = i == 0 && line[0].type == ATParam::Text;
            words += i == 0 ? "" : i == 1 ? ": " : ", ";
            words += isWord ? line[0].text : FieldToWords(line[i]);
        }
        PrintLine(words);
    }
}

ExitCode SendCommand(const GlobalOptions& options, const AtOptions& at) {
    Connection connection(options);
    if (!connection.Open()) return NoLink;
    ATResult result;
    result.prefix = at.prefix.value_or(PrefixOf(at.text));
    result.allLines = !at.prefix;
    const std::string text = at.text + "\r";
    bool answered = false;
    if (at.body) {
        // Whole seconds; rounding up keeps a short time-out from becoming none at all.
        const uint32_t seconds = at.timeout / 1000 + (at.timeout % 1000 != 0 ? 1 : 0);
        connection.Link().ExecTwoStage(text, *at.body + "\x1A", seconds, result);
        answered = !result.lines.empty();
    } else {
        answered = connection.Link().ExecCommand(text, at.timeout, at.pdu, result);
    }
    if (!answered) {
        PrintWords(connection.Cancelled() ? "cancelled" : ExplainResult(connection.Link(), result));
        return OperationFailed;
    }
    PrintResult(result, options.json);
    const std::string& word = result.lines.back()[0].text;
    if (word == "OK" || word == "CONNECT") return Done;
    PrintWords(ExplainResult(connection.Link(), result));
    return OperationFailed;
}

}  // namespace

void AddLinkCommands(CLI::App& app, Action& chosen) {
    CLI::App* ports = app.add_subcommand("ports", "List the serial ports that are plugged in");
    ports->callback([&chosen] { chosen = ListPorts; });

    CLI::App* info = app.add_subcommand("info", "Open a session and tell what the handset can do");
    info->callback([&chosen] { chosen = ShowInfo; });

    CLI::App* ping = app.add_subcommand("ping", "Ask whether the handset answers");
    ping->callback([&chosen] { chosen = Ping; });

    const auto options = std::make_shared<AtOptions>();
    CLI::App* at = app.add_subcommand("at", "Send one AT command and show the parsed response");
    at->add_option("TEXT", options->text, "The command, without its carriage return, such as AT+CSQ")
        ->required();
    at->add_option("--prefix", options->prefix,
                   "Show only response lines of this prefix, given without its colon; by default all lines");
    at->add_option(
          "--timeout", options->timeout,
          "Milliseconds to wait for the result, and with --body for the prompt too, then rounded up to whole "
          "seconds; 0 waits without limit")
        ->capture_default_str();
    at->add_option("--body", options->body, "What follows after the prompt; Ctrl-Z is added");
    at->add_flag("--pdu", options->pdu, "The response line is followed by a raw line, as with AT+CMGR");
    at->callback([&chosen, options] {
        chosen = [options](const GlobalOptions& global) { return SendCommand(global, *options); };
    });
}

}  // namespace tarnbridge
