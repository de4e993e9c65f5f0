// What the user waits for in a folder of many messages: opening its list, sorting it, filtering it. The
// yardstick is a copy of the same texts.

#include <benchmark/benchmark.h>

#include "messaging/MessageList.h"

namespace tarnbridge {
namespace {

constexpr int messageCount = 10'000;

/// Messages of 160 characters in no order, from 100 senders; one in a hundred holds the word "needle".
const MessageFolder& Folder() {
    static MessageFolder folder;
    for (uint32_t i = 0; folder.records.size() < messageCount; ++i) {
        const uint32_t mixed = i * 2'654'435'761U;
        SmsRecord& record = folder.Append(std::make_unique<SmsRecord>());
        record.address.number = "+46701" + std::to_string(100 + mixed % 100);
        record.timestamp = {60,
                            static_cast<uint16_t>(7 + mixed % 10),
                            static_cast<uint8_t>(1 + mixed / 10 % 12),
                            static_cast<uint8_t>(1 + mixed / 120 % 28),
                            static_cast<uint8_t>(mixed / 3360 % 24),
                            static_cast<uint8_t>(mixed / 80'640 % 60),
                            0,
                            1};
        record.storage = u"PC";
        record.text8 = std::to_string(mixed) + (i % 100 == 0 ? " Needle" : " ");
        record.text8.resize(160, 'x');
    }
    return folder;
}

void CopyTexts(benchmark::State& state) {
    const MessageFolder& folder = Folder();
    for (auto _ : state) {
        std::vector<std::u16string> texts;
        texts.reserve(folder.records.size());
        for (const auto& record : folder.records)
            texts.push_back(record->TextAsWide());
        benchmark::DoNotOptimize(texts.data());
    }
}
BENCHMARK(CopyTexts)->Unit(benchmark::kMillisecond);

void OpenList(benchmark::State& state) {
    const MessageFolder& folder = Folder();
    MessageList list;
    for (auto _ : state) {
        list.Open(folder);
        benchmark::DoNotOptimize(list.Count());
    }
}
BENCHMARK(OpenList)->Unit(benchmark::kMillisecond);

void SortList(benchmark::State& state) {
    MessageList list;
    list.Open(Folder());
    bool ascending = true;
    for (auto _ : state) {
        list.Sort(static_cast<MessageList::Column>(state.range(0)), ascending = !ascending);
        benchmark::DoNotOptimize(list.At(0).record);
    }
}
BENCHMARK(SortList)
    ->ArgName("column")
    ->Arg(static_cast<int>(MessageList::Column::Address))
    ->Arg(static_cast<int>(MessageList::Column::Time))
    ->Arg(static_cast<int>(MessageList::Column::Text))
    ->Unit(benchmark::kMillisecond);

/// The first filter after opening, which folds the case of every text, and each one after it.
void FilterList(benchmark::State& state) {
    const bool isFirst = state.range(0) != 0;
    MessageList list;
    list.Open(Folder());
    list.Filter(u"x");
    for (auto _ : state) {
        if (isFirst) {
            state.PauseTiming();
            list.Filter({});
            list.Open(Folder());
            state.ResumeTiming();
        }
        list.Filter(u"NEEDLE");
        if (list.Count() != messageCount / 100) state.SkipWithError("not found");
    }
}
BENCHMARK(FilterList)->ArgName("first")->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnbridge
