// sms list, read, delete, copy, move, folders, export, import.

#include <set>

#include <fmt/format.h>

#include "core/base/StringTable.h"
#include "messaging/MessageDownload.h"
#include "messaging/MessageFolders.h"
#include "messaging/MessageRemoval.h"
#include "messaging/MessageTextFile.h"
#include "messaging/MessageTransfer.h"
#include "platform/Text.h"
#include "tarnctl/MessageDesk.h"
#include "tarnctl/MessageJson.h"
#include "tarnctl/SmsCommands.h"

namespace tarnbridge {
namespace {

struct Selection {
    std::string source;
    std::vector<int> numbers;
};

struct Target {
    std::string folder;
    std::string memory;
};

void PrintMessage(const Json& message, bool json) {
    if (json)
        PrintRecord(message);
    else
        PrintLine(MessageToLine(message));
}

void PrintFolder(MessageDesk& desk, MessageFolder& folder, bool json) {
    const bool onPc = !desk.Tree().IsOnHandset(folder);
    const std::string name = desk.NameOf(folder);
    size_t number = 0;
    for (const auto& record : folder.records)
        PrintMessage(MessageToJson(*record, name, onPc ? ++number : 0), json);
}

ExitCode List(const GlobalOptions& options, const std::string& memory, const std::string& folderName) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(false)) return OperationFailed;
    MessageFolder* folder = nullptr;
    if (!folderName.empty() && !(folder = desk.FindFolder(folderName))) return WrongUsage;
    if (folder && !desk.Tree().IsOnHandset(*folder)) {
        PrintFolder(desk, *folder, options.json);
        return Done;
    }
    if (!desk.OpenHandset()) return NoLink;
    const ExitCode code = desk.Download(Utf8ToText(memory));
    for (const MessagePlace place : handsetPlaces) {
        MessageFolder& own = desk.Tree().OnHandset(place);
        if (!folder || folder == &own) PrintFolder(desk, own, options.json);
    }
    return code;
}

ExitCode Read(const GlobalOptions& options, const Selection& selection) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(false)) return OperationFailed;
    const auto source = desk.FindSource(selection.source);
    if (!source) return WrongUsage;
    const int number = selection.numbers.front();
    Json message;
    if (source->folder) {
        const auto found = desk.Find(*source, selection.numbers);
        if (!found) return OperationFailed;
        message =
            MessageToJson(*found->front().second, desk.NameOf(*source->folder), static_cast<size_t>(number));
    } else {
        if (!desk.OpenHandset()) return NoLink;
        HandsetLink& link = desk.Handset().Link();
        MemorySelection selected;
        const bool known = GetMessageMemories(link, selected);
        SmsRecord record;
        int error = -1;
        const bool done = record.Read(link, source->memory, number, error);
        if (known) RestoreMessageMemories(link, selected);
        if (!done) {
            PrintWords(fmt::format("{} {}: {}", TextToUtf8(source->memory), number,
                                   WordsOfReading(record.reading, error)));
            return OperationFailed;
        }
        message = MessageToJson(record, desk.NameOf(desk.Tree().OnHandset(PlaceOfStatus(record.status))), 0);
    }
    if (options.json)
        PrintRecord(message);
    else
        PrintLine(MessageToPage(message));
    return Done;
}

