#pragma once

#include <string>

#include "platform/SerialDevice.h"

namespace tarnbridge {

/// Finds out why a device couldn't be opened or locked.
/// \param path          the device
/// \param systemError   errno of the call that failed
/// \param call          that call's words, such as "open"
SerialOpenFailure DiagnoseSerialOpen(const std::string& path, int systemError, const char* call);

}  // namespace tarnbridge
