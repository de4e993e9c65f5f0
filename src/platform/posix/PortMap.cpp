#include "platform/PortMap.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "platform/Files.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

constexpr const char* section = "Ports";
constexpr int largestNumber = 9999;

std::optional<int> ParseNumber(std::string_view digits) {
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool whole = error == std::errc{} && end == digits.data() + digits.size();
    if (!whole || number < 1 || number > largestNumber) return std::nullopt;
    return number;
}

/// One path for a device, from whatever folder it was named. The last name of it stays: a link to a device
/// keeps its name when the device behind it changes.
std::string AbsolutePath(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error).lexically_normal();
    const fs::path folder = fs::weakly_canonical(absolute.parent_path(), error);
    return error ? absolute.string() : (folder / absolute.filename()).string();
}

/// Whether there is hardware behind a built-in port; the kernel makes more of them than there are.
bool HasHardware(const fs::path& root, const fs::path& device) {
    const auto type = ReadFile(root / "sys/class/tty" / device.filename() / "type", 64);
    return type && std::atoi(type->c_str()) != 0;
}

}  // namespace

PortMap::PortMap(EntryStore& store, fs::path root) : store_(store), root_(std::move(root)) {}

std::vector<std::string> PortMap::PluggedIn() const {
    std::vector<std::string> devices;
    std::set<fs::path> named;  // what a stable name leads to
    std::error_code error;
    for (const fs::path& link : FindFiles(root_ / "dev/serial/by-id", "*")) {
        const fs::path device = fs::canonical(link, error);
        if (error || !named.insert(device).second) continue;
        devices.push_back(link.string());
    }
    for (const char* pattern : {"ttyACM*", "ttyUSB*", "rfcomm*", "ttyS*"}) {
        for (const fs::path& device : FindFiles(root_ / "dev", pattern)) {
            const fs::path real = fs::canonical(device, error);
            if (error || named.contains(real)) continue;
            if (std::string_view(pattern) == "ttyS*" && !HasHardware(root_, device)) continue;
            devices.push_back(device.string());
        }
    }
    return devices;
}

std::vector<int> PortMap::Enumerate() {
    std::set<int> numbers;
    for (const std::string& device : PluggedIn())
        numbers.insert(NumberOf(device));
    // Paths that the user once typed count while they are there.
    std::error_code ignored;
    for (const std::string& entry : store_.Entries(section)) {
        const auto number = ParseNumber(entry);
        const auto device = number ? DeviceOf(*number) : std::nullopt;
        if (!device || !fs::is_character_file(*device, ignored)) continue;
        const fs::path real = fs::canonical(*device, ignored);
        const bool listed = std::any_of(numbers.begin(), numbers.end(), [&](int other) {
            return fs::canonical(DeviceOf(other).value_or(""), ignored) == real;
        });
        if (!listed) numbers.insert(*number);
    }
    numbers.erase(0);
    return {numbers.begin(), numbers.end()};
}

std::vector<fs::path> PortMap::WatchedFolders() const {
    std::set<fs::path> folders{root_ / "dev", root_ / "dev/serial/by-id"};
    for (const std::string& entry : store_.Entries(section)) {
        const auto number = ParseNumber(entry);
        if (const auto device = number ? DeviceOf(*number) : std::nullopt)
            folders.insert(fs::path(*device).parent_path());
    }
    std::error_code ignored;
    std::erase_if(folders, [&](const fs::path& folder) { return !fs::is_directory(folder, ignored); });
    return {folders.begin(), folders.end()};
}

std::optional<std::string> PortMap::DeviceOf(int number) const {
    const auto text = store_.GetText(section, std::to_string(number));
    if (!text || text->empty()) return std::nullopt;
    return TextToUtf8(*text);
}

int PortMap::NumberOf(const std::string& path) {
    if (path.empty()) return 0;
    const std::string device = AbsolutePath(path);
    std::set<int> taken;
    for (const std::string& entry : store_.Entries(section)) {
        const auto number = ParseNumber(entry);
        if (!number) continue;
        if (DeviceOf(*number) == device) return *number;
        taken.insert(*number);
    }
    int number = 1;
    while (taken.contains(number))
        ++number;
    store_.SetText(section, std::to_string(number), Utf8ToText(device));
    return number;
}

std::optional<int> PortMap::ParseName(std::string_view name) {
    if (name.starts_with("\\\\.\\")) name.remove_prefix(4);
    if (name.size() < 4 || !EqualIgnoringCase(name.substr(0, 3), "COM")) return std::nullopt;
    return ParseNumber(name.substr(3));
}

std::string PortMap::NameOf(int number) {
    return "\\\\.\\COM" + std::to_string(number);
}

}  // namespace tarnbridge