/// Deletes the very locations that are named; in a folder of the PC, messages.
ExitCode Delete(const GlobalOptions& options, const Selection& selection, bool saysYes) {
    MessageDesk desk(options, saysYes);
    if (!desk.User().CanAnswer()) {
        PrintWords("deleting needs --yes where there is no terminal to ask on");
        return WrongUsage;
    }
    const auto onHandset =
        EqualIgnoringCase(selection.source, "SM") || EqualIgnoringCase(selection.source, "ME");
    if (!desk.OpenProfile(!onHandset)) return OperationFailed;
    const auto source = desk.FindSource(selection.source);
    if (!source) return WrongUsage;
    MessageFolders folders(desk.Tree(), desk.User(), desk, desk.AsksAboutTrash());
    MessageFolder* folder = source->folder;
    std::vector<SmsRecord*> records;
    ExitCode code = Done;
    if (folder) {
        const auto found = desk.Find(*source, selection.numbers);
        if (!found) return OperationFailed;
        for (const auto& message : *found)
            records.push_back(message.second);
        if (!folders.ConfirmDelete(*folder, records)) return OperationFailed;
    } else {
        if (!desk.OpenHandset()) return NoLink;
        folder = &desk.Tree().OnHandset(draftPlace);
        const std::set<int> locations(selection.numbers.begin(), selection.numbers.end());
        for (const int location : locations) {
            auto record = std::make_unique<SmsRecord>();
            int error = -1;
            if (record->Read(desk.Handset().Link(), source->memory, location, error)) {
                records.push_back(&folder->Append(std::move(record)));
                continue;
            }
            PrintWords(fmt::format("{} {}: {}", TextToUtf8(source->memory), location,
                                   WordsOfReading(record->reading, error)));
            code = OperationFailed;
        }
        if (records.empty() || !folders.ConfirmDelete(*folder, records)) return OperationFailed;
    }
    MessageRemoval removal(desk.Worker(), desk.Tree(), desk, *folder, records);
    desk.Run(removal);
    return desk.Finish(desk.Report(removal, removal.Outcomes()) ? code : OperationFailed);
}

ExitCode Transfer(const GlobalOptions& options, const Selection& selection, const Target& to, bool move) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(true)) return OperationFailed;
    const auto source = desk.FindSource(selection.source);
    MessageFolder* const target = desk.FindFolder(to.folder);
    if (!source || !target) return WrongUsage;
    const bool needsHandset = !source->folder || desk.Tree().IsOnHandset(*target);
    if (needsHandset && !desk.OpenHandset()) return NoLink;
    if (!source->folder && desk.Download() != Done && desk.Cancelled()) return OperationFailed;
    const auto found = desk.Find(*source, selection.numbers);
    if (!found) return OperationFailed;

    // One transfer for each folder that the messages lie in.
    ExitCode code = Done;
    MessageFolders folders(desk.Tree(), desk.User(), desk);
    std::vector<std::pair<MessageFolder*, std::vector<SmsRecord*>>> groups;
    for (const auto& [folder, record] : *found) {
        if (groups.empty() || groups.back().first != folder) groups.push_back({folder, {}});
        groups.back().second.push_back(record);
    }
    for (const auto& [folder, records] : groups) {
        if (!folders.MayTransfer(*folder, *target, move)) {
            code = OperationFailed;
            continue;
        }
        MessageTransfer transfer(desk.Worker(), desk.Tree(), desk,
                                 {folder, records, target, desk.MemoryFor(to.memory, source->memory), move});
        desk.Run(transfer);
        if (!desk.Report(transfer, transfer.Outcomes())) code = OperationFailed;
        if (transfer.WentToDraft()) PrintWords(TextToUtf8(Words(Word::StoredAsDraft)));
    }
    return desk.Finish(code);
}

ExitCode Folders(const GlobalOptions& options) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(false)) return OperationFailed;
    const auto print = [&](const MessageFolder& folder, bool onPc) {
        const std::string name = desk.NameOf(folder);
        if (options.json) {
            Json json = {{"folder", name}, {"name", TextToUtf8(folder.name)}};
            if (onPc) json["messages"] = folder.records.size();
            PrintRecord(json);
        } else {
            PrintLine(onPc ? fmt::format("{:<24} {:>6}", name, folder.records.size())
                           : fmt::format("{:<24}      -", name));
        }
    };
    for (const MessagePlace place : handsetPlaces)
        print(desk.Tree().OnHandset(place), false);
    std::vector<MessageFolder*> pending;
    const auto addChildren = [&pending](const MessageFolder& folder) {
        for (auto child = folder.children.rbegin(); child != folder.children.rend(); ++child)
            pending.push_back(child->get());
    };
    addChildren(desk.Tree().PcRoot());
    while (!pending.empty()) {
        MessageFolder* const folder = pending.back();
        pending.pop_back();
        print(*folder, true);
        addChildren(*folder);
    }
    return Done;
}

