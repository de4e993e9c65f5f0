#include "support/SimulatedPhone.h"

#include <algorithm>
#include <utility>

#include "support/Must.h"

namespace tarnbridge::test {

using simulator::HandsetContent;
using simulator::HandsetLine;

/// Runs the change under the lock, then tells the clock, which may hold its own lock while it asks.
template <typename Change>
auto SimulatedPhone::Changing(Change change) {
    struct Stirrer {
        VirtualTime& time;
        ~Stirrer() { time.Stir(); }
    } const stirrer{time_};
    const std::lock_guard guard(mutex_);
    return change();
}

class SimulatedPhone::Device : public SerialDevice {
public:
    explicit Device(SimulatedPhone& phone) : phone_(phone) {}
    ~Device() override { Close(); }

    bool Open(const SerialSettings& settings, SerialOpenFailure& failure) override {
        const std::lock_guard guard(phone_.mutex_);
        phone_.Pump();
        failure = {SerialOpenFault::None, settings.name, {}, {}, 0, {}, false};
        if (phone_.open_ != nullptr) failure.fault = SerialOpenFault::InUse;
        if (!phone_.plugged_) failure.fault = SerialOpenFault::Missing;
        if (failure.fault != SerialOpenFault::None) return false;
        phone_.open_ = this;
        lost_ = lossSeen_ = woken_ = false;
        return true;
    }

    void Close() override {
        const std::lock_guard guard(phone_.mutex_);
        if (phone_.open_ != this) return;
        phone_.open_ = nullptr;
        if (!lost_) phone_.line_.Desert(phone_.time_.Exactly());
    }

    LinkKind Kind() const override { return LinkKind::Modem; }

    int QueuedCount() override {
        const std::lock_guard guard(phone_.mutex_);
        return lost_ ? 0 : static_cast<int>(Due().size());
    }

    int Read(std::span<char> buffer) override {
        return phone_.Changing([&] {
            size_t count = 0;
            while (!lost_ && count < buffer.size()) {
                const std::string_view due = Due().substr(0, buffer.size() - count);
                if (due.empty()) break;
                std::copy(due.begin(), due.end(), buffer.begin() + static_cast<ptrdiff_t>(count));
                count += due.size();
                phone_.line_.Deliver(due.size());
            }
            if (count > 0) phone_.Pump();
            return static_cast<int>(count);
        });
    }

    int Write(std::string_view bytes) override {
        return phone_.Changing([&] {
            if (lost_) return -1;
            phone_.line_.Arrive(bytes, phone_.time_.Exactly());
            phone_.Pump();
            return static_cast<int>(bytes.size());
        });
    }

    void Purge() override {
        const std::lock_guard guard(phone_.mutex_);
        while (!lost_ && !Due().empty())
            phone_.line_.Deliver(Due().size());
    }

    void WaitReadable(Milliseconds limit) override {
        std::unique_lock guard(phone_.mutex_);
        const auto over = [&] { return woken_ || lost_ != lossSeen_ || (!lost_ && !Due().empty()); };
        // Who has just been woken may have left something to the next round, so that one is free: the clock
        // mustn't take them for idle before it.
        if (!over() && std::exchange(roundDue_, false)) return;
        if (limit == forever) {
            phone_.changed_.wait(guard, over);
        } else {
            phone_.changed_.wait_for(guard, limit, over);
        }
        roundDue_ = over();
        lossSeen_ = lost_;
        woken_ = false;
    }

    void Wake() override {
        const std::lock_guard guard(phone_.mutex_);
        woken_ = true;
        phone_.changed_.notify_all();
    }

    bool HungUp() const override {
        const std::lock_guard guard(phone_.mutex_);
        return lost_;
    }

    /// The plug was pulled; under the phone's lock.
    void Lose() { lost_ = true; }

private:
    std::string_view Due() const { return phone_.line_.Due(phone_.time_.Exactly()); }

    SimulatedPhone& phone_;
    bool lost_ = false;  // under the phone's lock
    bool woken_ = false;
    bool roundDue_ = false;
    bool lossSeen_ = false;
};

SimulatedPhone::SimulatedPhone(VirtualTime& time, VirtualHandsetOptions options)
    : time_(time),
      line_(options.demo ? HandsetContent::Demo() : HandsetContent::Empty(),
            Must(simulator::Faults::Parse(options.faults)), options.baud, [&time] { return time.Local(); }) {
    line_.onCommand = [this](const std::string& command) {
        if (hook_) hook_(line_, command);
    };
    time_.Add(*this);
}

SimulatedPhone::~SimulatedPhone() {
    time_.Remove(*this);
}

SerialDeviceFactory SimulatedPhone::Factory() {
    return [this] { return std::make_unique<Device>(*this); };
}

void SimulatedPhone::OnCommand(std::function<void(HandsetLine&, const std::string&)> hook) {
    const std::lock_guard guard(mutex_);
    hook_ = std::move(hook);
}

void SimulatedPhone::SetFaults(const std::vector<std::string>& faults) {
    Changing([&] { line_.SetFaults(Must(simulator::Faults::Parse(faults))); });
}

void SimulatedPhone::Script(const std::string& line, const std::string& reply) {
    const std::lock_guard guard(mutex_);
    line_.Phone().Script(line, reply);
}

void SimulatedPhone::Say(const std::string& bytes) {
    Changing([&] {
        line_.Say(bytes, time_.Exactly());
        changed_.notify_all();
    });
}

std::vector<std::string> SimulatedPhone::Commands() {
    const std::lock_guard guard(mutex_);
    return {line_.Commands().begin(), line_.Commands().end()};
}

void SimulatedPhone::ForgetCommands() {
    const std::lock_guard guard(mutex_);
    line_.ForgetCommands();
}

size_t SimulatedPhone::Count(const std::string& line) {
    const std::lock_guard guard(mutex_);
    return static_cast<size_t>(std::count(line_.Commands().begin(), line_.Commands().end(), line));
}

void SimulatedPhone::Unplug() {
    Changing([&] {
        line_.Pull();
        Pump();
    });
}

void SimulatedPhone::Plug() {
    Changing([&] {
        line_.PutIn();
        Pump();
    });
}

VirtualTime::Moment SimulatedPhone::Next(VirtualTime::Moment now) {
    const std::lock_guard guard(mutex_);
    // What is past was seen to; bytes that nobody reads stay due.
    VirtualTime::Moment next = VirtualTime::Moment::max();
    for (const VirtualTime::Moment moment : {line_.NextDeed(), line_.NextDue()}) {
        if (moment > now) next = std::min(next, moment);
    }
    return next;
}

void SimulatedPhone::Reached(VirtualTime::Moment) {
    const std::lock_guard guard(mutex_);
    Pump();
}

/// Does all that is due.
void SimulatedPhone::Pump() {
    const VirtualTime::Moment now = time_.Exactly();
    if (plugged_) line_.Advance(now);
    while (open_ == nullptr && !line_.Due(now).empty())
        line_.Deliver(line_.Due(now).size());  // bytes that nobody listens to are lost
    if (killUser_.exchange(false) && open_ != nullptr) {
        line_.Desert(now);
        open_->Lose();
    }
    const bool wanted = line_.WantsPlug(now);
    if (wanted != std::exchange(plugged_, wanted)) {
        line_.Replug();
        if (!wanted && open_ != nullptr) open_->Lose();
    }
    changed_.notify_all();
}

}  // namespace tarnbridge::test
