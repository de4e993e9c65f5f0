// Decode and encode of a 160-character DELIVER, beside a copy of the same hexadecimal text, and the joining
// of parts, whose cost a part is to stay flat.

#include <benchmark/benchmark.h>

#include "messaging/AllocationCount.h"
#include "messaging/JoinParts.h"
#include "messaging/SmsRecord.h"

namespace tarnbridge {
namespace {

std::string LongestDeliver() {
    SmsRecord record;
    record.serviceCentre = SmsAddress("+886935074443", SmsAddress::international);
    record.address = SmsAddress("+886912345678", SmsAddress::international);
    record.timestamp = {480, 7, 7, 14, 15, 20, 1, 1};
    for (int i = 0; i < 160; ++i)
        record.text8.push_back(static_cast<char>('A' + i % 26));
    std::string hex;
    record.encodeDeliver(hex);
    return hex;
}

void CopyPdu(benchmark::State& state) {
    const std::string hex = LongestDeliver();
    for (auto _ : state) {
        std::string copy = hex;
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(CopyPdu);

/// A new record each time, as the reading of a whole memory makes them: its text, its list of parts and the
/// one part are what is taken from the heap.
void DecodePdu(benchmark::State& state) {
    const std::string hex = LongestDeliver();
    const AllocationCount count(state);
    for (auto _ : state) {
        SmsRecord record;
        if (!record.decode(hex)) state.SkipWithError("refused");
        benchmark::DoNotOptimize(record.text8.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(DecodePdu);

/// The same record again and again.
void DecodePduAgain(benchmark::State& state) {
    const std::string hex = LongestDeliver();
    SmsRecord record;
    record.decode(hex);
    const AllocationCount count(state);
    for (auto _ : state) {
        if (!record.decode(hex)) state.SkipWithError("refused");
        benchmark::DoNotOptimize(record.text8.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(DecodePduAgain);

void EncodePdu(benchmark::State& state) {
    SmsRecord record;
    record.decode(LongestDeliver());
    record.rawParts.clear();
    std::string hex;
    const AllocationCount count(state);
    for (auto _ : state) {
        record.encodeDeliver(hex);
        benchmark::DoNotOptimize(hex.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(EncodePdu);

/// The parts of messages of three parts each, with wide references.
SmsRecordList Parts(int count) {
    SmsRecordList records;
    for (int i = 0; i < count; ++i) {
        const int message = i % (count / 3);
        records.push_back(std::make_unique<SmsRecord>());
        records.back()->userDataHeader = {'\x08',
                                          '\x04',
                                          static_cast<char>(message >> 8),
                                          static_cast<char>(message),
                                          '\x03',
                                          static_cast<char>(1 + i / (count / 3))};
        records.back()->text8.assign(153, 'x');
        records.back()->handsetIndices = {i};
    }
    return records;
}

void JoinThreeParts(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        SmsRecordList records = Parts(count);
        state.ResumeTiming();
        JoinParts(records);
        if (records.size() != static_cast<size_t>(count / 3)) state.SkipWithError("not joined");
        benchmark::DoNotOptimize(records.data());
        state.PauseTiming();
        records.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(JoinThreeParts)->Arg(999)->Arg(9'999)->Arg(99'999);

/// Its yardstick: the same records copied, which touches the same memory.
void CopyThreeParts(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    const SmsRecordList records = Parts(count);
    for (auto _ : state) {
        SmsRecordList copies;
        copies.reserve(records.size());
        for (const auto& record : records)
            copies.push_back(std::make_unique<SmsRecord>(*record));
        benchmark::DoNotOptimize(copies.data());
        state.PauseTiming();
        copies.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(CopyThreeParts)->Arg(999)->Arg(9'999)->Arg(99'999);

}  // namespace
}  // namespace tarnbridge

BENCHMARK_MAIN();
