// ems decode, encode.

#include "messaging/ems/Ems.h"
#include "tarnctl/EmsJson.h"
#include "tarnctl/Input.h"

namespace tarnbridge {
namespace {

struct EmsOptions {
    std::vector<std::string> files;
    int reference = -1;
};

ExitCode Convert(const EmsOptions& options, Json (*convert)(std::string_view line)) {
    EmsInit(options.reference < 0 ? std::optional<uint8_t>()
                                  : std::optional(static_cast<uint8_t>(options.reference)));
    return ForEachLine(options.files,
                       [convert](const std::string& line) { return PrintAnswer(convert(line)); });
}

}  // namespace

void AddEmsCommands(CLI::App& app, Action& chosen) {
    CLI::App* ems = app.add_subcommand("ems", "Read and write Enhanced Messaging content, without a port");
    ems->require_subcommand(1);
    const auto options = std::make_shared<EmsOptions>();

    CLI::App* decode =
        ems->add_subcommand("decode", "The segments of a message to its text, objects and formats");
    decode->footer(
        "Takes JSON lines with dcs, hasHeader and segments, as 'pdu decode' and 'sms join' give them. The "
        "output is JSON with and without --json.");
    AddFiles(*decode, options->files);
    decode->callback([&chosen, options] {
        chosen = [options](const GlobalOptions&) { return Convert(*options, DecodeEmsLine); };
    });

    CLI::App* encode =
        ems->add_subcommand("encode", "Text, objects and formats to the segments of a message");
    encode->footer(
        "Takes JSON lines as 'ems decode' gives them. The output is JSON with and without --json: dcs, "
        "hasHeader and segments.");
    AddFiles(*encode, options->files);
    encode
        ->add_option(
            "--reference", options->reference,
            "The reference number of the first message of several segments; by default drawn by chance")
        ->type_name("N")
        ->check(CLI::Range(0, 255));
    encode->callback([&chosen, options] {
        chosen = [options](const GlobalOptions&) { return Convert(*options, EncodeEmsLine); };
    });
}

}  // namespace tarnbridge