ExitCode Export(const GlobalOptions& options, const std::string& path, const std::string& folderName) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(false)) return OperationFailed;
    MessageFolder* const folder = desk.FindFolder(folderName);
    if (!folder) return WrongUsage;
    ExitCode code = Done;
    if (desk.Tree().IsOnHandset(*folder)) {
        if (!desk.OpenHandset()) return NoLink;
        code = desk.Download();
        if (desk.Cancelled()) return OperationFailed;
    }
    std::vector<const SmsRecord*> records;
    for (const auto& record : folder->records)
        records.push_back(record.get());
    const auto done = ExportMessages(path, records);
    if (!done) {
        PrintWords(TextToUtf8(Words(Word::MessagesNotExported)) + " " + done.Failure().text);
        return OperationFailed;
    }
    if (options.json)
        PrintRecord(
            {{"written", done->written}, {"skipped", done->skipped}, {"unreadable", done->unreadable}});
    else
        PrintWords(fmt::format("messages written: {}; without text, left out: {}; unreadable, left out: {}",
                               done->written, done->skipped, done->unreadable));
    return code;
}

const char* Explain(MessageLineFault fault) {
    switch (fault) {
        case MessageLineFault::TooLong:
            return "its text needs more than 10 short messages";
        case MessageLineFault::NoSlot:
            return "there is no room for another message";
        case MessageLineFault::Malformed:
        case MessageLineFault::None:
            break;
    }
    return "it isn't three fields in quotation marks between tabs";
}

ExitCode Import(const GlobalOptions& options, const std::string& path, const std::string& folderName) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(true)) return OperationFailed;
    MessageFolder* const folder = desk.FindFolder(folderName);
    if (!folder) return WrongUsage;
    if (desk.Tree().IsOnHandset(*folder) || !desk.Tree().HoldsMessages(*folder)) {
        PrintWords("messages are imported into a folder of the PC, such as pc/Inbox");
        return WrongUsage;
    }
    const auto done = ImportMessages(path, desk.SystemTime().Local().minutesEastOfUtc,
                                     [&](std::unique_ptr<SmsRecord> record) {
                                         folder->Append(std::move(record));
                                         desk.PcFoldersChanged();
                                     });
    if (!done) {
        PrintWords(TextToUtf8(Words(Word::MessagesNotImported)) + " " + done.Failure().text);
        return desk.Finish(OperationFailed);
    }
    for (const MessageImport::RefusedLine& line : done->refusedLines)
        PrintWords(fmt::format("line {}: {}", line.number, Explain(line.fault)));
    if (options.json)
        PrintRecord({{"taken", done->taken}, {"refused", done->refused}});
    else
        PrintWords(fmt::format("messages taken: {}; lines refused: {}", done->taken, done->refused));
    return desk.Finish(done->refused == 0 ? Done : OperationFailed);
}

void AddSelection(CLI::App& command, Selection& selection, const char* numbers, bool several) {
    command
        .add_option("SOURCE", selection.source,
                    "SM for the SIM, ME for the handset, or a folder of the PC such as pc/Inbox")
        ->type_name("")
        ->required();
    CLI::Option* const option =
        command.add_option("NUMBER", selection.numbers, numbers)->type_name("")->required();
    if (!several) option->expected(1);
}

}  // namespace

void AddMemory(CLI::App& command, std::string& memory, const char* words) {
    command.add_option("--memory", memory, words)
        ->transform(CLI::IsMember({"SM", "ME"}, CLI::ignore_case).description(""))
        ->type_name("SM|ME");
}

