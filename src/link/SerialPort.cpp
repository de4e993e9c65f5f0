#include "link/SerialPort.h"

#include <algorithm>
#include <utility>

namespace tarnbridge {
namespace {

constexpr size_t bytesPerRead = 512;
constexpr size_t longestLastCommand = 4096;
constexpr Milliseconds roundTime{1};
// When nothing has happened for so many rounds they become longer. Bytes, a flush and the end come at once.
constexpr int roundsToIdle = 100;
constexpr Milliseconds idleTime{50};
constexpr Milliseconds flushTime{3000};
constexpr Milliseconds retryPause{100};

}  // namespace

SerialPort::SerialPort(Clock& clock, std::unique_ptr<SerialDevice> device)
    : clock_(clock), device_(std::move(device)), reader_(*this, ParseStop{abortParse, cancel_}) {}

SerialPort::~SerialPort() {
    Close();
}

void SerialPort::Configure(std::string portName, uint32_t baudRate, FlowControl flowControl) {
    settings_ = {std::move(portName), baudRate, flowControl};
}

bool SerialPort::Open(LinkKind& linkKind) {
    if (!device_->Open(settings_, openFailure_)) return false;
    linkKind = device_->Kind();
    if (StartThread()) return true;
    device_->Close();
    openFailure_ = {SerialOpenFault::Other, settings_.name, {}, {}, 0, {}, false};
    return false;
}

void SerialPort::StopThread() {
    stop_.Set();
    device_->Wake();
    LinkPort::StopThread();
}

void SerialPort::Close() {
    StopThread();
    device_->Close();
}

void SerialPort::SetLastCommand(std::string_view text) {
    lastCommand = text.substr(0, longestLastCommand);
}

bool SerialPort::Write(std::string_view bytes) {
    for (int retries = 0; !bytes.empty(); ++retries) {
        const int written = device_->Write(bytes);
        if (written >= 0) bytes.remove_prefix(static_cast<size_t>(written));
        if (bytes.empty()) break;
        if (written >= 0) Flush();
        if (retries == 1) return false;
        clock_.Sleep(retryPause);
    }
    return true;
}

void SerialPort::Flush() {
    std::array<char, bytesPerRead> scratch;
    // A handset that never stops sending must not hold the caller for ever.
    const Milliseconds start = clock_.Now();
    while (!stop_.IsSet() && device_->Read(scratch) > 0 && clock_.Now() - start < flushTime) {
    }
    abortParse = true;
    // What ends the wait is the answer to this flush: one to an earlier cancel may come at the same time.
    const unsigned wanted = ++flushesWanted_;
    cancel_.Set();
    device_->Wake();
    const Milliseconds deadline = clock_.Now() + flushTime;
    while (flushesServed_ != wanted) {
        const Milliseconds left = deadline - clock_.Now();
        if (left <= Milliseconds::zero() || !clock_.Wait(flushDone_, left)) break;
        flushDone_.Reset();
    }
    flushDone_.Reset();
}

void SerialPort::Run() {
    std::array<char, bytesPerRead> readBuffer;
    int quietRounds = 0;
    while (!stop_.IsSet()) {
        ServeSignals();
        const int readCount = device_->Read(readBuffer);
        if (readCount > 0) {
            quietRounds = 0;
            reader_.Feed({readBuffer.data(), static_cast<size_t>(readCount)});
        } else {
            // Nobody answers any more: who waits is freed at once.
            if (device_->HungUp()) abort_.Set();
            quietRounds = commandActive_.IsSet() ? 0 : std::min(quietRounds + 1, roundsToIdle);
            device_->WaitReadable(quietRounds < roundsToIdle ? roundTime : idleTime);
        }
    }
}

void SerialPort::ServeSignals() {
    // Whether an abort has someone to free is asked before a flush is answered: the caller that waits for the
    // flush may make its own command active at once, and it isn't that command which is to be broken off.
    const bool aborted = abort_.IsSet();
    const bool someoneWaits = commandActive_.IsSet();
    if (cancel_.IsSet()) {
        // First of all, so that a flush from here on is served by the next round.
        cancel_.Reset();
        const unsigned wanted = flushesWanted_;
        reader_.Reset();
        prompt_.Reset();
        abortParse = false;
        resultTaken_.Reset();
        flushesServed_ = wanted;
        flushDone_.Set();
    }
    if (!aborted) return;
    if (someoneWaits) {
        reader_.BreakOff(ATResult::NoResult);
        brokenOff_.Set();
        HandOver();
    }
    abort_.Reset();
}

void SerialPort::OnCommandEnd() {
    if (commandActive_.IsSet() && !cancel_.IsSet()) HandOver();
    reader_.DropLines();
}

/// The caller copies the result while this thread stands here.
void SerialPort::HandOver() {
    resultReady_.Set();
    resultTaken_.Wait(forever);
    resultTaken_.Reset();
}

int SerialPort::Refill(std::span<char> buffer) {
    while (!stop_.IsSet()) {
        const int count = device_->Read(buffer);
        if (count > 0) return count;
        if (device_->HungUp()) return 0;
        device_->WaitReadable(roundTime);
    }
    return 0;
}

void SerialPort::SwallowUntilStopped() {
    std::array<char, bytesPerRead> scratch;
    while (!stop_.IsSet()) {
        if (device_->Read(scratch) <= 0) device_->WaitReadable(roundTime);
    }
}

}  // namespace tarnbridge
