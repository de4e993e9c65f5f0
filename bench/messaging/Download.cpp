// Reading all messages of a handset at a paced rate, beside the wire time of the bytes that pass.

#include <chrono>
#include <filesystem>
#include <stdexcept>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include "core/base/BackgroundWorker.h"
#include "link/CountingDevice.h"
#include "link/HandsetLink.h"
#include "messaging/MessageDownload.h"
#include "platform/FileEntryStore.h"
#include "platform/PortMap.h"
#include "simulator/HandsetServer.h"
#include "simulator/Pdu.h"

namespace tarnbridge::bench {
namespace {

/// 50 locations of the SIM and 200 of the handset, full; every tenth holds a part of a message of three.
simulator::HandsetContent FullHandset() {
    simulator::HandsetContent content = simulator::HandsetContent::Empty();
    content.simMessages.capacity = 50;
    content.phoneMessages.capacity = 200;
    simulator::MessageText message;
    message.number = "+46701234567";
    for (int i = 0; i < 250; ++i) {
        const int group = i / 30;
        const bool isPart = i % 30 < 3;
        message.elements = isPart
                               ? std::string{0, 3, static_cast<char>(group), 3, static_cast<char>(1 + i % 30)}
                               : std::string();
        message.text = std::u16string(isPart ? 153 : 160, u'x');
        content.Add(i < 50 ? "SM" : "ME", 1,
                    simulator::WriteDeliver(message, content.identity.serviceCentre));
    }
    return content;
}

/// The fixed folders.
MessageTree MakeTree(MessageFolder& root) {
    for (const size_t count : {size_t{4}, size_t{6}}) {
        MessageFolder& side = root.Append(std::make_unique<MessageFolder>());
        for (size_t i = 0; i < count; ++i)
            side.Append(std::make_unique<MessageFolder>());
    }
    return MessageTree(root);
}

/// The time is that of the whole task, with the choice of memories and the joining. Argument: baud rate.
void ReadAll(benchmark::State& state) {
    const int baud = static_cast<int>(state.range(0));
    const std::string name = "tarnbridge-bench-download" + std::to_string(::getpid());
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    simulator::HandsetServer server(FullHandset(), {}, {path, {}, {}, baud});
    if (!server.Start()) throw std::runtime_error("no virtual handset");

    FileEntryStore store(path.string() + ".conf");
    const PortMap ports(store);
    const SerialDeviceFactory devices = SystemSerialDevices(ports);
    std::atomic<size_t> bytes{0};
    SystemClock clock;
    HandsetLink link(clock, [&] { return std::make_unique<CountingDevice>(devices(), bytes); });
    LinkKind kind{};
    if (!link.Connect(path.string(), kind, static_cast<uint32_t>(baud)) || !link.EnsureSession())
        state.SkipWithError("no session");
    BackgroundWorker worker;
    worker.Start(link);

    MessageFolder root;
    const MessageTree tree = MakeTree(root);
    for (auto _ : state) {
        bytes = 0;
        const auto start = std::chrono::steady_clock::now();
        MessageDownload download(worker, tree);
        RunTask(download);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        if (download.GetReport().messages != 232 || !download.GetReport().unread.empty())
            state.SkipWithError("a message is missing");
        state.SetIterationTime(time.count());
        state.counters["times_wire"] = time.count() / (static_cast<double>(bytes) * 10 / baud);
    }
    worker.Stop();
    link.Disconnect(true);
    server.Stop();
}
BENCHMARK(ReadAll)->ArgName("baud")->Arg(115200)->UseManualTime()->Iterations(1)->Unit(
    benchmark::kMillisecond);

}  // namespace
}  // namespace tarnbridge::bench

BENCHMARK_MAIN();
