#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/Event.h"

namespace tarnbridge {

enum class FlowControl : int32_t { None = 0, Hardware = 1, Software = 2 };

/// What kind of hardware stands behind a port.
enum class LinkKind : int32_t { Other = 0, Modem = 1, Rs232 = 2 };

struct SerialSettings {
    std::string name;  ///< `\\.\COM%d`, `COM%d`, or a path of the system
    uint32_t baudRate = 115200;
    FlowControl flowControl = FlowControl::None;
};

enum class SerialOpenFault {
    None,
    Missing,          ///< there is no such device, or nothing is plugged in behind it
    NoRights,         ///< the user may not open it
    InUse,            ///< another process has it
    NotSerial,        ///< it isn't a serial port
    UnsupportedRate,  ///< the system has no such baud rate
    Other
};

/// Why a port couldn't be opened, with what helps the user. Texts that don't apply are empty.
struct SerialOpenFailure {
    SerialOpenFault fault = SerialOpenFault::None;
    std::string device;             ///< the path that was tried, or the name where it has none
    std::string systemText;         ///< the system's own words
    std::string owningGroup;        ///< NoRights: the group that may open the device
    int holderId = 0;               ///< InUse: the process that has it, 0 if the system doesn't tell
    std::string holderName;         ///< InUse: its name
    bool modemManagerRuns = false;  ///< InUse: it probes new ports for some ten seconds
};

/// One serial port, 8 data bits, no parity, one stop bit, raw, opened for one owner alone.
///
/// Open and Close belong to the owner. Once open, one thread may read while another writes; Purge,
/// QueuedCount, Read, Write and Wake may be called from any thread. A port whose far end has gone reads
/// nothing, fails to write, and says so through HungUp until it is closed; it never comes back by itself.
class SerialDevice {
public:
    virtual ~SerialDevice() = default;

    /// On failure nothing stays open and `failure` says why.
    virtual bool Open(const SerialSettings& settings, SerialOpenFailure& failure) = 0;

    /// Waits for a Write under way. Nothing if closed.
    virtual void Close() = 0;

    virtual LinkKind Kind() const = 0;

    /// Bytes that can be read at once; -1 if the system fails.
    virtual int QueuedCount() = 0;

    /// Reads what is queued, at most the buffer's size, without waiting. Gives the number of bytes, 0 for
    /// none, or -1 if the system fails.
    virtual int Read(std::span<char> buffer) = 0;

    /// Writes all the bytes, waiting at most 2,000 ms. Gives the number written, fewer when the time is over,
    /// or -1 if the system fails.
    virtual int Write(std::string_view bytes) = 0;

    /// Throws away what is queued in both directions.
    virtual void Purge() = 0;

    /// Waits until bytes can be read, Wake is called, or the time is over; after a hang-up for Wake or the
    /// time alone.
    virtual void WaitReadable(Milliseconds limit) = 0;

    /// Ends the wait that is under way or the next one.
    virtual void Wake() = 0;

    virtual bool HungUp() const = 0;
};

/// Makes a closed device. A connection makes one, and tests give their own.
using SerialDeviceFactory = std::function<std::unique_ptr<SerialDevice>()>;

class PortMap;

/// Devices of this machine. COM names are looked up in the map, which must outlive the factory.
SerialDeviceFactory SystemSerialDevices(const PortMap& ports);

}  // namespace tarnbridge
