// The session of a HandsetLink: the handshake, its end, and what is selected in it.

#include <algorithm>
#include <bit>
#include <utility>

#include <fmt/format.h>

#include "link/HandsetLink.h"
#include "link/WireText.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr uint32_t wakeUpTimeout = 40;
constexpr Milliseconds longestWakeUp{200};
constexpr int wakeUpTries = 60;
constexpr Milliseconds settleTime{100};
constexpr uint32_t featureTimeout = 5000;
constexpr uint32_t handBackTimeout = 1000;
constexpr Milliseconds quietTime{300};
constexpr Milliseconds probePatience{1000};
constexpr Milliseconds longestDelay{30'000};
constexpr int probeTries = 3;
constexpr std::string_view escape = "\x1B";

/// Queries with a line of their own, which nothing else in the link asks for (3GPP TS 27.005 clause 3.2.3,
/// 27.007 clauses 5.5 and 9.1). They take turns, so that a late answer to one isn't taken for the next.
struct ProbeQuery {
    std::string_view text;
    const char* prefix;
    bool inEachMode = true;  // it is known in the channel mode for files too
};
constexpr std::array<ProbeQuery, 3> probes{
    {{"AT+CMGF?\r", "+CMGF", false}, {"AT+CSCS?\r", "+CSCS"}, {"AT+CMEE?\r", "+CMEE"}}};
/// Memories of messages (3GPP TS 27.005 clause 3.1).
constexpr std::string_view memoryNames[] = {"BM", "ME", "MT", "SM", "SR", "TA"};
constexpr int32_t smallestChunk = 64;
constexpr int32_t largestChunk = 4096;

bool FirstFieldIs(const ATResult& result, std::string_view text) {
    return !result.lines.empty() && !result.lines[0].empty() && result.lines[0][0].IsText(text);
}

template <typename Names>
bool Contains(const Names& names, std::string_view wanted) {
    return std::any_of(std::begin(names), std::end(names),
                       [&](std::string_view name) { return EqualIgnoringCase(name, wanted); });
}

/// The number of fields without the spare one that a line gets when it ends with a list.
size_t CountWithoutSpare(const ATLine& line) {
    if (line.size() < 2) return line.size();
    const ATParam& list = line[line.size() - 2];
    const bool afterList = list.type == ATParam::Range || list.type == ATParam::List;
    return afterList && !list.items.empty() && line.back() == list.items.back() ? line.size() - 1
                                                                                : line.size();
}

}  // namespace

bool HandsetLink::Connect(const std::string& portName, LinkKind& linkKind, uint32_t baudRate,
                          FlowControl flowControl) {
    const std::lock_guard guard(lock);
    if (portOpen) return false;
    // Unsolicited lines are kept out of responses and forgotten.
    portOpen = channel_.Open(
        portName, baudRate, flowControl, [](const ATResult&) {}, linkKind);
    if (portOpen) channel_.SetLineFilter([this](const ATLine& line) { return FilterLine(line); });
    return portOpen;
}

SerialOpenFailure HandsetLink::OpenFailure() {
    const std::lock_guard guard(lock);
    return channel_.OpenFailure();
}

HandsetFeatures HandsetLink::Features() {
    const std::lock_guard guard(lock);
    return features_;
}

bool HandsetLink::EnsureSession() {
    const std::lock_guard guard(lock);
    if (!portOpen) return false;
    if (channel_.HasHungUp()) {
        EndSession();
        return false;
    }
    if (sessionReady) return true;
    if (sessionsHeld_ > 0) return false;
    const bool made = Handshake();
    sleeps_ = false;
    if (made) {
        ++sessionNumber_;
        sessionReady = true;
    } else {
        // What the user broke off is undone; a handset that refused is left as it is.
        if (channel_.IsHurried() && isWoken_) HandBack(true);
        EndSession();
    }
    return made;
}

HandsetLink::OneSession::OneSession(HandsetLink& link) : link_(link), guard_(link.Lock()) {
    link.EnsureSession();
    ++link.sessionsHeld_;
}

HandsetLink::OneSession::~OneSession() {
    --link_.sessionsHeld_;
}

