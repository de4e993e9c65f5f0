#pragma once

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/PseudoTerminal.h"
#include "platform/Result.h"
#include "platform/Thread.h"
#include "simulator/DialogueLog.h"
#include "simulator/HandsetLine.h"

namespace tarnbridge::simulator {

/// Plays a handset on a pseudo-terminal from a thread of its own. Start and Stop belong to the owner's
/// thread; all else may be called from any thread while it runs, too.
class HandsetServer {
public:
    struct Options {
        std::filesystem::path link;             ///< where the device stands
        std::filesystem::path state;            ///< the content is kept there; empty: it is forgotten
        std::filesystem::path log;              ///< the dialogue; empty: none
        int baud = 0;                           ///< pace of the bytes in both directions; 0: none
        std::filesystem::path otherState = {};  ///< the same as `state` for the other phone
    };

    HandsetServer(HandsetContent content, Faults faults, Options options);
    HandsetServer(const HandsetServer&) = delete;
    HandsetServer& operator=(const HandsetServer&) = delete;
    ~HandsetServer();

    /// Opens the log, writes the first state file, makes the device and serves. Once in the object's life.
    Outcome Start();

    /// Takes the device away and saves. The failure is the last save's.
    Outcome Stop();

    /// Pulls the plug or puts it in again, and returns when that is done. A handset that is plugged in again
    /// has forgotten its session, and its device may be another one behind the same link.
    void Unplug();
    Outcome Plug();

    /// Runs `use(Handset&)` between two bytes of the dialogue.
    template <typename Use>
    auto With(Use use) {
        const std::lock_guard guard(mutex_);
        return use(line_.Phone());
    }

    /// Who the other phone of the faults is. Before Start.
    void SetOther(HandsetContent content) { line_.SetOther(std::move(content)); }

    /// Puts other faults in the place of the present ones; their counts begin at 0.
    void SetFaults(Faults faults);

    /// Bytes that the handset says by itself, as they stand.
    void Say(std::string bytes);

    /// The command lines heard since the last ForgetCommands, without CR, those that a fault left unanswered
    /// too; the last 20,000 of them.
    std::vector<std::string> Commands() const;
    void ForgetCommands();

    /// Waits until this command line has been heard since the last ForgetCommands; false after the time-out.
    bool AwaitCommand(const std::string& line, Milliseconds timeout);

private:
    using Time = HandsetLine::Time;

    void Serve();
    void Note(char who, std::string_view bytes);
    void Send(Time now);
    void SeeToThePlug(Time now);
    Time SaveWhenQuiet(Time now);
    Outcome Save();

    const Options options_;
    DialogueLog log_;
    PseudoTerminal terminal_;
    Thread thread_;

    mutable std::mutex mutex_;  // all below
    std::condition_variable changed_;
    HandsetLine line_;
    bool stop_ = false;
    bool plugged_ = true;
    std::optional<SystemFailure> plugFailure_;
    bool blocked_ = false;
    unsigned saved_ = 0;
    Time changedAt_ = Time::max();
    Time lastByte_{};
};

}  // namespace tarnbridge::simulator
