#include "simulator/Wire.h"

#include <algorithm>
#include <utility>

namespace tarnbridge::simulator {

namespace {
/// Start bit, eight data bits, stop bit; in nanoseconds of one bit at one bit a second.
constexpr int64_t byteTimeAtOneBaud = 10'000'000'000;
}  // namespace

Wire::Time Wire::TimeOf(const Transmission& transmission, size_t count) const {
    if (baud_ == 0) return transmission.start;
    return transmission.start +
           std::chrono::nanoseconds(static_cast<int64_t>(count) * byteTimeAtOneBaud / baud_);
}

size_t Wire::CountAt(const Transmission& transmission, Time now) const {
    if (now < transmission.start) return 0;
    const size_t length = transmission.bytes.size();
    if (baud_ == 0 || TimeOf(transmission, length) <= now) return length;
    const int64_t passed = std::chrono::nanoseconds(now - transmission.start).count();
    // The division in TimeOf cuts, so the byte of this very moment may be the next one.
    size_t count = static_cast<size_t>(passed * baud_ / byteTimeAtOneBaud);
    while (count < length && TimeOf(transmission, count + 1) <= now)
        ++count;
    return std::min(count, length);
}

void Wire::Arrive(std::string_view bytes, Time now) {
    if (bytes.empty()) return;
    in_.push_back({std::string(bytes), now, std::max(inFree_, now)});
    inFree_ = TimeOf(in_.back(), bytes.size());
    unheard_ += bytes.size();
}

std::optional<Wire::Heard> Wire::Hear(Time now) {
    if (in_.empty()) return std::nullopt;
    Transmission& first = in_.front();
    const Time when = TimeOf(first, first.passed + 1);
    if (when > now) return std::nullopt;
    const char byte = first.bytes[first.passed++];
    --unheard_;
    if (first.passed == first.bytes.size()) in_.pop_front();
    return Heard{byte, when};
}

void Wire::Say(std::string bytes, Time earliest) {
    if (bytes.empty()) return;
    unsent_ += bytes.size();
    out_.push_back({std::move(bytes), earliest, std::max(outFree_, earliest)});
    outFree_ = TimeOf(out_.back(), out_.back().bytes.size());
}

std::string_view Wire::Due(Time now) const {
    if (out_.empty()) return {};
    const Transmission& first = out_.front();
    return std::string_view(first.bytes).substr(first.passed, CountAt(first, now) - first.passed);
}

void Wire::Deliver(size_t count) {
    out_.front().passed += count;
    unsent_ -= count;
    if (out_.front().passed == out_.front().bytes.size()) out_.pop_front();
}

Wire::Time Wire::NextHeard() const {
    if (in_.empty()) return Time::max();
    const Transmission& first = in_.front();
    const size_t end =
        std::min(first.bytes.find_first_of("\r\x1a\x1b", first.passed), first.bytes.size() - 1);
    return TimeOf(first, end + 1);
}

Wire::Time Wire::NextDue() const {
    if (out_.empty()) return Time::max();
    const Transmission& first = out_.front();
    const size_t step = std::max<size_t>(static_cast<size_t>(baud_) / 10'000, 1);
    const size_t count = baud_ == 0 ? first.bytes.size() : std::min(first.passed + step, first.bytes.size());
    return TimeOf(first, count);
}

void Wire::Hush(Time now) {
    const std::deque<Transmission> before = std::exchange(out_, {});
    unsent_ = 0;
    outFree_ = Time{};
    for (const Transmission& transmission : before) {
        if (transmission.earliest > now) Say(transmission.bytes, transmission.earliest);
    }
}

void Wire::Clear() {
    Hush(Time::max());
    in_.clear();
    unheard_ = 0;
    inFree_ = Time{};
}

}  // namespace tarnbridge::simulator
