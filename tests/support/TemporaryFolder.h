#pragma once

#include <filesystem>
#include <string>

namespace tarnbridge::test {

/// A folder of its own, with blanks and a letter beyond ASCII in its name, removed with all it holds at the
/// end.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

}  // namespace tarnbridge::test
