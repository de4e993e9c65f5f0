#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace tarnbridge::simulator {

/// The arithmetic of a serial line: which byte has arrived, which may leave, at a given moment. Both
/// directions run at the same rate and apart from each other, 10 bits a byte. A transmission has a start and
/// its k-th byte is through k byte times later, so that a caller who looks late never makes the line slower.
/// Times must not go back from call to call.
class Wire {
public:
    using Time = std::chrono::steady_clock::time_point;

    struct Heard {
        char byte;
        Time when;  ///< when its last bit was through
    };

    /// Bits a second; 0 is a line without any delay.
    explicit Wire(int baud) : baud_(baud) {}

    /// Bytes that the PC has written, seen at `now`.
    void Arrive(std::string_view bytes, Time now);

    /// The next byte from the PC that has wholly arrived by `now`.
    std::optional<Heard> Hear(Time now);

    /// Bytes for the PC, one transmission: they follow what was said before, and not before `earliest`.
    void Say(std::string bytes, Time earliest);

    /// Bytes for the PC that are through by `now`: of one transmission, and empty if there are none. They
    /// stay until Deliver.
    std::string_view Due(Time now) const;

    /// Takes the first bytes of Due away.
    void Deliver(size_t count);

    /// When Hear or Due will next have something worth waking for: about a millisecond's worth of bytes, or
    /// the end of a command or of a transmission. Time::max() when nothing is on its way.
    Time Next() const { return std::min(NextHeard(), NextDue()); }

    /// The same for Hear alone and for Due alone.
    Time NextHeard() const;
    Time NextDue() const;

    size_t Unheard() const { return unheard_; }
    size_t Unsent() const { return unsent_; }
    bool Silent() const { return out_.empty(); }

    /// Drops what is on its way to the PC at `now`. What wasn't to begin before a later moment still comes.
    void Hush(Time now);

    /// Drops all that is on its way, as a pulled plug does.
    void Clear();

private:
    struct Transmission {
        std::string bytes;
        Time earliest;  ///< when it might have begun on a free line
        Time start;
        size_t passed = 0;  ///< bytes that were heard or delivered
    };

    Time TimeOf(const Transmission& transmission, size_t count) const;
    size_t CountAt(const Transmission& transmission, Time now) const;

    const int baud_;
    std::deque<Transmission> in_;
    std::deque<Transmission> out_;
    Time inFree_{};
    Time outFree_{};
    size_t unheard_ = 0;
    size_t unsent_ = 0;
};

}  // namespace tarnbridge::simulator
