#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/Faults.h"
#include "simulator/Handset.h"

namespace tarnbridge::simulator {

/// A handset without a wire.
class Dialogue {
public:
    explicit Dialogue(HandsetContent content = HandsetContent::Empty(),
                      const std::vector<std::string>& specifications = {})
        : faults(*Faults::Parse(specifications)),
          handset(std::move(content), &faults, [] { return LocalTime{2007, 3, 14, 15, 9, 26, 60}; }) {
        Say("ATE0\r");
    }

    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;

    /// All that comes back, the sounds of the faults one after the other.
    std::string Say(std::string_view bytes) {
        sounds.clear();
        std::vector<Piece> said;
        for (const char byte : bytes) {
            handset.Take(byte, said);
            if (byte == '\r' || byte == '\x1a' || byte == '\x1b') {
                for (Faults::Sound& sound : faults.Apply(std::move(said))) {
                    sounds.push_back(std::move(sound));
                }
                said.clear();
            }
        }
        std::string heard;
        for (const Faults::Sound& sound : sounds) {
            heard += sound.bytes;
        }
        for (const Piece& piece : said) {
            heard += piece.bytes;
        }
        return heard;
    }

    /// A command and its CR.
    std::string Ask(const std::string& command) { return Say(command + "\r"); }

    /// A command with a body: all that comes back after the prompt.
    std::string Send(const std::string& command, const std::string& body) {
        const std::string prompt = Ask(command);
        return prompt == "\r\n> " ? Say(body + "\x1a") : "no prompt: " + prompt;
    }

    Faults faults;
    Handset handset;
    std::vector<Faults::Sound> sounds;
};

inline constexpr const char* ok = "\r\nOK\r\n";
inline constexpr const char* error = "\r\nERROR\r\n";

inline std::string Line(const std::string& text) {
    return "\r\n" + text + "\r\n";
}

/// "hello" to +15550100302 as an SMS-SUBMIT, whose TPDU has 18 octets, and "hello" as an SMS-DELIVER with 24.
inline constexpr const char* submit = "0001000B915155100003F2000005E8329BFD06";
inline constexpr int submitLength = 18;
inline constexpr const char* deliver = "00040B915155100003F200007030415190624005E8329BFD06";

}  // namespace tarnbridge::simulator
