#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "platform/SerialDevice.h"
#include "simulator/HandsetLine.h"
#include "support/VirtualHandset.h"
#include "support/VirtualTime.h"

namespace tarnbridge::test {

/// A handset for a test, in this process and on virtual time, behind serial devices that it makes itself:
/// what the phone does comes from the same code as that of a VirtualHandset, but there is no pseudo-terminal,
/// no thread and no real time. One device at a time can be open. The phone must outlive its devices; it may
/// be used from any thread.
class SimulatedPhone : private VirtualTime::Participant {
public:
    explicit SimulatedPhone(VirtualTime& time, VirtualHandsetOptions options = {});
    ~SimulatedPhone() override;

    /// Makes closed devices; whatever name they are opened by, this phone is behind it.
    SerialDeviceFactory Factory();

    /// Runs `use(simulator::HandsetContent&)` between two bytes of the dialogue, to look at the content or to
    /// change it, and gives what it returns. Changed features hold from the next command on.
    template <typename Use>
    auto With(Use use) {
        const std::lock_guard guard(mutex_);
        return use(line_.Phone().Content());
    }

    /// The same with the whole of the phone and its line.
    template <typename Use>
    auto Look(Use use) {
        const std::lock_guard guard(mutex_);
        return use(line_);
    }

    /// Called with each command line before anything is done about it, on the thread that wrote it or one of
    /// the clock's. It must not wait, and reaches the phone through the line that it is given alone, to
    /// change its content or faults or to pull the plug.
    void OnCommand(std::function<void(simulator::HandsetLine&, const std::string&)> hook);

    /// Replaces all faults; counting begins anew.
    void SetFaults(const std::vector<std::string>& faults);

    /// From now on a command line (as sent, without its CR: "AT+X") is answered with these bytes as they
    /// stand, line ends included; an empty reply is silence.
    void Script(const std::string& line, const std::string& reply);

    /// Bytes that the handset says by itself, now.
    void Say(const std::string& bytes);

    /// The command lines heard since the last ForgetCommands, without CR, in order.
    std::vector<std::string> Commands();
    void ForgetCommands();

    /// How often this command line has been heard since then.
    size_t Count(const std::string& line);

    /// As StatesIn.
    std::map<int, int> Locations(const std::string& memory) {
        return With([&](simulator::HandsetContent& content) { return StatesIn(content, memory); });
    }

    /// The program behind the open device is killed, as far as the phone can see: the device is dead, and the
    /// phone keeps its session and its prompt. In a hook it takes effect after the command.
    void KillUser() { killUser_ = true; }

    /// A pulled plug is a hang-up for the device that is open; after Plug another one can be opened.
    void Unplug();
    void Plug();

private:
    class Device;

    VirtualTime::Moment Next(VirtualTime::Moment now) override;
    void Reached(VirtualTime::Moment now) override;

    template <typename Change>
    auto Changing(Change change);
    void Pump();

    VirtualTime& time_;
    std::mutex mutex_;  // all below
    std::condition_variable changed_;
    simulator::HandsetLine line_;
    std::function<void(simulator::HandsetLine&, const std::string&)> hook_;
    Device* open_ = nullptr;
    std::atomic<bool> killUser_{false};
    bool plugged_ = true;
};

}  // namespace tarnbridge::test
