#include "platform/Terminal.h"

#include <unistd.h>

namespace tarnbridge {

bool IsTerminal(StandardStream stream) {
    return ::isatty(static_cast<int>(stream)) == 1;
}

}  // namespace tarnbridge
