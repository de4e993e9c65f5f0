#pragma once

#include <cstdint>
#include <string>

#include "platform/SerialDevice.h"

namespace tarnbridge {

/// What is known beforehand of a model of handset.
struct PhoneModelInfo {
    uint32_t baudRate = 115200;
    FlowControl flowControl = FlowControl::Hardware;
    bool hasMms = false;          ///< the MMS view is offered
    bool hasFileManager = false;  ///< the file manager is offered
    int32_t lcdWidth = 128;       ///< pixels, as the file has it: any number
    int32_t lcdHeight = 128;
    std::u16string phoneModel;  ///< the file's own text for the model
};

}  // namespace tarnbridge
