#include "tarnctl/Connection.h"

#include <fmt/format.h>

#include "platform/Text.h"
#include "tarnctl/Output.h"
#include "tarnctl/TracingDevice.h"

namespace tarnbridge {
namespace {

SerialDeviceFactory Devices(const PortMap& ports, bool trace) {
    SerialDeviceFactory devices = SystemSerialDevices(ports);
    return trace ? TracingDevices(std::move(devices)) : devices;
}

}  // namespace

Connection::Connection(const GlobalOptions& options)
    : options_(options), link_(clock_, Devices(ports_, options.trace)) {
    if (options_.trace) {
        link_.trace = [](std::string_view text) { fmt::print(stderr, "{}\n", MakeVisible(text)); };
    }
    watcher_.Start("cancel watch", [this] { WatchForCancel(); });
}

Connection::~Connection() {
    handingBack_ = true;
    link_.Disconnect(true);
    ended_.Set();
    watcher_.Join();
}

void Connection::WatchForCancel() {
    Event* const events[] = {&ended_, &signal_.Requested()};
    while (Event::WaitAny(events, forever) != 0) {
        signal_.Requested().Reset();
        const bool again = cancelled_.exchange(true);
        link_.SetHurried(true);
        if (!handingBack_ && (!patient_ || again)) link_.BreakExchange();
    }
}

bool Connection::Open() {
    if (!OpenPort()) return false;
    if (link_.EnsureSession()) return true;
    if (cancelled_)
        PrintWords("cancelled");
    else if (link_.HasHungUp())
        PrintWords("the handset was unplugged");
    else
        PrintWords(
            fmt::format("the handset on {} does not answer as one (--trace shows the dialogue)", device_));
    return false;
}

bool Connection::OpenPort() {
    int number = 0;
    if (options_.port.empty()) {
        number = store_->GetNumber("Option", "Port").value_or(1);
    } else {
        number = PortMap::ParseName(options_.port).value_or(0);
    }
    std::string name = options_.port;
    device_ = options_.port;
    if (number != 0) {
        name = PortMap::NameOf(number);
        device_ = ports_.DeviceOf(number).value_or(fmt::format("COM{}", number));
    }
    const LinkSpeed speed = ChooseLinkSpeed(options_, *store_);
    if (!link_.Connect(name, kind_, speed.baudRate, speed.flowControl)) {
        PrintWords(ExplainOpenFailure(link_.OpenFailure()));
        return false;
    }
    // A path that works gets a number by which it is known from now on.
    if (number == 0) ports_.NumberOf(options_.port);
    return true;
}

std::string ExplainOpenFailure(const SerialOpenFailure& failure) {
    switch (failure.fault) {
        case SerialOpenFault::Missing:
            if (PortMap::ParseName(failure.device)) {
                return fmt::format(
                    "no device is known as {}: 'tarnctl ports' lists what is plugged in, and --port takes a "
                    "path",
                    failure.device.substr(failure.device.find("COM")));
            }
            return fmt::format(
                "there is no port {}: is the handset plugged in? 'tarnctl ports' lists what is",
                failure.device);
        case SerialOpenFault::NoRights:
            return fmt::format(
                "no rights to open {0}: it belongs to the group {1}; join it with 'sudo usermod -aG {1} "
                "$USER' "
                "and log in again",
                failure.device, failure.owningGroup);
        case SerialOpenFault::InUse: {
            std::string words = fmt::format("{} is in use", failure.device);
            if (failure.holderId != 0)
                words += fmt::format(" by {} (process {})", failure.holderName, failure.holderId);
            if (failure.modemManagerRuns) {
                words +=
                    "; ModemManager is running and probes new ports for some ten seconds: wait, or keep it "
                    "away with "
                    "the udev rule that comes with the program";
            }
            return words;
        }
        case SerialOpenFault::NotSerial:
            return fmt::format("{} is not a serial port", failure.device);
        case SerialOpenFault::UnsupportedRate:
            return fmt::format("{} can't be set to that baud rate", failure.device);
        case SerialOpenFault::None:
        case SerialOpenFault::Other:
            break;
    }
    return failure.systemText.empty() ? fmt::format("cannot open {}", failure.device) : failure.systemText;
}

std::string ExplainResult(HandsetLink& link, const ATResult& result) {
    if (link.HasHungUp()) return "the handset was unplugged";
    if (result.status == ATResult::NotSent) return "the command was not sent: there is no session any more";
    if (result.lines.empty() || result.lines.back().empty()) return "the handset did not answer in time";
    const std::string& word = result.lines.back()[0].text;
    const int32_t number = result.ErrorNumber();
    return number >= 0 ? fmt::format("the handset answered {}: {}", word, number)
                       : fmt::format("the handset answered {}", word);
}

}  // namespace tarnbridge
