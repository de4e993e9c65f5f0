#pragma once

#include <cstddef>

#include <benchmark/benchmark.h>

namespace tarnbridge {

/// Counts what a benchmark takes from the heap while this lives, as its counter "allocations" an iteration. A
/// program that uses it has its operator new replaced.
class AllocationCount {
public:
    explicit AllocationCount(benchmark::State& state);
    ~AllocationCount();
    AllocationCount(const AllocationCount&) = delete;
    AllocationCount& operator=(const AllocationCount&) = delete;

private:
    benchmark::State& state_;
    size_t start_;
};

}  // namespace tarnbridge
