#include <algorithm>
#include <map>

#include "platform/Files.h"
#include "tarnctl/Command.h"
#include "tarnctl/Output.h"

using namespace tarnbridge;

namespace {

constexpr const char* footer =
    R"(Exit codes: 0 done, 1 the operation failed, 2 wrong usage, 3 no link to the handset.
Data goes to the standard output, words to the standard error.)";

void AddGlobalOptions(CLI::App& app, GlobalOptions& options) {
    const std::map<std::string, FlowControl> flows = {{"none", FlowControl::None},
                                                      {"hardware", FlowControl::Hardware},
                                                      {"software", FlowControl::Software}};
    app.add_option("--port", options.port,
                   "The serial port, a device path or COM7 as 'tarnctl ports' lists them; by default the one "
                   "that the "
                   "settings name")
        ->type_name("NAME");
    app.add_option("--model", options.model,
                   "The phone model that baud rate and flow control suit, as 'tarnctl settings models' lists "
                   "them; by default the one that the settings name, unless --baud or --flow is given")
        ->type_name("KEY");
    app.add_option("--baud", options.baudRate, "Its baud rate; 115200 where only --flow is given")
        ->type_name("N");
    app.add_option("--flow", options.flowControl,
                   "Its flow control: none, hardware or software; none where only --baud is given")
        ->type_name("MODE")
        ->transform(CLI::CheckedTransformer(flows).description(""));
    app.add_flag("--json", options.json, "One JSON object a line for each record, and nothing else");
    app.add_flag("--trace", options.trace, "Show what passes over the wire, one exchange a line");
}

/// What to say of a word in a command's place that is none; nothing if there is no such word.
std::string UnknownCommand(const CLI::App& app) {
    std::string given;
    const CLI::App* level = &app;
    for (auto parsed = app.get_subcommands(); !parsed.empty(); parsed = level->get_subcommands()) {
        level = parsed.front();
        given += level->get_name() + " ";
    }
    if (level->get_require_subcommand_min() == 0) return {};
    const std::vector<std::string> left = app.remaining(true);
    const auto word = std::find_if(left.begin(), left.end(),
                                   [](const std::string& one) { return !one.empty() && one.front() != '-'; });
    return word == left.end() ? "" : "there is no command " + given + *word;
}

}  // namespace

int main(int argc, char** argv) {
    LetOversizedWritesFail();
    GlobalOptions options;
    Action chosen;
    CLI::App app("Reads and keeps what is on a feature phone, over AT commands on a serial port.", "tarnctl");
    app.footer(footer);
    app.set_version_flag("--version", "tarnctl " TARNBRIDGE_VERSION);
    app.require_subcommand(1);
    app.fallthrough();
    AddGlobalOptions(app, options);
    AddLinkCommands(app, chosen);
    AddTextCommands(app, chosen);
    AddSmsCommands(app, chosen);
    AddSettingsCommands(app, chosen);
    AddPduCommands(app, chosen);
    AddEmsCommands(app, chosen);
    AddVcardCommands(app, chosen);
    AddContactCommands(app, chosen);
    AddProfileCommands(app, chosen);
    try {
        app.parse(argc, argv);
    } catch (const CLI::RequiredError& error) {
        const std::string unknown = UnknownCommand(app);
        if (unknown.empty()) return app.exit(error) == 0 ? Done : WrongUsage;
        PrintWords(unknown + "\nRun with --help for more information.");
        return WrongUsage;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? Done : WrongUsage;
    }
    if (!options.model.empty() && !IsKnownModel(options.model)) return WrongUsage;
    const ExitCode code = chosen(options);
    if (!OutputFailed()) return code;
    PrintWords("the output could not be written");
    return OperationFailed;
}
