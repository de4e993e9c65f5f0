#pragma once

#include <cstdint>

namespace tarnbridge {

/// Sets the rate of an open serial line in both directions, in bits a second, whatever it is. False, with
/// errno set, if the line has no such rate: its nearest is more than 3 % off.
bool SetLineRate(int descriptor, uint32_t baudRate);

}  // namespace tarnbridge
