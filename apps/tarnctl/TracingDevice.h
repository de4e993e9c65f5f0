#pragma once

#include "platform/SerialDevice.h"

namespace tarnbridge {

/// Devices that show on standard error what passes over them: what was written and what came back, one
/// exchange a line, with control characters visible.
SerialDeviceFactory TracingDevices(SerialDeviceFactory inner);

/// Bytes with control characters and bytes beyond ASCII as `\r`, `\n`, `\x1A`.
std::string MakeVisible(std::string_view bytes);

}  // namespace tarnbridge