void AddMessageCommands(CLI::App& sms, Action& chosen) {
    const auto memory = std::make_shared<std::string>();
    const auto folder = std::make_shared<std::string>();
    CLI::App* list =
        sms.add_subcommand("list", "Read all messages, long ones joined, or list a folder of the PC");
    list->footer("Reading an unread message makes it a read one, as on the handset itself.");
    AddMemory(*list, *memory, "Only this memory of the handset");
    list->add_option("--folder", *folder, "Only this folder: Inbox, Outbox, Sent, Draft, or one of the PC")
        ->type_name("FOLDER");
    list->callback([&chosen, memory, folder] {
        chosen = [=](const GlobalOptions& global) { return List(global, *memory, *folder); };
    });

    const auto selection = std::make_shared<Selection>();
    CLI::App* read = sms.add_subcommand("read", "Show one location of the handset, or one message of the PC");
    AddSelection(*read, *selection, "The location, or the message's number in 'sms list'", false);
    read->callback([&chosen, selection] {
        chosen = [=](const GlobalOptions& global) { return Read(global, *selection); };
    });

    const auto yes = std::make_shared<bool>(false);
    CLI::App* remove = sms.add_subcommand("delete", "Delete locations of the handset, or messages of the PC");
    remove->footer(
        "Of a long message only the named locations go: 'sms list' shows all of them. Messages of the PC go "
        "to "
        "pc/Trash, and in there for good.");
    AddSelection(*remove, *selection, "Locations, or the messages' numbers in 'sms list'", true);
    remove->add_flag("--yes", *yes, "Don't ask");
    remove->callback([&chosen, selection, yes] {
        chosen = [=](const GlobalOptions& global) { return Delete(global, *selection, *yes); };
    });

    const auto target = std::make_shared<Target>();
    for (const bool move : {false, true}) {
        CLI::App* transfer = sms.add_subcommand(
            move ? "move" : "copy", move ? "Move messages between the handset and the PC, or within either"
                                         : "Copy messages between the handset and the PC, or within either");
        transfer->footer("A location stands for the whole message that it belongs to.");
        AddSelection(*transfer, *selection, "Locations, or the messages' numbers in 'sms list'", true);
        transfer
            ->add_option("--folder", target->folder, "Where to: Inbox, Outbox, Sent, Draft, or one of the PC")
            ->type_name("FOLDER")
            ->required();
        AddMemory(
            *transfer, target->memory,
            "The memory of the handset to write to; by default the one that the messages come from, or else "
            "the preferred one");
        transfer->callback([&chosen, selection, target, move] {
            chosen = [=](const GlobalOptions& global) { return Transfer(global, *selection, *target, move); };
        });
    }

    CLI::App* folders =
        sms.add_subcommand("folders", "List the folders, with the number of messages on the PC");
    folders->callback([&chosen] { chosen = [](const GlobalOptions& global) { return Folders(global); }; });

    const auto file = std::make_shared<std::string>();
    const auto filed = std::make_shared<std::string>("pc/Inbox");
    CLI::App* exporting = sms.add_subcommand("export", "Write the texts of a folder into a file");
    CLI::App* importing = sms.add_subcommand("import", "Read such a file into a folder of the PC");
    for (CLI::App* const command : {exporting, importing}) {
        command->add_option("FILE", *file, "Tab-separated text, UTF-16")->type_name("")->required();
        command->add_option("--folder", *filed, "The folder")->type_name("FOLDER")->capture_default_str();
    }
    exporting->callback([&chosen, file, filed] {
        chosen = [=](const GlobalOptions& global) { return Export(global, *file, *filed); };
    });
    importing->callback([&chosen, file, filed] {
        chosen = [=](const GlobalOptions& global) { return Import(global, *file, *filed); };
    });
}

}  // namespace tarnbridge
