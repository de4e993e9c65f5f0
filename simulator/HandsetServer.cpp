#include "simulator/HandsetServer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/Files.h"

namespace tarnbridge::simulator {
namespace {

using namespace std::chrono_literals;

/// What the PC has sent beyond this waits in the system until the paced line has taken some of it.
constexpr size_t mostUnheard = 1 << 16;
/// So does all that it sends while it leaves more than this of the replies unread.
constexpr size_t mostUnsent = 64 << 20;
/// The state is saved when the line has been quiet for so long, and at the latest so long after a change.
constexpr auto quietBeforeSave = 200ms;
constexpr auto longestUnsaved = 2s;

LocalTime PhoneTime() {
    return SystemClock().Local();
}

}  // namespace

HandsetServer::HandsetServer(HandsetContent content, Faults faults, Options options)
    : options_(std::move(options)),
      terminal_(options_.link),
      line_(std::move(content), std::move(faults), options_.baud, PhoneTime) {
    line_.onCommand = [this](const std::string&) { changed_.notify_all(); };
}

HandsetServer::~HandsetServer() {
    Stop();
}

Outcome HandsetServer::Start() {
    if (!options_.log.empty()) {
        if (const Outcome opened = log_.Open(options_.log); !opened) return opened;
        line_.note = [this](char who, std::string_view bytes) { Note(who, bytes); };
    }
    if (const Outcome saved = Save(); !saved) return saved;
    if (const Outcome plugged = terminal_.Plug(); !plugged) return plugged;
    if (!thread_.Start("virtual handset", [this] { Serve(); })) {
        terminal_.HangUp();
        return SystemFailure{0, "cannot start a thread"};
    }
    return std::monostate{};
}

Outcome HandsetServer::Stop() {
    if (!thread_.Started()) return std::monostate{};
    {
        const std::lock_guard guard(mutex_);
        stop_ = true;
        changed_.notify_all();
    }
    terminal_.Wake();
    thread_.Join();
    terminal_.HangUp();
    return Save();
}

void HandsetServer::Unplug() {
    std::unique_lock guard(mutex_);
    line_.Pull();
    terminal_.Wake();
    changed_.wait(guard, [&] { return !plugged_ || stop_; });
}

Outcome HandsetServer::Plug() {
    std::unique_lock guard(mutex_);
    line_.PutIn();
    plugFailure_.reset();
    terminal_.Wake();
    changed_.wait(guard, [&] { return plugged_ || plugFailure_ || stop_; });
    if (plugFailure_) return *plugFailure_;
    return std::monostate{};
}

void HandsetServer::SetFaults(Faults faults) {
    const std::lock_guard guard(mutex_);
    line_.SetFaults(std::move(faults));
}

void HandsetServer::Say(std::string bytes) {
    {
        const std::lock_guard guard(mutex_);
        line_.Say(std::move(bytes), std::chrono::steady_clock::now());
    }
    terminal_.Wake();
}

std::vector<std::string> HandsetServer::Commands() const {
    const std::lock_guard guard(mutex_);
    return {line_.Commands().begin(), line_.Commands().end()};
}

void HandsetServer::ForgetCommands() {
    const std::lock_guard guard(mutex_);
    line_.ForgetCommands();
}

bool HandsetServer::AwaitCommand(const std::string& line, Milliseconds timeout) {
    std::unique_lock guard(mutex_);
    return changed_.wait_for(guard, timeout, [&] {
        const auto& commands = line_.Commands();
        return std::find(commands.begin(), commands.end(), line) != commands.end();
    });
}

void HandsetServer::Serve() {
    std::array<char, 4096> buffer{};
    PseudoTerminal::Ready ready;
    for (;;) {
        Time deadline;
        bool reading = false;
        bool writing = false;
        {
            const std::lock_guard guard(mutex_);
            if (stop_) return;
            const Time now = std::chrono::steady_clock::now();
            if (ready.deserted) line_.Desert(now);
            if (ready.readable) {
                const size_t count = terminal_.Read(buffer.data(), buffer.size());
                line_.Arrive({buffer.data(), count}, now);
                if (count > 0) lastByte_ = now;
            }
            line_.Advance(now);
            Send(now);
            SeeToThePlug(now);
            deadline = std::min(line_.NextDeed(), SaveWhenQuiet(now));
            // Bytes that a full queue has refused are due already: they wait for room, not for a time.
            if (!blocked_) deadline = std::min(deadline, line_.NextDue());
            reading = line_.Unheard() < mostUnheard && line_.Unsent() < mostUnsent;
            writing = blocked_;
        }
        ready = terminal_.Wait(reading, writing, deadline);
    }
}

void HandsetServer::Note(char who, std::string_view bytes) {
    log_.Note(who, bytes, PhoneTime());
}

void HandsetServer::Send(Time now) {
    blocked_ = false;
    for (std::string_view due = line_.Due(now); !due.empty(); due = line_.Due(now)) {
        const size_t written = terminal_.Write(due);
        if (written > 0) lastByte_ = now;
        line_.Deliver(written);
        blocked_ = written < due.size();
        if (blocked_) return;
    }
}

void HandsetServer::SeeToThePlug(Time now) {
    const bool wanted = line_.WantsPlug(now);
    if (wanted == plugged_ || plugFailure_) return;
    if (wanted) {
        line_.Replug();
        const Outcome plugged = terminal_.Plug();
        plugged_ = static_cast<bool>(plugged);
        if (!plugged) plugFailure_ = plugged.Failure();
    } else {
        terminal_.HangUp();
        line_.Replug();
        plugged_ = false;
    }
    if (!options_.log.empty()) Note('!', plugged_ ? "plugged in" : "unplugged");
    changed_.notify_all();
}

/// Saves soon after a change, but not between the two halves of an exchange, and gives the moment of the next
/// look.
HandsetServer::Time HandsetServer::SaveWhenQuiet(Time now) {
    if ((options_.state.empty() && options_.otherState.empty()) || line_.Phone().Revision() == saved_) {
        changedAt_ = Time::max();
        return Time::max();
    }
    if (changedAt_ == Time::max()) changedAt_ = now;
    const Time moment = std::min(lastByte_ + quietBeforeSave, changedAt_ + longestUnsaved);
    if (moment > now) return moment;
    if (const Outcome saved = Save(); !saved) changedAt_ = now;  // once more a little later
    return now + quietBeforeSave;
}

Outcome HandsetServer::Save() {
    const std::filesystem::path& here = line_.Exchanged() ? options_.otherState : options_.state;
    const std::filesystem::path& elsewhere = line_.Exchanged() ? options_.state : options_.otherState;
    const auto write = [](const std::filesystem::path& path, const HandsetContent& content) {
        return path.empty() ? Outcome(std::monostate{}) : WriteFileAtomically(path, content.ToJson());
    };
    if (const Outcome saved = write(here, line_.Phone().Content()); !saved) return saved;
    const Outcome saved = write(elsewhere, line_.Absent());
    if (saved) saved_ = line_.Phone().Revision();
    return saved;
}

}  // namespace tarnbridge::simulator
