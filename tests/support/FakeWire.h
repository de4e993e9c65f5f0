#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/SerialDevice.h"

namespace tarnbridge::test {

/// The far end of a serial device that a test holds in its hand: it answers commands from a table, and fails,
/// splits, delays and drops as told. One wire can serve several connections, one after the other. All
/// operations may be called from any thread.
class FakeWire {
public:
    FakeWire();

    /// Makes devices on this wire, which must outlive them.
    SerialDeviceFactory Factory();

    /// What comes back when exactly this text is written; texts without an answer get `otherAnswer`.
    void Answer(const std::string& text, const std::string& reply);
    /// The same for a text that gets another answer each time; the last one stays.
    void AnswerInTurn(const std::string& text, std::deque<std::string> replies);
    void SetOtherAnswer(const std::string& reply);

    /// Bytes from the handset that answer nothing.
    void Send(const std::string& bytes);

    /// Every text written so far.
    std::vector<std::string> Written();
    size_t CountWritten(const std::string& text);
    void ForgetWritten();

    // Faults, in force until changed.
    void SplitReads(size_t bytes);          ///< at most so many bytes a read; 0 is no limit
    void DelayReplies(Milliseconds delay);  ///< between a write and its reply
    void FailOpen(SerialOpenFault fault);   ///< None opens again
    void HangUp(bool hungUp);  ///< nothing is read or written while hung up; a new open works after false
    /// Results of the next writes, instead of success: -1 fails, n writes n bytes only. To each of them the
    /// far end says `reply`.
    void ScriptWrites(std::deque<int> results, const std::string& reply = {});

private:
    class Device;
    struct Chunk {
        std::chrono::steady_clock::time_point due;
        std::string bytes;
    };

    int Read(std::span<char> buffer);
    int Write(std::string_view bytes);
    void Wait(Milliseconds limit);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::map<std::string, std::deque<std::string>> answers_;
    std::string otherAnswer_ = "\r\nERROR\r\n";
    std::deque<Chunk> incoming_;
    std::vector<std::string> written_;
    std::deque<int> writeResults_;
    std::string replyToScripted_;
    size_t split_ = 0;
    Milliseconds delay_{0};
    SerialOpenFault openFault_ = SerialOpenFault::None;
    bool hungUp_ = false;
    bool woken_ = false;
};

/// `\r\nLINE\r\n` for each line.
std::string Lines(const std::vector<std::string>& lines);

/// Gives the wire the answers of a handset that has every feature, so that a handshake succeeds.
void AnswerHandshake(FakeWire& wire);

}  // namespace tarnbridge::test
