#include "simulator/HandsetServer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/Files.h"

namespace tarnbridge::simulator {
namespace {

using namespace std::chrono_literals;

constexpr size_t longestHistory = 20'000;
/// What the PC has sent beyond this waits in the system until the paced line has taken some of it.
constexpr size_t mostUnheard = 1 << 16;
/// The state is saved when the line has been quiet for so long, and at the latest so long after a change.
constexpr auto quietBeforeSave = 200ms;
constexpr auto longestUnsaved = 2s;

LocalTime PhoneTime() {
    return SystemClock().Local();
}

}  // namespace

bool HandsetServer::Ear::Hears(const std::string& line) {
    server_.commands_.push_back(line);
    if (server_.commands_.size() > longestHistory) server_.commands_.pop_front();
    server_.changed_.notify_all();
    return server_.faults_.Hears(line);
}

std::optional<Answer> HandsetServer::Ear::Instead(const Command& command, Stage stage) {
    return server_.faults_.Instead(command, stage);
}

void HandsetServer::Ear::Shape(Features& features) const {
    server_.faults_.Shape(features);
}

HandsetServer::HandsetServer(HandsetContent content, Faults faults, Options options)
    : options_(std::move(options)),
      terminal_(options_.link),
      faults_(std::move(faults)),
      handset_(std::move(content), &ear_, PhoneTime),
      wire_(options_.baud) {}

HandsetServer::~HandsetServer() {
    Stop();
}

Outcome HandsetServer::Start() {
    if (!options_.log.empty()) {
        if (const Outcome opened = log_.Open(options_.log); !opened) return opened;
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
    }
    terminal_.Wake();
    thread_.Join();
    terminal_.HangUp();
    return Save();
}

void HandsetServer::Unplug() {
    std::unique_lock guard(mutex_);
    wanted_ = false;
    plugAgain_.reset();
    terminal_.Wake();
    changed_.wait(guard, [&] { return !plugged_ || stop_; });
}

Outcome HandsetServer::Plug() {
    std::unique_lock guard(mutex_);
    wanted_ = true;
    plugFailure_.reset();
    terminal_.Wake();
    changed_.wait(guard, [&] { return plugged_ || plugFailure_ || stop_; });
    if (plugFailure_) return *plugFailure_;
    return std::monostate{};
}

void HandsetServer::SetFaults(Faults faults) {
    const std::lock_guard guard(mutex_);
    faults_ = std::move(faults);
}

void HandsetServer::Say(std::string bytes) {
    {
        const std::lock_guard guard(mutex_);
        const Time now = std::chrono::steady_clock::now();
        if (!options_.log.empty()) log_.Note('<', bytes, PhoneTime());
        wire_.Say(std::move(bytes), now);
    }
    terminal_.Wake();
}

std::vector<std::string> HandsetServer::Commands() const {
    const std::lock_guard guard(mutex_);
    return {commands_.begin(), commands_.end()};
}

void HandsetServer::ForgetCommands() {
    const std::lock_guard guard(mutex_);
    commands_.clear();
}

bool HandsetServer::AwaitCommand(const std::string& line, Milliseconds timeout) {
    std::unique_lock guard(mutex_);
    return changed_.wait_for(guard, timeout, [&] {
        return std::find(commands_.begin(), commands_.end(), line) != commands_.end();
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
            if (ready.readable) {
                const size_t count = terminal_.Read(buffer.data(), buffer.size());
                wire_.Arrive({buffer.data(), count}, now);
                if (count > 0) lastByte_ = now;
            }
            Listen(now);
            Send(now);
            deadline = std::min(SeeToThePlug(now), SaveWhenQuiet(now));
            // A full queue gives bytes back by its own sign; their time has come already.
            if (!blocked_) deadline = std::min(deadline, wire_.Next());
            reading = wire_.Unheard() < mostUnheard;
            writing = blocked_;
            if (blocked_ && !reading) deadline = std::min(deadline, wire_.Next());
        }
        ready = terminal_.Wait(reading, writing, deadline);
    }
}

/// Gives the handset what has arrived; each reply begins when the last bit of its command is through, however
/// late this thread has woken up.
void HandsetServer::Listen(Time now) {
    std::vector<Piece> said;
    Time when = now;
    while (const std::optional<Wire::Heard> heard = wire_.Hear(now)) {
        when = heard->when;
        heard_ += heard->byte;
        handset_.Take(heard->byte, said);
        const bool ends = heard->byte == '\r' || heard->byte == '\x1a' || heard->byte == '\x1b';
        if (ends) Speak(std::exchange(said, {}), when, true);
    }
    if (!said.empty()) Speak(std::move(said), when, false);
}

void HandsetServer::Speak(std::vector<Piece> pieces, Time when, bool ends) {
    if (ends && !options_.log.empty()) log_.Note('>', heard_, PhoneTime());
    if (ends) heard_.clear();
    for (Faults::Sound& sound : faults_.Apply(std::move(pieces))) {
        if (!options_.log.empty()) log_.Note('<', sound.bytes, PhoneTime());
        wire_.Say(std::move(sound.bytes), when + sound.delay);
    }
    if (auto hangUp = faults_.TakeHangUp()) hangUp_ = hangUp;
}

void HandsetServer::Send(Time now) {
    blocked_ = false;
    for (std::string_view due = wire_.Due(now); !due.empty(); due = wire_.Due(now)) {
        const size_t written = terminal_.Write(due);
        if (written > 0) lastByte_ = now;
        wire_.Deliver(written);
        blocked_ = written < due.size();
        if (blocked_) return;
    }
}

/// Pulls and plugs as it is wanted, and gives the moment of the next look.
HandsetServer::Time HandsetServer::SeeToThePlug(Time now) {
    if (hangUp_ && wire_.Silent()) {
        wanted_ = false;
        if (hangUp_->plugAgainAfter) plugAgain_ = now + *hangUp_->plugAgainAfter;
        hangUp_.reset();
    }
    if (plugAgain_ && *plugAgain_ <= now) {
        plugAgain_.reset();
        wanted_ = true;
    }
    if (wanted_ != plugged_ && !plugFailure_) {
        if (wanted_) {
            handset_.Restart();
            wire_.Clear();
            const Outcome plugged = terminal_.Plug();
            plugged_ = static_cast<bool>(plugged);
            if (!plugged) plugFailure_ = plugged.Failure();
        } else {
            terminal_.HangUp();
            wire_.Clear();
            plugged_ = false;
        }
        if (!options_.log.empty()) log_.Note('!', plugged_ ? "plugged in" : "unplugged", PhoneTime());
        heard_.clear();
        changed_.notify_all();
    }
    return plugAgain_.value_or(Time::max());
}

/// Saves soon after a change, but not between the two halves of an exchange, and gives the moment of the next
/// look.
HandsetServer::Time HandsetServer::SaveWhenQuiet(Time now) {
    if (options_.state.empty() || handset_.Revision() == saved_) {
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
    if (options_.state.empty()) return std::monostate{};
    const Outcome saved = WriteFileAtomically(options_.state, handset_.Content().ToJson());
    if (saved) saved_ = handset_.Revision();
    return saved;
}

}  // namespace tarnbridge::simulator
