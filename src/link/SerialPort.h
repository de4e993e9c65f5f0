#pragma once

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>

#include "link/LineReader.h"
#include "link/LinkPort.h"
#include "platform/Clock.h"

namespace tarnbridge {

/// A handset on a serial port. It lives for one connection: Configure, SetUrcCallback, Open, then Close, and
/// no second Open.
///
/// Two threads use it: the read thread, and whichever thread holds the lock of the link. What was collected
/// is shared by the rendezvous of result ready and result taken, not by a lock.
class SerialPort : public LinkPort, private LineReaderHost {
public:
    /// Uses the device, which is closed, from now on. `clock` must outlive the port.
    SerialPort(Clock& clock, std::unique_ptr<SerialDevice> device);
    ~SerialPort() override;

    void StopThread() override;
    bool Write(std::string_view bytes) override;
    void SetExpectPduLine(bool expect) override;
    void SetAwaitPrompt(bool await) override;
    Event& PromptEvent() override { return prompt_; }
    void SetLastCommand(std::string_view text) override;
    Event& ResultReadyEvent() override { return resultReady_; }
    Event& ResultTakenEvent() override { return resultTaken_; }
    Event& CommandActiveEvent() override { return commandActive_; }
    Event& FlushDoneEvent() override { return flushDone_; }
    Event& BrokenOffEvent() override { return brokenOff_; }
    Event& ArrivedEvent() override { return arrived_; }
    void Cancel() override;
    void BreakOff() override;
    void ForgetBreak() override;
    void Flush() override;
    bool AwaitQuiet(Milliseconds quiet, Milliseconds limit) override;
    bool HungUp() const override { return device_->HungUp(); }
    void FetchResult(ATResult& result) override { reader_.FetchResult(result); }
    void SetLineFilter(LineFilter filter) override { reader_.SetLineFilter(std::move(filter)); }
    void SetUrcCallback(UrcCallback callback) override { reader_.SetUrcCallback(std::move(callback)); }
    void SetExpected(const ATResult& result) override;
    bool Open(LinkKind& linkKind) override;
    void Close() override;
    void Configure(std::string portName, uint32_t baudRate, FlowControl flowControl) override;

    /// Why the last Open failed.
    const SerialOpenFailure& OpenFailure() const { return openFailure_; }

protected:
    void Run() override;
    const char* ThreadName() const override { return "serial read"; }

private:
    void OnPrompt() override { prompt_.Set(); }
    void OnCommandEnd() override;
    void SwallowUntilStopped() override;

    void ServeSignals();
    void StartOver();
    void HandOver();
    void HandOverNothing();

    Clock& clock_;
    const std::unique_ptr<SerialDevice> device_;
    SerialSettings settings_;
    SerialOpenFailure openFailure_;
    std::string lastCommand;
    ATResult expected_;  // with the two flags what a flush in the middle of a command must leave
    bool expectsPdu_ = false;
    bool awaitsPrompt_ = false;

    Event prompt_{ResetMode::Automatic};
    Event stop_{ResetMode::Manual};
    Event cancel_{ResetMode::Manual};
    Event resultReady_{ResetMode::Manual};
    Event resultTaken_{ResetMode::Manual};
    Event commandActive_{ResetMode::Manual};
    Event flushDone_{ResetMode::Manual};
    Event abort_{ResetMode::Manual};
    Event brokenOff_{ResetMode::Manual};
    Event arrived_{ResetMode::Automatic};
    std::mutex signals_;  // cancel and abort change together
    std::atomic<bool> abortParse{false};
    std::atomic<unsigned> flushesWanted_{0};
    std::atomic<unsigned> flushesServed_{0};

    LineReader reader_;
};

}  // namespace tarnbridge
