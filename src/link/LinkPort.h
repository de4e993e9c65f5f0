#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "link/ATResult.h"
#include "link/LineReader.h"
#include "link/WorkerThread.h"
#include "platform/SerialDevice.h"

namespace tarnbridge {

/// One connection to a handset, as the exchange of commands sees it: bytes go out, and a read thread of its
/// own brings results in. The events are how the one caller and the read thread meet:
///
/// | Event | Set by | Awaited by |
/// |---|---|---|
/// | prompt | read thread | caller, after the first stage of a two-stage command |
/// | result ready | read thread | caller |
/// | result taken | caller, also one that has given up | read thread, without limit |
/// | command active | caller | read thread, asked: without it a result is thrown away |
/// | flush done | read thread | Flush |
/// | abort | BreakOff, a hang-up | read thread: hands over an empty result |
/// | broken off | read thread, with that result | caller that waits for the prompt |
/// | cancel | Flush, BreakOff, a caller that gives up | read thread, also in a line: forgets it |
/// | arrived | read thread, when bytes have come | AwaitQuiet, a caller that looks for signs of life |
class LinkPort : public WorkerThread {
public:
    /// Sends all the bytes; false after a second failure.
    virtual bool Write(std::string_view bytes) = 0;

    /// Arms the raw second line of a response.
    virtual void SetExpectPduLine(bool expect) = 0;
    /// Arms the recogniser of the prompt `"> "`.
    virtual void SetAwaitPrompt(bool await) = 0;
    virtual Event& PromptEvent() = 0;
    /// Keeps a copy of the command's text, for a debugger's eyes.
    virtual void SetLastCommand(std::string_view text) = 0;
    virtual Event& ResultReadyEvent() = 0;
    virtual Event& ResultTakenEvent() = 0;
    virtual Event& CommandActiveEvent() = 0;
    virtual Event& FlushDoneEvent() = 0;
    virtual Event& BrokenOffEvent() = 0;
    virtual Event& ArrivedEvent() = 0;

    /// Has the read thread forget what it has in hand, without waiting for that.
    virtual void Cancel() = 0;

    /// Cancels, and ends the exchange under way with an empty result, both in one step of the read thread.
    virtual void BreakOff() = 0;

    /// Forgets a BreakOff that no exchange has seen.
    virtual void ForgetBreak() = 0;

    /// Throws away what is queued and has the read thread forget what it has in hand; waits for that at most
    /// 3,000 ms.
    virtual void Flush() = 0;

    /// Waits until no byte has come for a while. False if that takes longer than the limit.
    virtual bool AwaitQuiet(Milliseconds quiet, Milliseconds limit) = 0;

    /// Whether the far end has gone: nothing comes any more.
    virtual bool HungUp() const = 0;

    /// Moves the result out. Only between result ready and result taken.
    virtual void FetchResult(ATResult& result) = 0;

    virtual void SetLineFilter(LineFilter filter) = 0;
    virtual void SetUrcCallback(UrcCallback callback) = 0;

    /// What of the response is kept: the result's prefix and flags. Before the command is written.
    virtual void SetExpected(const ATResult& result) = 0;

    /// Opens the port and starts the read thread. A failure leaves nothing open.
    virtual bool Open(LinkKind& linkKind) = 0;

    /// Stops the thread and closes the port. A read thread that waits for a result to be taken never ends:
    /// the owner sets result taken first.
    virtual void Close() = 0;

    virtual void Configure(std::string portName, uint32_t baudRate, FlowControl flowControl) = 0;
};

}  // namespace tarnbridge
