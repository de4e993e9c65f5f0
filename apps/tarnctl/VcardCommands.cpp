// vcard read, write, import.

#include <cstdio>

#include <fmt/format.h>

#include "tarnctl/ContactJson.h"
#include "tarnctl/Input.h"

namespace tarnbridge {
namespace {

using Files = std::vector<std::string>;

/// Each contact, or what is wrong with it, of each input.
ExitCode PrintContacts(const Files& files, std::vector<Json> (*contactsOf)(std::string_view text)) {
    return ForEachInput(files, [contactsOf](const std::string& content) {
        ExitCode code = Done;
        int number = 0;
        for (const Json& contact : contactsOf(content)) {
            ++number;
            if (const auto error = PrintAnswer(contact)) {
                PrintWords(fmt::format("vCard {}: {}", number, *error));
                code = OperationFailed;
            }
        }
        return code;
    });
}

ExitCode Write(const Files& files, bool asJson) {
    return ForEachLine(files, [asJson](const std::string& line) -> std::optional<std::string> {
        const Json answer = WriteVcardLine(line);
        if (asJson) return PrintAnswer(answer);
        if (answer.contains("error")) return answer["error"].get<std::string>();
        const auto& card = answer["vcard"].get_ref<const std::string&>();
        std::fwrite(card.data(), 1, card.size(), stdout);
        return std::nullopt;
    });
}

}  // namespace

void AddVcardCommands(CLI::App& app, Action& chosen) {
    CLI::App* vcard = app.add_subcommand("vcard", "Read and write vCards, without a port");
    vcard->require_subcommand(1);
    const auto files = std::make_shared<Files>();

    CLI::App* read = vcard->add_subcommand("read", "The handset's vCards to JSON, one contact a line");
    read->footer(
        "Gives the details alone: name and mobile number of a contact come another way. The output is JSON "
        "with and without --json.");
    AddFiles(*read, *files);
    read->callback([&chosen, files] {
        chosen = [files](const GlobalOptions&) { return PrintContacts(*files, ReadVcardText); };
    });

    CLI::App* write = vcard->add_subcommand("write", "JSON as the other two give it to the handset's vCards");
    write->footer("With --json each vCard is a text in an object.");
    AddFiles(*write, *files);
    write->callback([&chosen, files] {
        chosen = [files](const GlobalOptions& global) { return Write(*files, global.json); };
    });

    CLI::App* import =
        vcard->add_subcommand("import", "A desktop address book's vCards to JSON, one contact a line");
    import->footer("Takes UTF-8. The output is JSON with and without --json.");
    AddFiles(*import, *files);
    import->callback([&chosen, files] {
        chosen = [files](const GlobalOptions&) { return PrintContacts(*files, ImportVcardText);
};
}  // namespace tarnbridge
);
}

}  // namespace tarnbridge
