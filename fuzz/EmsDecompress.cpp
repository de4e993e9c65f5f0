// The decompressor of extended objects; and the coder, which the decompressor must undo.

#include <array>
#include <cstdlib>
#include <cstring>

#include "messaging/ems/EmsCompression.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace tarnbridge;
    if (size > longestCompressInput) return 0;
    std::array<uint8_t, 2 * longestCompressInput> out;
    std::array<uint8_t, longestCompressInput> back;
    const int length = static_cast<int>(size);
    const int expanded = Decompress(data, length, back.data(), back.size());
    if (expanded > static_cast<int>(back.size())) std::abort();
    const int compressed = Compress(data, length, out.data(), out.size());
    if (compressed < 0 || Decompress(out.data(), compressed, back.data(), length) != length) std::abort();
    if (length > 0 && std::memcmp(back.data(), data, size) != 0) std::abort();
    return 0;
}
