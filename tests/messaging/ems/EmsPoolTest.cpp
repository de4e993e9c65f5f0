#include <memory>
#include <thread>

#include "messaging/ems/EmsSupport.h"

namespace tarnbridge {
namespace {

TEST(EmsPool, StartAndEnd) {
    EmsMessage message;
    int count = 0;
    EXPECT_EQ(EmsShutdown(), EmsResult::NotInitialised);
    EXPECT_EQ(EmsCreate(&message, 0), EmsResult::NotInitialised);
    EXPECT_EQ(AddText(&message, u"x"), EmsResult::NotInitialised);
    EXPECT_EQ(Generate(&message, false, &count, nullptr, nullptr), EmsResult::NotInitialised);
    ASSERT_EQ(EmsInit(), EmsResult::Done);
    EXPECT_EQ(EmsInit(), EmsResult::AlreadyInitialised);
    EXPECT_EQ(EmsCreate(&message, 1), EmsResult::InvalidDcs);
    EXPECT_EQ(EmsCreate(nullptr, 0), EmsResult::NullPointer);
    EXPECT_EQ(AddText(&message, u"x"), EmsResult::InvalidMessage);
    ASSERT_EQ(EmsCreate(&message, 0), EmsResult::Done);
    EXPECT_EQ(EmsShutdown(), EmsResult::Done);
    ASSERT_EQ(EmsInit(), EmsResult::Done);
    EXPECT_EQ(AddText(&message, u"x"), EmsResult::InvalidMessage)
        << "a message of the library's earlier life";
    EmsTestMessage other;
    EXPECT_EQ(other.slot, 1);
    ASSERT_EQ(EmsCreate(&message, 8), EmsResult::Done);
    EXPECT_EQ(message.slot, 2) << "what it held before doesn't free a slot of another";
    EXPECT_EQ(EmsShutdown(), EmsResult::Done);
}

TEST(EmsPool, FiveThousandSlotsLowestFirst) {
    ASSERT_EQ(EmsInit(), EmsResult::Done);
    {
        std::vector<std::unique_ptr<EmsTestMessage>> messages;
        for (int i = 1; i <= emsSlots; ++i) {
            messages.push_back(std::make_unique<EmsTestMessage>());
            ASSERT_EQ(messages.back()->slot, i);
        }
        EmsMessage extra;
        EXPECT_EQ(EmsCreate(&extra, 0), EmsResult::NoFreeSlot);
        EXPECT_EQ(extra.slot, 0);
        messages[4000].reset();
        EmsRelease(messages[7].get());
        EXPECT_EQ(messages[7]->slot, 0);
        ASSERT_EQ(EmsCreate(&extra, 0), EmsResult::Done);
        EXPECT_EQ(extra.slot, 8);
        ASSERT_EQ(EmsCreate(&extra, 8), EmsResult::Done) << "made anew it takes its own slot again";
        EXPECT_EQ(extra.slot, 8);
    }
    EXPECT_EQ(EmsShutdown(), EmsResult::Done);
}

/// Works on one message after another until they have all come back as written.
void WriteAndRead(unsigned seed, int rounds, bool& isRight) {
    std::mt19937 random(seed);
    isRight = true;
    for (int round = 0; round < rounds; ++round) {
        EmsTestMessage message(seed % 2 ? 0 : 8);
        const std::u16string text(1 + random() % 300, static_cast<char16_t>('a' + seed % 26));
        const std::string bytes = RandomBytes(random, 32);
        const EmsObjectData picture = ImageData(bytes, 16, 16, 1);
        for (const char16_t unit : text)
            AddText(&message, {&unit, 1});
        AddObject(&message, EmsKind::Picture, &picture);
        EmsTestMessage read;
        isRight = isRight && Read(read, true, Write(message), message.dcs) == EmsResult::Done &&
                  EmsText(read) == text && Describe(read) == Describe(message);
    }
}

TEST(EmsPool, TwoMessagesOnTwoThreads) {
    ASSERT_EQ(EmsInit(), EmsResult::Done);
    bool isRight[4] = {};
    {
        std::vector<std::thread> threads;
        for (unsigned i = 0; i < 4; ++i) {
            threads.emplace_back([i, &isRight] { WriteAndRead(i, 40, isRight[i]); });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
    for (const bool right : isRight)
        EXPECT_TRUE(right);
    EmsMessage message;
    ASSERT_EQ(EmsCreate(&message, 0), EmsResult::Done);
    EXPECT_EQ(message.slot, 1) << "every slot came back";
    EXPECT_EQ(EmsShutdown(), EmsResult::Done);
}

}  // namespace
}  // namespace tarnbridge
