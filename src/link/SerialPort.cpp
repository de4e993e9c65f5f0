#include "link/SerialPort.h"

#include <algorithm>
#include <utility>

namespace tarnbridge {
namespace {

constexpr size_t bytesPerRead = 4096;
constexpr size_t longestLastCommand = 4096;
// Bytes, a hang-up and each signal to the read thread end its wait at once.
constexpr Milliseconds roundTime{1000};
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

void SerialPort::SetExpected(const ATResult& result) {
    expected_.prefix = result.prefix;
    expected_.needsLine = result.needsLine;
    expected_.allLines = result.allLines;
    reader_.SetExpected(expected_);
}

void SerialPort::SetExpectPduLine(bool expect) {
    reader_.SetExpectPduLine(expectsPdu_ = expect);
}

void SerialPort::SetAwaitPrompt(bool await) {
    reader_.SetAwaitPrompt(awaitsPrompt_ = await);
}

bool SerialPort::Write(std::string_view bytes) {
    for (int retries = 0; !bytes.empty(); ++retries) {
        const int written = device_->Write(bytes);
        if (written >= 0) bytes.remove_prefix(static_cast<size_t>(written));
        if (bytes.empty()) break;
        if (written >= 0) StartOver();
        if (retries == 1) return false;
        clock_.Sleep(retryPause);
    }
    return true;
}

/// What the handset says to a command that was cut isn't the answer to the whole of it. The read thread may
/// stand with that answer already.
void SerialPort::StartOver() {
    resultTaken_.Set();
    Flush();
    resultReady_.Reset();
    reader_.SetExpected(expected_);
    reader_.SetExpectPduLine(expectsPdu_);
    reader_.SetAwaitPrompt(awaitsPrompt_);
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
    Cancel();
    const Milliseconds deadline = clock_.Now() + flushTime;
    while (flushesServed_ != wanted) {
        const Milliseconds left = deadline - clock_.Now();
        if (left <= Milliseconds::zero() || !clock_.Wait(flushDone_, left)) break;
        flushDone_.Reset();
    }
    flushDone_.Reset();
}

void SerialPort::Cancel() {
    {
        const std::lock_guard guard(signals_);
        cancel_.Set();
    }
    device_->Wake();
}

void SerialPort::BreakOff() {
    {
        const std::lock_guard guard(signals_);
        cancel_.Set();
        abort_.Set();
    }
    device_->Wake();
}

void SerialPort::ForgetBreak() {
    const std::lock_guard guard(signals_);
    abort_.Reset();
    brokenOff_.Reset();
}

bool SerialPort::AwaitQuiet(Milliseconds quiet, Milliseconds limit) {
    const Milliseconds deadline = clock_.Now() + limit;
    arrived_.Reset();
    while (clock_.Wait(arrived_, quiet)) {
        if (clock_.Now() >= deadline) return false;
    }
    return true;
}

void SerialPort::Run() {
    std::array<char, bytesPerRead> readBuffer;
    while (!stop_.IsSet()) {
        ServeSignals();
        const int readCount = device_->Read(readBuffer);
        if (readCount > 0) {
            arrived_.Set();
            reader_.Feed({readBuffer.data(), static_cast<size_t>(readCount)});
        } else {
            if (device_->HungUp()) {
                HandOverNothing();
                commandActive_.Reset();  // a caller that has given up may have left it on
            }
            device_->WaitReadable(roundTime);
        }
    }
}

void SerialPort::ServeSignals() {
    bool aborted = false;
    bool cancelled = false;
    {
        const std::lock_guard guard(signals_);
        // Whether an abort has someone to free is asked before a flush is answered: the caller that waits for
        // the flush may make its own command active at once, and it isn't that command which is to be broken
        // off.
        aborted = abort_.IsSet() && commandActive_.IsSet();
        cancelled = cancel_.IsSet();
        abort_.Reset();
        cancel_.Reset();
    }
    if (cancelled) {
        const unsigned wanted = flushesWanted_;
        reader_.Reset();
        prompt_.Reset();
        abortParse = false;
        resultTaken_.Reset();
        flushesServed_ = wanted;
        flushDone_.Set();
    }
    if (aborted) HandOverNothing();
}

void SerialPort::OnCommandEnd() {
    if (commandActive_.IsSet() && !cancel_.IsSet()) HandOver();
    reader_.DropLines();
}

/// The caller copies the result while this thread stands here.
void SerialPort::HandOver() {
    resultReady_.Set();
    Event* const ends[] = {&resultTaken_, &stop_};
    Event::WaitAny(ends, forever);
    resultTaken_.Reset();
}

/// Frees who waits for an answer that won't come.
void SerialPort::HandOverNothing() {
    if (!commandActive_.IsSet()) return;
    reader_.BreakOff(ATResult::NoResult);
    brokenOff_.Set();
    HandOver();
}

void SerialPort::SwallowUntilStopped() {
    std::array<char, bytesPerRead> scratch;
    while (!stop_.IsSet()) {
        if (device_->Read(scratch) > 0) continue;
        device_->WaitReadable(roundTime);
    }
}

}  // namespace tarnbridge
