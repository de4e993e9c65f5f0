#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/ATChannel.h"
#include "link/ATResult.h"
#include "link/SessionState.h"
#include "link/StallWatch.h"

namespace tarnbridge {

/// The one door to the handset: it carries out exchanges under one lock, and makes and ends the session.
/// Features are functions over a HandsetLink&, in folders of their own.
///
/// Every operation may be called from any thread; it blocks for the whole exchange and shows nothing. All
/// command texts end with their own CR, which the caller supplies. A time-out of 0 waits without limit.
///
/// A session is made by the first operation that needs one (EnsureSession) and stands until a Ping fails, the
/// link can't be brought in step, or Disconnect is called. In it the handset stands in PDU mode, without
/// echo, awake, in the character set "UCS2".
///
/// An exchange that ends without its final result leaves the link out of step: the answer may still come. No
/// other command goes out before a probe has shown that what comes next is the answer to what is sent next;
/// when none of three probes is answered the session is over, and the operation that was to begin fails with
/// nothing sent. For 30 seconds each further exchange has a probe behind it, too: where that meets a final
/// result too many, the exchange counts as unanswered, whatever it got.
class HandsetLink {
public:
    /// Time-out of ordinary commands. Operations read it and pass it on. Set it before the link is used.
    uint32_t commandTimeout = 5000;  // milliseconds

    /// `clock` must outlive the link.
    HandsetLink(Clock& clock, SerialDeviceFactory makeDevice);
    HandsetLink(const HandsetLink&) = delete;
    HandsetLink& operator=(const HandsetLink&) = delete;
    ~HandsetLink();

    /// Opens the port; no traffic. False if a port is open already or this one can't be opened.
    /// \param portName  `\\.\COM%d`, or a path of the system
    bool Connect(const std::string& portName, LinkKind& linkKind, uint32_t baudRate = 115200,
                 FlowControl flowControl = FlowControl::None);

    /// Why Connect failed.
    SerialOpenFailure OpenFailure();

    /// Hands the handset back, with echo on and, if `allowSleep`, with sleep allowed, and closes the port.
    /// Without a session nothing is sent. Ends a hurry.
    void Disconnect(bool allowSleep);

    /// Whether a session stands or could be made now. With a dead handset this takes a few seconds at most.
    bool EnsureSession();

    /// Whether the handset answers. If it doesn't, the session is over.
    bool Ping();

    bool IsPortOpen() const { return portOpen; }
    bool IsSessionReady() const { return sessionReady; }

    /// How many sessions have been made: tells one from another.
    unsigned SessionNumber() const { return sessionNumber_; }

    /// Whether the port is open and the handset has gone from its far end.
    bool HasHungUp() const { return channel_.HasHungUp(); }

    /// While on, the user waits for the end: no wait for an answer lasts longer than two seconds, but that
    /// for the result of a body which was sent, no handset is woken up, and one probe decides whether the
    /// link is in step. From any thread, without a lock.
    void SetHurried(bool hurried) { channel_.SetHurried(hurried); }

    /// The handset's channel mode (`+ESUO`) as last known: 3 for files, 4 for all else; other values mean
    /// that it has no such modes.
    int32_t ChannelMode();

    /// What the handshake learnt. A copy, since another thread may run the next handshake.
    HandsetFeatures Features();

    // The exchanges.

    // Where nothing is sent, for want of a session or for its length, `result` has no lines and the status
    // NotSent.

    /// Ensures the session and sends a command of at most 4,096 bytes. True when some final result came, an
    /// error among them; which one it was is the caller's to check.
    bool ExecCommand(std::string_view text, uint32_t timeoutMs, bool pduFollows, ATResult& result);

    /// Puts the channel mode to normal and sends a command. True when the final result is "OK".
    bool ExecCheckOk(std::string_view text, uint32_t timeoutMs, ATResult& result, bool ensureSession);

    /// The same with a result of its own that awaits `prefix`, null for none.
    bool ExecExpect(std::string_view text, uint32_t timeoutMs, const char* prefix, bool ensureSession);

    /// Ensures the session, puts the channel mode to normal, sends the command, and after the prompt the
    /// body. True when the final result is "OK". After an error of the handset `result.ErrorNumber()` gives
    /// its number.
    bool ExecTwoStage(std::string_view text, std::string_view body, uint32_t timeoutSeconds,
                      ATResult& result);

    /// Ensures the session, puts the channel mode to file, and sends a command of 1 to 8,224 bytes. True when
    /// the final result is "OK".
    bool ExecFile(std::string_view text, uint32_t timeoutSeconds, ATResult& result);

    /// The same with a result of its own that awaits `prefix`, null for none.
    bool ExecFile(std::string_view text, uint32_t timeoutSeconds, const char* prefix);

    // What the handshake and the features both need.

