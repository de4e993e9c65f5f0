#include <chrono>
#include <csignal>
#include <random>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/app/ProfileFile.h"
#include "core/app/SampleProfile.h"
#include "core/app/StandardFolders.h"
#include "platform/Files.h"
#include "support/ManualClock.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

class ProfileFileTest : public ::testing::Test {
protected:
    std::unique_ptr<ProfileFile> Open() { return ProfileFile::Open(path, clock); }

    std::string Content() { return *ReadFile(path); }

    /// The names in the folder, without that of the lock.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const fs::path& found : FindFiles(folder.Path(), "*")) {
            if (found.extension() != ".lock") names.push_back(found.filename().string());
        }
        return names;
    }

    /// Runs a step in a process of its own and gives its exit code, or less than 0 if it was killed.
    static int InChild(const std::function<int()>& step) {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(step());
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    test::TemporaryFolder folder;
    const fs::path path = folder / "Tarnbridge.bin";
    test::ManualClock clock;
};

/// A profile of some size, told apart by its path.
void FillLarge(Profile& profile, char16_t mark) {
    for (int i = 0; i < 500; ++i) {
        auto message = std::make_unique<SmsRecord>();
        message->text16.assign(200, mark);
        profile.messageRoot.Append(std::move(message));
    }
    profile.lotusNotesPath.assign(1, mark);
}

TEST_F(ProfileFileTest, SavedAndLoaded) {
    {
        const auto file = Open();
        Profile profile;
        EXPECT_EQ(file->Load(profile), ProfileState::Missing);
        test::FillSample(profile);
        EXPECT_TRUE(file->Save(profile));
        EXPECT_TRUE(file->Save(profile));
    }
    EXPECT_EQ(Content(), test::SampleBytes());
    Profile profile;
    EXPECT_EQ(Open()->Load(profile), ProfileState::Whole);
    EXPECT_EQ(test::Saved(profile), test::SampleBytes());
    EXPECT_EQ(Names(), std::vector<std::string>{"Tarnbridge.bin"});
}

TEST_F(ProfileFileTest, HasOneOwner) {
    auto owner = Open();
    ASSERT_TRUE(owner);
    EXPECT_FALSE(Open());
    EXPECT_EQ(InChild([&] { return Open() ? 1 : 0; }), 0) << "another process is refused too";
    owner.reset();
    EXPECT_TRUE(Open());
    // A killed owner leaves no lock, and its temporary files go; those of others stay.
    EXPECT_EQ(InChild([&] {
                  const auto held = Open();
                  return ::raise(SIGKILL);
              }),
              -1);
    for (const char* name : {"Tarnbridge.bin.12-3.tmp", "Tarnbridge.bin.x.tmp", "Other.12-3.tmp"})
        ASSERT_TRUE(WriteFileAtomically(folder / name, "x"));
    EXPECT_TRUE(Open());
    EXPECT_EQ(Names(), (std::vector<std::string>{"Other.12-3.tmp", "Tarnbridge.bin.x.tmp"}));
}

TEST_F(ProfileFileTest, WhatWasntReadWholeIsCopiedAsideOnce) {
    const std::string whole = test::SampleBytes();
    std::string version1 = whole;
    version1[18] = 1;
    const struct Row {
        const char* fault;
        std::string content;
        ProfileState state;
    } rows[] = {
        {"cut", whole.substr(0, whole.size() / 2), ProfileState::Damaged},
        {"another version", version1, ProfileState::Foreign},
        {"another kind of file", "what the user kept here", ProfileState::Foreign},
        {"something behind the end", whole + "more", ProfileState::Damaged},
    };
    for (const bool isLoaded : {true, false}) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.fault);
            const fs::path aside = folder / "Tarnbridge.bin.20070314-150926.bak";
            ASSERT_TRUE(WriteFileAtomically(path, row.content));
            fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
            const auto file = Open();
            Profile profile;
            if (isLoaded) {
                EXPECT_EQ(file->Load(profile), row.state);
            }
            EXPECT_FALSE(fs::exists(aside)) << "nothing is written until something is saved";
            ASSERT_TRUE(file->Save(profile));
            EXPECT_EQ(file->CopiedAside(), aside);
            EXPECT_EQ(*ReadFile(aside), row.content);
            EXPECT_EQ(fs::status(aside).permissions(), fs::perms::owner_read | fs::perms::owner_write);
            EXPECT_EQ(Content(), test::Saved(profile));
            ASSERT_TRUE(file->Save(profile));
            EXPECT_EQ(Names().size(), 2u);
            fs::remove(aside);
        }
    }
    // A name that is taken is left alone; a file that was removed meanwhile needs no copy.
    ASSERT_TRUE(WriteFileAtomically(folder / "Tarnbridge.bin.20070314-150926.bak", "older"));
    ASSERT_TRUE(WriteFileAtomically(path, "newer"));
    Profile profile;
    ASSERT_TRUE(Open()->Save(profile));
    EXPECT_EQ(*ReadFile(folder / "Tarnbridge.bin.20070314-150926-2.bak"), "newer");
    ASSERT_TRUE(WriteFileAtomically(path, "gone soon"));
    const auto file = Open();
    EXPECT_EQ(file->Load(profile), ProfileState::Foreign);
    fs::remove(path);
    EXPECT_TRUE(file->Save(profile));
    EXPECT_FALSE(file->CopiedAside());
}

