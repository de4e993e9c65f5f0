// The view of the messages as the user has it, with 10,000 messages in a folder, off the screen: opening the
// folder, sorting and finding, each up to the painted list. The yardstick is the same switch to a folder
// with nothing in it.

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeView>
#include <chrono>
#include <filesystem>

#include <benchmark/benchmark.h>

#include "core/app/CTarnbridgeDoc.h"
#include "messaging/MessageTree.h"
#include "ui/QtText.h"
#include "ui/frame/CMainFrame.h"
#include "ui/frame/CTarnbridgeApp.h"
#include "ui/messages/MessageListModel.h"
#include "ui/messages/MessageTreeModel.h"

namespace tarnbridge {
namespace {

constexpr int messageCount = 10'000;

/// The program in folders of its own.
class Window {
public:
    Window() {
        for (const char* const variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
            qputenv(variable, QFile::encodeName(folder_.filePath(QLatin1String(variable))));
        QDir(folder_.path()).mkdir(QStringLiteral("share"));
        QFile::link(QStringLiteral(WINDOW_DATA), folder_.filePath(QStringLiteral("share/tarnbridge")));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(folder_.filePath(QStringLiteral("share"))));
        if (!program_.InitInstance()) std::exit(1);
        MessageTree tree(program_.Document()->Content().messageRoot);
        for (MessageFolder* const folder : {&tree.OnPc(inboxPlace), &tree.OnPc(personalPlace)})
            Fill(*folder);
        program_.Frame()->Choose(2);
        program_.Frame()->Choose(1);
        program_.Frame()->resize(1200, 800);
        Paint();
    }
    ~Window() {
        bool closed = false;
        QObject::connect(&program_, &CTarnbridgeApp::closed, &program_, [&] { closed = true; });
        program_.Frame()->close();
        while (!closed)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    /// The time until the folder's list is painted.
    double Open(MessagePlace place) {
        auto& tree = Find<QTreeView>("folders");
        auto& model = static_cast<MessageTreeModel&>(*tree.model());
        const MessageTree folders(program_.Document()->Content().messageRoot);
        const QModelIndex index = model.IndexOf(&folders.OnPc(place));
        return Time([&] { tree.setCurrentIndex(index); });
    }

    template <typename Step>
    double Time(Step step) {
        const auto start = std::chrono::steady_clock::now();
        step();
        Paint();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

    template <typename Widget>
    Widget& Find(const char* name) {
        return *program_.Frame()->findChild<Widget*>(QLatin1String(name));
    }

private:
    static void Fill(MessageFolder& folder) {
        for (int i = 0; i < messageCount; ++i) {
            auto record = std::make_unique<SmsRecord>();
            record->text8 = "Message " + std::to_string(i * 7919 % messageCount) + std::string(140, 't');
            record->address = SmsAddress("+4670" + std::to_string(i % 1000), SmsAddress::unknown);
            record->storage = u"PC";
            record->status = i % 10 == 0 ? smsUnread : smsRead;
            record->timestamp.year = 7;
            record->timestamp.month = static_cast<uint8_t>(i % 12 + 1);
            record->timestamp.day = static_cast<uint8_t>(i % 28 + 1);
            folder.Append(std::move(record));
        }
    }

    void Paint() {
        QCoreApplication::processEvents();
        program_.Frame()->repaint();
    }

    QTemporaryDir folder_;
    CTarnbridgeApp program_;
};

Window* theWindow = nullptr;

template <typename Step>
void Compare(benchmark::State& state, Step step) {
    Window& window = *theWindow;
    double steps = 0;
    double yardsticks = 0;
    double longest = 0;
    for (auto _ : state) {
        yardsticks += window.Open(draftPlace);
        const double time = step(window);
        state.SetIterationTime(time);
        steps += time;
        longest = std::max(longest, time);
    }
    state.counters["ratio"] = steps / yardsticks;
    state.counters["longest_ms"] = longest * 1e3;
    state.counters["yardstick_ms"] = yardsticks / static_cast<double>(state.iterations()) * 1e3;
}

void OpenFolder(benchmark::State& state) {
    Compare(state, [](Window& window) { return window.Open(inboxPlace); });
}

void SortFolder(benchmark::State& state) {
    Compare(state, [&](Window& window) {
        window.Open(inboxPlace);
        auto& list = window.Find<QTreeView>("messages");
        const auto order = state.iterations() % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
        list.sortByColumn(MessageListModel::TimeColumn, order);
        return window.Time([&] { list.sortByColumn(MessageListModel::TextColumn, order); });
    });
}

/// The first key; each further one has the folded texts already.
void FindInFolder(benchmark::State& state) {
    Compare(state, [](Window& window) {
        window.Open(inboxPlace);
        auto& find = window.Find<QLineEdit>("find");
        const double time = window.Time([&] { find.setText(QStringLiteral("9")); });
        find.clear();
        return time;
    });
}

BENCHMARK(OpenFolder)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SortFolder)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FindInFolder)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarnbridge

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    tarnbridge::Window window;
    tarnbridge::theWindow = &window;
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
