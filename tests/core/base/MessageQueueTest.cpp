#include <thread>

#include <gtest/gtest.h>

#include "core/base/MessageQueue.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

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
