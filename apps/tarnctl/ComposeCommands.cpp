// sms send, save, reply, forward.

#include <iostream>
#include <iterator>

#include <fmt/format.h>

#include "core/base/StringTable.h"
#include "images/EmsPicture.h"
#include "images/PLAnyBmp.h"
#include "images/PLAnyPicDecoder.h"
#include "images/PLTextException.h"
#include "messaging/EmsMelody.h"
#include "messaging/MessageDraft.h"
#include "messaging/MessageFolders.h"
#include "messaging/MessageSending.h"
#include "messaging/MessageTransfer.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "tarnctl/MessageDesk.h"
#include "tarnctl/MessageJson.h"
#include "tarnctl/SmsCommands.h"

namespace tarnbridge {
namespace {

/// What a message is made of.
struct Composition {
    std::string to;
    std::string text;
    std::string coding;  ///< "auto", "7bit", or empty for the preference
    std::vector<std::string> pictures;
    std::vector<std::string> melodies;
};

EditorOptions OptionsOf(const MessageDesk& desk, const Composition& composition) {
    EditorOptions options = EditorOptions::From(desk.UserSettings());
    if (!composition.coding.empty()) options.automatic = composition.coding == "auto";
    return options;
}

/// Puts something at the end of the message; false, and told, if it doesn't fit.
template <typename Put>
bool Append(MessageEditor& editor, const Put& put) {
    const EmsResult result = put(editor.Shown().Length());
    if (result == EmsResult::Done) return true;
    PrintWords(TextToUtf8(editor.WordsFor(result)));
    return false;
}

const char* Explain(EmsPictureFit fit) {
    switch (fit) {
        case EmsPictureFit::NotMonochrome:
            return "only pictures of black and white go into a message";
        case EmsPictureFit::TooWide:
        case EmsPictureFit::TooHigh:
            return "a picture in a message has at most 255 pixels a side";
        case EmsPictureFit::TooLarge:
            return "the picture is too large for a message";
        case EmsPictureFit::Fits:
            break;
    }
    return "";
}

std::optional<MessageObject> ReadPicture(const std::string& path) try {
    PLAnyBmp bitmap;
    PLAnyPicDecoder().decodeFile(path, bitmap);
    if (const EmsPictureFit fit = CheckEmsPicture(bitmap); fit != EmsPictureFit::Fits) {
        PrintWords(fmt::format("{}: {}", path, Explain(fit)));
        return std::nullopt;
    }
    const EmsPicture picture = MakeEmsPicture(bitmap);
    return MessageObject::Picture({reinterpret_cast<const char*>(picture.bits.data()), picture.bits.size()},
                                  picture.width, picture.height);
} catch (const PLTextException& failure) {
    PrintWords(fmt::format("{}: {}", path, failure.what()));
    return std::nullopt;
}

std::optional<MessageObject> ReadMelody(const std::string& path) {
    const auto content = ReadFile(path);
    if (!content) {
        PrintWords(content.Failure().text);
        return std::nullopt;
    }
    switch (CheckEmsMelody(*content)) {
        case EmsMelodyFit::NotIMelody:
            PrintWords(fmt::format("{} isn't an iMelody file", path));
            return std::nullopt;
        case EmsMelodyFit::TooLarge:
            PrintWords(fmt::format("{} is too large for a message", path));
            return std::nullopt;
        case EmsMelodyFit::Fits:
            break;
    }
    return MessageObject::Melody(*content);
}

/// Adds text, pictures and melodies to a draft. False, and told, if something doesn't fit.
bool Fill(MessageEditor& editor, const Composition& composition) {
    std::string text = composition.text;
    if (text == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
        if (text.ends_with('\n')) text.pop_back();  // ends the line, not the message
    }
    const bool hasText = Append(editor, [&](int end) { return editor.Replace(end, end, Utf8ToText(text)); });
    if (!hasText) return false;
    const auto insert = [&editor](const std::optional<MessageObject>& object) {
        return object && Append(editor, [&](int end) { return editor.Insert(end, *object); });
    };
    for (const std::string& path : composition.pictures) {
        if (!insert(ReadPicture(path))) return false;
    }
    for (const std::string& path : composition.melodies) {
        if (!insert(ReadMelody(path))) return false;
    }
    return true;
}

/// The record of a filled draft, as it lies in a folder. Nothing, and told, if the recipients are wrong.
std::unique_ptr<SmsRecord> MakeRecord(MessageDesk& desk, const MessageDraft& draft,
                                      const CheckedRecipients& recipients) {
    if (!recipients) {
        PrintWords(TextToUtf8(Words(*recipients.fault)));
        return nullptr;
    }
    auto record = draft.MakeRecord(recipients, desk.SystemTime());
    if (!record || !record->SettleParts()) {
        PrintWords(TextToUtf8(Words(Word::EmsObjectNotCreated)));
        return nullptr;
    }
    return std::make_unique<SmsRecord>(std::move(*record));
}

ExitCode SendAll(MessageDesk& desk, const std::vector<MessageSending::Waiting>& messages, bool json) {
    MessageSending sending(desk.Worker(), desk.Tree(), desk, desk.SystemTime(), messages);
    const bool begun = desk.Run(sending);
    bool allSent = begun;
    for (const MessageSending::Item& item : sending.Items()) {
        const MessageOutcome& outcome = item.outcome;
        const bool tried = outcome.state != MessageOutcome::State::NotTried;
        const bool sent = outcome.state == MessageOutcome::State::Done;
        allSent = allSent && sent;
        const std::string result =
            tried ? TextToUtf8(Words(sent ? Word::SendSuccess : Word::SendFailed)) : "not sent";
        if (json) {
            Json row = {{"number", item.number}, {"result", tried ? (sent ? "sent" : "failed") : "notSent"}};
            if (outcome.error >= 0) row["error"] = outcome.error;
            if (outcome.unconfirmed) row["unconfirmed"] = true;
            PrintRecord(row);
        } else {
            PrintLine(fmt::format("{:<20} {}{}", item.number, result,
                                  outcome.error >= 0 ? fmt::format(" (error {})", outcome.error) : ""));
        }
        if (outcome.unconfirmed)
            PrintWords(fmt::format("{}: {}", item.number, TextToUtf8(Words(Word::MayBeSent))));
        if (item.number.empty()) PrintWords(TextToUtf8(Words(Word::NoRecipient)));
    }
    if (sending.LostHandset()) PrintWords(TextToUtf8(Words(Word::HandsetLost)));
    return desk.Finish(allSent ? Done : OperationFailed);
}

/// Sends a draft by way of the PC's Outbox, where it stays if it can't be sent.
ExitCode SendDraft(MessageDesk& desk, const MessageDraft& draft, const std::string& to, bool json) {
    auto record = MakeRecord(desk, draft, CheckRecipients(Utf8ToText(to), VerbatimMatcher()));
    if (!record) return OperationFailed;
    if (!desk.HasHandset() && !desk.OpenHandset()) return NoLink;
    MessageFolder& outbox = desk.Tree().OnPc(outboxPlace);
    SmsRecord& waiting = outbox.Append(std::move(record));
    if (!desk.SaveNow()) return OperationFailed;
    return SendAll(desk, {{&outbox, &waiting}}, json);
}

ExitCode Send(const GlobalOptions& options, const Composition& composition) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(true)) return OperationFailed;
    const auto draft = MessageDraft::New(OptionsOf(desk, composition));
    if (!draft || !Fill(draft->Editor(), composition)) return OperationFailed;
    return SendDraft(desk, *draft, composition.to, options.json);
}

