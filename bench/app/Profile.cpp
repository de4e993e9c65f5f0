// Save and load of a profile, each beside what can't be saved of it: writing the same bytes in one block,
// with the flush that every save ends in, and reading them in one block and allocating the records. Both
// sides are timed in turns, so the ratio holds on a machine that is busy with other things too. There are ten
// messages to a contact, as in a profile of 100,000 messages and 10,000 contacts.

#include <algorithm>
#include <chrono>
#include <filesystem>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include "core/app/ProfileFile.h"
#include "core/app/ProfileFormat.h"
#include "platform/Files.h"

namespace tarnbridge {
namespace {

using Seconds = std::chrono::duration<double>;

class ScratchFile {
public:
    ScratchFile() = default;
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { std::filesystem::remove_all(folder); }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("tarnbridge-profile-" + std::to_string(::getpid()));
    const std::filesystem::path path = folder / "Tarnbridge.bin";
    const std::filesystem::path other = folder / "yardstick";
};

SmsRecord SampleMessage() {
    SmsRecord message;
    message.text8.assign(160, 't');
    message.storage = u"PC";
    message.status = smsRead;
    message.serviceCentre = SmsAddress("+886935074443", SmsAddress::international);
    message.address = SmsAddress("+886912345678", SmsAddress::international);
    message.rawParts = {message.text8};
    return message;
}

Contact SampleContact() {
    Contact contact;
    contact.SetNameNumber(u"Somebody Somewhere", u"+886912345678", ucs2Name);
    contact.details.email = u"somebody@example.org";
    contact.details.memo = u"a remark of some length";
    return contact;
}

/// `count` messages in the PC's inbox and a tenth of that in contacts, allocated one by one.
void Fill(Profile& profile, int64_t count) {
    profile.messageRoot.Append(std::make_unique<MessageFolder>());
    profile.contactRoot.Append(std::make_unique<ContactFolder>());
    MessageFolder& inbox = profile.messageRoot.Append(std::make_unique<MessageFolder>())
                               .Append(std::make_unique<MessageFolder>());
    const SmsRecord message = SampleMessage();
    for (int64_t i = 0; i < count; ++i)
        inbox.Append(std::make_unique<SmsRecord>(message));
    ContactFolder& people = profile.contactRoot.Append(std::make_unique<ContactFolder>());
    const Contact contact = SampleContact();
    for (int64_t i = 0; i < count / 10; ++i)
        people.Append(std::make_unique<Contact>(contact));
}

std::string Saved(Profile& profile) {
    std::string bytes;
    SaveProfile(profile, [&bytes](std::string_view piece) {
        bytes += piece;
        return true;
    });
    return bytes;
}

template <typename Step>
double Time(Step step) {
    const auto start = std::chrono::steady_clock::now();
    step();
    return Seconds(std::chrono::steady_clock::now() - start).count();
}

/// The time of the step is the benchmark's; `ratio` is its multiple of the yardstick's.
template <typename Step, typename Yardstick>
void Compare(benchmark::State& state, Step step, Yardstick yardstick) {
    double steps = 0;
    double yardsticks = 0;
    for (auto _ : state) {
        yardsticks += yardstick();
        const double time = step();
        state.SetIterationTime(time);
        steps += time;
    }
    const auto messages = static_cast<double>(state.iterations() * state.range(0));
    state.counters["ratio"] = steps / yardsticks;
    state.counters["ns_per_message"] = steps / messages * 1e9;
    state.counters["yardstick_ns"] = yardsticks / messages * 1e9;
}

/// A profile of which a little has changed since it was last saved, or nothing.
void SaveToDisk(benchmark::State& state, bool changes) {
    const ScratchFile scratch;
    SystemClock clock;
    const auto file = ProfileFile::Open(scratch.path, clock);
    Profile profile;
    Fill(profile, state.range(0));
    const std::string bytes = Saved(profile);
    const auto check = [&state](const Outcome& outcome) {
        if (!outcome) state.SkipWithError(outcome.Failure().text.c_str());
    };
    Compare(
        state,
        [&] {
            if (changes) profile.outlookOn = !profile.outlookOn;
            return Time([&] { check(file->Save(profile)); });
        },
        [&] { return Time([&] { check(WriteFileAtomically(scratch.other, bytes)); }); });
}

void SaveChanged(benchmark::State& state) {
    SaveToDisk(state, true);
}

void SaveUnchanged(benchmark::State& state) {
    SaveToDisk(state, false);
}

/// The same without the disk: the bytes laid out piece by piece, beside a copy of them in one block.
void SaveToMemory(benchmark::State& state) {
    Profile profile;
    Fill(profile, state.range(0));
    const std::string bytes = Saved(profile);
    std::string target(bytes.size(), '\0');
    Compare(
        state,
        [&] {
            return Time([&] {
                size_t size = 0;
                SaveProfile(profile, [&](std::string_view piece) {
                    std::copy(piece.begin(), piece.end(), target.data() + size);
                    size += piece.size();
                    return true;
                });
                benchmark::ClobberMemory();
            });
        },
        [&] {
            return Time([&] {
                std::copy(bytes.begin(), bytes.end(), target.begin());
                benchmark::ClobberMemory();
            });
        });
}

void LoadFromDisk(benchmark::State& state) {
    const ScratchFile scratch;
    {
        Profile profile;
        Fill(profile, state.range(0));
        WriteFileAtomically(scratch.path, Saved(profile));
    }
    Compare(
        state,
        [&] {
            Profile profile;
            return Time([&] {
                if (ReadProfile(scratch.path, profile) != ProfileState::Whole) state.SkipWithError("damaged");
            });
        },
        [&] {
            Profile profile;
            return Time([&] {
                const auto bytes = ReadFile(scratch.path);
                Fill(profile, state.range(0));
                benchmark::DoNotOptimize(bytes->data());
            });
        });
}

BENCHMARK(SaveChanged)
    ->RangeMultiplier(10)
    ->Range(100, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SaveUnchanged)
    ->RangeMultiplier(10)
    ->Range(100, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SaveToMemory)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(LoadFromDisk)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnbridge

BENCHMARK_MAIN();
