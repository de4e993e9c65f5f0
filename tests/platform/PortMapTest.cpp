#include <gtest/gtest.h>

#include "platform/FileEntryStore.h"
#include "platform/Files.h"
#include "platform/PortMap.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

class PortMapTest : public ::testing::Test {
protected:
    void PlugIn(const std::string& device) { WriteFileAtomically(root / "dev" / device, ""); }

    void Name(const std::string& name, const std::string& device) {
        fs::create_directories(root / "dev" / "serial/by-id");
        fs::create_symlink(root / "dev" / device, root / "dev" / "serial/by-id" / name);
    }

    test::TemporaryFolder folder;
    fs::path root = folder / "root";
    FileEntryStore store{folder / "Test.conf"};
    PortMap ports{store, root};
};

TEST_F(PortMapTest, NumbersAreKeptWhenPortsComeAndGo) {
    PlugIn("ttyUSB0");
    PlugIn("ttyACM0");
    EXPECT_EQ(ports.Enumerate(), (std::vector<int>{1, 2}));
    EXPECT_EQ(ports.DeviceOf(1), (root / "dev/ttyACM0").string());
    fs::remove(root / "dev/ttyACM0");
    PlugIn("rfcomm0");
    EXPECT_EQ(ports.Enumerate(), (std::vector<int>{2, 3}));
    PlugIn("ttyACM0");
    EXPECT_EQ(PortMap(store, root).Enumerate(), (std::vector<int>{1, 2, 3})) << "in another process";
}

TEST_F(PortMapTest, ADeviceWithAStableNameIsListedOnceUnderIt) {
    PlugIn("ttyUSB0");
    Name("usb-Cable-if00", "ttyUSB0");
    Name("usb-Gone-if00", "ttyUSB7");
    const auto numbers = ports.Enumerate();
    ASSERT_EQ(numbers.size(), 1u);
    EXPECT_EQ(ports.DeviceOf(numbers[0]), (root / "dev/serial/by-id/usb-Cable-if00").string());
}

TEST_F(PortMapTest, BuiltInPortsNeedHardware) {
    PlugIn("ttyS0");
    PlugIn("ttyS1");
    WriteFileAtomically(root / "sys/class/tty/ttyS0/type", "4\n");
    WriteFileAtomically(root / "sys/class/tty/ttyS1/type", "0\n");
    const auto numbers = ports.Enumerate();
    ASSERT_EQ(numbers.size(), 1u);
    EXPECT_EQ(ports.DeviceOf(numbers[0]), (root / "dev/ttyS0").string());
}

TEST_F(PortMapTest, TypedPathsCountWhileTheyAreThere) {
    const int typed = ports.NumberOf("/dev/null");
    const int gone = ports.NumberOf("/dev/does-not-exist");
    EXPECT_EQ(ports.NumberOf("/dev/null"), typed);
    EXPECT_EQ(ports.NumberOf(fs::relative("/dev/null").string()), typed);
    EXPECT_EQ(ports.NumberOf("/dev/../dev//./null"), typed);
    EXPECT_NE(gone, typed);
    EXPECT_EQ(ports.Enumerate(), std::vector<int>{typed});
}

TEST_F(PortMapTest, Names) {
    EXPECT_EQ(PortMap::ParseName("COM7"), 7);
    EXPECT_EQ(PortMap::ParseName("\\\\.\\com12"), 12);
    EXPECT_EQ(PortMap::NameOf(12), "\\\\.\\COM12");
    for (const char* name : {"COM", "COM0", "COM7x", "/dev/COM7", "COM99999", "COM-1", ""}) {
        EXPECT_EQ(PortMap::ParseName(name), std::nullopt) << name;
    }
    store.SetText("Ports", "junk", u"/dev/null");
    store.SetText("Ports", "0", u"/dev/null");
    EXPECT_EQ(ports.NumberOf("/dev/zero"), 1) << "other entries of the section don't disturb";
}

}  // namespace
}  // namespace tarnbridge
