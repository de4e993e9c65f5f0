// The session of a HandsetLink: the handshake, its end, and what is selected in it.

#include <algorithm>

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
constexpr int32_t smallestChunk = 64;
constexpr int32_t largestChunk = 4096;

bool FirstFieldIs(const ATResult& result, std::string_view text) {
    return !result.lines.empty() && !result.lines[0].empty() && result.lines[0][0].IsText(text);
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
    if (sessionReady) return true;
    sessionReady = Handshake();
    if (!sessionReady) EndSession();
    return sessionReady;
}

/// Nothing in here may call an operation that ensures the session.
bool HandsetLink::Handshake() {
    ATResult result;
    channelMode = 0;
    QueryChannelMode();
    SetChannelMode(true);
    // A former run of the program may have left a file transfer open.
    SendRawCommand("AT+EFSR\r", wakeUpTimeout, result);
    SetChannelMode(false);

    if (!WakeUp()) return false;

    // A handset that slept may not have answered the first time.
    if (!SetChannelMode(true)) {
        QueryChannelMode();
        SetChannelMode(true);
    }
    result.Clear();
    SendRawCommand("AT+EFSR\r", commandTimeout, result);
    SetChannelMode(false);
    clock_.Sleep(settleTime);

    result.Clear();
    if (!SendRawCommand("ATE0\r", commandTimeout, result)) return false;
    result.Clear();
    result.prefix = "+CMGF";
    if (!SendRawCommand("AT+CMGF=0\r", commandTimeout, result) || !FirstFieldIs(result, "OK")) return false;

    ForgetSelections();
    features_ = HandsetFeatures();
    features_.hasPackedUcs2 = SelectCharset(u"UCS2_0x81");
    if (!SelectCharset(u"UCS2")) return false;
    LearnFeatures();
    ForgetSelections();
    return true;
}

bool HandsetLink::WakeUp() {
    for (int i = 0; i < wakeUpTries; ++i) {
        const Milliseconds start = clock_.Now();
        ATResult result;
        if (SendRawCommand("AT+ESLP=0\r", wakeUpTimeout, result) && FirstFieldIs(result, "OK")) return true;
        if (clock_.Now() - start > longestWakeUp) return false;
    }
    return false;
}

void HandsetLink::LearnFeatures() {
    features_.maxChunk = QueryChunkSize();

    SetChannelMode(true);
    ATResult result;
    features_.hasEfsCheck =
        SendRawCommand("AT+EFSC=?\r", featureTimeout, result) && FirstFieldIs(result, "OK");

    ProbeMessageStore();

    result.Clear();
    features_.hasVCard = ExecCheckOk("AT+EVCARD=?\r", commandTimeout, result, false);

    std::vector<std::string> memories;
    ListMessageMemories(memories);
    const auto has = [&](std::string_view name) {
        return std::any_of(memories.begin(), memories.end(),
                           [&](const std::string& memory) { return EqualIgnoringCase(memory, name); });
    };
    features_.hasMeStore = has("ME");
    features_.hasSimMemory = has("SM");
}

/// The answer is the range of states in which messages can be stored, or the highest of them alone.
void HandsetLink::ProbeMessageStore() {
    ATResult result;
    result.prefix = "+CMGW";
    if (!ExecCheckOk("AT+EQUERY=0\r", commandTimeout, result, false) || !result.HasPrefix("+CMGW")) return;
    const ATLine& line = result.lines[0];
    if (CountWithoutSpare(line) != 2) return;
    const ATParam& states = line[1];
    features_.hasStoreQuery = states.type == ATParam::Range && states.rangeLow == 0 && states.rangeHigh == 3;
    features_.canStoreReceived =
        features_.hasStoreQuery || (states.type == ATParam::Number && states.number == 3);
}

int32_t HandsetLink::QueryChunkSize() {
    const std::lock_guard guard(lock);
    SetChannelMode(true);
    ATResult result;
    result.prefix = "+EFSW";
    if (!SendRawCommand("AT+EFSW?\r", featureTimeout, result)) return smallestChunk;
    if (result.lines[0].size() != 2) return smallestChunk;
    return std::clamp(result.GetNumber(0, 1), smallestChunk, largestChunk);
}

bool HandsetLink::ListMessageMemories(std::vector<std::string>& names) {
    names.clear();
    ATResult result;
    result.prefix = "+CPMS";
    if (!ExecCheckOk("AT+CPMS=?\r", commandTimeout, result, false) || !result.HasPrefix("+CPMS"))
        return false;
    for (const ATParam& field : result.lines[0]) {
        if (field.type != ATParam::List) continue;
        for (const ATParam& item : field.items) {
            if (item.type == ATParam::Text) names.push_back(item.text);
        }
        return true;
    }
    return false;
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

void HandsetLink::Disconnect(bool allowSleep) {
    const std::lock_guard guard(lock);
    if (sessionReady) {
        ATResult ignored;
        SendRawCommand("ATE1\r", commandTimeout, ignored);
        if (allowSleep) SendRawCommand("AT+ESLP=1\r", commandTimeout, ignored);
    }
    channel_.Close();
    EndSession();
    portOpen = false;
    SetChannelMode(false);
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
