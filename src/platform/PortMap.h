#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/EntryStore.h"

namespace tarnbridge {

/// The numbers under which the program knows serial ports: COM7 is 7. On Windows the system gives them.
/// Elsewhere each device path gets the lowest free number when it is first seen, and keeps it in the section
/// `Ports` of the store, so that a cable plugged in again is the same port again. Not for use from two
/// threads at once.
class PortMap {
public:
    /// `root` stands before `/dev` and `/sys`. The store must outlive the map.
    explicit PortMap(EntryStore& store, std::filesystem::path root = "/");

    /// The numbers of the ports that are plugged in now, ascending. A USB device with a stable name under
    /// `/dev/serial/by-id` is listed under that name, and a built-in `ttyS` only where there is hardware
    /// behind it.
    std::vector<int> Enumerate();

    /// The folders that are there and in which something changes when a port is plugged in or out.
    std::vector<std::filesystem::path> WatchedFolders() const;

    /// The device path that a number stands for, plugged in or not.
    std::optional<std::string> DeviceOf(int number) const;

    /// The number of a device path, given now if the path has none yet. 0 if the path is empty. A relative
    /// path counts from the working folder, and however its folders are named it is kept as one path.
    int NumberOf(const std::string& path);

    /// Whether a text is the name of a port by number, `COM7` or `\\.\COM7`; gives the number.
    static std::optional<int> ParseName(std::string_view name);

    /// `\\.\COM%d`, the name by which a port is opened.
    static std::string NameOf(int number);

private:
    std::vector<std::string> PluggedIn() const;

    EntryStore& store_;
    std::filesystem::path root_;
};

}  // namespace tarnbridge
