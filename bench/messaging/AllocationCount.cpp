#include "messaging/AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<size_t> allocations = 0;
}

void* operator new(size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}

namespace tarnbridge {

AllocationCount::AllocationCount(benchmark::State& state) : state_(state), start_(allocations) {}

AllocationCount::~AllocationCount() {
    state_.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocations - start_), benchmark::Counter::kAvgIterations);
}

}  // namespace tarnbridge
