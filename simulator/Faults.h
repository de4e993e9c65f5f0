#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/Event.h"
#include "platform/Result.h"
#include "simulator/Answer.h"
#include "simulator/Fault.h"

namespace tarnbridge::simulator {

/// What goes wrong between the handset and the wire, as told by `--fault`. It stands on both sides of the
/// Handset: as its gate it decides what is heard and carried out, and Apply changes what was said. One
/// connection after the other, without a lock of its own.
class Faults : public CommandGate {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Bytes for the wire, `delay` after the moment that they answer. Each is written by itself.
    struct Sound {
        std::string bytes;
        Milliseconds delay{0};
        bool aside = false;  ///< nothing that follows waits for it
    };

    /// A hang-up that is due as soon as all that was said is through.
    struct HangUp {
        std::optional<Milliseconds> plugAgainAfter;
        bool another = false;  ///< it is another phone that comes back
    };

    /// What happens to the phone itself before a command is carried out.
    struct Deed {
        enum class Kind { DeleteMessage, ReplaceMessage, AnotherPhone };

        Kind kind;
        int location;  ///< of the message, numbered as in the memory MT
    };

    /// How long a prompt waits for its next byte.
    struct PromptPatience {
        Milliseconds time;
        bool mute;  ///< it is given up without a word
    };

    Faults() = default;

    /// One text for each fault, in the grammar of Fault::Help. The failure says which one is wrong and why.
    static Result<Faults> Parse(const std::vector<std::string>& specifications);

    /// Tells the moment of what is asked next. Never goes back.
    void SetTime(Time now) { now_ = now; }

    bool Hears(const std::string& line) override;
    bool HearsBody(const Command& command) override;
    std::optional<Answer> Instead(const Command& command, Stage stage) override;
    void Shape(Features& features) const override;

    /// What really goes to the wire when the handset says these pieces: the answer to a command line (nothing
    /// if it has none), or to a body, with the echo before it; or an echo alone.
    std::vector<Sound> Apply(std::vector<Piece> pieces);

    /// What the last Hears brought about, once.
    std::vector<Deed> TakeDeeds();

    /// The hang-up that the last Apply or Hears brought about, once.
    std::optional<HangUp> TakeHangUp();

    std::optional<PromptPatience> Patience() const;

private:
    const Fault* Find(const char* name) const;
    bool Sleeps(const std::string& text);
    bool Strike(const std::string& command, bool body);
    const Fault* Struck(const char* name) const;
    std::vector<std::string> LinesBefore(const Piece& piece, int gap);
    void Spoil(std::vector<Sound>& sounds) const;
    bool Break(std::vector<Sound>& sounds, bool finished);
    void Pace(std::vector<Sound>& sounds, bool handshakeWasDone) const;

    std::vector<Fault> faults_;
    std::vector<size_t> struck_;  // those that strike the reply to come
    std::vector<Deed> deeds_;
    Time now_{};
    std::optional<Time> lastCommand_;
    bool asleep_ = false;
    int commands_ = 0;
    int wakeUps_ = 0;
    size_t nextUnsolicited_ = 0;
    int bytesLeft_ = -1;  // of the reply that a break cuts; -1 before it has begun
    bool broken_ = false;
    bool silent_ = false;
    bool handshakeDone_ = false;
    std::optional<HangUp> hangUp_;
};

}  // namespace tarnbridge::simulator
