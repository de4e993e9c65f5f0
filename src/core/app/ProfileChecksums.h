#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Result.h"

namespace tarnbridge {

/// Tells one content from another: 128 bits that change with any damage, and the size. Not proof against
/// somebody who makes two contents on purpose.
class Checksum {
public:
    Checksum();
    ~Checksum();

    void Add(std::string_view bytes);

    /// Of all bytes so far.
    std::string Text() const;

    static std::string Of(std::string_view bytes);

private:
    struct State;

    std::unique_ptr<State> state_;
    uint64_t size_ = 0;
};

/// What a profile's file may hold: what stood in it before it was last replaced, or what replaced it. The
/// second comes first on the disk, so a program that was killed has left one of the two. Kept in a file of
/// two lines beside the profile, "old CHECKSUM" and "new CHECKSUM".
struct ProfileChecksums {
    std::string old;  ///< empty where there was no file
    std::string now;

    bool Have(std::string_view checksum) const { return checksum == old || checksum == now; }
    bool operator==(const ProfileChecksums&) const = default;

    /// The file's place beside the profile.
    static std::filesystem::path PathFor(const std::filesystem::path& profile);

    /// Nothing where there is no such file, or one of another form.
    static std::optional<ProfileChecksums> Read(const std::filesystem::path& profile);

    /// To be followed at once by the profile itself.
    Outcome Write(const std::filesystem::path& profile) const;
};

}  // namespace tarnbridge
