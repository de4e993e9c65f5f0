#include <thread>

#include <gtest/gtest.h>

#include "core/base/MessageQueue.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

TEST(MessageQueue, PostsAreHandledInOrderOnTheOwnersThread) {
    std::vector<intptr_t> handled;
    std::vector<std::string> carried;
    MessageQueue queue([&](Message& message) {
        handled.push_back(message.wParam);
        EXPECT_EQ(message.payload.Get<int>(), nullptr) << "another type";
        if (auto* text = message.payload.Get<std::unique_ptr<std::string>>()) carried.push_back(**text);
        return intptr_t{0};
    });
    EXPECT_FALSE(queue.ProcessOne(0ms));
    std::thread poster([&] {
        for (int number = 0; number < 100; ++number)
            queue.Post({WorkerResult, number, 0,
                        MessagePayload::Of(std::make_unique<std::string>(std::to_string(number)))});
    });
    for (int number = 0; number < 100; ++number)
        ASSERT_TRUE(queue.ProcessOne(forever));
    poster.join();
    EXPECT_FALSE(queue.ProcessOne(0ms));
    for (size_t number = 0; number < 100; ++number) {
        EXPECT_EQ(handled[number], static_cast<intptr_t>(number));
        EXPECT_EQ(carried[number], std::to_string(number));
    }
}

TEST(MessageQueue, ASenderWaitsForTheAnswer) {
    bool handled = false;
    MessageQueue queue([&](Message& message) {
        handled = true;
        return message.wParam + message.lParam;
    });
    EXPECT_EQ(queue.Send({WorkerResult, 1, 2}), 3) << "from the owner's own thread, at once";
    handled = false;
    std::thread sender([&] {
        EXPECT_EQ(queue.Send({WorkerResult, 40, 2}), 42);
        EXPECT_TRUE(handled);
    });
    EXPECT_TRUE(queue.ProcessOne(forever));
    sender.join();
}

TEST(MessageQueue, TheEndFreesEveryone) {
    auto queue = std::make_unique<MessageQueue>([](Message&) { return intptr_t{1}; });
    Event ready{ResetMode::Manual};
    std::vector<std::thread> senders;
    for (int number = 0; number < 4; ++number) {
        senders.emplace_back([&, target = queue.get()] {
            ready.Set();
            EXPECT_EQ(target->Send({WorkerResult}), 0);
        });
    }
    ready.Wait(forever);
    std::this_thread::sleep_for(20ms);  // so that some stand in the wait; either way is right
    queue->Close();
    for (std::thread& sender : senders)
        sender.join();
    queue->Post({WorkerResult});
    EXPECT_FALSE(queue->ProcessOne(forever));
}

}  // namespace
}  // namespace tarnbridge
