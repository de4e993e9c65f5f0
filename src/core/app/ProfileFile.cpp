#include "core/app/ProfileFile.h"

#include <fstream>
#include <system_error>

#include <fmt/format.h>

#include "core/app/ProfileFormat.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

fs::path LockPath(const fs::path& path) {
    return path.string() + ".lock";
}

fs::path FolderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : ".";
}

std::unique_ptr<LockFile> TakeLock(const fs::path& path) {
    return LockFile::Take(LockPath(path), Milliseconds(0));
}

bool IsOneOf(std::string_view text, std::string_view allowed) {
    return !text.empty() && text.find_first_not_of(allowed) == std::string_view::npos;
}

}  // namespace

ProfileState ReadProfile(const fs::path& path, Profile& profile) {
    std::error_code error;
    if (fs::status(path, error).type() == fs::file_type::not_found) return ProfileState::Missing;
    const auto stream = ReadFile(path);
    if (!stream) return ProfileState::Unreadable;
    switch (LoadProfile(*stream, profile)) {
        case ProfileLoad::Foreign:
            return ProfileState::Foreign;
        case ProfileLoad::Damaged:
            return ProfileState::Damaged;
        case ProfileLoad::Whole:
            break;
    }
    return ProfileState::Whole;
}

fs::path ProfileFile::StandardPath() {
    return ProgramFolder() / "Tarnbridge.bin";
}

std::unique_ptr<ProfileFile> ProfileFile::Open(fs::path path, Clock& clock) {
    auto lock = TakeLock(path);
    // A lock that can't be had though its file can be written to is another one's.
    if (!lock && std::ofstream(LockPath(path), std::ios::app)) return nullptr;
    std::unique_ptr<ProfileFile> file(new ProfileFile(std::move(path), clock, std::move(lock)));
    if (file->lock_) file->RemoveLeftovers();
    return file;
}

ProfileFile::ProfileFile(fs::path path, Clock& clock, std::unique_ptr<LockFile> lock)
    : path_(std::move(path)), clock_(clock), lock_(std::move(lock)) {}

ProfileState ProfileFile::Load(Profile& profile) {
    state_ = ReadProfile(path_, profile);
    return *state_;
}

Outcome ProfileFile::Save(Profile& profile) {
    if (!lock_) lock_ = TakeLock(path_);
    if (!lock_) return SystemFailure{0, fmt::format("cannot lock {}", path_.string())};
    if (!state_) {
        Profile unwanted;
        Load(unwanted);
    }
    std::error_code error;
    if (state_ != ProfileState::Whole && !copiedAside_ && fs::exists(path_, error)) {
        if (const Outcome outcome = CopyAside(); !outcome) return outcome;
    }
    const Outcome outcome =
        WriteFileAtomically(path_, [&profile](const ByteSink& sink) { SaveProfile(profile, sink); });
    if (outcome) state_ = ProfileState::Whole;
    return outcome;
}

Outcome ProfileFile::CopyAside() {
    const auto content = ReadFile(path_);
    if (!content) return content.Failure();
    const LocalTime now = clock_.Local();
    const std::string stem = fmt::format("{}.{:04}{:02}{:02}-{:02}{:02}{:02}", path_.string(), now.year,
                                         now.month, now.day, now.hour, now.minute, now.second);
    std::error_code ignored;
    fs::path aside = stem + ".bak";
    for (int i = 2; fs::exists(aside, ignored); ++i)
        aside = fmt::format("{}-{}.bak", stem, i);
    const Outcome outcome = WriteFileAtomically(aside, *content);
    if (!outcome) return outcome;
    fs::permissions(aside, fs::status(path_, ignored).permissions(), ignored);
    copiedAside_ = aside;
    return outcome;
}

/// The names that WriteFileAtomically gives: the target's, then ".PROCESS-NUMBER.tmp".
void ProfileFile::RemoveLeftovers() const {
    const std::string start = path_.filename().string() + ".";
    const std::string_view end = ".tmp";
    for (const fs::path& leftover : FindFiles(FolderOf(path_), "*.tmp")) {
        const std::string name = leftover.filename().string();
        if (name.size() <= start.size() + end.size() || !name.starts_with(start)) continue;
        const std::string_view between =
            std::string_view(name).substr(start.size(), name.size() - start.size() - end.size());
        std::error_code ignored;
        if (IsOneOf(between, "0123456789-")) fs::remove(leftover, ignored);
    }
}

}  // namespace tarnbridge