/// After an exchange without its final result: throws away what still comes, until a probe gets its own
/// answer. Under the lock.
bool HandsetLink::GetInStep() {
    if (!outOfStep_) return true;
    const int tries = channel_.IsHurried() ? 1 : probeTries;
    for (int i = 0; i < tries && !channel_.HasHungUp(); ++i) {
        // 3GPP TS 27.005 clause 3.5.1: it ends a body without sending it.
        if (mayAwaitBody_) channel_.SendRaw(escape);
        channel_.AwaitQuiet(quietTime, Milliseconds(commandTimeout));
        outOfStep_ = false;
        if (Probe(false)) {
            mayAwaitBody_ = false;
            return true;
        }
        outOfStep_ = true;
    }
    EndSession();
    return false;
}

/// Whether a query got its own line. Final results that were still under way are passed over and counted;
/// `behind` an exchange nothing is thrown away before.
bool HandsetLink::Probe(bool behind) {
    const auto isUsable = [&](size_t i) {
        return !refusedProbes_[i] && (probes[i].inEachMode || channelMode != fileChannel);
    };
    for (size_t i = 0; i < std::size(probes) && !isUsable(nextProbe_); ++i)
        nextProbe_ = (nextProbe_ + 1) % std::size(probes);
    lastProbe_ = std::exchange(nextProbe_, (nextProbe_ + 1) % std::size(probes));
    ATResult result;
    result.prefix = probes[lastProbe_].prefix;
    result.needsLine = true;
    const Milliseconds limit(commandTimeout);
    const Milliseconds patience = std::min(probePatience, limit);
    const std::string_view text = probes[lastProbe_].text;
    const bool answered = behind ? channel_.ExecBehind(text, patience, limit, result)
                                 : channel_.ExecWhileAlive(text, patience, limit, result);
    if (answered) finals_ = result.finals;
    return answered;
}

/// Whether the handset has given no more results since the last exchange than it was asked for. A probe
/// without a line may be one that it refuses: then another decides, and that one isn't used again.
bool HandsetLink::NothingElseCame() {
    const uint32_t before = finals_;
    for (uint32_t asked = 1; asked <= 2; ++asked) {
        const size_t former = lastProbe_;
        if (!Probe(true)) continue;
        const uint32_t came = finals_ - before;
        if (asked == 2 && came == 2) refusedProbes_[former] = true;
        return came <= asked;
    }
    return false;
}

/// An earlier command may still be answered. Any thread.
void HandsetLink::AwaitLateAnswer() {
    outOfStep_ = true;
    if (!sleeps_) lateUntil_ = clock_.Now() + longestDelay;
}

/// While an answer is still to come that was given up, any other may be that one. Then a probe behind the
/// exchange gets a final result too many, and what came counts for nothing.
bool HandsetLink::IsOwn(ATResult& result) {
    if (sleeps_ || clock_.Now() >= lateUntil_.load()) return true;
    if (NothingElseCame()) return true;
    AwaitLateAnswer();
    result.lines.clear();
    result.status = ATResult::NoResult;
    return false;
}

/// Nothing in here may call an operation that ensures the session.
bool HandsetLink::Handshake() {
    CallAttention();
    isWoken_ = WakeUp();
    if (!isWoken_) return false;

    // What the handset did not answer while it slept may be answered now, or never.
    sleeps_ = false;
    if (!outOfStep_ && !NothingElseCame()) outOfStep_ = true;
    if (!GetInStep()) return false;
    mayAwaitBody_ = false;

    // An answer that came twice, or later than its step waited, makes each one after it that of its
    // neighbour. The probe behind the steps sees that there was one too many: then nothing was learnt.
    for (int i = 0; i < 2; ++i) {
        if (!SetUp()) return false;
        if (GetInStep() && NothingElseCame()) return true;
        outOfStep_ = true;
    }
    return false;
}

/// What can be said to a handset that may be asleep, or in the middle of what a former run left open.
void HandsetLink::CallAttention() {
    sleeps_ = true;
    outOfStep_ = false;
    mayAwaitBody_ = true;
    refusedProbes_ = {};
    channel_.SendRaw(escape);
    channelMode = 0;
    QueryChannelMode();
    SetChannelMode(true);
    // A former run of the program may have left a file transfer open.
    ATResult ignored;
    SendRawCommand("AT+EFSR\r", wakeUpTimeout, ignored);
    SetChannelMode(false);
}

