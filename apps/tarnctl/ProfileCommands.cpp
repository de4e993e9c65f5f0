// profile dump, copy.

#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include "core/app/ProfileFile.h"
#include "platform/Text.h"
#include "tarnctl/Command.h"
#include "tarnctl/ContactJson.h"
#include "tarnctl/Output.h"
#include "tarnctl/PduJson.h"

namespace tarnbridge {
namespace {

/// A tree of any depth is printed in lines of limited length.
constexpr size_t longestPath = 32;

struct CopyOptions {
    std::string from;
    std::string to;
};

/// What the file lacks, in words; empty if it was read whole.
std::string Fault(ProfileState state, const std::string& path) {
    switch (state) {
        case ProfileState::Missing:
            return fmt::format("there is no file {}", path);
        case ProfileState::Unreadable:
            return fmt::format("{} can't be read", path);
        case ProfileState::Foreign:
            return fmt::format("{} isn't a profile of version 2", path);
        case ProfileState::Damaged:
            return fmt::format("{} is damaged: what could be read is there, the rest isn't", path);
        case ProfileState::Altered:
            return fmt::format("{} isn't the one that was saved last; all of it could be read", path);
        case ProfileState::Whole:
            break;
    }
    return {};
}

bool HasContent(ProfileState state) {
    return state == ProfileState::Whole || state == ProfileState::Altered || state == ProfileState::Damaged;
}

Json AttributesToJson(const FolderAttributes& attributes) {
    return {{"systemKind", attributes.systemKind},
            {"readOnly", attributes.readOnly},
            {"folderKind", attributes.folderKind},
            {"imageIndex", attributes.imageIndex},
            {"allowsSubfolders", attributes.allowsSubfolders},
            {"userFolder", attributes.userFolder},
            {"flag2", attributes.flag2},
            {"flag3", attributes.flag3},
            {"flag4", attributes.flag4}};
}

/// The names from below the root to the folder, the last ones of a long path.
template <typename Record>
Json PathOf(const FolderNode<Record>& folder) {
    std::vector<std::string> names;
    for (const auto* level = &folder; level->parent && names.size() < longestPath; level = level->parent)
        names.push_back(TextToUtf8(level->name));
    std::reverse(names.begin(), names.end());
    return names;
}

void PrintStored(const SmsRecord& message, size_t folder) {
    Json parts = Json::array();
    for (const std::string& part : message.rawParts)
        parts.push_back(BytesToHex(part));
    Json object = {{"record", "message"},
                   {"folder", folder},
                   {"storage", TextToUtf8(message.storage)},
                   {"status", message.status},
                   {"time", message.timestamp.ToFileText()}};
    object.update(SmsToJson(message));
    object["rawParts"] = parts;
    PrintRecord(object);
}

void PrintStored(const Contact& contact, size_t folder) {
    const ContactDetails& details = contact.details;
    Json object = {{"record", "contact"}, {"folder", folder}};
    object.update(ContactToJson(contact));
    object.erase("detailsLoaded");
    object["extra"] = {TextToUtf8(details.extra1), TextToUtf8(details.extra2), TextToUtf8(details.extra3),
                       TextToUtf8(details.extra4)};
    PrintRecord(object);
}

/// Each folder, its records, then its children, as they stand in the file. `number` counts the folders.
template <typename Record>
void PrintTree(const FolderNode<Record>& root, const char* tree, size_t& number) {
    struct Pending {
        const FolderNode<Record>* folder;
        size_t depth;
    };
    std::vector<Pending> pending{{&root, 0}};
    while (!pending.empty()) {
        const auto [folder, depth] = pending.back();
        pending.pop_back();
        PrintRecord({{"record", "folder"},
                     {"folder", number},
                     {"tree", tree},
                     {"depth", depth},
                     {"name", TextToUtf8(folder->name)},
                     {"path", PathOf(*folder)},
                     {"attributes", AttributesToJson(folder->attributes)},
                     {"records", folder->records.size()},
                     {"folders", folder->children.size()}});
        for (const auto& record : folder->records)
            PrintStored(*record, number);
        ++number;
        for (auto child = folder->children.rbegin(); child != folder->children.rend(); ++child)
            pending.push_back({child->get(), depth + 1});
    }
}

ExitCode Dump(const std::string& path) {
    Profile profile;
    const ProfileState state = ReadProfile(path, profile);
    if (HasContent(state)) {
        size_t number = 0;
        PrintTree(profile.messageRoot, "messages", number);
        PrintTree(profile.contactRoot, "contacts", number);
        PrintRecord({{"record", "settings"},
                     {"lotusNotesOn", profile.lotusNotesOn},
                     {"outlookOn", profile.outlookOn},
                     {"outlookExpressOn", profile.outlookExpressOn},
                     {"lotusNotesPath", TextToUtf8(profile.lotusNotesPath)}});
        for (const ConnectionEntry& connection : profile.connections)
            PrintRecord({{"record", "connection"},
                         {"name", TextToUtf8(connection.name)},
                         {"operatorName", TextToUtf8(connection.operatorName)},
                         {"apn", TextToUtf8(connection.apn)}});
    }
    if (state == ProfileState::Whole) return Done;
    PrintWords(Fault(state, path));
    return OperationFailed;
}

ExitCode Copy(const CopyOptions& options) {
    Profile profile;
    const ProfileState state = ReadProfile(options.from, profile);
    if (state != ProfileState::Whole) PrintWords(Fault(state, options.from));
    if (!HasContent(state)) return OperationFailed;

    SystemClock clock;
    const auto file = ProfileFile::Open(options.to, clock);
    if (!file) {
        PrintWords(fmt::format("{} is in use by another program", options.to));
        return OperationFailed;
    }
    const Outcome outcome = file->Save(profile);
    if (!outcome) PrintWords(outcome.Failure().text);
    if (file->CopiedAside())
        PrintWords(
            fmt::format("what stood in {} wasn't a whole profile that was saved there; it is kept as {}",
                        options.to, file->CopiedAside()->string()));
    return outcome && state == ProfileState::Whole ? Done : OperationFailed;
}

}  // namespace

void AddProfileCommands(CLI::App& app, Action& chosen) {
    CLI::App* profile = app.add_subcommand("profile", "Look into a profile (Tarnbridge.bin), without a port");
    profile->require_subcommand(1);

    const auto path = std::make_shared<std::string>();
    CLI::App* dump = profile->add_subcommand("dump", "Folders, messages and contacts as JSON, one a line");
    dump->footer("The output is JSON with and without --json.");
    dump->add_option("FILE", *path, "The profile")->type_name("")->required();
    dump->callback([&chosen, path] { chosen = [path](const GlobalOptions&) { return Dump(*path); }; });

    const auto options = std::make_shared<CopyOptions>();
    CLI::App* copy = profile->add_subcommand("copy", "Load a profile and save it under another name");
    copy->footer("The mirrors of the handset and of the address books are saved empty.");
    copy->add_option("IN", options->from, "The profile")->type_name("")->required();
    copy->add_option("OUT", options->to, "Where it is saved")->type_name("")->required();
    copy->callback(
        [&chosen, options] { chosen = [options](const GlobalOptions&) { return Copy(*options); }; });
}

}  // namespace tarnbridge