ExitCode SendOutbox(const GlobalOptions& options, bool saysYes) {
    MessageDesk desk(options, saysYes);
    if (!desk.User().CanAnswer()) {
        PrintWords("sending all needs --yes where there is no terminal to ask on");
        return WrongUsage;
    }
    if (!desk.OpenProfile(true)) return OperationFailed;
    const auto messages = CollectOutbox(desk.Tree(), desk.User());
    if (!messages) return OperationFailed;
    if (messages->empty()) {
        PrintWords("there is nothing to send in pc/Outbox");
        return Done;
    }
    if (!desk.OpenHandset()) return NoLink;
    return SendAll(desk, *messages, options.json);
}

ExitCode Save(const GlobalOptions& options, const Composition& composition, const std::string& folderName,
              const std::string& memory) {
    MessageDesk desk(options);
    if (!desk.OpenProfile(true)) return OperationFailed;
    MessageFolder* const folder = desk.FindFolder(folderName);
    if (!folder) return WrongUsage;
    const auto draft = MessageDraft::New(OptionsOf(desk, composition));
    if (!draft || !Fill(draft->Editor(), composition)) return OperationFailed;
    const bool onPc = !desk.Tree().IsOnHandset(*folder);
    const auto check = onPc ? CheckDraftRecipients : CheckRecipients;
    auto record = MakeRecord(desk, *draft, check(Utf8ToText(composition.to), VerbatimMatcher()));
    if (!record) return OperationFailed;
    if (!onPc && !desk.OpenHandset()) return NoLink;
    MessageFolder editor;  // where the message is until it is saved
    SmsRecord& composed = editor.Append(std::move(record));
    MessageFolders folders(desk.Tree(), desk.User(), desk);
    if (!folders.MayTransfer(editor, *folder, true)) return WrongUsage;
    MessageTransfer transfer(desk.Worker(), desk.Tree(), desk,
                             {&editor, {&composed}, folder, desk.MemoryFor(memory), true});
    desk.Run(transfer);
    if (!desk.Report(transfer, transfer.Outcomes())) return desk.Finish(OperationFailed);
    if (transfer.WentToDraft()) PrintWords(TextToUtf8(Words(Word::StoredAsDraft)));
    // What isn't on the disk isn't told as stored.
    const ExitCode code = desk.Finish(Done);
    if (onPc && code != Done) return code;
    const SmsRecord& stored = *transfer.Stored().front();
    const Json message = MessageToJson(
        stored, desk.NameOf(onPc ? *folder : desk.Tree().OnHandset(PlaceOfStatus(stored.status))),
        onPc ? folder->records.size() : 0);
    if (options.json)
        PrintRecord(message);
    else
        PrintLine(MessageToLine(message));
    return code;
}

