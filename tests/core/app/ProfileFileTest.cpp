#include <atomic>
#include <csignal>
#include <thread>

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/app/ProfileFile.h"
#include "core/app/ProfileFormat.h"
#include "core/app/SampleProfile.h"
#include "core/app/StandardFolders.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "support/ManualClock.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

class ProfileFileTest : public ::testing::Test {
protected:
    std::unique_ptr<ProfileFile> Open() { return ProfileFile::Open(path, clock); }

    std::string Content() { return *ReadFile(path); }

    /// The names in the folder, without those that always stand beside a profile.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const fs::path& found : FindFiles(folder.Path(), "*")) {
            const fs::path end = found.extension();
            if (end != ".lock" && end != ".sum" && end != ".day") names.push_back(found.filename().string());
        }
        return names;
    }

    ProfileState Read() {
        Profile profile;
        return ReadProfile(path, profile);
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
            LetOversizedWritesFail();
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
        fs::permissions(path, fs::perms(0644));
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

TEST_F(ProfileFileTest, WhatOthersHavePutThereIsKeptAside) {
    Profile sample;
    test::FillSample(sample);
    const std::string saved = test::Saved(sample);
    sample.lotusNotesPath = u"yesterday's";
    const std::string older = test::Saved(sample);
    std::string flipped = saved;
    flipped[saved.find("TARNBRIDGE PROFILE") + 60] ^= 1;
    const struct Row {
        const char* fault;
        std::string content;
        ProfileState state;
    } rows[] = {
        {"a byte flipped", flipped, ProfileState::Altered},
        {"cut", saved.substr(0, saved.size() - 1), ProfileState::Damaged},
        {"out of a backup", older, ProfileState::Altered},
        {"as it was saved", saved, ProfileState::Whole},
    };
    for (const bool isOpen : {false, true}) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.fault);
            Profile profile;
            ASSERT_EQ(LoadProfile(saved, profile), ProfileLoad::Whole);
            for (const char* const end : {"", ".sum"})
                fs::remove(path.string() + end);
            auto file = Open();
            ASSERT_TRUE(file->Save(profile));
            if (!isOpen) file.reset();
            ASSERT_TRUE(WriteFileAtomically(path, row.content));
            if (!isOpen) file = Open();
            EXPECT_EQ(Read(), row.state);
            Profile found;
            if (!isOpen) {
                EXPECT_EQ(file->Load(found), row.state);
            }
            ASSERT_TRUE(file->Save(isOpen ? profile : found));
            EXPECT_EQ(file->CopiedAside().has_value(), row.state != ProfileState::Whole);
            EXPECT_EQ(file->WasAltered(),
                      isOpen ? row.state != ProfileState::Whole : row.state == ProfileState::Altered);
            if (file->CopiedAside()) {
                EXPECT_EQ(*ReadFile(*file->CopiedAside()), row.content);
                fs::remove(*file->CopiedAside());
            }
            EXPECT_EQ(Read(), ProfileState::Whole) << "told once";
        }
    }
    // One of a version that kept no checksums, and checksums that are none.
    for (const bool hasFile : {false, true}) {
        ASSERT_TRUE(WriteFileAtomically(path, older));
        fs::remove(path.string() + ".sum");
        if (hasFile) {
            ASSERT_TRUE(WriteFileAtomically(path.string() + ".sum", "old 1\nnew"));
        }
        EXPECT_EQ(Read(), ProfileState::Whole);
    }
}

TEST_F(ProfileFileTest, TheLastSevenDaysAreKeptForTheOwnerAlone) {
    ASSERT_TRUE(WriteFileAtomically(path, test::Saved(*std::make_unique<Profile>())));
    fs::permissions(path, fs::perms(0644));
    const auto file = Open();
    Profile profile;
    ASSERT_EQ(file->Load(profile), ProfileState::Whole);
    const auto save = [&](char16_t mark) {
        profile.lotusNotesPath.assign(1, mark);
        return static_cast<bool>(file->Save(profile));
    };
    for (int day = 1; day <= 9; ++day) {
        clock.local = {.year = 2007, .month = 3, .day = day};
        ASSERT_TRUE(save(static_cast<char16_t>(u'a' + day)));
        ASSERT_TRUE(save(static_cast<char16_t>(u'A' + day)));
    }
    std::vector<std::string> kept;
    for (const fs::path& found : FindFiles(folder.Path(), "*")) {
        EXPECT_EQ(fs::status(found).permissions(), fs::perms(0600)) << found;
        if (found.extension() != ".day") continue;
        Profile old;
        EXPECT_EQ(LoadProfile(*ReadFile(found), old), ProfileLoad::Whole);
        kept.push_back(found.filename().string().substr(15) + " " + TextToUtf8(old.lotusNotesPath));
    }
    EXPECT_EQ(kept, (std::vector<std::string>{"2007-03-03.day C", "2007-03-04.day D", "2007-03-05.day E",
                                              "2007-03-06.day F", "2007-03-07.day G", "2007-03-08.day H",
                                              "2007-03-09.day I"}))
        << "each with what the first save of its day replaced";
}

