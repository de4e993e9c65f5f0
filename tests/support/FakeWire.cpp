#include "support/FakeWire.h"

#include <algorithm>

namespace tarnbridge::test {

class FakeWire::Device : public SerialDevice {
public:
    explicit Device(FakeWire& wire) : wire_(wire) {}

    bool Open(const SerialSettings& settings, SerialOpenFailure& failure) override {
        const std::lock_guard guard(wire_.mutex_);
        failure = {
            wire_.hungUp_ ? SerialOpenFault::Missing : wire_.openFault_, settings.name, {}, {}, 0, {}, false};
        wire_.incoming_.clear();
        lost_ = false;
        return failure.fault == SerialOpenFault::None;
    }
    void Close() override {}
    LinkKind Kind() const override { return LinkKind::Modem; }
    int QueuedCount() override {
        const std::lock_guard guard(wire_.mutex_);
        return wire_.incoming_.empty() ? 0 : static_cast<int>(wire_.incoming_.front().bytes.size());
    }
    int Read(std::span<char> buffer) override { return HungUp() ? 0 : wire_.Read(buffer); }
    int Write(std::string_view bytes) override { return HungUp() ? -1 : wire_.Write(bytes); }
    void Purge() override {
        const std::lock_guard guard(wire_.mutex_);
        wire_.incoming_.clear();
    }
    void WaitReadable(Milliseconds limit) override { wire_.Wait(limit); }
    void Wake() override {
        const std::lock_guard guard(wire_.mutex_);
        wire_.woken_ = true;
        wire_.changed_.notify_all();
    }
    bool HungUp() const override {
        const std::lock_guard guard(wire_.mutex_);
        lost_ |= wire_.hungUp_;
        return lost_;
    }

private:
    FakeWire& wire_;
    mutable bool lost_ = false;  // a device that hung up never comes back by itself
};

FakeWire::FakeWire() = default;

SerialDeviceFactory FakeWire::Factory() {
    return [this] { return std::make_unique<Device>(*this); };
}

void FakeWire::Answer(const std::string& text, const std::string& reply) {
    AnswerInTurn(text, {reply});
}

void FakeWire::AnswerInTurn(const std::string& text, std::deque<std::string> replies) {
    const std::lock_guard guard(mutex_);
    answers_[text] = std::move(replies);
}

void FakeWire::SetOtherAnswer(const std::string& reply) {
    const std::lock_guard guard(mutex_);
    otherAnswer_ = reply;
}

void FakeWire::Send(const std::string& bytes) {
    const std::lock_guard guard(mutex_);
    incoming_.push_back({std::chrono::steady_clock::now(), bytes});
    changed_.notify_all();
}

std::vector<std::string> FakeWire::Written() {
    const std::lock_guard guard(mutex_);
    return written_;
}

size_t FakeWire::CountWritten(const std::string& text) {
    const std::lock_guard guard(mutex_);
    return static_cast<size_t>(std::count(written_.begin(), written_.end(), text));
}

void FakeWire::ForgetWritten() {
    const std::lock_guard guard(mutex_);
    written_.clear();
}

void FakeWire::SplitReads(size_t bytes) {
    const std::lock_guard guard(mutex_);
    split_ = bytes;
}

void FakeWire::DelayReplies(Milliseconds delay) {
    const std::lock_guard guard(mutex_);
    delay_ = delay;
}

void FakeWire::FailOpen(SerialOpenFault fault) {
    const std::lock_guard guard(mutex_);
    openFault_ = fault;
}

void FakeWire::HangUp(bool hungUp) {
    const std::lock_guard guard(mutex_);
    hungUp_ = hungUp;
    incoming_.clear();
}

void FakeWire::ScriptWrites(std::deque<int> results, const std::string& reply) {
    const std::lock_guard guard(mutex_);
    writeResults_ = std::move(results);
    replyToScripted_ = reply;
}

int FakeWire::Read(std::span<char> buffer) {
    const std::lock_guard guard(mutex_);
    if (incoming_.empty() || incoming_.front().due > std::chrono::steady_clock::now()) return 0;
    std::string& bytes = incoming_.front().bytes;
    size_t count = std::min(bytes.size(), buffer.size());
    if (split_ > 0) count = std::min(count, split_);
    std::copy_n(bytes.begin(), count, buffer.begin());
    bytes.erase(0, count);
    if (bytes.empty()) incoming_.pop_front();
    return static_cast<int>(count);
}

int FakeWire::Write(std::string_view bytes) {
    const std::lock_guard guard(mutex_);
    if (!writeResults_.empty()) {
        const int result = writeResults_.front();
        writeResults_.pop_front();
        if (!replyToScripted_.empty())
            incoming_.push_back({std::chrono::steady_clock::now(), replyToScripted_});
        changed_.notify_all();
        return result;
    }
    const std::string text(bytes);
    written_.push_back(text);
    std::string reply = otherAnswer_;
    if (const auto found = answers_.find(text); found != answers_.end()) {
        reply = found->second.front();
        if (found->second.size() > 1) found->second.pop_front();
    }
    if (!reply.empty()) incoming_.push_back({std::chrono::steady_clock::now() + delay_, reply});
    changed_.notify_all();
    return static_cast<int>(bytes.size());
}

void FakeWire::Wait(Milliseconds limit) {
    std::unique_lock guard(mutex_);
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!woken_) {
        const auto now = std::chrono::steady_clock::now();
        const auto due = incoming_.empty() || hungUp_ ? end : std::min(end, incoming_.front().due);
        if (due <= now) break;
        changed_.wait_until(guard, due);
    }
    woken_ = false;
}

std::string Lines(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines)
        bytes += "\r\n" + line + "\r\n";
    return bytes;
}

void AnswerHandshake(FakeWire& wire) {
    for (const char* command :
         {"AT\r", "ATE0\r", "ATE1\r", "AT+EFSR\r", "AT+ESLP=0\r", "AT+ESLP=1\r", "AT+ESUO=3\r", "AT+ESUO=4\r",
          "AT+CMGF=0\r", "AT+CSCS=\"UCS2\"\r", "AT+CSCS=\"UCS2_0x81\"\r", "AT+EFSC=?\r", "AT+EVCARD=?\r"}) {
        wire.Answer(command, Lines({"OK"}));
    }
    wire.Answer("\x1B", "");
    wire.Answer("AT+CMGF?\r", Lines({"+CMGF: 0", "OK"}));
    wire.Answer("AT+CSCS?\r", Lines({"+CSCS: \"UCS2\"", "OK"}));
    wire.Answer("AT+CMEE?\r", Lines({"+CMEE: 1", "OK"}));
    wire.Answer("AT+ESUO?\r", Lines({"+ESUO: 4", "OK"}));
    wire.Answer("AT+EFSW?\r", Lines({"+EFSW: 1024", "OK"}));
    wire.Answer("AT+EQUERY=0\r", Lines({"+CMGW: (0-3)", "OK"}));
    wire.Answer("AT+CPMS=?\r",
                Lines({"+CPMS: (\"SM\",\"ME\",\"MT\"),(\"SM\",\"ME\",\"MT\"),(\"SM\",\"ME\",\"MT\")", "OK"}));
}

}  // namespace tarnbridge::test
