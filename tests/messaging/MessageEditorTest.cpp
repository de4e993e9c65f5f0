#include "core/base/StringTable.h"
#include "messaging/EditorSupport.h"
#include "messaging/MessageEditor.h"
#include "messaging/ems/EmsFormats.h"

namespace tarnbridge {
namespace {

using MessageEditorTest = EmsTest;

constexpr EditorOptions oneSegment{.longSms = false};
constexpr EditorOptions sevenBitOnly{.automatic = false};

TEST_F(MessageEditorTest, WhatIsTypedAndWhatStandsInTheMessage) {
    struct Row {
        const char* rule;
        EditorOptions options;
        std::u16string typed;
        std::u16string shown;
        std::u16string text;
        int dcs;
    };
    const Row rows[] = {
        {"plain", {}, u"abc", u"abc", u"abc", 0},
        {"extension characters get a mark",
         {},
         u"|^{}[~]\\",
         u"|^{}[~]\\",
         u"\x1B|\x1B^\x1B{\x1B}\x1B[\x1B~\x1B]\x1B\\",
         0},
        {"but not in UCS2", {}, u"{\u4E2D", u"{\u4E2D", u"{\u4E2D", 8},
        {"line ends of each kind", {}, u"a\nb\rc\r\nd\u2029", u"a\nb\nc\nd\n", u"a\r\nb\r\nc\r\nd\r\n", 0},
        {"what a text can't hold is left out",
         {},
         u"a\x1B{\uFFFC\x07"
         u"b\tc",
         u"a{b c",
         u"a\x1B{b c",
         0},
        {"the least character above 127 that a text holds", {}, u"\xA0", u"\xA0", u"\xA0", 8},
        {"7-bit by order", sevenBitOnly, u"\xE9\u4E2D\xD83D\xDE00[", u"\xE9??[", u"\xE9??\x1B[", 0},
        {"7-bit has the euro sign and Greek capitals", sevenBitOnly, u"\u20AC\u0394", u"\u20AC\u0394",
         u"\x1B\x80\x10", 0},
    };
    for (const Row& row : rows) {
        MessageEditor editor = MakeEditor(row.options);
        EXPECT_EQ(Type(editor, row.typed), EmsResult::Done) << row.rule;
        EXPECT_EQ(editor.Shown().Text(), row.shown) << row.rule;
        EXPECT_EQ(EmsText(editor.Message()), row.text) << row.rule;
        EXPECT_EQ(editor.Message().dcs, row.dcs) << row.rule;
        EXPECT_EQ(editor.Caret(), editor.Shown().Length()) << row.rule;
        CheckEditor(editor);
    }
}

TEST_F(MessageEditorTest, WordsOfTheCounter) {
    MessageEditor editor = MakeEditor();
    EXPECT_EQ(editor.CounterText(), u"0 / 160 (Total = 1 SMS)");
    Type(editor, std::u16string(161, u'x'));
    EXPECT_EQ(editor.CounterText(), u"161 / 145 (Total = 2 SMS)");
    editor.Delete(3, 161);
    editor.ApplyFormat(0, 1, bold);
    // A header of 6 octets, in septets.
    EXPECT_EQ(editor.CounterText(), u"10 / 150 (Total = 1 EMS)");
}

TEST_F(MessageEditorTest, WhatDoesNotFitIsUndoneWhole) {
    struct Row {
        const char* rule;
        EditorOptions options;
        std::u16string there;
        std::u16string typed;
        std::u16string words;
    };
    const std::u16string tooLong = u"The message is too long (more than 10 SMS)!Last input may be lost!";
    const std::u16string oneOnly = u"Not support long SMS, last input maybe lost.";
    const Row rows[] = {
        {"one more", {}, std::u16string(1530, u'x'), u"y", tooLong},
        {"an extension character counts twice", {}, std::u16string(1529, u'x'), u"{", tooLong},
        {"a line end counts twice", {}, std::u16string(1529, u'x'), u"\n", tooLong},
        {"one more in UCS2", {}, std::u16string(670, u'\u4E2D'), u"y", tooLong},
        {"a text that UCS2 has no room for", {}, std::u16string(670, u'x'), u"\u4E2D", tooLong},
        {"a paste that fits in part", {}, u"", std::u16string(1531, u'x'), tooLong},
        {"161 in one segment", oneSegment, std::u16string(160, u'x'), u"y", oneOnly},
        {"71 in one segment", oneSegment, std::u16string(70, u'x'), u"\u4E2D", oneOnly},
        {"an extension character in one segment", oneSegment, std::u16string(159, u'x'), u"{", oneOnly},
    };
    for (const Row& row : rows) {
        MessageEditor editor = MakeEditor(row.options);
        ASSERT_EQ(Type(editor, row.there), EmsResult::Done) << row.rule;
        editor.MarkSaved();
        const std::string figures = Figures(editor);
        const int caret = editor.Caret();
        const EmsResult result = editor.Replace(0, 0, row.typed);
        EXPECT_EQ(result, EmsResult::NoRoom) << row.rule;
        EXPECT_EQ(editor.WordsFor(result), row.words) << row.rule;
        EXPECT_EQ(editor.Shown().Text(), row.there) << row.rule;
        EXPECT_EQ(Figures(editor), figures) << row.rule;
        EXPECT_EQ(editor.Caret(), caret) << row.rule;
        EXPECT_FALSE(editor.Modified()) << row.rule;
        CheckEditor(editor);
    }
    EXPECT_EQ(MakeEditor().WordsFor(EmsResult::Done), u"");
    EXPECT_EQ(MakeEditor().WordsFor(EmsResult::InvalidData), u"Unspecified Error!");
}

TEST_F(MessageEditorTest, AReplacementCountsTheTextThatGoes) {
    MessageEditor editor = MakeEditor();
    Type(editor, std::u16string(669, u'x') + u"\u4E2D");
    EXPECT_EQ(editor.Replace(669, 670, std::u16string(861, u'y')), EmsResult::Done) << "7-bit again";
    EXPECT_EQ(Figures(editor), "1530/0/10");
    EXPECT_EQ(editor.Replace(0, 1530, std::u16string(670, u'\u4E2D')), EmsResult::Done);
    EXPECT_EQ(Figures(editor), "670/0/10");
}

TEST_F(MessageEditorTest, NothingGoesIntoAPair) {
    MessageEditor editor = MakeEditor();
    Type(editor,
         u"a\xD83D\xDE00"
         u"b");
    EXPECT_EQ(editor.Replace(2, 2, u"x"), EmsResult::Done);
    EXPECT_EQ(editor.Shown().Text(),
              u"ax\xD83D\xDE00"
              u"b");
    EXPECT_EQ(editor.Delete(3, 4), EmsResult::Done);
    EXPECT_EQ(editor.Shown().Text(), u"axb");
}

TEST_F(MessageEditorTest, ObjectsOfEachKind) {
    const std::string small(32, '\x55');
    const std::string middle(128, '\xAA');
    struct Row {
        const char* name;
        MessageObject object;
        EmsResult result;
    };
    const Row rows[] = {
        {"sound 256", MessageObject::PredefinedSound(256), EmsResult::InvalidObject},
        {"animation 14", MessageObject::PredefinedAnimation(14), EmsResult::Done},
        {"melody", MessageObject::Melody("BEGIN:IMELODY"), EmsResult::Done},
        {"melody too large", MessageObject::Melody(std::string(70000, 'x')), EmsResult::NoMemory},
        {"picture", MessageObject::Picture(small, 16, 16), EmsResult::Done},
        {"a width that a byte would take for 16", MessageObject::Picture(small, 272, 16),
         EmsResult::InvalidObject},
        {"animation", MessageObject::Animation(middle, 16, 16, 4), EmsResult::Done},
        {"vCard", {.kind = EmsKind::VCard, .bytes = "BEGIN:VCARD"}, EmsResult::Done},
        {"a format is no object", {.kind = EmsKind::TextFormat, .bytes = "x"}, EmsResult::InvalidObject},
    };
    for (const Row& row : rows) {
        MessageEditor editor = MakeEditor();
        Type(editor, u"ab");
        EXPECT_EQ(editor.Insert(1, row.object), row.result) << row.name;
        EXPECT_EQ(editor.Shown().Text(), row.result == EmsResult::Done ? u"a\uFFFCb" : u"ab") << row.name;
        CheckEditor(editor);
        if (row.result != EmsResult::Done) continue;
        EXPECT_EQ(editor.Caret(), 2);
        EXPECT_EQ(editor.Shown().Objects()[0].object.bytes, row.object.bytes) << row.name;
        EXPECT_EQ(editor.Shown().Objects()[0].object.number, row.object.number) << row.name;
    }
}

TEST_F(MessageEditorTest, FormatsOverARange) {
    struct Step {
        int from;
        int to;
        FormatChange change;
    };
    struct Row {
        const char* rule;
        std::vector<Step> steps;
        const char* seen;
    };
    // Over "ab{c" sound "d" line-end "ef".
    const Row rows[] = {
        {"an alignment goes to the line", {{3, 3, centred}}, "[1]ab{cod¶[]ef"},
        {"to all lines that are touched", {{3, 8, centred}}, "[1]ab{cod¶ef"},
        {"but not to one that the range ends in front of", {{3, 7, centred}}, "[1]ab{cod¶[]ef"},
        {"with another attribute for the range",
         {{0, 2, {.alignment = 2, .underline = 1}}},
         "[u2]ab[2]{cod¶[]ef"},
        {"sizes and colours",
         {{0, 2, {.size = 4}}, {1, 3, {.background = 3, .foreground = 10}}},
         "[L]a[Lf10g3]b[f10g3]{[]cod¶ef"},
    };
    for (const Row& row : rows) {
        MessageEditor editor = MakeEditor();
        Type(editor, u"ab{cd\nef");
        editor.Insert(4, MessageObject::PredefinedSound(1));
        for (const Step& step : row.steps)
            ASSERT_EQ(editor.ApplyFormat(step.from, step.to, step.change), EmsResult::Done) << row.rule;
        std::string seen = Seen(editor.Shown());
        EXPECT_EQ(seen, row.seen) << row.rule;
        CheckEditor(editor);
        // The same in UCS2 and back.
        Type(editor, u"\u4E2D");
        editor.Delete(9, 10);
        EXPECT_EQ(Seen(editor.Shown()), seen) << row.rule;
    }
    MessageEditor editor = MakeEditor();
    Type(editor, u"ab");
    EXPECT_EQ(editor.ApplyFormat(0, 2, {.size = 3}), EmsResult::InvalidObject);
    EXPECT_EQ(editor.ApplyFormat(0, 2, {.foreground = 16}), EmsResult::InvalidObject);
    EXPECT_EQ(editor.ApplyFormat(0, 2, {.bold = 0}), EmsResult::Done);
    EXPECT_FALSE(editor.CanRedo());
    editor.Undo();
    EXPECT_EQ(editor.Shown().Text(), u"") << "what changes nothing is no step";
}

TEST_F(MessageEditorTest, AFormatThatHasNoRoom) {
    MessageEditor editor = MakeEditor(oneSegment);
    Type(editor, std::u16string(152, u'x'));
    EXPECT_EQ(editor.ApplyFormat(0, 152, bold), EmsResult::Done) << "8 septets";
    // Two of the neighbours would need an element each.
    EXPECT_EQ(editor.ApplyFormat(10, 20, {.bold = 0}), EmsResult::NoRoom);
    EXPECT_EQ(Seen(editor.Shown()), "[b]" + std::string(152, 'x'));
    // What replaces a format needs no room beside it.
    EXPECT_EQ(editor.ApplyFormat(0, 152, {.bold = 0, .italic = 1}), EmsResult::Done);
    CheckEditor(editor);
}

TEST_F(MessageEditorTest, WhatIsTypedNextLooksLikeItsPlace) {
    MessageEditor editor = MakeEditor();
    EXPECT_EQ(editor.ApplyFormat(0, 0, bold), EmsResult::Done);
    Type(editor, u"a");
    Type(editor, u"b\n");
    EXPECT_EQ(Seen(editor.Shown()), "[b]ab¶") << "chosen before the first character, and kept";
    EXPECT_EQ(editor.ApplyFormat(3, 3, {.bold = 0, .italic = 1}), EmsResult::Done);
    Type(editor, u"c");
    EXPECT_EQ(Seen(editor.Shown()), "[b]ab¶[i]c");
    EXPECT_TRUE(SameFormat(editor.TypingFormat(1), boldFormat));
    EXPECT_EQ(editor.TypingFormat(3).italic, 1) << "at the front of a line, that of what follows";
    EXPECT_EQ(editor.ApplyFormat(3, 3, centred), EmsResult::Done);
    EXPECT_EQ(Seen(editor.Shown()), "[b]ab¶[i1]c");
    // A format chosen for a caret that goes elsewhere is forgotten.
    editor.ApplyFormat(1, 1, {.underline = 1});
    editor.MoveCaret(2);
    editor.MoveCaret(1);
    editor.Replace(1, 1, u"x");
    EXPECT_EQ(Seen(editor.Shown()), "[b]axb¶[i1]c");
    // So is one for a caret at which something else is put.
    editor.ApplyFormat(1, 1, {.underline = 1});
    editor.Replace(1, 1, {FormattedText{u"p", boldFormat}});
    editor.Replace(2, 2, u"q");
    EXPECT_EQ(Seen(editor.Shown()), "[b]apqxb¶[i1]c");
    editor.Delete(1, 3);
    // In the place of a range, as the range began.
    editor.Replace(3, 5, u"y");
    EXPECT_EQ(Seen(editor.Shown()), "[b]axby");

    MessageEditor other = MakeEditor();
    Type(other, u"ab\ncd");
    other.ApplyFormat(0, 1, bold);
    other.ApplyFormat(0, 4, {.foreground = 2});
    const FormatChange common = other.CommonFormat(0, 4);
    EXPECT_EQ(common.foreground, uint8_t{2});
    EXPECT_FALSE(common.bold.has_value());
    EXPECT_EQ(other.CommonFormat(5, 5).foreground, uint8_t{0});
}

TEST_F(MessageEditorTest, CutAndPasteBetweenCodings) {
    MessageEditor source = MakeEditor();
    Type(source, u"a{\nb\u4E2D");
    source.Insert(2, MessageObject::Melody("tune"));
    source.ApplyFormat(1, 4, bold);
    const MessageFragment fragment = source.Fragment(1, 5);
    EXPECT_EQ(PlainText(fragment), u"{\nb");
    MessageEditor target = MakeEditor();
    Type(target, u"xy");
    ASSERT_EQ(target.Replace(1, 1, fragment), EmsResult::Done);
    EXPECT_EQ(Seen(target.Shown()), "[]x[b]{o¶[]by");
    EXPECT_EQ(target.Message().dcs, 0);
    EXPECT_EQ(target.Caret(), 5);
    EXPECT_EQ(EmsText(target.Message()), u"x\x1B{\r\nby");
    EXPECT_EQ(target.Shown().Objects()[0].object.bytes, "tune");
    // What doesn't fit as a whole isn't pasted in part.
    Type(target, std::u16string(1440, u'z'));
    const std::string seen = Seen(target.Shown());
    EXPECT_EQ(target.Replace(0, 0, {fragment[0], FormattedText{std::u16string(100, u'z'), boldFormat}}),
              EmsResult::NoRoom);
    EXPECT_EQ(Seen(target.Shown()), seen);
}

TEST_F(MessageEditorTest, ReceivedMessagesOfAnyKind) {
    // Overlapping formats are laid side by side, so that what is typed among them looks as it should.
    EmsTestMessage overlapping;
    Read(overlapping, true, {FromHex("0E 0A03 00 06 13 0A03 02 02 23 0B02 03 05") + "abcdef"}, 0);
    MessageEditor editor = MakeEditor({}, &overlapping);
    EXPECT_EQ(Seen(editor.Shown()), "[b]ab[i]cod[b]ef");
    EXPECT_FALSE(editor.Modified());
    editor.Replace(3, 3, {FormattedText{u"x", {}}});
    EXPECT_EQ(Seen(editor.Shown()), "[b]ab[i]c[]x[i]od[b]ef");
    editor.ApplyFormat(1, 7, {.bold = 0, .italic = 0});
    EXPECT_EQ(Seen(editor.Shown()), "[b]a[]bcxode[b]f");

    // Of 7-bit text with accents: UCS2 if it fits, or else as it is, until it fits.
    EmsTestMessage accents;
    AddText(&accents, u"\xE9" + std::u16string(671, u'x'));
    MessageEditor accented = MakeEditor({}, &accents);
    EXPECT_EQ(accented.Message().dcs, 0);
    EXPECT_EQ(Type(accented, u"y"), EmsResult::Done);
    EXPECT_EQ(Type(accented, u"\xE9"), EmsResult::NoRoom);
    EXPECT_EQ(accented.Delete(1, 3), EmsResult::Done);
    EXPECT_EQ(accented.Message().dcs, 0);
    EXPECT_EQ(accented.Delete(1, 2), EmsResult::Done);
    EXPECT_EQ(Figures(accented), "670/0/10");

    // More segments than the options allow may stay, but not grow.
    EmsTestMessage three;
    AddText(&three, std::u16string(400, u'x'));
    MessageEditor shrinking = MakeEditor(oneSegment, &three);
    EXPECT_EQ(Type(shrinking, std::u16string(60, u'y')), EmsResult::NoRoom);
    EXPECT_EQ(Type(shrinking, std::u16string(59, u'y')), EmsResult::Done);
    EXPECT_EQ(shrinking.Delete(0, 299), EmsResult::Done);
    EXPECT_EQ(Figures(shrinking), "160/0/1");
    EXPECT_EQ(Type(shrinking, u"z"), EmsResult::NoRoom);
    shrinking.Undo();
    EXPECT_EQ(Figures(shrinking), "459/0/3");

    // Line ends without their partner meet when what parts them goes.
    EmsTestMessage parted;
    AddText(&parted, u"a\r");
    AddObject(&parted, EmsKind::PredefinedSound, nullptr, 1);
    AddText(&parted, u"\nb\x1B");
    MessageEditor joined = MakeEditor({}, &parted);
    EXPECT_EQ(joined.Delete(2, 3), EmsResult::Done);
    EXPECT_EQ(Seen(joined.Shown()), "a¶b");
    EXPECT_EQ(joined.Delete(2, 3), EmsResult::Done);
    EXPECT_EQ(EmsText(joined.Message()), u"a\r\n") << "a mark at the end goes with the last character";
    CheckEditor(joined);

    EmsTestMessage data(4);
    AddText(&data, u"8-bit");
    EXPECT_EQ(MakeEditor(sevenBitOnly, &data).Message().dcs, 0);
}

TEST_F(MessageEditorTest, WhatWillArriveOtherwise) {
    MessageEditor editor = MakeEditor(sevenBitOnly);
    Type(editor, u"\xE9[\u20AC\u0394\n");
    editor.Insert(0, MessageObject::PredefinedSound(1));
    Type(editor, u"`\xA4");
    EXPECT_EQ(editor.Arriving().text, u"\uFFFCe[\u20AC\u0394\n\xA7\xA4");
    EXPECT_EQ(editor.Arriving().differing, (std::vector<int>{1, 6}));
    // What is kept as sent is that, with its object.
    SmsRecord record;
    EmsHandle copy = EmsHandle::Make(0);
    EmsCopy(copy.Get(), &editor.Message());
    record.SetEmsMessage(std::move(copy));
    KeepAsSent(record);
    ASSERT_TRUE(record.EnsureEmsMessage());
    EXPECT_EQ(ShownMessage(*record.emsMessage.Get()).Text(), editor.Arriving().text);

    MessageEditor wide = MakeEditor();
    Type(wide, u"\xE9\u0436");
    EXPECT_TRUE(wide.Arriving().differing.empty()) << "UCS2 arrives as it is";
}

}  // namespace
}  // namespace tarnbridge
