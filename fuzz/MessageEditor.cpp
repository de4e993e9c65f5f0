// The message editor. The first octet holds the options (bits 0 and 1) and whether a received segment with a
// header follows behind its coding and its length (bit 2); the rest are operations: a number, two positions,
// and what belongs to it. A change that is refused must leave everything as it was, and what is undone and
// done again must be the same.

#include "messaging/MessageEditor.h"

#include <algorithm>
#include <cstdlib>

#include "messaging/ems/Ems.h"
#include "messaging/ems/EmsFormats.h"

namespace {

using namespace tarnbridge;

class Input {
public:
    Input(const uint8_t* data, size_t size) : data_(data), left_(size) {}

    bool IsEmpty() const { return left_ == 0; }

    int Next() {
        if (left_ == 0) return 0;
        --left_;
        return *data_++;
    }

    std::string_view Bytes(int wanted) {
        const size_t size = std::min(static_cast<size_t>(wanted), left_);
        const std::string_view bytes(reinterpret_cast<const char*>(data_), size);
        data_ += size;
        left_ -= size;
        return bytes;
    }

private:
    const uint8_t* data_;
    size_t left_;
};

/// Two octets a character, so that any can come.
std::u16string TextOf(std::string_view bytes, bool wide) {
    std::u16string text;
    for (size_t at = 0; at < bytes.size(); at += wide ? 2 : 1) {
        const auto low = static_cast<uint8_t>(bytes[at]);
        const auto high = wide && at + 1 < bytes.size() ? static_cast<uint8_t>(bytes[at + 1]) : uint8_t{0};
        text.push_back(static_cast<char16_t>(high << 8 | low));
    }
    return text;
}

void Require(bool holds) {
    if (!holds) std::abort();
}

bool IsSame(const ShownMessage& first, const ShownMessage& second) {
    const auto sameRun = [](const ShownRun& one, const ShownRun& other) {
        return one.begin == other.begin && one.end == other.end && SameFormat(one.format, other.format);
    };
    const auto sameObject = [](const ShownObject& one, const ShownObject& other) {
        return one.position == other.position && one.object.kind == other.object.kind &&
               one.object.number == other.object.number && one.object.bytes == other.object.bytes;
    };
    return first.Text() == second.Text() &&
           std::equal(first.Runs().begin(), first.Runs().end(), second.Runs().begin(), second.Runs().end(),
                      sameRun) &&
           std::equal(first.Objects().begin(), first.Objects().end(), second.Objects().begin(),
                      second.Objects().end(), sameObject);
}

EmsResult Operate(MessageEditor& editor, Input& input, int operation, int from, int to) {
    switch (operation % 8) {
        case 0:
            return editor.Replace(from, to, TextOf(input.Bytes(input.Next()), false));
        case 1:
            return editor.Replace(from, to, TextOf(input.Bytes(input.Next()), true));
        case 2:
            return editor.Delete(from, to);
        case 3:
            return editor.Insert(from, MessageObject::PredefinedSound(input.Next() % 12));
        case 4: {
            const int width = input.Next();
            const int height = input.Next();
            const int depth = input.Next();
            const auto bytes = std::string(static_cast<size_t>((width * height * depth + 7) / 8 % 3000),
                                           static_cast<char>(input.Next()));
            return editor.Insert(from, depth % 2 != 0
                                           ? MessageObject::Picture(bytes, width, height, depth)
                                           : MessageObject::Animation(bytes, width, height, 1, depth));
        }
        case 5: {
            FormatChange change;
            const int which = input.Next();
            if (which & 1) change.bold = uint8_t{1};
            if (which & 2) change.italic = uint8_t{0};
            if (which & 4) change.alignment = static_cast<uint8_t>(which >> 5 & 3);
            if (which & 8) change.size = static_cast<uint8_t>(which >> 3 & 12);
            if (which & 16) change.foreground = static_cast<uint8_t>(which >> 4);
            return editor.ApplyFormat(from, to, change);
        }
        case 6:
            return editor.Replace(input.Next(), input.Next(), editor.Fragment(from, to));
        default:
            editor.MoveCaret(from);
            return EmsResult::Done;
    }
}

void UndoAndRedo(MessageEditor& editor, int steps) {
    const ShownMessage before = editor.Shown();
    int undone = 0;
    for (; undone < steps && editor.CanUndo(); ++undone)
        editor.Undo();
    for (; undone > 0; --undone)
        editor.Redo();
    Require(IsSame(before, editor.Shown()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    EmsInit(uint8_t{0});
    Input input(data, size);
    const int how = input.Next();
    EmsMessage content;
    EmsCreate(&content, 0);
    if (how & 4) {
        const uint8_t dcs = input.Next() % 2 == 0 ? 0 : 8;
        const std::string_view segment = input.Bytes(input.Next());
        const auto* const bytes = reinterpret_cast<const uint8_t*>(segment.data());
        const int length = static_cast<int>(segment.size());
        Parse(&content, true, 1, &bytes, &length, &dcs);
    }
    auto editor = MessageEditor::Make({.longSms = (how & 1) == 0, .automatic = (how & 2) == 0}, &content);
    Require(editor.has_value());
    while (!input.IsEmpty()) {
        const int operation = input.Next();
        const int from = input.Next() * 2;
        const int to = from + input.Next();
        const ShownMessage before = editor->Shown();
        const int used = editor->Message().lastSegmentLeft + editor->Message().segmentsUsed * 1000;
        const bool couldUndo = editor->CanUndo();
        if (Operate(*editor, input, operation, from, to) != EmsResult::Done) {
            Require(IsSame(before, editor->Shown()) && couldUndo == editor->CanUndo());
            Require(used == editor->Message().lastSegmentLeft + editor->Message().segmentsUsed * 1000);
        }
        Require(IsSame(editor->Shown(), ShownMessage(editor->Message())));
        Require(editor->Caret() >= 0 && editor->Caret() <= editor->Shown().Length());
        Require(IsValidFormat(editor->TypingFormat(from)) && editor->CounterText().size() > 10);
        if (operation & 0x80) UndoAndRedo(*editor, operation >> 3 & 15);
    }
    return 0;
}
