#include "core/app/ProfileFile.h"

#include <fstream>
#include <system_error>

#include <fmt/format.h>

#include "core/app/ProfileChecksums.h"
#include "core/app/ProfileFormat.h"
#include "platform/Files.h"
#include "platform/ProgramFolder.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

constexpr size_t daysKept = 7;
constexpr std::string_view dayEnd = ".day";

fs::path LockPath(const fs::path& path) {
    return path.string() + ".lock";
}

fs::path FolderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : ".";
}

std::unique_ptr<LockFile> TakeLock(const fs::path& path) {
    return LockFile::Take(LockPath(path), Milliseconds(0));
}

Outcome WriteOwn(const fs::path& path, std::string_view content) {
    return WriteFileAtomically(path, [content](const ByteSink& write) { write(content); },
                               {.ownerOnly = true});
}

/// A file and what is known about it.
struct Reading {
    ProfileState state = ProfileState::Missing;
    std::string checksum{};
    bool isGuarded = false;
};

/// The checksums stand on the disk before the content that they announce. So content that isn't among those
/// read before it, nor among those read after it, was put there by somebody else, unless the owner has saved
/// in between: then it is read again.
Reading ReadChecked(const fs::path& path, Profile& profile) {
    std::error_code error;
    if (fs::status(path, error).type() == fs::file_type::not_found) return {};
    constexpr int mostReadings = 20;
    std::string content;
    Reading reading{ProfileState::Whole};
    for (int i = 0; i < mostReadings; ++i) {
        const auto before = ProfileChecksums::Read(path);
        auto found = ReadFile(path);
        if (!found) return {ProfileState::Unreadable};
        content = std::move(*found);
        reading.checksum = Checksum::Of(content);
        const auto after = ProfileChecksums::Read(path);
        reading.isGuarded = after.has_value();
        const auto knows = [&](const auto& sums) { return !sums || sums->Have(reading.checksum); };
        reading.state = knows(before) || knows(after) ? ProfileState::Whole : ProfileState::Altered;
        if (reading.state == ProfileState::Whole || before == after) break;
    }
    const ProfileLoad load = LoadProfile(content, profile);
    if (load == ProfileLoad::Foreign) reading.state = ProfileState::Foreign;
    if (load == ProfileLoad::Damaged) reading.state = ProfileState::Damaged;
    return reading;
}

bool IsOneOf(std::string_view text, std::string_view allowed) {
    return !text.empty() && text.find_first_not_of(allowed) == std::string_view::npos;
}

}  // namespace

ProfileState ReadProfile(const fs::path& path, Profile& profile) {
    return ReadChecked(path, profile).state;
}

fs::path ProfileFile::StandardPath() {
    return ProgramFolder() / "Tarnbridge.bin";
}

std::unique_ptr<ProfileFile> ProfileFile::Open(fs::path path, Clock& clock) {
    auto lock = TakeLock(path);
    // A lock that can't be had though its file can be written to is another one's.
    if (!lock && std::ofstream(LockPath(path), std::ios::app)) return nullptr;
    std::unique_ptr<ProfileFile> file(new ProfileFile(std::move(path), clock, std::move(lock)));
    if (file->lock_) file->TidyFolder();
    return file;
}

ProfileFile::ProfileFile(fs::path path, Clock& clock, std::unique_ptr<LockFile> lock)
    : path_(std::move(path)), clock_(clock), lock_(std::move(lock)) {}

ProfileState ProfileFile::Load(Profile& profile) {
    stamp_ = StampNow();
    Reading reading = ReadChecked(path_, profile);
    state_ = reading.state;
    checksum_ = std::move(reading.checksum);
    isGuarded_ = reading.isGuarded;
    return *state_;
}

std::optional<ProfileFile::Stamp> ProfileFile::StampNow() const {
    std::error_code error;
    const Stamp stamp{fs::file_size(path_, error), fs::last_write_time(path_, error)};
    return error ? std::nullopt : std::optional(stamp);
}

