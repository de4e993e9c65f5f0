// Apart from all else, since <asm/termbits.h> and <termios.h> define the same names.

#include "platform/posix/LineRate.h"

#include <cerrno>
#include <cstdlib>

#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace tarnbridge {
namespace {

/// Framing of 8 bits bears this much; a divider that is coarse is off by less.
bool IsNear(uint32_t rate, uint32_t wanted) {
    return std::llabs(static_cast<int64_t>(rate) - static_cast<int64_t>(wanted)) * 100 <= int64_t{wanted} * 3;
}

}  // namespace

bool SetLineRate(int descriptor, uint32_t baudRate) {
    termios2 line{};
    if (::ioctl(descriptor, TCGETS2, &line) != 0) return false;
    line.c_cflag &= ~static_cast<tcflag_t>(CBAUD | CBAUD << IBSHIFT);
    line.c_cflag |= BOTHER | BOTHER << IBSHIFT;
    line.c_ispeed = baudRate;
    line.c_ospeed = baudRate;
    // The driver takes what it can and says what that was.
    if (::ioctl(descriptor, TCSETS2, &line) != 0 || ::ioctl(descriptor, TCGETS2, &line) != 0) return false;
    if (baudRate > 0 && IsNear(line.c_ospeed, baudRate)) return true;
    errno = EINVAL;
    return false;
}

}  // namespace tarnbridge