/// Opens what a reply or a forward is made from.
const SmsRecord* FindOriginal(MessageDesk& desk, const std::string& sourceName, int number, ExitCode& code) {
    code = OperationFailed;
    if (!desk.OpenProfile(true)) return nullptr;
    const auto source = desk.FindSource(sourceName);
    if (!source) {
        code = WrongUsage;
        return nullptr;
    }
    if (!source->folder) {
        if (!desk.OpenHandset()) {
            code = NoLink;
            return nullptr;
        }
        if (desk.Download() != Done && desk.Cancelled()) return nullptr;
    }
    const auto found = desk.Find(*source, {number});
    return found ? found->front().second : nullptr;
}

/// A reply goes to the original's sender and has a text of its own; a forwarded message is the original.
enum class Answering { Reply, Forward };

ExitCode SendAnswer(const GlobalOptions& options, const std::string& source, int number,
                    const Composition& composition, Answering kind) {
    MessageDesk desk(options);
    ExitCode code = Done;
    const SmsRecord* const original = FindOriginal(desk, source, number, code);
    if (!original) return code;
    const EditorOptions editorOptions = OptionsOf(desk, composition);
    const auto draft = kind == Answering::Reply ? MessageDraft::Reply(editorOptions, *original)
                                                : MessageDraft::Forward(editorOptions, *original);
    if (!draft) {
        PrintWords(TextToUtf8(Words(Word::EmsObjectNotCreated)));
        return OperationFailed;
    }
    if (!Fill(draft->Editor(), composition)) return OperationFailed;
    const std::string to = kind == Answering::Reply ? TextToUtf8(draft->Recipients()) : composition.to;
    return SendDraft(desk, *draft, to, options.json);
}

