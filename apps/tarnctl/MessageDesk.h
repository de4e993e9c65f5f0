#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/app/ProfileFile.h"
#include "core/base/BackgroundWorker.h"
#include "core/base/HandsetTask.h"
#include "core/base/Settings.h"
#include "messaging/MessageOutcome.h"
#include "messaging/MessageTree.h"
#include "tarnctl/Command.h"
#include "tarnctl/Connection.h"
#include "tarnctl/TerminalUser.h"

namespace tarnbridge {

/// Why a location wasn't read.
std::string WordsOfReading(SmsRecord::Reading reading, int error);

/// The user's messages for one run of a command: the folders of the PC out of the profile, and the handset
/// with its mirror where it is needed. When a step fails the user has been told why.
///
/// Folders have names: `Inbox`, `Outbox`, `Sent` and `Draft` are the handset's, and behind `pc/` those of the
/// PC, with `Personal` and `Trash` and whatever is below them, such as `pc/Personal/Trips`. The case of the
/// letters doesn't count in the fixed ones.
class MessageDesk : public MessageKeeper {
public:
    /// Where messages are named by number: a memory of the handset by its locations, or a folder of the PC,
    /// by places from 1 on.
    struct Source {
        std::u16string memory;            ///< "SM" or "ME"; empty for a folder
        MessageFolder* folder = nullptr;  ///< of the PC
    };

    explicit MessageDesk(const GlobalOptions& options, bool saysYes = false);
    ~MessageDesk() override;

    /// Loads the profile to look at it, or takes hold of it to change it.
    bool OpenProfile(bool toChange);

    /// Opens the port, makes the session and starts the worker.
    bool OpenHandset();

    MessageTree Tree() { return MessageTree(profile_.messageRoot); }
    BackgroundWorker& Worker() { return worker_; }
    bool HasHandset() const { return connection_.has_value(); }
    Connection& Handset() { return *connection_; }
    TerminalUser& User() { return user_; }
    Clock& SystemTime() { return clock_; }
    const Settings& UserSettings() const { return settings_; }
    bool AsksAboutTrash() const { return settings_.GetText(SettingIndex::AskTrash) != u"FALSE"; }

    /// The memory that is asked for, or else the one that the messages come from, or else the preferred one.
    std::u16string MemoryFor(const std::string& option, const std::u16string& from = {}) const;

    bool Cancelled() const { return connection_ && connection_->Cancelled(); }

    /// Reads the handset, or one memory of it, into the mirror. OperationFailed if something is missing.
    ExitCode Download(const std::u16string& memory = {});

    /// Runs a task with a progress line. False if it couldn't begin.
    bool Run(HandsetTask& task);

    /// Tells what has failed and what is left; whether all is done.
    bool Report(const HandsetTask& task, const std::vector<MessageOutcome>& outcomes);

    MessageFolder* FindFolder(const std::string& name);
    std::string NameOf(const MessageFolder& folder);
    std::optional<Source> FindSource(const std::string& name);

    /// The messages of these numbers, in a folder each. For a memory the whole handset must have been
    /// downloaded: a location stands for the whole message that it belongs to, and its parts may lie in both.
    std::optional<std::vector<std::pair<MessageFolder*, SmsRecord*>>> Find(const Source& source,
                                                                           const std::vector<int>& numbers);

    /// Saves what has changed. OperationFailed if that fails, otherwise the code given.
    ExitCode Finish(ExitCode code);

    /// Saves now and then: what was sent must not wait to be sent again if the program is killed.
    void PcFoldersChanged() override;
    bool SaveNow() override;

private:
    const GlobalOptions options_;
    SystemClock clock_;
    const std::unique_ptr<EntryStore> store_ = OpenUserStore();
    Settings settings_{*store_};
    TerminalUser user_;
    Profile profile_;
    std::unique_ptr<ProfileFile> file_;
    bool changed_ = false;
    Milliseconds saved_ = clock_.Now();
    std::optional<Connection> connection_;
    BackgroundWorker worker_;
};

}  // namespace tarnbridge