bool HandsetLink::WakeUp() {
    for (int i = 0; i < wakeUpTries && !channel_.IsHurried() && !channel_.HasHungUp(); ++i) {
        const Milliseconds start = clock_.Now();
        ATResult result;
        if (SendRawCommand("AT+ESLP=0\r", wakeUpTimeout, result) && FirstFieldIs(result, "OK")) return true;
        // What was broken off may have been heard. Nothing is waited for: it may be dead as well.
        if (channel_.IsHurried()) channel_.SendRaw("AT+ESLP=1\r");
        if (clock_.Now() - start > longestWakeUp) return false;
    }
    return false;
}

/// Carries out a step whose answer matters, and once more if it had none, or if `ask` says that it wasn't
/// what handsets say: an octet may have been lost on the wire. False if it had none then either.
bool HandsetLink::Step(const std::function<bool()>& ask) {
    for (int i = 0; i < 2; ++i) {
        if (!GetInStep()) return false;
        if (ask() && !outOfStep_) return true;
    }
    return !outOfStep_;
}

bool HandsetLink::SetUp() {
    ATResult result;
    // What the handset was told before it was known to listen is told again.
    if (channelMode == fileChannel) channelMode = normalChannel;
    // A handset that slept may not have answered the first time.
    const bool known = SetChannelMode(true);
    if (!known && !Step([&] {
            QueryChannelMode();
            SetChannelMode(true);
            return true;
        }))
        return false;
    const bool transferEnded = Step([&] {
        result.Clear();
        if (EnterMode(true)) SendRawCommand("AT+EFSR\r", commandTimeout, result);
        return true;
    });
    if (!transferEnded || !Step([&] { return SetChannelMode(false), true; })) return false;
    clock_.Sleep(settleTime);

    if (!Step([&] {
            result.Clear();
            return SendRawCommand("ATE0\r", commandTimeout, result);
        }))
        return false;
    const bool asked = Step([&] {
        result.Clear();
        result.prefix = "+CMGF";
        return SendRawCommand("AT+CMGF=0\r", commandTimeout, result);
    });
    if (!asked || !FirstFieldIs(result, "OK")) return false;

    ForgetSelections();
    features_ = HandsetFeatures();
    if (!Step([&] { return features_.hasPackedUcs2 = SelectCharset(u"UCS2_0x81"), true; })) return false;
    bool selected = false;
    if (!Step([&] { return selected = SelectCharset(u"UCS2"); }) || !selected) return false;
    if (!LearnFeatures()) return false;
    ForgetSelections();
    return true;
}

/// False if the handset didn't answer; what it hasn't got is learnt, too.
bool HandsetLink::LearnFeatures() {
    const auto hasEfsCheck = [&] {
        ATResult result;
        features_.hasEfsCheck = EnterMode(true) && SendRawCommand("AT+EFSC=?\r", featureTimeout, result) &&
                                FirstFieldIs(result, "OK");
        return true;
    };
    const auto hasVCard = [&] {
        ATResult result;
        features_.hasVCard = ExecCheckOk("AT+EVCARD=?\r", commandTimeout, result, false);
        return true;
    };
    return Step([&] { return AskChunkSize(); }) && Step(hasEfsCheck) && Step([&] { return AskStates(); }) &&
           Step(hasVCard) && Step([&] { return AskMemories(); });
}

// The three queries whose answers say more than yes or no. True for the answers that handsets give.

bool HandsetLink::AskChunkSize() {
    features_.maxChunk = smallestChunk;
    ATResult result;
    result.prefix = "+EFSW";
    if (!EnterMode(true) || !SendRawCommand("AT+EFSW?\r", featureTimeout, result)) return false;
    if (!result.HasPrefix("+EFSW")) return !result.IsOk();
    const int32_t size = result.GetNumber(0, 1);
    if (result.lines[0].size() == 2) features_.maxChunk = std::clamp(size, smallestChunk, largestChunk);
    return size == features_.maxChunk && std::has_single_bit(static_cast<uint32_t>(size));
}

