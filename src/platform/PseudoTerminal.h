#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/Result.h"

namespace tarnbridge {

/// The far end of a serial line that exists in this machine only: what is written here is read by whoever has
/// opened the device that Path() names, and the other way round. As on a cable, bytes that nobody listens to
/// are lost, and what the last user of the device left unread or locked (TIOCEXCL) is gone when it closes.
/// Everything but Wake belongs to one thread.
class PseudoTerminal {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// What ended a wait; nothing at all is the deadline or a Wake.
    struct Ready {
        bool readable = false;
        bool writable = false;
    };

    /// Nothing is made before Plug. `path` is where a symbolic link to the device will stand.
    explicit PseudoTerminal(std::filesystem::path path);
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal();

    /// Makes a new device without line editing and links it at the path. A link that stands there is
    /// replaced, anything else is a failure. Nothing when it is plugged already.
    Outcome Plug();

    /// Takes the device away: its users see a hang-up, and the link is removed.
    void HangUp();

    bool Plugged() const;
    const std::filesystem::path& Path() const { return path_; }

    /// Sleeps until bytes came, until some can be written (if `writing`), until Wake or until the deadline,
    /// with the finest timer that the system has. `reading` off leaves what came in the system's queue.
    Ready Wait(bool reading, bool writing, Time deadline);

    /// Ends the present or the next Wait. Any thread.
    void Wake();

    /// The bytes that have come, at most `size`; 0 when there are none.
    size_t Read(char* buffer, size_t size);

    /// How many of the bytes were taken, without waiting. Those that nobody can read count as taken.
    size_t Write(std::string_view bytes);

private:
    struct State;

    void NoteUsers();

    const std::filesystem::path path_;
    const std::unique_ptr<State> state_;
};

}  // namespace tarnbridge
