// pdu decode, encode.

#include "tarnctl/Input.h"
#include "tarnctl/PduJson.h"

namespace tarnbridge {
namespace {

/// Octets behind TP-SCA, as AT+CMGS and AT+CMGW count them.
int TpduLength(const std::string& pdu) {
    return static_cast<int>(pdu.size() / 2) - 1 - std::stoi(pdu.substr(0, 2), nullptr, 16);
}

ExitCode Decode(const std::vector<std::string>& files) {
    SystemClock clock;
    return ForEachLine(files,
                       [&](const std::string& line) { return PrintAnswer(DecodePduLine(line, clock)); });
}

ExitCode Encode(const std::vector<std::string>& files, bool json) {
    return ForEachLine(files, [json](const std::string& line) -> std::optional<std::string> {
        std::string pdu;
        std::string error;
        if (!EncodePduLine(line, pdu, error)) {
            if (json) PrintRecord({{"error", error}});
            return error;
        }
        if (json) {
            PrintRecord({{"pdu", pdu}, {"length", TpduLength(pdu)}});
        } else {
            PrintLine(pdu);
        }
        return std::nullopt;
    });
}

}  // namespace

void AddPduCommands(CLI::App& app, Action& chosen) {
    CLI::App* pdu = app.add_subcommand("pdu", "Read and write the PDUs of short messages, without a port");
    pdu->require_subcommand(1);
    const auto files = std::make_shared<std::vector<std::string>>();

    CLI::App* decode =
        pdu->add_subcommand("decode", "Hexadecimal PDUs, one a line, to JSON, one object a line");
    decode->footer(
        "A PDU begins with its service centre. The output is JSON with and without --json; a PDU that can't "
        "be "
        "decoded gives an object with the field error.");
    AddFiles(*decode, *files);
    decode->callback([&chosen, files] { chosen = [files](const GlobalOptions&) { return Decode(*files); }; });

    CLI::App* encode = pdu->add_subcommand("encode", "JSON as 'pdu decode' gives it to hexadecimal PDUs");
    encode->footer("With --json each PDU is an object that also tells the length for AT+CMGS and AT+CMGW.");
    AddFiles(*encode, *files);
    encode->callback([&chosen, files] {
        chosen = [files](const GlobalOptions& global) { return Encode(*files, global.json); };
    });
}

}  // namespace tarnbridge
