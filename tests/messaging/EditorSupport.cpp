#include "messaging/EditorSupport.h"

#include <fmt/format.h>

#include "messaging/ems/EmsFormats.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

std::string Letters(const EmsTextFormat& format) {
    std::string letters;
    if (format.bold) letters += 'b';
    if (format.italic) letters += 'i';
    if (format.underline) letters += 'u';
    if (format.strikethrough) letters += 's';
    if (format.size) letters += format.size == 4 ? 'L' : 'S';
    if (format.alignment != 3) letters += static_cast<char>('0' + format.alignment);
    if (format.foreground != 0) letters += fmt::format("f{}", format.foreground);
    if (format.background != 9) letters += fmt::format("g{}", format.background);
    return letters;
}

}  // namespace

std::string Seen(const ShownMessage& shown) {
    std::string seen;
    for (const ShownRun& run : shown.Runs()) {
        seen +=
            shown.Runs().size() == 1 && Letters(run.format).empty() ? "" : "[" + Letters(run.format) + "]";
        for (const char16_t unit : shown.TextOf(run.begin, run.end)) {
            seen += unit == u'\n'             ? "¶"
                    : unit == objectCharacter ? "o"
                                              : TextToUtf8(std::u16string_view(&unit, 1));
        }
    }
    return seen;
}

MessageEditor MakeEditor(const EditorOptions& options, const EmsMessage* content) {
    std::optional<MessageEditor> editor = MessageEditor::Make(options, content);
    if (!editor) throw std::runtime_error("no editor");
    return std::move(*editor);
}

EmsResult Type(MessageEditor& editor, std::u16string_view text) {
    const int end = editor.Shown().Length();
    return editor.Replace(end, end, text);
}

std::string Figures(const MessageEditor& editor) {
    const EmsMessage& message = editor.Message();
    return fmt::format("{}/{}/{}", message.segmentSize * message.segmentsUsed - message.lastSegmentLeft,
                       message.lastSegmentLeft, message.segmentsUsed);
}

void CheckEditor(MessageEditor& editor) {
    const ShownMessage& shown = editor.Shown();
    int end = 0;
    for (const ShownRun& run : shown.Runs()) {
        ASSERT_EQ(run.begin, end);
        ASSERT_GT(run.end, run.begin);
        end = run.end;
    }
    ASSERT_EQ(end, shown.Length());
    for (const ShownObject& object : shown.Objects())
        ASSERT_EQ(shown.Text().at(static_cast<size_t>(object.position)), objectCharacter);
    ASSERT_EQ(std::count(shown.Text().begin(), shown.Text().end(), objectCharacter),
              static_cast<long>(shown.Objects().size()));
    ASSERT_EQ(shown.Text().find(u'\x1B'), std::u16string::npos);
    ASSERT_GE(editor.Caret(), 0);
    ASSERT_LE(editor.Caret(), shown.Length());
    EmsTestMessage copy;
    ASSERT_EQ(EmsCopy(&copy, &editor.Message()), EmsResult::Done);
    CheckConsistent(copy);
}

}  // namespace tarnbridge
