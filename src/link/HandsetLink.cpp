#include "link/HandsetLink.h"

#include <utility>

#include <fmt/format.h>

#include "link/WireText.h"

namespace tarnbridge {
namespace {

constexpr size_t longestCommand = 4096;
constexpr size_t longestFileCommand = 8224;  // a block of 4,096 bytes in hex digits, and the words around it
constexpr uint32_t channelModeTimeout = 1000;
constexpr uint32_t secondsToMs = 1000;

void NoteNotSent(ATResult& result) {
    result.lines.clear();
    result.status = ATResult::NotSent;
    result.bodySent = false;
}

}  // namespace

HandsetLink::HandsetLink(Clock& clock, SerialDeviceFactory makeDevice)
    : clock_(clock), channel_(clock, std::move(makeDevice)), stallWatch_(clock) {}

HandsetLink::~HandsetLink() {
    stallWatch_.Stop();
    channel_.Close();
}

bool HandsetLink::ExecCommand(std::string_view text, uint32_t timeoutMs, bool pduFollows, ATResult& result) {
    NoteNotSent(result);
    if (text.size() > longestCommand) return false;
    const std::lock_guard guard(lock);
    return EnsureSession() && SendRawCommand(text, timeoutMs, result, pduFollows);
}

/// One exchange of the kind that counts only "OK"; the caller looks at the result.
bool HandsetLink::ExecLocked(std::string_view text, uint32_t timeoutMs, bool fileMode, bool ensureSession,
                             ATResult& result) {
    NoteNotSent(result);
    const std::lock_guard guard(lock);
    if (ensureSession && !EnsureSession()) return false;
    return EnterMode(fileMode) && SendRawCommand(text, timeoutMs, result);
}

bool HandsetLink::SendRawCommand(std::string_view text, uint32_t timeoutMs, ATResult& result,
                                 bool pduFollows) {
    NoteNotSent(result);
    if (!sleeps_ && !GetInStep()) return false;
    const bool answered = channel_.Exec(text, Milliseconds(timeoutMs), pduFollows, result);
    finals_ = result.finals;
    if (answered) return IsOwn(result);
    AwaitLateAnswer();
    if (result.status == ATResult::NoResult) Trace(fmt::format("[time out]{}\n", text));
    return false;
}

bool HandsetLink::ExecCheckOk(std::string_view text, uint32_t timeoutMs, ATResult& result,
                              bool ensureSession) {
    return ExecLocked(text, timeoutMs, false, ensureSession, result) && result.IsOk();
}

bool HandsetLink::ExecExpect(std::string_view text, uint32_t timeoutMs, const char* prefix,
                             bool ensureSession) {
    ATResult result;
    if (prefix != nullptr) result.prefix = prefix;
    return ExecCheckOk(text, timeoutMs, result, ensureSession);
}

bool HandsetLink::ExecTwoStage(std::string_view text, std::string_view body, uint32_t timeoutSeconds,
                               ATResult& result) {
    NoteNotSent(result);
    {
        const std::lock_guard guard(lock);
        if (EnsureSession() && EnterMode(false) && GetInStep()) {
            const Milliseconds timeout(timeoutSeconds * secondsToMs);
            if (channel_.ExecTwoStage(text, body, timeout, false, result)) {
                finals_ = result.finals;
                IsOwn(result);
            } else {
                AwaitLateAnswer();
                mayAwaitBody_ = true;
            }
        }
    }
    if (result.lines.empty()) {
        Trace("\n> empty result!\n");
    } else if (result.lines.back().empty()) {
        Trace("\n> no result code!\n");
    } else {
        Trace(result.IsOk() ? "> OK\n" : "> ERROR\n");
    }
    return result.IsOk();
}

bool HandsetLink::ExecFile(std::string_view text, uint32_t timeoutSeconds, ATResult& result) {
    NoteNotSent(result);
    if (text.empty() || text.size() > longestFileCommand) return false;
    return ExecLocked(text, timeoutSeconds * secondsToMs, true, true, result) && result.IsOk();
}

bool HandsetLink::ExecFile(std::string_view text, uint32_t timeoutSeconds, const char* prefix) {
    ATResult result;
    if (prefix != nullptr) result.prefix = prefix;
    return ExecFile(text, timeoutSeconds, result);
}

int32_t HandsetLink::ChannelMode() {
    const std::lock_guard guard(lock);
    return channelMode;
}

bool HandsetLink::QueryChannelMode() {
    const std::lock_guard guard(lock);
    ATResult result;
    result.prefix = "+ESUO";
    SendRawCommand("AT+ESUO?\r", channelModeTimeout, result);
    if (!result.HasPrefix("+ESUO")) return false;
    channelMode = result.GetNumber(0, 1);
    return true;
}

bool HandsetLink::SetChannelMode(bool fileMode) {
    const std::lock_guard guard(lock);
    if (channelMode != fileChannel && channelMode != normalChannel) return false;
    const int32_t wanted = fileMode ? fileChannel : normalChannel;
    if (channelMode == wanted) return true;
    ATResult ignored;
    const std::string text = fmt::format("AT+ESUO={}\r", wanted);
    // A refusal is taken for an accident once, and then for consent.
    for (int i = 0; i < 2 && channelMode != wanted; ++i) {
        if (!SendRawCommand(text, channelModeTimeout, ignored)) return true;
        if (ignored.IsOk() || i == 1) channelMode = wanted;
    }
    return true;
}

/// SetChannelMode for a command that is to follow: false if the handset has modes and didn't answer, so that
/// the command would meet the wrong one.
bool HandsetLink::EnterMode(bool fileMode) {
    return !SetChannelMode(fileMode) || channelMode == (fileMode ? fileChannel : normalChannel);
}

void HandsetLink::StartStallWatch() {
    stallWatch_.Start([this] { return OnStall(); });
}

void HandsetLink::StopStallWatch() {
    stallWatch_.Stop();
}

int HandsetLink::OnStall() {
    StopTransfer(true);
    return 0;
}

/// No lock: the exchange that is to be freed holds it.
void HandsetLink::StopTransfer(bool breakWait) {
    // Nobody waits for its answer. The other thread may begin its next exchange at any moment of this.
    AwaitLateAnswer();
    if (breakWait) channel_.Cancel();
    channel_.SendRaw("AT+EFSR\r");
    AwaitLateAnswer();
    transferAborted = true;
}

void HandsetLink::SetListingCallback(ListingCallback callback) {
    const std::lock_guard guard(listingMutex_);
    listingCallback_ = std::move(callback);
}

/// Sees each kept response line, on the read thread. A line that the callback can't be given is neither kept
/// nor reported: nothing a handset sends may end the process.
bool HandsetLink::FilterLine(const ATLine& line) {
    stallWatch_.Kick();
    if (line.empty() || !line[0].IsText("+EFSL")) return false;
    ListingCallback callback;
    {
        const std::lock_guard guard(listingMutex_);
        callback = listingCallback_;
    }
    if (!callback) return false;
    const auto numberAt = [&](size_t index) {
        return index < line.size() && line[index].type == ATParam::Number ? line[index].number : -1;
    };
    try {
        const std::string_view name = line.size() > 1 ? std::string_view(line[1].text) : std::string_view();
        return callback(HexUcs2ToWide(name, true), numberAt(2), numberAt(3));
    } catch (const WireTextError&) {
        return true;
    }
}

void HandsetLink::Trace(std::string_view text) const {
    if (trace) trace(text);
}

}  // namespace tarnbridge
