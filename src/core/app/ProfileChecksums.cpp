#include "core/app/ProfileChecksums.h"

#include <fmt/format.h>
#include <xxhash.h>

#include "platform/Files.h"

namespace tarnbridge {
namespace {

constexpr uint64_t longestFile = 512;
constexpr std::string_view oldStart = "old ";
constexpr std::string_view newStart = "\nnew ";

std::string Worded(XXH128_hash_t hash, uint64_t size) {
    return fmt::format("{:016x}{:016x}-{}", hash.high64, hash.low64, size);
}

}  // namespace

struct Checksum::State {
    State() = default;
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() { XXH3_freeState(hash); }

    XXH3_state_t* const hash = XXH3_createState();
};

Checksum::Checksum() : state_(std::make_unique<State>()) {
    XXH3_128bits_reset(state_->hash);
}

Checksum::~Checksum() = default;

void Checksum::Add(std::string_view bytes) {
    XXH3_128bits_update(state_->hash, bytes.data(), bytes.size());
    size_ += bytes.size();
}

std::string Checksum::Text() const {
    return Worded(XXH3_128bits_digest(state_->hash), size_);
}

std::string Checksum::Of(std::string_view bytes) {
    return Worded(XXH3_128bits(bytes.data(), bytes.size()), bytes.size());
}

std::filesystem::path ProfileChecksums::PathFor(const std::filesystem::path& profile) {
    return profile.string() + ".sum";
}

std::optional<ProfileChecksums> ProfileChecksums::Read(const std::filesystem::path& profile) {
    const auto content = ReadFile(PathFor(profile), longestFile);
    if (!content || !content->starts_with(oldStart) || !content->ends_with('\n')) return std::nullopt;
    const size_t middle = content->find(newStart);
    if (middle == std::string::npos) return std::nullopt;
    ProfileChecksums sums{content->substr(oldStart.size(), middle - oldStart.size()),
                          content->substr(middle + newStart.size())};
    sums.now.pop_back();
    return sums;
}

Outcome ProfileChecksums::Write(const std::filesystem::path& profile) const {
    const std::string content = fmt::format("{}{}{}{}\n", oldStart, old, newStart, now);
    return WriteFileAtomically(PathFor(profile), [&content](const ByteSink& write) { write(content); },
                               {.ownerOnly = true, .isFlushedByNext = true});
}

}  // namespace tarnbridge