void AddContent(CLI::App& command, Composition& composition) {
    command.add_option("TEXT", composition.text, "The text; - takes it from the standard input")
        ->type_name("");
    command
        .add_option("--unicode", composition.coding,
                    "auto: any character above U+007F makes the message UCS2; 7bit: never, and what that "
                    "alphabet lacks goes as ?; by default the preference")
        ->check(CLI::IsMember({"auto", "7bit"}).description(""))
        ->type_name("auto|7bit");
    command.add_option("--picture", composition.pictures, "A wireless bitmap or .EMS file, behind the text")
        ->type_name("FILE")
        ->allow_extra_args(false);
    command.add_option("--melody", composition.melodies, "An iMelody file, behind text and pictures")
        ->type_name("FILE")
        ->allow_extra_args(false);
}

void RequireContent(const CLI::App& command) {
    if (command.count("TEXT") + command.count("--picture") + command.count("--melody") == 0)
        throw CLI::RequiredError("TEXT, --picture or --melody");
}

void AddOriginal(CLI::App& command, std::string& source, int& number) {
    command
        .add_option("SOURCE", source,
                    "SM for the SIM, ME for the handset, or a folder of the PC such as pc/Inbox")
        ->type_name("")
        ->required();
    command.add_option("NUMBER", number, "A location, or the message's number in 'sms list'")
        ->type_name("")
        ->required();
}

}  // namespace

void AddComposeCommands(CLI::App& sms, Action& chosen) {
    const auto composition = std::make_shared<Composition>();
    const char* const numbers = "Numbers, with commas between them";

    const auto all = std::make_shared<bool>(false);
    const auto yes = std::make_shared<bool>(false);
    CLI::App* send = sms.add_subcommand("send", "Send a message, or all of pc/Outbox");
    send->footer(
        "Each number gets a row with its result. What was sent is kept in pc/Sent, what could not be in "
        "pc/Outbox.");
    CLI::Option* const to =
        send->add_option("--to", composition->to, numbers)->type_name("NUMBER[,NUMBER...]");
    AddContent(*send, *composition);
    CLI::Option* const whole = send->add_flag("--all", *all, "Send all messages of pc/Outbox")->excludes(to);
    send->add_flag("--yes", *yes, "Don't ask")->needs(whole);
    send->callback([&chosen, send, to, composition, all, yes] {
        if (!*all && to->count() == 0) throw CLI::RequiredError("--to or --all");
        if (!*all) RequireContent(*send);
        chosen = [=](const GlobalOptions& global) {
            return *all ? SendOutbox(global, *yes) : Send(global, *composition);
        };
    });

    const auto folder = std::make_shared<std::string>("Draft");
    const auto memory = std::make_shared<std::string>();
    CLI::App* save = sms.add_subcommand("save", "Compose a message and keep it");
    save->footer("A message that is kept in a folder of the PC needs no number.");
    save->add_option("--to", composition->to, numbers)->type_name("NUMBER[,NUMBER...]");
    save->add_option("--folder", *folder,
                     "Draft, Outbox, Sent or Inbox of the handset, or a folder of the PC")
        ->type_name("FOLDER")
        ->capture_default_str();
    AddMemory(*save, *memory, "The memory of the handset; by default the preferred one");
    AddContent(*save, *composition);
    save->callback([&chosen, save, composition, folder, memory] {
        RequireContent(*save);
        chosen = [=](const GlobalOptions& global) { return Save(global, *composition, *folder, *memory); };
    });

    const auto source = std::make_shared<std::string>();
    const auto number = std::make_shared<int>(0);
    CLI::App* reply = sms.add_subcommand("reply", "Answer a message");
    AddOriginal(*reply, *source, *number);
    AddContent(*reply, *composition);
    reply->callback([&chosen, reply, source, number, composition] {
        RequireContent(*reply);
        chosen = [=](const GlobalOptions& global) {
            return SendAnswer(global, *source, *number, *composition, Answering::Reply);
        };
    });

    CLI::App* forward = sms.add_subcommand("forward", "Send a message on, with all that is in it");
    AddOriginal(*forward, *source, *number);
    forward->add_option("--to", composition->to, numbers)->type_name("NUMBER[,NUMBER...]")->required();
    forward->callback([&chosen, source, number, composition] {
        chosen = [=](const GlobalOptions& global) {
            return SendAnswer(global, *source, *number, *composition, Answering::Forward);
        };
    });
}

}  // namespace tarnbridge
