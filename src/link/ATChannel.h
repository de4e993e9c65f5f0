#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

#include "link/ATResult.h"
#include "link/LinkPort.h"
#include "platform/Clock.h"
#include "platform/SerialDevice.h"

namespace tarnbridge {

class SerialPort;

/// Carries out one exchange at a time over the port that it opens and owns. Command texts end in their own
/// CR. All but Cancel and SendRaw are for the thread that holds the link's lock.
class ATChannel {
public:
    /// `clock` must outlive the channel.
    ATChannel(Clock& clock, SerialDeviceFactory makeDevice);
    ~ATChannel();

    /// False if a port is open already or this one can't be opened; OpenFailure says why.
    bool Open(const std::string& portName, uint32_t baudRate, FlowControl flowControl,
              UrcCallback urcCallback, LinkKind& linkKind);

    /// Always true.
    bool Close();

    bool IsOpen() const { return Port() != nullptr; }

    /// Whether the port is open and its far end has gone: nothing will be answered any more.
    bool HasHungUp() const;

    const SerialOpenFailure& OpenFailure() const { return openFailure_; }

    /// Writes a command and waits for its final result.
    /// \param timeout     0 waits without limit
    /// \param pduFollows  the response line is followed by a raw line
    /// \param result      says what to keep; whatever `lines` held is dropped first
    /// True when a final result came, whichever it was. Otherwise `result.status` says what was missing.
    bool Exec(std::string_view text, Milliseconds timeout, bool pduFollows, ATResult& result);

    /// The same for a handset that may be behind: `patience` counts from the last byte that came, and the
    /// whole takes `limit` at most.
    bool ExecWhileAlive(std::string_view text, Milliseconds patience, Milliseconds limit, ATResult& result);

    /// The same behind an exchange that had its result, with nothing thrown away between the two: the
    /// difference of their `finals` tells whether there were other results.
    bool ExecBehind(std::string_view text, Milliseconds patience, Milliseconds limit, ATResult& result);

    /// Waits until nothing has come for a while, and throws away what comes. False if that takes longer than
    /// the limit.
    bool AwaitQuiet(Milliseconds quiet, Milliseconds limit);

    /// Writes a command, waits for the prompt, writes the body, and waits for the final result, each wait
    /// with the whole time-out. A refusal in place of the prompt isn't seen; it ends by the time-out.
    bool ExecTwoStage(std::string_view text, std::string_view body, Milliseconds timeout, bool pduFollows,
                      ATResult& result);

    void SetLineFilter(LineFilter filter);

    /// Breaks off the exchange under way: it ends with an empty result. From any thread; nothing if closed.
    void Cancel();

    /// While on, no wait for a prompt or for the result of a command in one stage lasts longer than two
    /// seconds, one that is under way included. From any thread.
    void SetHurried(bool hurried);
    bool IsHurried() const { return hurry_.IsSet(); }

    /// Writes without an exchange; a failed write runs Cancel. From any thread; false if closed.
    bool SendRaw(std::string_view bytes);

private:
    std::shared_ptr<LinkPort> Port() const;
    static void Begin(LinkPort& port, std::string_view text, bool awaitPrompt, bool pduFollows,
                      const ATResult& result);
    static void Arm(LinkPort& port, std::string_view text, bool awaitPrompt, bool pduFollows,
                    const ATResult& result);
    bool AwaitWhileAlive(std::string_view text, Milliseconds patience, Milliseconds limit, bool behind,
                         ATResult& result);
    static void TakeResult(LinkPort& port, ATResult& result);
    static bool GiveUp(LinkPort& port, ATResult::Status status, ATResult& result);
    int AwaitAny(std::span<Event* const> events, Milliseconds timeout);

    Clock& clock_;
    Event hurry_{ResetMode::Manual};
    const SerialDeviceFactory makeDevice_;
    SerialOpenFailure openFailure_;
    mutable std::mutex portMutex_;  // the pointer alone, so that Cancel may come from another thread
    std::shared_ptr<LinkPort> port_;
};

}  // namespace tarnbridge
