// One key in the text control on a full message of 10 segments in UCS2, from the event to the picture. Beside
// it the same key in the editor alone.

#include "ui/messages/MessageEdit.h"

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

constexpr int longest = 670;
constexpr int caret = longest / 2;
const QString letter(QChar(0x0431));

MessageEditor Full(int formats) {
    EmsInit(uint8_t{0});
    MessageEditor editor = *MessageEditor::Make({});
    const std::u16string line = std::u16string(48, u'\u0431') + u" \n";
    for (int i = 0; i < 10; ++i)
        editor.Replace(0, 0, line);
    for (int i = 0; i < formats; ++i)
        editor.ApplyFormat(20 * i, 20 * i + 10, {.bold = 1, .foreground = static_cast<uint8_t>(i % 16)});
    while (editor.Replace(editor.Shown().Length(), editor.Shown().Length(), u"\u0431") == EmsResult::Done) {
    }
    const int end = editor.Shown().Length();
    editor.Delete(end - 1, end);
    return editor;
}

void KeyInTheEditor(benchmark::State& state) {
    MessageEditor editor = Full(0);
    for (auto _ : state) {
        editor.Replace(caret, caret, u"\u0431");
        editor.Delete(caret, caret + 1);
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(KeyInTheEditor);

void KeyInTheControl(benchmark::State& state) {
    MessageEditor editor = Full(static_cast<int>(state.range(0)));
    MessageEdit edit(editor);
    edit.resize(600, 400);
    edit.show();
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(caret);
    edit.setTextCursor(cursor);
    const bool paints = state.range(1) != 0;
    const auto press = [&](int key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, {}, text);
        QApplication::sendEvent(&edit, &event);
        if (paints) QApplication::processEvents();
    };
    QApplication::processEvents();
    for (auto _ : state) {
        press(0, letter);
        press(Qt::Key_Backspace, {});
    }
    state.counters["segments"] = editor.Message().segmentsUsed;
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(KeyInTheControl)->ArgNames({"formats", "painted"})->ArgsProduct({{0, 20}, {0, 1}});

}  // namespace
}  // namespace tarnbridge

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
