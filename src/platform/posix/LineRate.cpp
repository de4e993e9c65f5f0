// Apart from all else, since <asm/termbits.h> and <termios.h> define the same names.

#include "platform/posix/LineRate.h"

#include <cerrno>
#include <cstdlib>
#include <utility>

#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace tarnbridge {
namespace {

/// Framing of 8 bits bears this much; a divider that is coarse is off by less.
bool IsNear(uint32_t rate, uint32_t wanted) {
    return std::llabs(static_cast<int64_t>(rate) - static_cast<int64_t>(wanted)) * 100 <= int64_t{wanted} * 3;
}

/// The rates that have a code of their own, which programs know that look at the line.
tcflag_t CodeOf(uint32_t baudRate) {
    static constexpr std::pair<uint32_t, tcflag_t> codes[] = {
        {300, B300},       {600, B600},       {1200, B1200},     {2400, B2400},     {4800, B4800},
        {9600, B9600},     {19200, B19200},   {38400, B38400},   {57600, B57600},   {115200, B115200},
        {230400, B230400}, {460800, B460800}, {500000, B500000}, {576000, B576000}, {921600, B921600},
    };
    for (const auto& [rate, code] : codes) {
        if (rate == baudRate) return code;
    }
    return BOTHER;
}

}  // namespace

bool SetLineRate(int descriptor, uint32_t baudRate) {
    termios2 line{};
    if (::ioctl(descriptor, TCGETS2, &line) != 0) return false;
    line.c_cflag &= ~static_cast<tcflag_t>(CBAUD | CBAUD << IBSHIFT);
    line.c_cflag |= CodeOf(baudRate) | CodeOf(baudRate) << IBSHIFT;
    line.c_ispeed = baudRate;
    line.c_ospeed = baudRate;
    // The driver takes what it can and says what that was.
    if (::ioctl(descriptor, TCSETS2, &line) != 0 || ::ioctl(descriptor, TCGETS2, &line) != 0) return false;
    if (baudRate > 0 && IsNear(line.c_ospeed, baudRate)) return true;
    errno = EINVAL;
    return false;
}

}  // namespace tarnbridge
