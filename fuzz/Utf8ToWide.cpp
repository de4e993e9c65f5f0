#include <cstdint>
#include <string_view>

#include "link/WireText.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::u16string text = tarnbridge::Utf8ToWide({reinterpret_cast<const char*>(data), size});
    std::string packed;
    tarnbridge::PackUcs2Alpha(text, packed);
    // What fits comes back as it was.
    if (text.size() <= 1365 && tarnbridge::Utf8ToWide(tarnbridge::WideToUtf8(text)) != text) __builtin_trap();
    return 0;
}
