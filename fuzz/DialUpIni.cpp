#include <algorithm>
#include <cstdint>
#include <string_view>

#include "core/base/DialUpSettings.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace tarnbridge;
    DialUpSettings settings = ReadDialUpSettings({reinterpret_cast<const char*>(data), size});
    // The groups come back as they were, but for a lone CR.
    const DialUpSettings again = ReadDialUpSettings(WriteDialUpSettings(settings));
    for (std::u16string& name : settings.groupNames)
        std::replace(name.begin(), name.end(), u'\r', u' ');
    if (again.groupNames != settings.groupNames) __builtin_trap();
    return 0;
}