TEST_F(ProfileFileTest, WhatCantBeReadIsntReplaced) {
    fs::create_directories(path / "inside");
    const auto file = Open();
    Profile profile;
    EXPECT_EQ(file->Load(profile), ProfileState::Unreadable);
    EXPECT_FALSE(file->Save(profile));
    EXPECT_TRUE(fs::exists(path / "inside"));
}

/// The limit on the size of a file stands in for the disk: write() takes what fits, then fails, just as on a
/// disk that has so much left.
TEST_F(ProfileFileTest, AFullDiskLeavesTheOldFileWhole) {
    Profile small;
    test::FillSample(small);
    ASSERT_TRUE(Open()->Save(small));
    Profile large;
    FillLarge(large, u'l');
    const size_t size = test::Saved(large).size();
    const auto saveWithin = [&](size_t room) {
        return InChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{room, room};
            if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
            const auto file = Open();
            if (!file) return 3;
            return file->Save(large) ? 1 : 0;
        });
    };
    for (const size_t room : {size_t{0}, size_t{1}, size_t{4096}, size / 2, size - 1}) {
        EXPECT_EQ(saveWithin(room), 0) << room;
        EXPECT_EQ(Content(), test::SampleBytes()) << room;
        EXPECT_EQ(Names().size(), 1u) << "no temporary file stays";
    }
    // A damaged file that can't be copied aside stays where it is.
    ASSERT_TRUE(WriteFileAtomically(path, "damaged"));
    EXPECT_EQ(saveWithin(3), 0);
    EXPECT_EQ(Content(), "damaged");
    EXPECT_EQ(Names().size(), 1u);
    EXPECT_EQ(saveWithin(size), 1);
    EXPECT_EQ(Content().size(), size);
}

TEST_F(ProfileFileTest, AReadOnlyFolderIsReadAndNotWritten) {
    Profile profile;
    test::FillSample(profile);
    ASSERT_TRUE(Open()->Save(profile));
    for (const bool hasLockFile : {true, false}) {
        if (!hasLockFile) fs::remove(path.string() + ".lock");
        fs::permissions(folder.Path(), fs::perms(0555));
        const int result = InChild([&] {
            // The superuser may write everywhere.
            constexpr uid_t nobody = 65534;
            if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0)) return 2;
            const auto file = Open();
            if (!file) return 3;
            Profile loaded;
            if (file->Load(loaded) != ProfileState::Whole) return 4;
            return file->Save(loaded) ? 1 : 0;
        });
        fs::permissions(folder.Path(), fs::perms(0755));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(Content(), test::SampleBytes());
    }
}

TEST_F(ProfileFileTest, AKilledSaveLeavesTheOldOrTheNewFile) {
    Profile first;
    Profile second;
    FillLarge(first, u'1');
    FillLarge(second, u'2');
    const std::string contents[] = {test::Saved(first), test::Saved(second)};
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(Open()->Save(first));
    const std::chrono::microseconds time =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    std::uniform_int_distribution<useconds_t> moment(0, static_cast<useconds_t>(3 * time.count()));
    std::mt19937 random(20070314);
    int seen[2] = {};
    size_t leftovers = 0;
    for (int round = 0; round < 100; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            const auto file = Open();
            for (bool even = round % 2 == 0; file; even = !even)
                file->Save(even ? first : second);
            ::_exit(1);
        }
        ::usleep(moment(random));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        const std::string content = Content();
        const auto* const which = std::find(std::begin(contents), std::end(contents), content);
        ASSERT_NE(which, std::end(contents)) << "neither file, in round " << round;
        ++seen[which - std::begin(contents)];
        leftovers += Names().size() - 1;
    }
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
    EXPECT_GT(leftovers, 0u) << "no save was hit on its way";
    EXPECT_TRUE(Open());
    EXPECT_EQ(Names().size(), 1u);
}

}  // namespace
}  // namespace tarnbridge
