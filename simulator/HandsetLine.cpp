#include "simulator/HandsetLine.h"

#include <algorithm>
#include <utility>

#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

constexpr size_t longestHistory = 20'000;
constexpr size_t longestNoted = 10'000;

HandsetContent AnotherPhone() {
    HandsetContent content = HandsetContent::Empty();
    content.identity.imei = "490154203237526";
    content.identity.imsi = "001010123456790";
    return content;
}

}  // namespace

bool HandsetLine::Ear::Hears(const std::string& line) {
    line_.commands_.push_back(line);
    if (line_.commands_.size() > longestHistory) line_.commands_.pop_front();
    if (line_.onCommand) line_.onCommand(line);
    const bool heard = line_.faults_.Hears(line);
    for (const Faults::Deed& deed : line_.faults_.TakeDeeds())
        line_.Do(deed);
    return heard;
}

bool HandsetLine::Ear::HearsBody(const Command& command) {
    return line_.faults_.HearsBody(command);
}

std::optional<Answer> HandsetLine::Ear::Instead(const Command& command, Stage stage) {
    return line_.faults_.Instead(command, stage);
}

void HandsetLine::Ear::Shape(Features& features) const {
    line_.faults_.Shape(features);
}

HandsetLine::HandsetLine(HandsetContent content, Faults faults, int baud,
                         std::function<LocalTime()> phoneTime)
    : faults_(std::move(faults)),
      handset_(std::move(content), &ear_, std::move(phoneTime)),
      wire_(baud),
      other_(AnotherPhone()) {}

/// Gives the handset what has arrived; each reply begins when the last bit of its command is through, however
/// late the caller looks.
void HandsetLine::Advance(Time now) {
    std::vector<Piece> said;
    Time when = now;
    while (busyUntil_ <= now) {
        const std::optional<Wire::Heard> heard = wire_.Hear(now);
        if (!heard) break;
        when = std::max(heard->when, busyUntil_);
        GiveUpPrompt(when);
        Take(heard->byte, when, said);
    }
    if (!said.empty()) Speak(std::move(said), when, false);
    GiveUpPrompt(now);
    for (; !aside_.empty() && aside_.begin()->first <= now; aside_.erase(aside_.begin()))
        wire_.Say(std::move(aside_.begin()->second), aside_.begin()->first);
}

void HandsetLine::Take(char byte, Time when, std::vector<Piece>& said) {
    if (note && heard_.size() < longestNoted) heard_ += byte;
    faults_.SetTime(when);
    handset_.Take(byte, said);
    lastHeard_ = when;
    if (byte == '\r' || byte == '\x1a' || byte == '\x1b') Speak(std::exchange(said, {}), when, true);
}

void HandsetLine::Speak(std::vector<Piece> pieces, Time when, bool ends) {
    if (ends && note) note('>', heard_);
    if (ends) heard_.clear();
    for (Faults::Sound& sound : faults_.Apply(std::move(pieces))) {
        if (note) note(sound.delay == Milliseconds::zero() ? '<' : '~', sound.bytes);
        if (sound.aside) {
            aside_.emplace(when + sound.delay, std::move(sound.bytes));
        } else {
            busyUntil_ = std::max(busyUntil_, when + sound.delay);
            wire_.Say(std::move(sound.bytes), when + sound.delay);
        }
    }
    if (auto hangUp = faults_.TakeHangUp()) hangUp_ = hangUp;
}

/// A prompt's patience begins when it has been said, and anew with each byte.
HandsetLine::Time HandsetLine::PromptEnd() const {
    if (!handset_.Prompts()) return Time::max();
    const auto patience = faults_.Patience();
    if (!patience) return Time::max();
    return std::max(lastHeard_, busyUntil_) + patience->time;
}

void HandsetLine::GiveUpPrompt(Time now) {
    const Time end = PromptEnd();
    if (end > now) return;
    std::vector<Piece> said;
    handset_.GiveUpPrompt(faults_.Patience()->mute, said);
    if (!said.empty()) Speak(std::move(said), end, false);
}

void HandsetLine::Do(const Faults::Deed& deed) {
    if (deed.kind == Faults::Deed::Kind::AnotherPhone) {
        Exchange();
        return;
    }
    HandsetContent& content = handset_.Content();
    MessageMemory* memory = content.Messages("SM");
    int location = deed.location;
    if (memory == nullptr || location > memory->capacity) {
        location -= memory == nullptr ? 0 : memory->capacity;
        memory = content.Messages("ME");
    }
    if (memory == nullptr || location < 1 || location > memory->capacity) return;
    memory->items.erase(location);
    if (deed.kind == Faults::Deed::Kind::ReplaceMessage) {
        memory->items[location].pdu =
            WriteDeliver({"+15550100300", u"Another message", {}, false, {2007, 3, 14, 15, 9, 26, 60}}, {});
    }
    handset_.Changed();
}

void HandsetLine::Exchange() {
    handset_.Exchange(other_);
    exchanged_ = !exchanged_;
}

void HandsetLine::Say(std::string bytes, Time now) {
    if (note) note('<', bytes);
    wire_.Say(std::move(bytes), now);
}

void HandsetLine::Desert(Time now) {
    handset_.LetGo();
    wire_.Hush(now);
}

HandsetLine::Time HandsetLine::NextDeed() const {
    const Time aside = aside_.empty() ? Time::max() : aside_.begin()->first;
    return std::min(
        {std::max(wire_.NextHeard(), busyUntil_), plugAgain_.value_or(Time::max()), aside, PromptEnd()});
}

void HandsetLine::Pull() {
    wanted_ = false;
    plugAgain_.reset();
}

bool HandsetLine::WantsPlug(Time now) {
    if (hangUp_ && wire_.Silent()) {
        wanted_ = false;
        if (hangUp_->plugAgainAfter) plugAgain_ = now + *hangUp_->plugAgainAfter;
        anotherComes_ = hangUp_->another;
        hangUp_.reset();
    }
    if (plugAgain_ && *plugAgain_ <= now) {
        plugAgain_.reset();
        wanted_ = true;
    }
    return wanted_;
}

void HandsetLine::Replug() {
    if (std::exchange(anotherComes_, false)) Exchange();
    handset_.Restart();
    wire_.Clear();
    aside_.clear();
    heard_.clear();
    busyUntil_ = {};
}

}  // namespace tarnbridge::simulator
