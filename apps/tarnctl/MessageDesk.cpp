#include "tarnctl/MessageDesk.h"

#include <algorithm>

#include <fmt/format.h>

#include "core/app/StandardFolders.h"
#include "core/base/StringTable.h"
#include "messaging/DownloadWords.h"
#include "messaging/ems/Ems.h"
#include "platform/Text.h"
#include "tarnctl/Output.h"

namespace tarnbridge {
namespace {

constexpr const char* placeNames[] = {"Inbox", "Outbox", "Sent", "Draft", "Personal", "Trash"};
constexpr std::string_view pcPrefix = "pc/";
constexpr Milliseconds saveInterval = std::chrono::seconds(2);

std::vector<std::string_view> SplitPath(std::string_view path) {
    std::vector<std::string_view> names;
    while (true) {
        const size_t end = path.find('/');
        names.push_back(path.substr(0, end));
        if (end == std::string_view::npos) return names;
        path.remove_prefix(end + 1);
    }
}

MessageFolder* ChildNamed(MessageFolder& folder, std::string_view name) {
    const std::u16string wanted = Utf8ToText(name);
    for (size_t i = 0; MessageFolder* const child = folder.Child(i); ++i) {
        if (child->name == wanted) return child;
    }
    return nullptr;
}

/// Whether a message, or a part of it, is at a location. No two memories have the same numbers; the parts of
/// a message may lie in both, and its storage is that of the first one.
bool IsAt(const SmsRecord& record, std::u16string_view memory, int location) {
    const std::vector<int>& own = record.handsetIndices;
    const auto found = std::find(own.begin(), own.end(), location);
    return found != own.end() && (found != own.begin() || record.storage == memory);
}

}  // namespace

MessageDesk::MessageDesk(const GlobalOptions& options, bool saysYes) : options_(options), user_(saysYes) {
    EmsInit();
    settings_.Load();
    EnsureStandardFolders(profile_, FolderNames::OfProgram());
}

MessageDesk::~MessageDesk() {
    worker_.Stop();
}

bool MessageDesk::OpenProfile(bool toChange) {
    const std::filesystem::path path = ProfileFile::StandardPath();
    ProfileState state = ProfileState::Missing;
    if (toChange) {
        file_ = ProfileFile::Open(path, clock_);
        if (!file_) {
            PrintWords(fmt::format("{} is in use by the window or by another tarnctl: close that first",
                                   path.string()));
            return false;
        }
        state = file_->Load(profile_);
    } else {
        state = ReadProfile(path, profile_);
    }
    EnsureStandardFolders(profile_, FolderNames::OfProgram());
    if (state == ProfileState::Unreadable) {
        PrintWords(fmt::format("{} can't be read", path.string()));
        return false;
    }
    if (state == ProfileState::Damaged || state == ProfileState::Foreign)
        PrintWords(fmt::format("{} could not be read to its end", path.string()));
    if (state == ProfileState::Altered)
        PrintWords(fmt::format("{} isn't the one that was saved last", path.string()));
    return true;
}

bool MessageDesk::OpenHandset() {
    connection_.emplace(options_);
    if (!connection_->Open()) return false;
    if (worker_.Start(connection_->Link())) return true;
    PrintWords(TextToUtf8(Words(Word::BackgroundThreadFailed)));
    return false;
}

std::u16string MessageDesk::MemoryFor(const std::string& option, const std::u16string& from) const {
    if (!option.empty()) return Utf8ToText(option);
    if (!from.empty()) return from;
    return settings_.GetText(SettingIndex::SmsMemory) == u"SM" ? u"SM" : u"ME";
}

bool MessageDesk::Run(HandsetTask& task) {
    ProgressLine line;
    task.onProgress = [&line](const HandsetTask::Standing& standing) {
        line.Show(fmt::format("{} {}/{}", TextToUtf8(standing.words), standing.done + 1, standing.total));
    };
    if (connection_) connection_->SetPatient(true);
    const bool begun = RunTask(task, [this] { return Cancelled(); });
    if (connection_) connection_->SetPatient(false);
    task.onProgress = nullptr;
    return begun;
}

std::string WordsOfReading(SmsRecord::Reading reading, int error) {
    switch (reading) {
        case SmsRecord::Reading::NoAnswer:
            return "the handset did not answer in time";
        case SmsRecord::Reading::Refused:
            return error < 0 ? "the handset refused to give it"
                             : fmt::format("the handset gave error {}", error);
        case SmsRecord::Reading::Empty:
        case SmsRecord::Reading::Found:
            break;
    }
    return "there is no message";
}

ExitCode MessageDesk::Download(const std::u16string& memory) {
    MessageDownload download(worker_, Tree(), memory);
    Run(download);
    const MessageDownload::Report& report = download.GetReport();
    for (const MessageDownload::Unread& unread : report.unread) {
        const bool unplugged = !unread.answered && connection_->Link().HasHungUp();
        PrintWords(fmt::format("{} {}: {}", TextToUtf8(unread.memory), unread.location,
                               unplugged ? "the handset was unplugged"
                                         : WordsOfReading(unread.answered ? SmsRecord::Reading::Refused
                                                                          : SmsRecord::Reading::NoAnswer,
                                                          unread.error)));
    }
    const bool lost = download.LostHandset();
    const bool cancelled = download.WasCancelled();
    if (cancelled) PrintWords("cancelled");
    MessageDownload::Report others = report;
    others.unread.clear();  // each is named above
    const std::u16string words = DownloadWords(others, lost, cancelled);
    if (!words.empty()) PrintWords(TextToUtf8(words));
    return IsWhole(report, lost, cancelled) ? Done : OperationFailed;
}

bool MessageDesk::Report(const HandsetTask& task, const std::vector<MessageOutcome>& outcomes) {
    if (const std::u16string words = FailureWords(outcomes); !words.empty()) PrintWords(TextToUtf8(words));
    if (task.LostHandset()) PrintWords(TextToUtf8(Words(Word::HandsetLost)));
    const auto left = std::count_if(outcomes.begin(), outcomes.end(), [](const MessageOutcome& outcome) {
        return outcome.state == MessageOutcome::State::NotTried;
    });
    if (left > 0) PrintWords(fmt::format("not tried: {} of {}", left, outcomes.size()));
    return AllDone(outcomes);
}

MessageFolder* MessageDesk::FindFolder(const std::string& name) {
    const bool onPc = EqualIgnoringCase(name.substr(0, pcPrefix.size()), pcPrefix);
    const std::vector<std::string_view> path =
        SplitPath(std::string_view(name).substr(onPc ? pcPrefix.size() : 0));
    MessageFolder* folder = onPc ? &Tree().PcRoot() : &Tree().HandsetRoot();
    for (size_t i = 0; i < path.size() && folder; ++i) {
        MessageFolder& parent = *folder;
        folder = nullptr;
        for (size_t place = 0; i == 0 && place < std::size(placeNames); ++place) {
            if (EqualIgnoringCase(path[i], placeNames[place])) folder = parent.Child(place);
        }
        if (!folder) folder = ChildNamed(parent, path[i]);
    }
    if (!folder) PrintWords(fmt::format("there is no folder {}: 'tarnctl sms folders' lists them", name));
    return folder;
}

std::string MessageDesk::NameOf(const MessageFolder& folder) {
    const MessageTree tree = Tree();
    const MessageFolder* const roots[] = {&tree.HandsetRoot(), &tree.PcRoot()};
    std::string name;
    const MessageFolder* level = &folder;
    for (; level->parent && level->parent != roots[0] && level->parent != roots[1]; level = level->parent)
        name = "/" + TextToUtf8(level->name) + name;
    if (!level->parent) return name;
    for (size_t place = 0; place < std::size(placeNames); ++place) {
        if (level->parent->Child(place) != level) continue;
        return (level->parent == roots[1] ? std::string(pcPrefix) : "") + placeNames[place] + name;
    }
    return std::string(pcPrefix) + TextToUtf8(level->name) + name;
}

std::optional<MessageDesk::Source> MessageDesk::FindSource(const std::string& name) {
    if (EqualIgnoringCase(name, "SM") || EqualIgnoringCase(name, "ME"))
        return Source{EqualIgnoringCase(name, "SM") ? u"SM" : u"ME", nullptr};
    if (!EqualIgnoringCase(name.substr(0, pcPrefix.size()), pcPrefix)) {
        PrintWords(fmt::format("{} is neither SM, ME nor a folder of the PC such as pc/Inbox", name));
        return std::nullopt;
    }
    MessageFolder* const folder = FindFolder(name);
    if (!folder) return std::nullopt;
    return Source{{}, folder};
}

std::optional<std::vector<std::pair<MessageFolder*, SmsRecord*>>> MessageDesk::Find(
    const Source& source, const std::vector<int>& numbers) {
    std::vector<std::pair<MessageFolder*, SmsRecord*>> found;
    const auto add = [&found](MessageFolder* folder, SmsRecord* record) {
        const std::pair<MessageFolder*, SmsRecord*> message(folder, record);
        if (std::find(found.begin(), found.end(), message) == found.end()) found.push_back(message);
    };
    for (const int number : numbers) {
        const size_t before = found.size();
        bool known = false;
        if (source.folder) {
            const auto& records = source.folder->records;
            known = number >= 1 && static_cast<size_t>(number) <= records.size();
            if (known) add(source.folder, records[static_cast<size_t>(number) - 1].get());
        } else {
            for (const MessagePlace place : handsetPlaces) {
                MessageFolder& folder = Tree().OnHandset(place);
                for (const auto& record : folder.records) {
                    if (!IsAt(*record, source.memory, number)) continue;
                    known = true;
                    add(&folder, record.get());
                }
            }
        }
        if (!known && found.size() == before) {
            PrintWords(fmt::format("there is no message {} in {}", number,
                                   source.folder ? NameOf(*source.folder) : TextToUtf8(source.memory)));
            return std::nullopt;
        }
    }
    return found;
}

void MessageDesk::PcFoldersChanged() {
    changed_ = true;
    if (file_ && clock_.Now() - saved_ > saveInterval) SaveNow();
}

bool MessageDesk::SaveNow() {
    const Outcome outcome = file_->Save(profile_);
    saved_ = clock_.Now();
    if (!outcome) {
        PrintWords(TextToUtf8(Words(Word::ProfileNotSaved)));
        PrintWords(outcome.Failure().text);
        return false;
    }
    changed_ = false;
    return true;
}

ExitCode MessageDesk::Finish(ExitCode code) {
    if (changed_ && !SaveNow()) return OperationFailed;
    if (file_ && file_->CopiedAside())
        PrintWords(fmt::format("the profile as it was found is kept as {}", file_->CopiedAside()->string()));
    return code;
}

}  // namespace tarnbridge
