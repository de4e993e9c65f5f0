#include "link/ATChannel.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "link/SerialPort.h"

namespace tarnbridge {
namespace {

constexpr Milliseconds hurriedTime{2000};

Milliseconds WaitTime(Milliseconds timeout) {
    return timeout == Milliseconds::zero() ? forever : timeout;
}

}  // namespace

ATChannel::ATChannel(Clock& clock, SerialDeviceFactory makeDevice)
    : clock_(clock), makeDevice_(std::move(makeDevice)) {}

ATChannel::~ATChannel() {
    Close();
}

std::shared_ptr<LinkPort> ATChannel::Port() const {
    const std::lock_guard guard(portMutex_);
    return port_;
}

bool ATChannel::Open(const std::string& portName, uint32_t baudRate, FlowControl flowControl,
                     UrcCallback urcCallback, LinkKind& linkKind) {
    if (IsOpen()) return false;
    auto port = std::make_shared<SerialPort>(clock_, makeDevice_());
    port->Configure(portName, baudRate, flowControl);
    port->SetUrcCallback(std::move(urcCallback));
    if (!port->Open(linkKind)) {
        openFailure_ = port->OpenFailure();
        return false;
    }
    const std::lock_guard guard(portMutex_);
    port_ = std::move(port);
    return true;
}

bool ATChannel::Close() {
    std::shared_ptr<LinkPort> port;
    {
        const std::lock_guard guard(portMutex_);
        port.swap(port_);
    }
    if (port) {
        // A late result that nobody waits for would hold the read thread.
        port->ResultTakenEvent().Set();
        port->Close();
    }
    return true;
}

void ATChannel::SetLineFilter(LineFilter filter) {
    if (const auto port = Port()) port->SetLineFilter(std::move(filter));
}

void ATChannel::Cancel() {
    const auto port = Port();
    if (port) port->BreakOff();
}

void ATChannel::SetHurried(bool hurried) {
    if (hurried)
        hurry_.Set();
    else
        hurry_.Reset();
}

bool ATChannel::HasHungUp() const {
    const auto port = Port();
    return port && port->HungUp();
}

bool ATChannel::AwaitQuiet(Milliseconds quiet, Milliseconds limit) {
    const auto port = Port();
    return port && port->AwaitQuiet(quiet, limit);
}

/// As Clock::WaitAny, but no longer than a hurried wait from the moment on at which the user is in a hurry.
int ATChannel::AwaitAny(std::span<Event* const> events, Milliseconds timeout) {
    std::vector<Event*> all(events.begin(), events.end());
    all.push_back(&hurry_);
    const int index = clock_.WaitAny(all, timeout);
    if (index < static_cast<int>(events.size())) return index;
    return clock_.WaitAny(events, std::min(timeout, hurriedTime));
}

bool ATChannel::SendRaw(std::string_view bytes) {
    const auto port = Port();
    if (!port) return false;
    if (port->Write(bytes)) return true;
    Cancel();
    return false;
}

/// Result ready and the prompt are reset after the flush, when the read thread has nothing left of the last
/// command, so that a late reply is never taken for the answer to this one.
void ATChannel::Begin(LinkPort& port, std::string_view text, bool awaitPrompt, bool pduFollows,
                      const ATResult& result) {
    port.FlushDoneEvent().Reset();
    // A two-stage command that failed leaves its command active, and late results for it hold the read
    // thread. That thread may have asked for the last time already, so it is let through once; the flush
    // resets the event.
    port.CommandActiveEvent().Reset();
    port.ResultTakenEvent().Set();
    port.Flush();
    port.ResultReadyEvent().Reset();
    port.PromptEvent().Reset();
    port.ForgetBreak();
    port.CommandActiveEvent().Set();
    Arm(port, text, awaitPrompt, pduFollows, result);
}

void ATChannel::Arm(LinkPort& port, std::string_view text, bool awaitPrompt, bool pduFollows,
                    const ATResult& result) {
    port.SetAwaitPrompt(awaitPrompt);
    port.SetExpected(result);
    port.SetExpectPduLine(pduFollows);
    port.SetLastCommand(text);
}

void ATChannel::TakeResult(LinkPort& port, ATResult& result) {
    port.FetchResult(result);
    port.CommandActiveEvent().Reset();
    port.ResultReadyEvent().Reset();
    port.ResultTakenEvent().Set();
}

bool ATChannel::GiveUp(LinkPort& port, ATResult::Status status, ATResult& result) {
    result.status = status;
    port.CommandActiveEvent().Reset();
    port.ResultTakenEvent().Set();
    port.Cancel();
    return false;
}

bool ATChannel::Exec(std::string_view text, Milliseconds timeout, bool pduFollows, ATResult& result) {
    result.lines.clear();
    result.status = ATResult::NotSent;
    const auto port = Port();
    if (!port) return false;
    Begin(*port, text, false, pduFollows, result);
    if (!port->Write(text)) return GiveUp(*port, ATResult::NotSent, result);
    Event* const answer[] = {&port->ResultReadyEvent()};
    if (AwaitAny(answer, WaitTime(timeout)) != 0) return GiveUp(*port, ATResult::NoResult, result);
    TakeResult(*port, result);
    return !result.lines.empty() && !result.lines.back().empty();
}

bool ATChannel::ExecWhileAlive(std::string_view text, Milliseconds patience, Milliseconds limit,
                               ATResult& result) {
    return AwaitWhileAlive(text, patience, limit, false, result);
}

bool ATChannel::ExecBehind(std::string_view text, Milliseconds patience, Milliseconds limit,
                           ATResult& result) {
    return AwaitWhileAlive(text, patience, limit, true, result);
}

bool ATChannel::AwaitWhileAlive(std::string_view text, Milliseconds patience, Milliseconds limit, bool behind,
                                ATResult& result) {
    result.lines.clear();
    result.status = ATResult::NotSent;
    const auto port = Port();
    if (!port) return false;
    if (behind) {
        // What is expected comes first: the read thread may still have a result in hand.
        Arm(*port, text, false, false, result);
        port->CommandActiveEvent().Set();
    } else {
        Begin(*port, text, false, false, result);
    }
    port->ArrivedEvent().Reset();
    if (!port->Write(text)) return GiveUp(*port, ATResult::NotSent, result);
    const Milliseconds deadline = clock_.Now() + limit;
    Event* const events[] = {&port->ResultReadyEvent(), &port->ArrivedEvent()};
    for (;;) {
        const Milliseconds left = deadline - clock_.Now();
        const int signalled = left.count() > 0 ? clock_.WaitAny(events, std::min(patience, left)) : -1;
        if (signalled < 0) return GiveUp(*port, ATResult::NoResult, result);
        if (signalled == 0) break;
    }
    TakeResult(*port, result);
    return !result.lines.empty() && !result.lines.back().empty();
}

bool ATChannel::ExecTwoStage(std::string_view text, std::string_view body, Milliseconds timeout,
                             bool pduFollows, ATResult& result) {
    result.lines.clear();
    result.status = ATResult::NotSent;
    const auto port = Port();
    if (!port) return false;
    result.bodySent = false;
    Begin(*port, text, true, pduFollows, result);
    // Unlike Exec this leaves the command active and cancels nothing; the next exchange begins with a flush.
    const auto giveUp = [&](ATResult::Status status) {
        result.status = status;
        port->ResultTakenEvent().Set();
        return false;
    };
    if (!port->Write(text)) {
        port->SetAwaitPrompt(false);
        return giveUp(ATResult::NotSent);
    }
    Event* const answers[] = {&port->PromptEvent(), &port->BrokenOffEvent()};
    if (AwaitAny(answers, WaitTime(timeout)) != 0) return giveUp(ATResult::NoResult);
    port->SetAwaitPrompt(false);
    result.bodySent = true;
    if (!port->Write(body)) return giveUp(ATResult::NotSent);
    // No hurry here: what was sent may be under way through the network, and is to be known.
    if (!clock_.Wait(port->ResultReadyEvent(), WaitTime(timeout))) return giveUp(ATResult::NoResult);
    TakeResult(*port, result);
    return !port->BrokenOffEvent().IsSet();
}

}  // namespace tarnbridge
