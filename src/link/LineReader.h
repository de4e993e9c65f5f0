#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "link/ATResult.h"
#include "link/LineTokenizer.h"

namespace tarnbridge {

/// Sees each line of the awaited response, on the read thread; true keeps it out of the result.
using LineFilter = std::function<bool(const ATLine&)>;

/// Sees each unsolicited line, on the read thread, as a result of that one line.
using UrcCallback = std::function<void(const ATResult&)>;

/// What a line reader asks of its port. All calls come from within LineReader::Feed.
class LineReaderHost {
public:
    /// The handset asks for the body of a two-stage command.
    virtual void OnPrompt() = 0;

    /// A final result stands in `collecting`. Returns when the caller has taken it, or at once if nobody
    /// waits.
    virtual void OnCommandEnd() = 0;

    /// Reads and forgets all that comes until the port is closed.
    virtual void SwallowUntilStopped() = 0;

protected:
    ~LineReaderHost() = default;
};

/// Frames a stream of bytes into lines and sorts the lines: a final result, a line of the awaited response,
/// an unsolicited line, or nothing of use (3GPP TS 27.007, verbose responses; 27.005 for the prompt and the
/// PDU lines).
///
/// A line is what stands between a CRLF and a CRLF; what comes before the first CRLF is lost. Empty lines and
/// lines of one byte vanish, and a line is cut at `longestLine` bytes.
///
/// Feed and Reset belong to the read thread. The setters may be called from any thread. `collecting` belongs
/// to the read thread but for FetchResult, which its caller runs while that thread stands in OnCommandEnd.
class LineReader {
public:
    static constexpr size_t longestLine = 8960;

    /// `host`, `stop` and what it refers to must outlive the reader.
    LineReader(LineReaderHost& host, const ParseStop& stop);

    /// Takes bytes off the wire. Stops early, losing the rest, when `stop.cancel` is signalled.
    void Feed(std::span<const char> bytes);

    /// Forgets the line in hand, what was collected, what was expected, and the wait for a prompt.
    void Reset();

    /// What of the response is kept: the prefix, `needsLine` and `allLines` of a result.
    void SetExpected(const ATResult& result);

    /// Whether the next line of the awaited response is followed by a PDU, a line of hexadecimal digits. It
    /// becomes the last field of that line. Any other line between the two is treated as usual, and the wait
    /// goes on; when a final result ends it, the field is the first such line that meant nothing, or empty.
    /// The flag goes off with the response line.
    void SetExpectPduLine(bool expect) { expectPduLine = expect; }

    /// Whether `"> "` is looked for, and lines aren't. The flag goes off with the prompt.
    void SetAwaitPrompt(bool await) { awaitPrompt = await; }

    void SetLineFilter(LineFilter filter);
    void SetUrcCallback(UrcCallback callback);

    /// Moves the collected lines out, with a copy of the rest.
    void FetchResult(ATResult& result);

    /// Replaces what was collected by an empty result of this status.
    void BreakOff(ATResult::Status status);

    /// Empties the collected lines.
    void DropLines() { collecting.lines.clear(); }

private:
    /// The last two are those of the line after a response line that a PDU follows: no CRLF stands before it.
    enum class FrameState { CarriageReturn, LineFeed, Line, LineEnd, RawLine, RawLineEnd };

    /// What a line was.
    enum class LineUse { Final, Unsolicited, Response, None };

    void TakeRun();
    void FeedByte(char byte);
    void RecognisePrompt(char byte);
    void TakeRawLine();
    LineUse ParseLine();
    void EndCommand();
    void HandleUnsolicited();
    void HandleResponseLine();
    void Keep(ATLine line);
    void EndPduWait(std::string_view text);
    bool IsUnsolicited() const;
    bool MatchesPrefix() const;
    bool WantsAllLines() const;

    LineReaderHost& host_;
    const ParseStop stop_;

    FrameState state_ = FrameState::CarriageReturn;
    std::atomic<bool> awaitPrompt{false};
    std::atomic<bool> expectPduLine{false};
    bool promptSign_ = false;  // the last byte was the `>` that may begin a prompt
    std::string lineBuffer;
    TokenizedLine line_;
    std::optional<ATLine> header_;   // a response line that waits for its PDU
    std::string strangeLine_;        // the first line after it that meant nothing
    std::span<const char> pending_;  // what Feed was given
    uint32_t finals_ = 0;            // final results so far, whether anybody waited or not

    mutable std::mutex leaf_;  // what is expected and the two functions; nothing else is locked inside it
    ATResult collecting;
    LineFilter lineFilter;
    UrcCallback urcCallback;
};

}  // namespace tarnbridge