    /// Asks for the handset's channel mode (`+ESUO`); false if it has none.
    bool QueryChannelMode();

    /// Sets the channel mode to file transfer or normal. False if the handset has no such mode.
    bool SetChannelMode(bool fileMode);

    /// Selects the character set of texts in commands. Sends nothing if it is the one last selected. Doesn't
    /// ensure the session.
    bool SelectCharset(const std::u16string& name);

    /// Selects a phonebook storage. Sends nothing if it is the one last selected.
    bool SelectPhonebookStore(const std::u16string& name);

    // Long transfers.

    /// Watches a transfer that has no time-out: 5 seconds without a response line end it as
    /// StopTransfer(true) does.
    void StartStallWatch();
    void StopStallWatch();

    /// Ends the file transfer that another thread waits for. `breakWait` frees that thread at once, with an
    /// empty result. Takes no lock.
    void StopTransfer(bool breakWait);

    /// Frees the thread whose exchange is under way, at once and with an empty result. Takes no lock.
    void BreakExchange() { channel_.Cancel(); }

    /// Whether StopTransfer has run since the flag was last cleared.
    std::atomic<bool> transferAborted{false};

    /// Who gets the lines of a folder listing (`+EFSL`); null for nobody. Runs on the read thread.
    void SetListingCallback(ListingCallback callback);

    /// Where the trace of two-stage commands and time-outs goes; nowhere by default. Set it before the link
    /// is used.
    std::function<void(std::string_view)> trace;

    /// What operations remember for the session. Only while the caller holds Lock().
    SessionState& State() { return state_; }

    /// For an operation whose exchanges belong together: as long as it lives it holds the lock, and no new
    /// session takes the place of one that ends, so that what was selected or looked at still holds. An
    /// exchange that would need a new session fails. May stand within another one.
    class OneSession {
    public:
        /// Ensures the session first, unless it stands within another one.
        explicit OneSession(HandsetLink& link);
        OneSession(const OneSession&) = delete;
        OneSession& operator=(const OneSession&) = delete;
        ~OneSession();

        /// Whether it still stands.
        explicit operator bool() const { return link_.sessionReady; }

    private:
        HandsetLink& link_;
        const std::unique_lock<std::recursive_mutex> guard_;
    };

    /// The lock that every exchange takes, recursive, for an operation of several exchanges.
    std::unique_lock<std::recursive_mutex> Lock() { return std::unique_lock(lock); }

private:
    /// Values of channelMode for a handset that has the modes.
    enum : int32_t { fileChannel = 3, normalChannel = 4 };

    bool SendRawCommand(std::string_view text, uint32_t timeoutMs, ATResult& result, bool pduFollows = false);
    bool ExecLocked(std::string_view text, uint32_t timeoutMs, bool fileMode, bool ensureSession,
                    ATResult& result);
    bool EnterMode(bool fileMode);
    bool GetInStep();
    bool Probe(bool behind);
    bool NothingElseCame();
    bool Handshake();
    void CallAttention();
    bool WakeUp();
    bool SetUp();
    void HandBack(bool allowSleep);
    bool Step(const std::function<bool()>& ask);
    bool LearnFeatures();
    bool AskChunkSize();
    bool AskStates();
    bool AskMemories();
    void AwaitLateAnswer();
    bool IsOwn(ATResult& result);
    bool FilterLine(const ATLine& line);
    int OnStall();
    void EndSession();
    void ForgetSelections();
    bool SelectCached(std::u16string& current, const std::u16string& name, const char* command,
                      const char* prefix, bool ensureSession);
    void Trace(std::string_view text) const;

    Clock& clock_;
    std::recursive_mutex lock;
    ATChannel channel_;
    std::atomic<bool> portOpen{false};
    std::atomic<bool> sessionReady{false};
    std::atomic<unsigned> sessionNumber_{0};
    int32_t channelMode = 0;
    // The handset may still say something that answers an earlier command. StopTransfer sets it without lock.
    std::atomic<bool> outOfStep_{false};
    std::atomic<Milliseconds> lateUntil_{Milliseconds::zero()};  // and until then it may; on the clock
    bool mayAwaitBody_ = false;        // the handset may take what is sent for the body of a message
    int sessionsHeld_ = 0;             // by OneSession
    bool isWoken_ = false;             // by the last handshake
    std::atomic<bool> sleeps_{false};  // it may sleep: what it doesn't answer means nothing
    size_t nextProbe_ = 0;
    size_t lastProbe_ = 0;
    std::array<bool, 3> refusedProbes_{};  // by the handset of this session
    uint32_t finals_ = 0;                  // of the last exchange
    HandsetFeatures features_;
    SessionState state_;
    std::mutex listingMutex_;  // the callback alone
    ListingCallback listingCallback_;
    StallWatch stallWatch_;
};

}  // namespace tarnbridge
