#include <thread>

#include <gtest/gtest.h>

#include "support/VirtualTime.h"

namespace tarnbridge::test {
namespace {

using namespace std::chrono_literals;

/// Whoever computes holds the time, whether the clock knows them or not.
TEST(VirtualTime, StandsWhileSomebodyWorks) {
    VirtualTime time;
    const Milliseconds start = time.Now();
    Event never(ResetMode::Manual);
    std::thread waiter([&] { EXPECT_FALSE(time.Wait(never, 10ms)); });
    const auto end = std::chrono::steady_clock::now() + 20ms;
    while (std::chrono::steady_clock::now() < end)
        ASSERT_EQ(time.Now(), start);
    waiter.join();
    EXPECT_EQ(time.Now() - start, 10ms);
}

TEST(VirtualTime, EndsWaitsInTheirOrder) {
    VirtualTime time;
    std::mutex mutex;
    std::vector<int> order;
    std::vector<std::thread> threads;
    for (const int rank : {5, 3, 1, 4, 2}) {
        threads.emplace_back([&, rank] {
            time.Sleep(Milliseconds(rank));
            const std::lock_guard guard(mutex);
            order.push_back(rank);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4, 5}));
}

}  // namespace
}  // namespace tarnbridge::test
