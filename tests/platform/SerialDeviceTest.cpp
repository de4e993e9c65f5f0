#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "platform/FileEntryStore.h"
#include "platform/PortMap.h"
#include "platform/Process.h"
#include "platform/SerialDevice.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

/// The far end of a pseudo-terminal, reached by plain system calls.
class Pty {
public:
    Pty() : master(::posix_openpt(O_RDWR | O_NOCTTY)) {
        ::grantpt(master);
        ::unlockpt(master);
        path = ::ptsname(master);
    }
    ~Pty() { HangUp(); }

    void HangUp() {
        if (master >= 0) ::close(master);
        master = -1;
    }
    void Write(const std::string& bytes) const {
        EXPECT_EQ(::write(master, bytes.data(), bytes.size()), ssize_t(bytes.size()));
    }
    std::string Read() const {
        pollfd readable{master, POLLIN, 0};
        if (::poll(&readable, 1, 2000) <= 0) return "nothing came";
        char buffer[4096];
        const ssize_t count = ::read(master, buffer, sizeof buffer);
        return {buffer, static_cast<size_t>(std::max<ssize_t>(count, 0))};
    }
    termios Settings() const {
        termios settings{};
        ::tcgetattr(master, &settings);
        return settings;
    }
    /// The kernel's own words, since those of <termios.h> know some rates only.
    uint32_t Rate() const {
        struct {
            uint32_t flags[4];
            uint8_t line, control[19];
            uint32_t inputRate, outputRate;
        } settings{};
        EXPECT_EQ(::ioctl(master, _IOC(_IOC_READ, 'T', 0x2A, sizeof settings), &settings), 0);
        EXPECT_EQ(settings.inputRate, settings.outputRate);
        return settings.outputRate;
    }

    int master;
    std::string path;
};

class SerialDeviceTest : public ::testing::Test {
protected:
    bool Open(const std::string& name, uint32_t baudRate = 115200,
              FlowControl flowControl = FlowControl::None) {
        return device->Open({name, baudRate, flowControl}, failure);
    }

    std::string ReadAll() {
        std::string all;
        char buffer[100];
        for (int i = 0; i < 100 && all.empty(); ++i) {
            device->WaitReadable(100ms);
            for (int count = device->Read(buffer); count > 0; count = device->Read(buffer))
                all.append(buffer, count);
        }
        return all;
    }

    test::TemporaryFolder folder;
    FileEntryStore store{folder / "Test.conf"};
    PortMap ports{store};
    std::unique_ptr<SerialDevice> device = SystemSerialDevices(ports)();
    SerialOpenFailure failure;
    Pty pty;
};

TEST_F(SerialDeviceTest, BytesPassUnchangedInBothDirections) {
    ASSERT_TRUE(Open(PortMap::NameOf(ports.NumberOf(pty.path))));
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    EXPECT_EQ(device->Write(all), 256);
    EXPECT_EQ(pty.Read(), all);
    pty.Write(all);
    EXPECT_EQ(ReadAll(), all);
    pty.Write("abc");
    while (device->QueuedCount() < 3)
        std::this_thread::yield();
    device->Purge();
    EXPECT_EQ(device->QueuedCount(), 0);
    char buffer[10];
    EXPECT_EQ(device->Read(buffer), 0);
}

TEST_F(SerialDeviceTest, LineSettings) {
    ASSERT_TRUE(Open(pty.path, 921600, FlowControl::Software));
    termios settings = pty.Settings();
    EXPECT_EQ(settings.c_cflag & (CSIZE | PARENB | CSTOPB), static_cast<tcflag_t>(CS8));
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF), static_cast<tcflag_t>(IXON | IXOFF));
    EXPECT_EQ(settings.c_cc[VSTART], 17);
    EXPECT_EQ(settings.c_cc[VSTOP], 19);
    device->Close();
    ASSERT_TRUE(Open(pty.path, 9600, FlowControl::Hardware));
    settings = pty.Settings();
    EXPECT_TRUE(settings.c_cflag & CRTSCTS);
    EXPECT_FALSE(settings.c_iflag & (IXON | IXOFF));
    device->Close();
    for (const uint32_t rate : {110u, 9600u, 14400u, 56000u, 115200u, 128000u, 256000u, 921600u, 12345u}) {
        ASSERT_TRUE(Open(pty.path, rate)) << rate;
        EXPECT_EQ(pty.Rate(), rate);
        device->Close();
        EXPECT_EQ(pty.Rate(), 38400u) << "the rate of a fresh terminal is put back";
    }
    EXPECT_FALSE(Open(pty.path, 0));
    EXPECT_EQ(failure.fault, SerialOpenFault::UnsupportedRate);
    EXPECT_TRUE(Open(pty.path)) << "a failed open leaves nothing open";
}

