// One keystroke in a long message, beside a copy of the same text: AddText of a character in the middle with
// the whole layout, and the Backspace that takes it out again.

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "messaging/ems/Ems.h"

namespace {

std::atomic<long> allocations = 0;
std::atomic<size_t> allocatedBytes = 0;

}  // namespace

[[gnu::noinline]] void* operator new(size_t size) {
    ++allocations;
    allocatedBytes += size;
    if (void* const block = std::malloc(size)) return block;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, size_t) noexcept {
    std::free(block);
}

namespace tarnbridge {
namespace {

constexpr int characters = 1200;
constexpr int objects = 20;

/// The message with an object after every 60 characters and the cursor in its middle.
void Fill(EmsMessage& message, int extended, int size) {
    EmsInit(uint8_t{0});
    EmsCreate(&message, 0);
    std::string card(size, 'c');
    for (int i = 0; i < objects; ++i) {
        AddText(&message, std::u16string(characters / objects, u'x'));
        if (i >= extended) {
            AddObject(&message, EmsKind::PredefinedSound, nullptr, static_cast<uint8_t>(i % 10));
            continue;
        }
        // Texts of lines that differ little, as those of cards do.
        for (size_t k = 0; k < card.size(); ++k)
            card[k] = static_cast<char>('a' + (k % 17 + i * k / 29) % 23);
        EmsObjectData data;
        data.bytes = reinterpret_cast<const uint8_t*>(card.data());
        data.size = static_cast<uint16_t>(card.size());
        AddObject(&message, EmsKind::VCard, &data);
    }
    MoveCursorBackward(&message, (characters + objects) / 2);
}

void CopyText(benchmark::State& state) {
    EmsMessage message;
    Fill(message, 0, 0);
    auto copy = message.text;
    for (auto _ : state) {
        std::memcpy(copy.data(), message.text.data(), message.textLength);
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyText);

void TypeAndTakeBack(benchmark::State& state, EmsMessage& message) {
    const uint8_t letter[2] = {0, 'y'};
    state.counters["segments"] = message.segmentsUsed;
    const long before = allocations;
    for (auto _ : state) {
        if (AddText(&message, letter, 1) != EmsResult::Done) state.SkipWithError("no room");
        Backspace(&message, 1);
    }
    state.counters["heap"] = static_cast<double>(allocations - before);
    // Two keystrokes an iteration.
    state.SetItemsProcessed(state.iterations() * 2);
}

void TypeAmongPlainObjects(benchmark::State& state) {
    EmsMessage message;
    Fill(message, 0, 0);
    TypeAndTakeBack(state, message);
}
BENCHMARK(TypeAmongPlainObjects);

/// `range(0)` extended objects of 100 bytes, sent as one compressed block.
void TypeAmongExtendedObjects(benchmark::State& state) {
    EmsMessage message;
    Fill(message, static_cast<int>(state.range(0)), 100);
    TypeAndTakeBack(state, message);
}
BENCHMARK(TypeAmongExtendedObjects)->Arg(1)->Arg(4)->Arg(12);

/// The same without compression, as far as there is room.
void TypeAmongUncompressedObjects(benchmark::State& state) {
    EmsMessage message;
    Fill(message, static_cast<int>(state.range(0)), 30);
    EmsSetCompression(&message, false);
    TypeAndTakeBack(state, message);
}
BENCHMARK(TypeAmongUncompressedObjects)->Arg(1)->Arg(4);

/// All slots taken, with a text and a picture in each: what a message costs, and nothing before it is made.
void TakeAllSlots(benchmark::State& state) {
    EmsInit(uint8_t{0});
    const std::string pixels(32, 'p');
    EmsObjectData picture;
    picture.bytes = reinterpret_cast<const uint8_t*>(pixels.data());
    picture.size = static_cast<uint16_t>(pixels.size());
    picture.width = picture.height = 16;
    picture.depth = 1;
    std::vector<std::unique_ptr<EmsMessage>> messages(emsSlots);
    size_t bytes = 0;
    for (auto _ : state) {
        const size_t before = allocatedBytes;
        for (auto& message : messages) {
            message = std::make_unique<EmsMessage>();
            EmsCreate(message.get(), 0);
            AddText(message.get(), u"text");
            AddObject(message.get(), EmsKind::Picture, &picture);
        }
        bytes = allocatedBytes - before;
        for (auto& message : messages)
            message.reset();
    }
    state.counters["bytes_per_message"] = static_cast<double>(bytes) / emsSlots;
    state.SetItemsProcessed(state.iterations() * emsSlots);
}
BENCHMARK(TakeAllSlots);

}  // namespace
}  // namespace tarnbridge

BENCHMARK_MAIN();