/// Somebody may have put another file there since it was read or saved, such as one out of a backup.
void ProfileFile::LookForOthersChanges() {
    const auto now = StampNow();
    if (now == stamp_) return;
    stamp_ = now;
    const auto content = now ? ReadFile(path_) : Result<std::string>(std::string());
    const std::string checksum = content && now ? Checksum::Of(*content) : std::string();
    if (checksum == checksum_) return;
    checksum_ = checksum;
    state_ = now ? ProfileState::Altered : ProfileState::Missing;
    copiedAside_.reset();
}

Outcome ProfileFile::Save(Profile& profile) {
    if (!lock_) lock_ = TakeLock(path_);
    if (!lock_) return SystemFailure{0, fmt::format("cannot lock {}", path_.string())};
    if (!state_) {
        Profile unwanted;
        Load(unwanted);
    }
    LookForOthersChanges();
    if (const Outcome outcome = KeepAside(); !outcome) return outcome;
    Checksum sum;
    std::string checksum;
    const Outcome outcome = WriteFileAtomically(
        path_,
        [&](const ByteSink& sink) {
            SaveProfile(profile, [&](std::string_view piece) {
                sum.Add(piece);
                return sink(piece);
            });
        },
        {.ownerOnly = true,
         .isWanted =
             [&] {
                 checksum = sum.Text();
                 return checksum != checksum_ || state_ != ProfileState::Whole || !isGuarded_;
             },
         .before =
             [&] {
                 KeepDay();
                 return ProfileChecksums{checksum_, checksum}.Write(path_);
             }});
    if (outcome) {
        state_ = ProfileState::Whole;
        checksum_ = std::move(checksum);
        isGuarded_ = true;
        stamp_ = StampNow();
    }
    return outcome;
}

Outcome ProfileFile::KeepAside() {
    std::error_code error;
    if (!state_ || state_ == ProfileState::Whole || copiedAside_ || !fs::exists(path_, error))
        return std::monostate{};
    return CopyAside();
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
    const Outcome outcome = WriteOwn(aside, *content);
    if (!outcome) return outcome;
    copiedAside_ = aside;
    wasAltered_ = state_ == ProfileState::Altered;
    return outcome;
}

/// A second name for what is about to be replaced costs nothing; where there are no second names it is
/// copied. Without room for that the save goes on: it is about what is newer.
void ProfileFile::KeepDay() const {
    std::error_code error;
    if (state_ != ProfileState::Whole || !fs::exists(path_, error)) return;
    const LocalTime now = clock_.Local();
    const std::string start = path_.string() + ".";
    const fs::path day = fmt::format("{}{:04}-{:02}-{:02}{}", start, now.year, now.month, now.day, dayEnd);
    if (fs::exists(day, error)) return;
    const fs::path target = fs::canonical(path_, error);
    if (!error) fs::create_hard_link(target, day, error);
    if (error) {
        const auto content = ReadFile(path_);
        if (content) WriteOwn(day, *content);
    }
    const std::vector<fs::path> days =
        FindFiles(FolderOf(path_), fmt::format("{}.*{}", path_.filename().string(), dayEnd));
    for (size_t i = 0; i + daysKept < days.size(); ++i)
        fs::remove(days[i], error);
}

/// Removes what a killed owner has left, by the names that WriteFileAtomically gives: the target's, then
/// ".PROCESS-NUMBER.tmp". What stays is the owner's alone.
void ProfileFile::TidyFolder() const {
    const std::string own = path_.filename().string();
    for (const fs::path& found : FindFiles(FolderOf(path_), own + "*")) {
        const std::string name = found.filename().string();
        if (name != own && !name.starts_with(own + ".")) continue;
        std::error_code ignored;
        const std::string number = found.stem().extension().string();
        if (found.extension() == ".tmp" && number.starts_with('.') &&
            IsOneOf(std::string_view(number).substr(1), "0123456789-")) {
            fs::remove(found, ignored);
        } else {
            fs::permissions(found, fs::perms::group_all | fs::perms::others_all, fs::perm_options::remove,
                            ignored);
        }
    }
}

}  // namespace tarnbridge