/// The answer is the range of states in which messages can be stored, or the highest of them alone.
bool HandsetLink::AskStates() {
    features_.hasStoreQuery = features_.canStoreReceived = false;
    ATResult result;
    result.prefix = "+CMGW";
    if (!ExecCheckOk("AT+EQUERY=0\r", commandTimeout, result, false)) return true;
    if (!result.HasPrefix("+CMGW") || CountWithoutSpare(result.lines[0]) != 2) return false;
    const ATParam& states = result.lines[0][1];
    features_.hasStoreQuery = states.type == ATParam::Range && states.rangeLow == 0 && states.rangeHigh == 3;
    features_.canStoreReceived =
        features_.hasStoreQuery || (states.type == ATParam::Number && states.number == 3);
    return features_.canStoreReceived;
}

bool HandsetLink::AskMemories() {
    features_.hasMeStore = features_.hasSimMemory = false;
    ATResult result;
    result.prefix = "+CPMS";
    if (!ExecCheckOk("AT+CPMS=?\r", commandTimeout, result, false)) return true;
    if (!result.HasPrefix("+CPMS")) return false;
    // The memories to read from; then those to write to and to receive in, which are among them.
    std::vector<std::string> readable;
    bool isUsual = true;
    const ATLine& line = result.lines[0];
    for (size_t i = 1; i < CountWithoutSpare(line); ++i) {
        isUsual = isUsual && line[i].type == ATParam::List;
        const bool isFirst = readable.empty();
        for (const ATParam& memory : line[i].items) {
            isUsual =
                isUsual && Contains(memoryNames, memory.text) && (isFirst || Contains(readable, memory.text));
            if (isFirst) readable.push_back(memory.text);
        }
    }
    features_.hasMeStore = Contains(readable, "ME");
    features_.hasSimMemory = Contains(readable, "SM");
    return isUsual && !readable.empty();
}

bool HandsetLink::SelectCharset(const std::u16string& name) {
    return SelectCached(state_.currentCharset, name, "AT+CSCS", nullptr, false);
}

bool HandsetLink::SelectPhonebookStore(const std::u16string& name) {
    return SelectCached(state_.currentPhonebookStore, name, "AT+CPBS", "+CPBS", true);
}

bool HandsetLink::SelectCached(std::u16string& current, const std::u16string& name, const char* command,
                               const char* prefix, bool ensureSession) {
    const std::lock_guard guard(lock);
    if (current == name) return true;
    const std::string text = fmt::format("{}=\"{}\"\r", command, WideToNarrow(name, false));
    const bool selected = ExecExpect(text, commandTimeout, prefix, ensureSession);
    current = selected ? name : std::u16string();
    return selected;
}

void HandsetLink::HandBack(bool allowSleep) {
    // Nobody looks at these answers, so a dead handset holds nobody long, and there is no probe behind them:
    // once it may sleep the handset needn't answer any more.
    if (!GetInStep()) return;
    const Milliseconds lateUntil = lateUntil_.exchange({});
    ATResult ignored;
    SendRawCommand("ATE1\r", handBackTimeout, ignored);
    if (allowSleep) SendRawCommand("AT+ESLP=1\r", handBackTimeout, ignored);
    lateUntil_ = std::max(lateUntil, lateUntil_.load());
}

void HandsetLink::Disconnect(bool allowSleep) {
    const std::lock_guard guard(lock);
    if (sessionReady) HandBack(allowSleep);
    channel_.Close();
    EndSession();
    portOpen = false;
    if (channelMode == fileChannel) channelMode = normalChannel;
    outOfStep_ = false;
    channel_.SetHurried(false);
}

bool HandsetLink::Ping() {
    const std::lock_guard guard(lock);
    if (ExecExpect("AT\r", commandTimeout, nullptr, true)) return true;
    EndSession();
    return false;
}

void HandsetLink::EndSession() {
    sessionReady = false;
    ForgetSelections();
}

void HandsetLink::ForgetSelections() {
    state_ = SessionState();
}

}  // namespace tarnbridge