TEST_F(SerialDeviceTest, WaitEndsWithBytesAWakeOrTheTime) {
    ASSERT_TRUE(Open(pty.path));
    const auto timed = [&](Milliseconds limit) {
        const auto start = std::chrono::steady_clock::now();
        device->WaitReadable(limit);
        return std::chrono::steady_clock::now() - start;
    };
    EXPECT_GE(timed(5ms), 4ms);
    device->Wake();
    EXPECT_LT(timed(10s), 5s);
    std::thread other([&] {
        std::this_thread::sleep_for(5ms);
        pty.Write("x");
    });
    EXPECT_LT(timed(10s), 5s);
    other.join();
}

TEST_F(SerialDeviceTest, AHangUpIsSeenAndDoesNotSpin) {
    ASSERT_TRUE(Open(pty.path));
    EXPECT_FALSE(device->HungUp());
    pty.HangUp();
    device->WaitReadable(1s);
    EXPECT_TRUE(device->HungUp());
    char buffer[10];
    EXPECT_LE(device->Read(buffer), 0);
    EXPECT_EQ(device->Write("AT\r"), -1);
    const auto start = std::chrono::steady_clock::now();
    device->WaitReadable(20ms);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 19ms);
}

TEST_F(SerialDeviceTest, AWriteThatNobodyReadsEndsAfterItsTime) {
    ASSERT_TRUE(Open(pty.path));
    const std::string much(100'000, 'x');
    const int written = device->Write(much);
    EXPECT_GT(written, 0);
    EXPECT_LT(written, 100'000);
}

TEST_F(SerialDeviceTest, WhyAPortCannotBeOpened) {
    EXPECT_FALSE(Open("/dev/no-such-port"));
    EXPECT_EQ(failure.fault, SerialOpenFault::Missing);
    EXPECT_FALSE(Open("COM77"));
    EXPECT_EQ(failure.fault, SerialOpenFault::Missing);
    EXPECT_EQ(failure.device, "COM77");
    EXPECT_FALSE(Open("/dev/null"));
    EXPECT_EQ(failure.fault, SerialOpenFault::NotSerial);
    EXPECT_FALSE(Open(folder.Path().string()));
    EXPECT_EQ(failure.fault, SerialOpenFault::NotSerial);

    ASSERT_TRUE(Open(pty.path));
    const auto second = SystemSerialDevices(ports)();
    EXPECT_FALSE(second->Open({pty.path, 115200, FlowControl::None}, failure));
    EXPECT_EQ(failure.fault, SerialOpenFault::InUse);
    EXPECT_EQ(failure.holderId, 0) << "this process itself isn't another";
    device->Close();

    // Another process that holds it is named.
    auto other = Process::Start("flock", {"--no-fork", pty.path, "sleep", "60"});
    if (!other) GTEST_SKIP() << "flock isn't installed";
    for (int i = 0; i < 1000 && Open(pty.path); ++i) {
        device->Close();
        std::this_thread::sleep_for(2ms);
    }
    EXPECT_EQ(failure.fault, SerialOpenFault::InUse);
    EXPECT_NE(failure.holderId, 0);
    EXPECT_TRUE(failure.holderName == "flock" || failure.holderName == "sleep") << failure.holderName;
    other->Terminate();
    other->Wait(10s);
}

TEST_F(SerialDeviceTest, NoRightsNameTheGroup) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can take on another user's rights here";
    ASSERT_EQ(::chmod(pty.path.c_str(), 0600), 0);
    ASSERT_EQ(::seteuid(65534), 0);
    const bool opened = Open(pty.path);
    ASSERT_EQ(::seteuid(0), 0);
    EXPECT_FALSE(opened);
    EXPECT_EQ(failure.fault, SerialOpenFault::NoRights);
    EXPECT_FALSE(failure.owningGroup.empty());
}

}  // namespace
}  // namespace tarnbridge
