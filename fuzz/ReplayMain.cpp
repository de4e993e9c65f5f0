// Runs a fuzz target over every file of the folders that are named, in place of libFuzzer's own main.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/Files.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
    size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& path : tarnbridge::FindFiles(argv[i], "*")) {
            const auto content = tarnbridge::ReadFile(path);
            if (!content) continue;
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(content->data()), content->size());
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count > 0 ? 0 : 1;
}
