#include "platform/posix/SerialDiagnosis.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sstream>

#include <fmt/format.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "platform/Files.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

std::string ProcessName(const fs::path& process) {
    const auto name = ReadFile(process / "comm");
    return name ? name->substr(0, name->find('\n')) : std::string();
}

/// The folders of all processes but this one.
std::vector<fs::path> OtherProcesses() {
    std::vector<fs::path> processes;
    const std::string own = std::to_string(::getpid());
    for (const fs::path& entry : FindFiles("/proc", "*")) {
        const std::string name = entry.filename().string();
        const bool isProcess =
            std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (isProcess && name != own) processes.push_back(entry);
    }
    return processes;
}

bool HasOpen(const fs::path& process, dev_t device) {
    const auto files = FindFiles(process / "fd", "*");
    return std::any_of(files.begin(), files.end(), [&](const fs::path& file) {
        struct stat status {};
        return ::stat(file.c_str(), &status) == 0 && S_ISCHR(status.st_mode) && status.st_rdev == device;
    });
}

/// The process that holds a lock on a file, as the kernel lists it, or 0.
int LockOwner(const struct stat& status) {
    const auto locks = ReadFile("/proc/locks");
    if (!locks) return 0;
    const std::string file =
        fmt::format("{:02x}:{:02x}:{}", major(status.st_dev), minor(status.st_dev), status.st_ino);
    std::istringstream lines(*locks);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string number, kind, mode, access, owned;
        int process = 0;
        if (fields >> number >> kind >> mode >> access >> process >> owned && owned == file) return process;
    }
    return 0;
}

/// Whoever holds the lock is named first; a program that doesn't lock is found by what it has open.
void DescribeHolder(const std::string& path, SerialOpenFailure& failure) {
    struct stat status {};
    const bool known = ::stat(path.c_str(), &status) == 0;
    const int lockOwner = known ? LockOwner(status) : 0;
    if (lockOwner > 0 && lockOwner != ::getpid()) {
        failure.holderId = lockOwner;
        failure.holderName = ProcessName(fs::path("/proc") / std::to_string(lockOwner));
    }
    for (const fs::path& process : OtherProcesses()) {
        const std::string name = ProcessName(process);
        failure.modemManagerRuns |= name == "ModemManager";
        if (known && failure.holderId == 0 && HasOpen(process, status.st_rdev)) {
            failure.holderId = std::atoi(process.filename().c_str());
            failure.holderName = name;
        }
    }
}

std::string OwningGroup(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return {};
    const group* owner = ::getgrgid(status.st_gid);
    return owner == nullptr ? std::to_string(status.st_gid) : owner->gr_name;
}

SerialOpenFault FaultOf(int systemError) {
    switch (systemError) {
        case ENOENT:
        case ENXIO:
        case ENODEV:
        case ENOTDIR:
        case EIO:
            return SerialOpenFault::Missing;
        case EACCES:
        case EPERM:
            return SerialOpenFault::NoRights;
        case EBUSY:
        case EWOULDBLOCK:
            return SerialOpenFault::InUse;
        case ENOTTY:
        case EISDIR:
            return SerialOpenFault::NotSerial;
        default:
            return SerialOpenFault::Other;
    }
}

}  // namespace

SerialOpenFailure DiagnoseSerialOpen(const std::string& path, int systemError, const char* call) {
    SerialOpenFailure failure;
    failure.fault = FaultOf(systemError);
    failure.device = path;
    failure.systemText = fmt::format("cannot {} {}: {}", call, path, std::strerror(systemError));
    if (failure.fault == SerialOpenFault::NoRights) failure.owningGroup = OwningGroup(path);
    if (failure.fault == SerialOpenFault::InUse) DescribeHolder(path, failure);
    return failure;
}

}  // namespace tarnbridge
