#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Event.h"
#include "platform/Result.h"
#include "simulator/Answer.h"
#include "simulator/HandsetContent.h"

namespace tarnbridge::simulator {

/// What goes wrong between the handset and the wire, as told by `--fault`. It stands on both sides of the
/// Handset: as its gate it decides what is heard and carried out, and Apply changes what was said. One
/// connection after the other, without a lock of its own.
class Faults : public CommandGate {
public:
    /// Bytes for the wire, `delay` after the moment that they answer. Each is written by itself.
    struct Sound {
        std::string bytes;
        Milliseconds delay{0};
    };

    /// A hang-up that is due as soon as all that was said is through.
    struct HangUp {
        std::optional<Milliseconds> plugAgainAfter;
    };

    Faults() = default;

    /// One text for each fault, in the grammar of Help. The failure says which one is wrong and why.
    static Result<Faults> Parse(const std::vector<std::string>& specifications);

    /// The grammar and the list of faults, for people.
    static const char* Help();

    bool Hears(const std::string& line) override;
    std::optional<Answer> Instead(const Command& command, Stage stage) override;
    void Shape(Features& features) const override;

    /// What really goes to the wire when the handset says these pieces: the answer to a command line (nothing
    /// if it has none), or to a body, with the echo before it; or an echo alone.
    std::vector<Sound> Apply(std::vector<Piece> pieces);

    /// The hang-up that the last Apply or Hears brought about, once.
    std::optional<HangUp> TakeHangUp();

private:
    struct Fault {
        std::string name;
        std::string value;
        int number = 0;                   ///< of the value, or of its part after the last colon
        std::map<std::string, int> with;  ///< the modifiers
        int met = 0;                      ///< how often its command was met

        int With(const char* key, int otherwise) const;
    };

    const Fault* Find(const char* name) const;
    bool Strikes(Fault& fault, const Command& command);
    bool Break(std::vector<Sound>& sounds, bool finished);
    void Pace(std::vector<Sound>& sounds, bool handshakeWasDone) const;

    std::vector<Fault> faults_;
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
