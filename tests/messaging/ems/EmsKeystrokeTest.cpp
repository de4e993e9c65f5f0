#include <atomic>
#include <cstdlib>
#include <new>

#include "messaging/ems/EmsSupport.h"

namespace {

std::atomic<int> allocations = 0;

}  // namespace

[[gnu::noinline]] void* operator new(size_t size) {
    ++allocations;
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

using EmsKeystroke = EmsTest;

TEST_F(EmsKeystroke, TakesNothingFromTheHeap) {
    EmsTestMessage message;
    const std::string card(200, 'c');
    const EmsObjectData data = PlainData(card);
    const EmsTextFormat bold{.bold = 1};
    AddText(&message, std::u16string(600, u'x'));
    AddObject(&message, EmsKind::VCard, &data);
    AddText(&message, u"bold", &bold);
    const int before = allocations;
    const uint8_t letter[2] = {0, 'y'};
    int units = 0;
    EmsResult result = EmsResult::Done;
    for (int i = 0; i < 100 && result == EmsResult::Done; ++i)
        result = AddText(&message, letter, 1, &bold);
    units += Backspace(&message, 50);
    units += MoveCursorBackward(&message, 80);
    int segments = 0;
    Generate(&message, false, &segments, nullptr, nullptr);
    const int taken = allocations - before;
    EXPECT_EQ(taken, 0);
    EXPECT_EQ(result, EmsResult::Done);
    EXPECT_EQ(units, 130);
    EXPECT_EQ(segments, 5);
}

}  // namespace
}  // namespace tarnbridge