TEST_F(ProfileFileTest, WhatIsThereAlreadyIsntWrittenAgain) {
    const auto file = Open();
    Profile profile;
    test::FillSample(profile);
    ASSERT_TRUE(file->Save(profile));
    const fs::path other = folder / "other name";
    fs::create_hard_link(path, other);
    ASSERT_TRUE(file->Save(profile));
    EXPECT_TRUE(fs::equivalent(path, other));
    profile.outlookOn = !profile.outlookOn;
    ASSERT_TRUE(file->Save(profile));
    EXPECT_FALSE(fs::equivalent(path, other));
    fs::remove(path);
    ASSERT_TRUE(file->Save(profile));
    EXPECT_EQ(Read(), ProfileState::Whole) << "back where it was removed";
}

/// Kills a save at each of its system calls in turn.
TEST_F(ProfileFileTest, AKilledSaveLeavesTheOldOrTheNewFileAndNoAlarm) {
    Profile first;
    Profile second;
    FillLarge(first, u'1');
    FillLarge(second, u'2');
    const std::string contents[] = {test::Saved(first), test::Saved(second)};
    int seen[2] = {};
    size_t leftovers = 0;
    for (int calls = 1, status = 0; !WIFEXITED(status) || calls == 1; ++calls) {
        for (const fs::path& found : FindFiles(folder.Path(), "*"))
            fs::remove(found);
        ASSERT_TRUE(Open()->Save(first));
        const pid_t child = ::fork();
        if (child == 0) {
            const auto file = Open();
            if (!file || ::ptrace(PTRACE_TRACEME) != 0) ::_exit(2);
            ::raise(SIGSTOP);
            ::_exit(file->Save(second) ? 0 : 1);
        }
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSTOPPED(status)) << "the system lets nobody be traced";
        // Each call stops twice, before and after it.
        for (int stop = 0; stop < calls && WIFSTOPPED(status); ++stop) {
            ASSERT_EQ(::ptrace(PTRACE_SYSCALL, child, nullptr, 0), 0);
            ::waitpid(child, &status, 0);
        }
        if (WIFSTOPPED(status)) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &status, 0);
        } else {
            ASSERT_EQ(WEXITSTATUS(status), 0);
        }
        const std::string content = Content();
        const auto* const which = std::find(std::begin(contents), std::end(contents), content);
        ASSERT_NE(which, std::end(contents)) << "neither file, after " << calls;
        ++seen[which - std::begin(contents)];
        leftovers += Names().size() - 1;
        ASSERT_EQ(Read(), ProfileState::Whole) << "a false alarm after " << calls;
        const auto file = Open();
        ASSERT_TRUE(file);
        EXPECT_EQ(Names().size(), 1u);
        ASSERT_TRUE(file->Save(second));
        EXPECT_FALSE(file->CopiedAside());
        ASSERT_EQ(Read(), ProfileState::Whole);
    }
    EXPECT_GT(seen[0], 20);
    EXPECT_GT(seen[1], 5);
    EXPECT_GT(leftovers, 0u);
}

TEST_F(ProfileFileTest, IsReadBesideAnOwnerThatSaves) {
    Profile profiles[2];
    FillLarge(profiles[0], u'1');
    FillLarge(profiles[1], u'2');
    const auto file = Open();
    ASSERT_TRUE(file->Save(profiles[0]));
    std::atomic<bool> ended{false};
    std::thread owner([&] {
        for (int i = 1; i < 200; ++i)
            EXPECT_TRUE(file->Save(profiles[i % 2]));
        ended = true;
    });
    int readings = 0;
    for (; !ended; ++readings)
        EXPECT_EQ(Read(), ProfileState::Whole) << readings;
    owner.join();
    EXPECT_GT(readings, 10);
}

}  // namespace
}  // namespace tarnbridge
