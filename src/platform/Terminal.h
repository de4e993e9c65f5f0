#pragma once

namespace tarnbridge {

enum class StandardStream { Input = 0, Output = 1, Error = 2 };

/// Whether a person sits at the other end of a standard stream.
bool IsTerminal(StandardStream stream);

}  // namespace tarnbridge
