// contact check.

#include <fmt/format.h>

#include "tarnctl/ContactJson.h"
#include "tarnctl/Input.h"

namespace tarnbridge {
namespace {

ExitCode Check(const std::vector<std::string>& files) {
    return ForEachLine(files, [](const std::string& line) -> std::optional<std::string> {
        const Json answer = CheckContactLine(line);
        if (const auto error = PrintAnswer(answer)) return error;
        if (answer["ok"].get<bool>()) return std::nullopt;
        return fmt::format("can't be stored for its {}", answer["field"].get<std::string>());
    });
}

}  // namespace

void AddContactCommands(CLI::App& app, Action& chosen) {
    CLI::App* contact = app.add_subcommand("contact", "Contacts, without a port");
    contact->require_subcommand(1);
    const auto files = std::make_shared<std::vector<std::string>>();
    CLI::App* check =
        contact->add_subcommand("check", "Tell the first thing that keeps a contact from being stored");
    check->footer(
        "Takes JSON lines with storage (SM, ME or PC), name, mobile, home, office, fax, email and birthday "
        "(day/month/year). The output is JSON with and without --json.");
    AddFiles(*check, *files);
    check->callback([&chosen, files] { chosen = [files](const GlobalOptions&) { return Check(*files); }; });
}

}  // namespace tarnbridge
