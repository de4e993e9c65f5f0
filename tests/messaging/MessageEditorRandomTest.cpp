// Random edits beside a model that knows nothing of marks, line ends of two characters, coding or formats
// that join: a list of units with a look each.

#include <fmt/format.h>

#include "messaging/EditorSupport.h"
#include "messaging/GsmAlphabet.h"
#include "messaging/ems/EmsFormats.h"

namespace tarnbridge {
namespace {

struct Unit {
    char16_t character = 0;
    int object = -1;  ///< number of a predefined sound, or -1
    EmsTextFormat format;
};

using Units = std::vector<Unit>;

class RandomEdits {
public:
    RandomEdits(unsigned seed, EditorOptions options) : random_(seed), editor_(MakeEditor(options)) {}

    void Step(int number) {
        const int length = editor_.Shown().Length();
        int from = Pick(length + 1);
        int to = std::min(length, from + Pick(12));
        const std::vector<std::string> before = State();
        Units wanted = units_;
        EmsResult result = EmsResult::Done;
        switch (Pick(10)) {
            case 0:
            case 1:
            case 2:
                to = from;
                result = PutText(from, to, wanted, 1 + Pick(Pick(4) == 0 ? 400 : 12));
                break;
            case 3:
                result = PutText(from, to, wanted, Pick(4));
                break;
            case 4:
                if (Pick(3) == 0) to = length;
                wanted.erase(wanted.begin() + from, wanted.begin() + to);
                result = editor_.Delete(from, to);
                break;
            case 5: {
                const int sound = Pick(10);
                wanted.insert(wanted.begin() + from, {0, sound, {}});
                result = editor_.Insert(from, MessageObject::PredefinedSound(sound));
                break;
            }
            case 6:
            case 7:
                result = Format(from, to, wanted);
                break;
            case 8: {
                // From wherever to wherever.
                const int target = Pick(length + 1);
                const Units part(wanted.begin() + from, wanted.begin() + to);
                wanted.insert(wanted.begin() + target, part.begin(), part.end());
                result = editor_.Replace(target, target, editor_.Fragment(from, to));
                break;
            }
            default:
                UndoAndRedo(before);
                return;
        }
        if (result == EmsResult::Done) {
            units_ = wanted;
        } else {
            ASSERT_EQ(State(), before) << "a failed change changed something";
            ++refused_;
        }
        CheckEditor(editor_);
        Compare(number);
    }

    int Refused() const { return refused_; }

private:
    int Pick(int below) {
        return below <= 0 ? 0 : static_cast<int>(random_() % static_cast<unsigned>(below));
    }

    EmsResult PutText(int from, int to, Units& wanted, int count) {
        static constexpr std::u16string_view common = u"ab {]|\n";
        static constexpr std::u16string_view wide = u"a\u4E2D\xE9[\n";
        const std::u16string_view alphabet = Pick(8) == 0 ? wide : common;
        std::u16string text;
        Units added;
        EmsTextFormat format;
        if (Pick(2) == 0) format.bold = 1;
        if (Pick(4) == 0) format.foreground = static_cast<uint8_t>(Pick(16));
        for (int i = 0; i < count; ++i) {
            text.push_back(alphabet[static_cast<size_t>(Pick(static_cast<int>(alphabet.size())))]);
            added.push_back({text.back(), -1, format});
        }
        wanted.erase(wanted.begin() + from, wanted.begin() + to);
        wanted.insert(wanted.begin() + from, added.begin(), added.end());
        return editor_.Replace(from, to, MessageFragment{FormattedText{text, format}});
    }

    EmsResult Format(int from, int to, Units& wanted) {
        FormatChange change;
        if (Pick(2) == 0) change.italic = static_cast<uint8_t>(Pick(2));
        if (Pick(2) == 0) change.size = static_cast<uint8_t>(4 * Pick(3));
        for (int i = from; i < to; ++i)
            wanted[static_cast<size_t>(i)].format = change.AppliedTo(wanted[static_cast<size_t>(i)].format);
        return editor_.ApplyFormat(from, to, change);
    }

    void UndoAndRedo(const std::vector<std::string>& before) {
        const int steps = 1 + Pick(5);
        int undone = 0;
        for (; undone < steps && editor_.CanUndo(); ++undone)
            editor_.Undo();
        for (; undone > 0; --undone)
            editor_.Redo();
        ASSERT_EQ(State(), before) << "undone and done again";
    }

    /// Everything about the message.
    std::vector<std::string> State() const {
        std::vector<std::string> state = Describe(editor_.Message());
        state.push_back(fmt::format("{} {} dcs {} modified {}", Seen(editor_.Shown()), Figures(editor_),
                                    editor_.Message().dcs, editor_.Modified()));
        return state;
    }

    void Compare(int number) const {
        const ShownMessage& shown = editor_.Shown();
        ASSERT_EQ(static_cast<size_t>(shown.Length()), units_.size()) << "step " << number;
        size_t textLength = 0;
        bool isSevenBit = true;
        for (const Unit& unit : units_)
            isSevenBit = isSevenBit && unit.character < 128;
        for (int i = 0; i < shown.Length(); ++i) {
            const Unit& unit = units_[static_cast<size_t>(i)];
            const MessageObject* const object = shown.ObjectAt(i);
            ASSERT_EQ(object ? object->number : -1, unit.object) << "step " << number << " at " << i;
            if (object) continue;
            ASSERT_EQ(shown.Text()[static_cast<size_t>(i)], unit.character)
                << "step " << number << " at " << i;
            ASSERT_TRUE(SameFormat(shown.FormatAt(i), unit.format)) << "step " << number << " at " << i;
            const bool isMarked = isSevenBit && IsGsmExtension(unit.character);
            textLength += unit.character == u'\n' || isMarked ? 2 : 1;
        }
        ASSERT_EQ(editor_.Message().dcs, isSevenBit ? 0 : 8);
        ASSERT_EQ(editor_.Message().textLength / 2u, textLength);
    }

    std::mt19937 random_;
    MessageEditor editor_;
    Units units_;
    int refused_ = 0;
};

class MessageEditorRandomTest : public EmsTest, public testing::WithParamInterface<int> {};

TEST_P(MessageEditorRandomTest, ShowsWhatTheModelHolds) {
    const auto seed = static_cast<unsigned>(GetParam());
    RandomEdits edits(seed, {.longSms = seed % 3 != 0});
    for (int i = 0; i < 600 && !HasFatalFailure(); ++i)
        edits.Step(i);
    EXPECT_GT(edits.Refused(), 0) << "no change met the limits";
}

INSTANTIATE_TEST_SUITE_P(Seeds, MessageEditorRandomTest, testing::Range(1, 7));

}  // namespace
}  // namespace tarnbridge
