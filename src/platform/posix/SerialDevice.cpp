#include "platform/SerialDevice.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <mutex>

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>

#include "platform/PortMap.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/posix/LineRate.h"
#include "platform/posix/SerialDiagnosis.h"

namespace tarnbridge {
namespace {

constexpr Milliseconds writeLimit{2000};
constexpr cc_t xonCharacter = 17;
constexpr cc_t xoffCharacter = 19;

/// The kind by the name that the kernel gives to such devices.
LinkKind KindOf(const std::string& path) {
    std::error_code error;
    const std::string name = std::filesystem::canonical(path, error).filename().string();
    if (name.starts_with("ttyACM")) return LinkKind::Modem;
    if (name.starts_with("ttyUSB") || name.starts_with("ttyS")) return LinkKind::Rs232;
    return LinkKind::Other;
}

class PosixSerialDevice : public SerialDevice {
public:
    explicit PosixSerialDevice(const PortMap& ports)
        : ports_(ports), wake_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}
    ~PosixSerialDevice() override { Close(); }

    bool Open(const SerialSettings& settings, SerialOpenFailure& failure) override;
    void Close() override;
    LinkKind Kind() const override { return kind_; }
    int QueuedCount() override;
    int Read(std::span<char> buffer) override;
    int Write(std::string_view bytes) override;
    void Purge() override { ::tcflush(port_.Get(), TCIOFLUSH); }
    void WaitReadable(Milliseconds limit) override;
    void Wake() override;
    bool HungUp() const override { return hungUp_; }

private:
    bool Configure(const SerialSettings& settings);

    const PortMap& ports_;
    const FileDescriptor wake_;
    FileDescriptor port_;
    std::mutex writing_;  // a Write under way holds off Close
    termios before_{};
    LinkKind kind_ = LinkKind::Other;
    std::atomic<bool> hungUp_{false};
};

bool PosixSerialDevice::Open(const SerialSettings& settings, SerialOpenFailure& failure) {
    std::string path = settings.name;
    if (const auto number = PortMap::ParseName(settings.name)) {
        path = ports_.DeviceOf(*number).value_or("");
        if (path.empty()) {
            failure = {SerialOpenFault::Missing, settings.name, {}, {}, 0, {}, false};
            return false;
        }
    }
    const auto fail = [&](const char* call) {
        failure = DiagnoseSerialOpen(path, errno, call);
        port_.Reset();
        return false;
    };

    port_.Reset(::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!port_) return fail("open");
    if (::tcgetattr(port_.Get(), &before_) != 0) return fail("use");
    // The exclusive mode keeps out whoever isn't root, the lock whoever asks for one.
    if (::flock(port_.Get(), LOCK_EX | LOCK_NB) != 0) return fail("lock");
    if (::ioctl(port_.Get(), TIOCEXCL) != 0) return fail("lock");
    if (!Configure(settings)) return fail("configure");
    if (!SetLineRate(port_.Get(), settings.baudRate)) {
        const bool isRefused = errno == EINVAL;
        ::tcsetattr(port_.Get(), TCSANOW, &before_);
        fail("set the rate of");
        if (isRefused) failure.fault = SerialOpenFault::UnsupportedRate;
        return false;
    }
    kind_ = KindOf(path);
    hungUp_ = false;
    Purge();
    return true;
}

bool PosixSerialDevice::Configure(const SerialSettings& settings) {
    termios line = before_;
    ::cfmakeraw(&line);
    line.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS | HUPCL);
    line.c_cflag |= CREAD | CLOCAL;
    if (settings.flowControl == FlowControl::Hardware) line.c_cflag |= CRTSCTS;
    line.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY | INPCK);
    if (settings.flowControl == FlowControl::Software) {
        line.c_iflag |= IXON | IXOFF;
        line.c_cc[VSTART] = xonCharacter;
        line.c_cc[VSTOP] = xoffCharacter;
    }
    line.c_cc[VMIN] = 0;
    line.c_cc[VTIME] = 0;
    if (::tcsetattr(port_.Get(), TCSANOW, &line) != 0) return false;

    // A pseudo-terminal has no modem lines, and a cable may leave them out.
    int dataTerminalReady = TIOCM_DTR;
    ::ioctl(port_.Get(), TIOCMBIC, &dataTerminalReady);
    if (settings.flowControl != FlowControl::Hardware) {
        int requestToSend = TIOCM_RTS;
        ::ioctl(port_.Get(), TIOCMBIS, &requestToSend);
    }
    return true;
}

void PosixSerialDevice::Close() {
    const std::lock_guard guard(writing_);
    if (!port_) return;
    ::tcsetattr(port_.Get(), TCSANOW, &before_);
    ::ioctl(port_.Get(), TIOCNXCL);
    port_.Reset();
}

int PosixSerialDevice::QueuedCount() {
    int count = 0;
    return ::ioctl(port_.Get(), FIONREAD, &count) == 0 ? count : -1;
}

int PosixSerialDevice::Read(std::span<char> buffer) {
    const ssize_t count = ::read(port_.Get(), buffer.data(), buffer.size());
    if (count >= 0) return static_cast<int>(count);
    return errno == EAGAIN || errno == EINTR ? 0 : -1;
}

int PosixSerialDevice::Write(std::string_view bytes) {
    const std::lock_guard guard(writing_);
    const auto deadline = std::chrono::steady_clock::now() + writeLimit;
    size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(port_.Get(), bytes.data() + written, bytes.size() - written);
        if (count > 0) {
            written += static_cast<size_t>(count);
            continue;
        }
        if (count < 0 && errno != EAGAIN && errno != EINTR) return -1;
        const auto left = std::chrono::ceil<Milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) break;
        pollfd writable{port_.Get(), POLLOUT, 0};
        ::poll(&writable, 1, static_cast<int>(left.count()));
    }
    return static_cast<int>(written);
}

void PosixSerialDevice::WaitReadable(Milliseconds limit) {
    // A port that hung up stays readable for ever: it is left out, or the wait would spin.
    std::array<pollfd, 2> waits{{{wake_.Get(), POLLIN, 0}, {port_.Get(), POLLIN, 0}}};
    if (::poll(waits.data(), hungUp_ ? 1 : 2, static_cast<int>(limit.count())) <= 0) return;
    if (waits[0].revents != 0) {
        eventfd_t ignored = 0;
        ::eventfd_read(wake_.Get(), &ignored);
    }
    if ((waits[1].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) hungUp_ = true;
}

void PosixSerialDevice::Wake() {
    ::eventfd_write(wake_.Get(), 1);
}

}  // namespace

SerialDeviceFactory SystemSerialDevices(const PortMap& ports) {
    return [&ports] { return std::make_unique<PosixSerialDevice>(ports); };
}

}  // namespace tarnbridge
