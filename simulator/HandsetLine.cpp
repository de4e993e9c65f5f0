#include "simulator/HandsetLine.h"

#include <algorithm>
#include <utility>

namespace tarnbridge::simulator {
namespace {

constexpr size_t longestHistory = 20'000;
constexpr size_t longestNoted = 10'000;

}  // namespace

bool HandsetLine::Ear::Hears(const std::string& line) {
    line_.commands_.push_back(line);
    if (line_.commands_.size() > longestHistory) line_.commands_.pop_front();
    if (line_.onCommand) line_.onCommand(line);
    return line_.faults_.Hears(line);
}

std::optional<Answer> HandsetLine::Ear::Instead(const Command& command, Stage stage) {
    return line_.faults_.Instead(command, stage);
}

void HandsetLine::Ear::Shape(Features& features) const {
    line_.faults_.Shape(features);
}

HandsetLine::HandsetLine(HandsetContent content, Faults faults, int baud,
                         std::function<LocalTime()> phoneTime)
    : faults_(std::move(faults)), handset_(std::move(content), &ear_, std::move(phoneTime)), wire_(baud) {}

/// Gives the handset what has arrived; each reply begins when the last bit of its command is through, however
/// late the caller looks.
void HandsetLine::Advance(Time now) {
    std::vector<Piece> said;
    Time when = now;
    while (busyUntil_ <= now) {
        const std::optional<Wire::Heard> heard = wire_.Hear(now);
        if (!heard) break;
        when = std::max(heard->when, busyUntil_);
        if (note && heard_.size() < longestNoted) heard_ += heard->byte;
        handset_.Take(heard->byte, said);
        const bool ends = heard->byte == '\r' || heard->byte == '\x1a' || heard->byte == '\x1b';
        if (ends) Speak(std::exchange(said, {}), when, true);
    }
    if (!said.empty()) Speak(std::move(said), when, false);
}

void HandsetLine::Speak(std::vector<Piece> pieces, Time when, bool ends) {
    if (ends && note) note('>', heard_);
    if (ends) heard_.clear();
    for (Faults::Sound& sound : faults_.Apply(std::move(pieces))) {
        if (note) note('<', sound.bytes);
        busyUntil_ = std::max(busyUntil_, when + sound.delay);
        wire_.Say(std::move(sound.bytes), when + sound.delay);
    }
    if (auto hangUp = faults_.TakeHangUp()) hangUp_ = hangUp;
}

void HandsetLine::Say(std::string bytes, Time now) {
    if (note) note('<', bytes);
    wire_.Say(std::move(bytes), now);
}

void HandsetLine::Desert() {
    handset_.Interrupt();
    wire_.Hush();
}

HandsetLine::Time HandsetLine::NextDeed() const {
    return std::min(std::max(wire_.NextHeard(), busyUntil_), plugAgain_.value_or(Time::max()));
}

void HandsetLine::Pull() {
    wanted_ = false;
    plugAgain_.reset();
}

bool HandsetLine::WantsPlug(Time now) {
    if (hangUp_ && wire_.Silent()) {
        wanted_ = false;
        if (hangUp_->plugAgainAfter) plugAgain_ = now + *hangUp_->plugAgainAfter;
        hangUp_.reset();
    }
    if (plugAgain_ && *plugAgain_ <= now) {
        plugAgain_.reset();
        wanted_ = true;
    }
    return wanted_;
}

void HandsetLine::Replug() {
    handset_.Restart();
    wire_.Clear();
    heard_.clear();
    busyUntil_ = {};
}

}  // namespace tarnbridge::simulator
