#include "support/TemporaryFolder.h"

#include <atomic>

#include <unistd.h>

namespace tarnbridge::test {

TemporaryFolder::TemporaryFolder() {
    static std::atomic<int> counter{0};
    path_ = std::filesystem::temp_directory_path() /
            ("tarnbridge tést " + std::to_string(getpid()) + " " + std::to_string(counter++));
    std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace tarnbridge::test
