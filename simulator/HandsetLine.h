#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/Faults.h"
#include "simulator/Handset.h"
#include "simulator/Wire.h"

namespace tarnbridge::simulator {

/// A handset with its faults at the end of a serial line, as bytes in and bytes out. It has no device, no
/// thread, no lock and no clock: whoever has them passes the time in, which must not go back from call to
/// call. After bytes have come, and whenever Next is reached, Advance carries out what is due.
class HandsetLine {
public:
    using Time = Wire::Time;

    /// \param baud       pace of the bytes in both directions; 0: none
    /// \param phoneTime  the phone's own clock
    HandsetLine(HandsetContent content, Faults faults, int baud, std::function<LocalTime()> phoneTime);
    HandsetLine(const HandsetLine&) = delete;
    HandsetLine& operator=(const HandsetLine&) = delete;

    // The line itself.

    /// Bytes that the PC has written, seen at `now`.
    void Arrive(std::string_view bytes, Time now) { wire_.Arrive(bytes, now); }

    /// Carries out the commands that have come by `now`.
    void Advance(Time now);

    /// Bytes for the PC that are through by `now`, of one transmission; empty if there are none. They stay
    /// until Deliver takes the first of them away.
    std::string_view Due(Time now) const { return wire_.Due(now); }
    void Deliver(size_t count) { wire_.Deliver(count); }

    /// Bytes that the handset says by itself, as they stand.
    void Say(std::string bytes, Time now);

    /// The PC has let go of the device: what is on its way to it is lost, but not what is late on purpose.
    void Desert(Time now);

    size_t Unheard() const { return wire_.Unheard(); }
    size_t Unsent() const { return wire_.Unsent(); }

    /// When Advance or WantsPlug next has something to do; Time::max() when nothing is to come.
    Time NextDeed() const;

    /// When Due next has something worth waking for.
    Time NextDue() const { return wire_.NextDue(); }

    // The plug.

    /// Pulls the plug or puts it in from the next WantsPlug on.
    void Pull();
    void PutIn() { wanted_ = true; }

    /// Whether the handset is to be plugged in at `now`. The owner sees to that, and calls Replug after each
    /// change.
    bool WantsPlug(Time now);

    /// As after a new plug, or after its end: the session and all that was on its way are forgotten.
    void Replug();

    /// Who the other phone is, behind `another-phone` and `unplug-after=N,another=1`. At first an empty one.
    void SetOther(HandsetContent content) { other_ = std::move(content); }

    /// The content of the phone that isn't there now, and whether that is the first one.
    const HandsetContent& Absent() const { return other_; }
    bool Exchanged() const { return exchanged_; }

    // What the owner of a test or a program looks at and changes.

    Handset& Phone() { return handset_; }
    const Handset& Phone() const { return handset_; }

    /// Puts other faults in the place of the present ones; their counts begin at 0.
    void SetFaults(Faults faults) { faults_ = std::move(faults); }

    /// The command lines heard since the last ForgetCommands, without CR, those that a fault left unanswered
    /// too; the last 20,000 of them.
    const std::deque<std::string>& Commands() const { return commands_; }
    void ForgetCommands() { commands_.clear(); }

    /// Called with each command line before anything is done about it; it may change content, faults and
    /// plug, but not this function.
    std::function<void(const std::string& line)> onCommand;

    /// Gets everything that is said: `>` by the PC, `<` by the handset, `~` by the handset but not yet.
    std::function<void(char who, std::string_view bytes)> note;

private:
    /// Stands between the handset and the faults to keep the list of commands.
    class Ear : public CommandGate {
    public:
        explicit Ear(HandsetLine& line) : line_(line) {}
        bool Hears(const std::string& line) override;
        bool HearsBody(const Command& command) override;
        std::optional<Answer> Instead(const Command& command, Stage stage) override;
        void Shape(Features& features) const override;

    private:
        HandsetLine& line_;
    };

    void Do(const Faults::Deed& deed);
    void Exchange();
    void Take(char byte, Time when, std::vector<Piece>& said);
    void Speak(std::vector<Piece> pieces, Time when, bool ends);
    void GiveUpPrompt(Time now);
    Time PromptEnd() const;

    Faults faults_;
    Ear ear_{*this};
    Handset handset_;
    Wire wire_;
    std::deque<std::string> commands_;
    HandsetContent other_;
    bool exchanged_ = false;
    Time busyUntil_{};  // the handset answers one command after the other
    Time lastHeard_{};
    std::multimap<Time, std::string> aside_;  // replies that don't hold back others
    bool wanted_ = true;
    std::optional<Time> plugAgain_;
    bool anotherComes_ = false;
    std::optional<Faults::HangUp> hangUp_;
    std::string heard_;  // for the note
};

}  // namespace tarnbridge::simulator
