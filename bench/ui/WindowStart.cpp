// From the start of a process to the first paint of the window with everything in it, with a profile of
// 10,000 messages, and the memory that it takes then. The yardstick is a process that shows an empty Qt
// window. Each runs as a child of its own, offscreen, in turns with the other.

#include <QApplication>
#include <QMainWindow>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <benchmark/benchmark.h>
#include <sys/stat.h>

#include "core/app/CTarnbridgeDoc.h"
#include "core/app/ProfileFile.h"
#include "platform/Process.h"
#include "ui/frame/CMainFrame.h"
#include "ui/frame/CTarnbridgeApp.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;
using Seconds = std::chrono::duration<double>;

constexpr int messages = 10'000;
constexpr const char* childVariable = "WINDOW_BENCHMARK_CHILD";

/// Tells the memory in use, in kB, when the window has been painted, and ends the process.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(QWidget* window) { window->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QMetaObject::invokeMethod(
                this, [] { Report(); }, Qt::QueuedConnection);
        return false;
    }

private:
    static void Report() {
        std::ifstream status("/proc/self/status");
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with("VmRSS:")) std::printf("%s\n", line.c_str() + 6);
        }
        std::fflush(stdout);
        std::_Exit(0);
    }
};

int RunChild(const std::string& kind, char** arguments) {
    int count = 1;
    QApplication application(count, arguments);
    if (kind == "empty") {
        QMainWindow window;
        const FirstPaint paint(&window);
        window.showMaximized();
        return QApplication::exec();
    }
    CTarnbridgeApp program;
    if (!program.InitInstance()) return 1;
    const FirstPaint paint(program.Frame());
    return QApplication::exec();
}

/// Settings and data of their own, with the profile in them.
class Places {
public:
    Places() : root_(fs::temp_directory_path() / "tarnbridge-window-benchmark") {
        fs::remove_all(root_);
        for (const char* const name : {"config", "data", "run"})
            fs::create_directories(root_ / name);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
        ::setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", (root_ / "run").c_str(), 1);
        ::chmod((root_ / "run").c_str(), 0700);
        SystemClock clock;
        Profile profile;
        MessageFolder& pc = profile.messageRoot;
        pc.Append(std::make_unique<MessageFolder>());
        MessageFolder& inbox =
            pc.Append(std::make_unique<MessageFolder>()).Append(std::make_unique<MessageFolder>());
        for (int i = 0; i < messages; ++i) {
            auto message = std::make_unique<SmsRecord>();
            message->text8.assign(160, 't');
            message->rawParts = {message->text8};
            message->storage = u"PC";
            inbox.Append(std::move(message));
        }
        fs::create_directories(ProfileFile::StandardPath().parent_path());
        ProfileFile::Open(ProfileFile::StandardPath(), clock)->Save(profile);
        std::ofstream(ProfileFile::StandardPath().parent_path() / "DialUpSetting.ini") << "[Setting]\n";
    }
    Places(const Places&) = delete;
    Places& operator=(const Places&) = delete;
    ~Places() { fs::remove_all(root_); }

private:
    const fs::path root_;
};

struct Start {
    double seconds = 0;
    double megabytes = 0;
};

Start Measure(benchmark::State& state, const char* kind) {
    ::setenv(childVariable, kind, 1);
    const auto start = std::chrono::steady_clock::now();
    const auto child = RunProcess("/proc/self/exe", {}, "", std::chrono::seconds(30));
    const double seconds = Seconds(std::chrono::steady_clock::now() - start).count();
    if (!child || child->exitCode != 0) state.SkipWithError("the child failed");
    return {seconds, child ? std::atof(child->output.c_str()) / 1024 : 0};
}

void FirstPaintOfTheWindow(benchmark::State& state) {
    const Places places;
    double window = 0;
    double empty = 0;
    double memory = 0;
    double emptyMemory = 0;
    for (auto _ : state) {
        const Start yardstick = Measure(state, "empty");
        const Start start = Measure(state, "window");
        state.SetIterationTime(start.seconds);
        window += start.seconds;
        empty += yardstick.seconds;
        memory = start.megabytes;
        emptyMemory = yardstick.megabytes;
    }
    state.counters["ratio"] = window / empty;
    state.counters["yardstick_ms"] = empty * 1000 / static_cast<double>(state.iterations());
    state.counters["MB"] = memory;
    state.counters["yardstick_MB"] = emptyMemory;
}
BENCHMARK(FirstPaintOfTheWindow)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnbridge

int main(int count, char** arguments) {
    if (const char* const kind = std::getenv(tarnbridge::childVariable))
        return tarnbridge::RunChild(kind, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
