// What the link costs on top of the wire. Every figure is a ratio against something measured in the same run.

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include "link/ATChannel.h"
#include "link/CountingDevice.h"
#include "link/HandsetLink.h"
#include "link/RawPty.h"
#include "platform/EntryStore.h"
#include "platform/FileEntryStore.h"
#include "platform/PortMap.h"
#include "simulator/HandsetServer.h"

namespace tarnbridge::bench {
namespace {

using Seconds = std::chrono::duration<double>;

template <typename Work>
double TimeOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return Seconds(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::filesystem::path TemporaryPath(const char* name) {
    return std::filesystem::temp_directory_path() / (std::string(name) + std::to_string(::getpid()));
}

/// The machine's devices, by path alone.
SerialDeviceFactory Devices() {
    static FileEntryStore store(TemporaryPath("tarnbridge-bench-store"));
    static const PortMap ports(store);
    return SystemSerialDevices(ports);
}

/// One `AT` exchange beside one raw round trip of the same bytes on another pseudo-terminal.
void AtExchange(benchmark::State& state) {
    const std::string reply = "\r\nOK\r\n";
    RawPty raw;
    raw.Answer(reply);
    raw.OpenNear();
    RawPty linked;
    linked.Answer(reply);
    SystemClock clock;
    ATChannel channel(clock, Devices());
    LinkKind kind{};
    if (!channel.Open(linked.Path(), 115200, FlowControl::None, {}, kind))
        throw std::runtime_error("no pseudo-terminal");

    std::vector<double> rawTimes;
    std::vector<double> exchangeTimes;
    ATResult result;
    for (auto _ : state) {
        rawTimes.push_back(TimeOf([&] { raw.Exchange("AT\r", reply.size()); }));
        const double time = TimeOf([&] {
            if (!channel.Exec("AT\r", Milliseconds(5000), false, result)) state.SkipWithError("no answer");
        });
        exchangeTimes.push_back(time);
        state.SetIterationTime(time);
    }
    channel.Close();
    const double rawMedian = Median(rawTimes);
    const double exchangeMedian = Median(exchangeTimes);
    state.counters["raw_us"] = rawMedian * 1e6;
    state.counters["exchange_us"] = exchangeMedian * 1e6;
    state.counters["times_raw"] = exchangeMedian / rawMedian;
    state.counters["of_limit"] = exchangeMedian / (4 * rawMedian + 1e-4);
    state.counters["per_second"] = 1 / exchangeMedian;
}
BENCHMARK(AtExchange)->UseManualTime()->Iterations(5000)->Unit(benchmark::kMicrosecond);

/// A response of 20 MB in lines of 400 bytes, beside the same bytes read raw in pieces of the same size.
/// Nearly all of the time is the kernel's, and it swings by a factor of two with where the kernel puts the
/// two threads. So both sides are measured in turns, and what counts is the median of their ratios.
void LongResponse(benchmark::State& state) {
    constexpr size_t lineSize = 400;
    constexpr size_t lineCount = 50'000;
    std::string reply;
    for (size_t i = 0; i < lineCount; ++i) {
        std::string line = "\r\n+EFSR: \"";
        line += std::string(lineSize - line.size() - 3, 'A') + "\"\r\n";
        reply += line;
    }
    reply += "\r\nOK\r\n";

    std::vector<double> rawTimes;
    std::vector<double> linkTimes;
    std::vector<double> ratios;
    double memory = 0;
    for (auto _ : state) {
        {
            RawPty raw;
            raw.Answer(reply);
            raw.OpenNear();
            rawTimes.push_back(TimeOf([&] { raw.Exchange("AT\r", reply.size()); }));
        }
        RawPty linked;
        linked.Answer(reply);
        SystemClock clock;
        ATChannel channel(clock, Devices());
        LinkKind kind{};
        channel.Open(linked.Path(), 115200, FlowControl::None, {}, kind);
        ATResult result;
        result.prefix = "+EFSR";
        const auto before = ::mallinfo2();
        const double time = TimeOf([&] {
            if (!channel.Exec("AT\r", Milliseconds(60'000), false, result)) state.SkipWithError("no answer");
        });
        const auto after = ::mallinfo2();
        memory = static_cast<double>(after.uordblks + after.hblkhd - before.uordblks - before.hblkhd);
        if (result.lines.size() != lineCount + 1) state.SkipWithError("lines are missing");
        linkTimes.push_back(time);
        ratios.push_back(rawTimes.back() / time);
        state.SetIterationTime(time);
        channel.Close();
    }
    const auto megabytes = static_cast<double>(reply.size()) / 1e6;
    state.counters["raw_MB_s"] = megabytes / Median(rawTimes);
    state.counters["link_MB_s"] = megabytes / Median(linkTimes);
    state.counters["of_raw"] = Median(ratios);
    state.counters["memory_times_text"] = memory / static_cast<double>(reply.size());
}
BENCHMARK(LongResponse)->UseManualTime()->Iterations(9)->Unit(benchmark::kMillisecond);

/// Reads messages of 160 characters at a paced rate, beside the wire time of the bytes that passed.
/// Arguments: baud rate, number of messages.
void PacedMessages(benchmark::State& state) {
    const int baud = static_cast<int>(state.range(0));
    const int count = static_cast<int>(state.range(1));
    const std::string pdu = "07911326040000F0040B911346610089F60000208062917314080A" + std::string(280, 'A');
    simulator::HandsetContent content = simulator::HandsetContent::Empty();
    content.simMessages.capacity = count;
    for (int i = 0; i < count; ++i)
        content.Add("SM", 1, pdu);
    simulator::HandsetServer server(std::move(content), {},
                                    {TemporaryPath("tarnbridge-bench-handset"), {}, {}, baud});
    if (!server.Start()) throw std::runtime_error("no virtual handset");

    std::atomic<size_t> bytes{0};
    SystemClock clock;
    HandsetLink link(clock, [&] { return std::make_unique<CountingDevice>(Devices()(), bytes); });
    LinkKind kind{};
    link.Connect(TemporaryPath("tarnbridge-bench-handset").string(), kind, static_cast<uint32_t>(baud));
    ATResult result;
    result.prefix = "+CPMS";
    if (!link.ExecCheckOk("AT+CPMS=\"SM\", \"SM\", \"SM\"\r", 5000, result, true))
        state.SkipWithError("no session");

    for (auto _ : state) {
        bytes = 0;
        const double time = TimeOf([&] {
            for (int i = 1; i <= count; ++i) {
                result.Clear();
                result.prefix = "+CMGR";
                const std::string command = "AT+CMGR=" + std::to_string(i) + "\r";
                if (!link.ExecCommand(command, 5000, true, result) || !result.HasPrefix("+CMGR")) {
                    state.SkipWithError("a message is missing");
                }
            }
        });
        state.SetIterationTime(time);
        state.counters["times_wire"] = time / (static_cast<double>(bytes) * 10 / baud);
    }
    link.Disconnect(true);
    server.Stop();
}
BENCHMARK(PacedMessages)
    ->ArgNames({"baud", "messages"})
    ->Args({9600, 10})
    ->Args({115200, 200})
    ->Args({921600, 200})
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnbridge::bench

BENCHMARK_MAIN();
