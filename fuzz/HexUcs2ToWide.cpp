#include <cstdint>
#include <string_view>

#include "link/WireText.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const bool bigEndian = (data[0] & 1) != 0;
    const std::string_view hex(reinterpret_cast<const char*>(data) + 1, size - 1);
    try {
        const std::u16string text = tarnbridge::HexUcs2ToWide(hex, bigEndian);
        if (tarnbridge::HexUcs2ToWide(tarnbridge::WideToHexUcs2(text, bigEndian), bigEndian) != text)
            __builtin_trap();
    } catch (const tarnbridge::WireTextError&) {
    }
    return 0;
}
