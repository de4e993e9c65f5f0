// One key in a full message of 10 segments in UCS2, with all that the editor does for it: the state before
// for an undo, the layout, the choice of the coding and the text as shown. Beside it the same key in the EMS
// layer alone, and a copy of the text.

#include <cstring>
#include <string>

#include <benchmark/benchmark.h>

#include "messaging/MessageEditor.h"
#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

constexpr int longest = 670;
constexpr int caret = longest / 2;

void CopyText(benchmark::State& state) {
    const std::u16string text(longest, u'\u4E2D');
    std::u16string copy = text;
    for (auto _ : state) {
        std::memcpy(copy.data(), text.data(), longest * sizeof(char16_t));
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyText);

void KeyInTheEmsLayer(benchmark::State& state) {
    EmsInit(uint8_t{0});
    EmsMessage message;
    EmsCreate(&message, 8);
    AddText(&message, std::u16string(longest - 1, u'\u4E2D'));
    MoveCursorBackward(&message, longest - caret);
    const uint8_t letter[2] = {0x4E, 0x2D};
    for (auto _ : state) {
        if (AddText(&message, letter, 1) != EmsResult::Done) state.SkipWithError("no room");
        Backspace(&message, 1);
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(KeyInTheEmsLayer);

void TypeAndTakeBack(benchmark::State& state, MessageEditor& editor, int at, std::u16string_view character) {
    for (auto _ : state) {
        if (editor.Replace(at, at, character) != EmsResult::Done) state.SkipWithError("no room");
        editor.Delete(at, at + 1);
    }
    state.counters["segments"] = editor.Message().segmentsUsed;
    // Two keys an iteration.
    state.SetItemsProcessed(state.iterations() * 2);
}

MessageEditor Filled(std::u16string_view text) {
    EmsInit(uint8_t{0});
    MessageEditor editor = *MessageEditor::Make({});
    editor.Replace(0, 0, text);
    return editor;
}

void KeyInAFullMessage(benchmark::State& state) {
    MessageEditor editor = Filled(std::u16string(longest - 1, u'\u4E2D'));
    TypeAndTakeBack(state, editor, caret, u"\u4E2D");
}
BENCHMARK(KeyInAFullMessage);

/// The step before its undo is remembered at each key.
void KeyThatIsAStep(benchmark::State& state) {
    MessageEditor editor = Filled(std::u16string(longest - 2, u'\u4E2D'));
    TypeAndTakeBack(state, editor, caret, u"\n");
}
BENCHMARK(KeyThatIsAStep);

/// Bold and italic in turn, and twelve different vCards as one compressed block.
void KeyAmongFormatsAndObjects(benchmark::State& state) {
    MessageEditor editor = Filled(std::u16string(200, u'\u4E2D'));
    for (int i = 0; i < 20; ++i)
        editor.ApplyFormat(i * 10, i * 10 + 5, {.bold = uint8_t{1}});
    for (int i = 0; i < 12; ++i) {
        std::string card(80, 'c');
        for (size_t k = 0; k < card.size(); ++k)
            card[k] = static_cast<char>('a' + (k % 17 + static_cast<size_t>(i) * k / 29) % 23);
        if (editor.Insert(i * 15, {.kind = EmsKind::VCard, .bytes = card}) != EmsResult::Done)
            state.SkipWithError("no room for the objects");
    }
    TypeAndTakeBack(state, editor, 100, u"x");
}
BENCHMARK(KeyAmongFormatsAndObjects);

/// A key that no room is left for.
void KeyThatIsRefused(benchmark::State& state) {
    MessageEditor editor = Filled(std::u16string(longest, u'\u4E2D'));
    for (auto _ : state) {
        if (editor.Replace(caret, caret, u"x") == EmsResult::Done) state.SkipWithError("room left");
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(KeyThatIsRefused);

/// 600 characters, each of which has a mark in 7-bit coding and none in UCS2.
void KeyThatSwitchesTheCoding(benchmark::State& state) {
    MessageEditor editor = Filled(std::u16string(600, u'{'));
    TypeAndTakeBack(state, editor, 300, u"\u4E2D");
}
BENCHMARK(KeyThatSwitchesTheCoding);

}  // namespace
}  // namespace tarnbridge

BENCHMARK_MAIN();
