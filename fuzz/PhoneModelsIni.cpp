#include <cstdint>
#include <string_view>

#include "core/base/FirstStartSettings.h"
#include "core/base/PhoneModels.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    tarnbridge::PhoneModels models;
    models.Load(content);
    // There is always a model, and each is found by its own key.
    if (models.All().empty()) __builtin_trap();
    for (const auto& [key, info] : models.All()) {
        tarnbridge::PhoneModelInfo found;
        if (key.empty() || !models.Find(key, found)) __builtin_trap();
    }
    tarnbridge::ReadFirstStartSettings(content);
    return 0;
}
