#include "messaging/EditorSupport.h"
#include "messaging/ShownMessage.h"

namespace tarnbridge {
namespace {

using ShownMessageTest = EmsTest;

TEST_F(ShownMessageTest, WhatAReaderSees) {
    struct Row {
        const char* rule;
        std::u16string text;
        std::u16string shown;
    };
    const Row rows[] = {
        {"marks are hidden", u"a\x1B{b", u"a{b"},
        {"marks without a character too",
         u"\x1B\x1B"
         u"a\x1B",
         u"a"},
        {"line ends of each kind are one", u"a\r\nb\rc\nd\n\re", u"a\nb\nc\nd\n\ne"},
        {"a mark within a line end parts it", u"\r\x1B\n", u"\n\n"},
        {"separators of other systems are line ends", u"a\u2028b\u2029", u"a\nb\n"},
        {"control characters can't be shown",
         u"a\x01\x0C\x7F\x85"
         u"b\tc",
         u"a\uFFFD\uFFFD\uFFFD\uFFFDb\tc"},
        {"nor what stands for an object, or has a meaning in controls", u"\uFFFC\uFDD0\uFFFF",
         u"\uFFFD\uFFFD\uFFFD"},
        {"a zero doesn't end the text", std::u16string(u"a\0b", 3), u"a\uFFFDb"},
        {"surrogates stay", u"\xD83D\xDE00\xDC00", u"\xD83D\xDE00\xDC00"},
    };
    for (const Row& row : rows) {
        EmsTestMessage message(8);
        ASSERT_EQ(AddText(&message, row.text), EmsResult::Done);
        const ShownMessage shown(message);
        EXPECT_EQ(shown.Text(), row.shown) << row.rule;
        EXPECT_EQ(shown.UnitCount(), static_cast<int>(row.text.size())) << row.rule;
    }
    EXPECT_EQ(ShownMessage().Length(), 0);
}

TEST_F(ShownMessageTest, BytesOfTheDefaultAlphabet) {
    const std::u16string part = u"\x1B\x80 \x10\x1B\n\x1B[";
    EmsTestMessage message;
    ASSERT_EQ(AddText(&message, part), EmsResult::Done);
    EXPECT_EQ(ShownMessage(message).Text(), u"\u20AC \u0394\n[");
    // They go into UCS2 as what they are, and come back.
    ASSERT_EQ(EmsSetDcs(&message, 8), EmsResult::Done);
    EXPECT_EQ(EmsText(message), u"\u20AC \u0394\x1B\n[");
    ASSERT_EQ(EmsSetDcs(&message, 0), EmsResult::Done);
    EXPECT_EQ(EmsText(message), part);
}

TEST_F(ShownMessageTest, ObjectsAmongMarksAndLineEnds) {
    EmsTestMessage message;
    AddText(&message, u"a\x1B");
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 7);
    AddText(&message, u"{\r");
    AddObject(&message, EmsKind::PredefinedAnimation, nullptr, 3);
    AddText(&message, u"\nb\x1B");
    const ShownMessage shown(message);
    EXPECT_EQ(shown.Text(), u"a\uFFFC{\n\uFFFC\nb");
    ASSERT_EQ(shown.Objects().size(), 2u);
    EXPECT_EQ(shown.ObjectAt(1)->number, 7);
    EXPECT_EQ(shown.ObjectAt(4)->kind, EmsKind::PredefinedAnimation);
    EXPECT_EQ(shown.ObjectAt(0), nullptr);
    // The mark goes with the sound, and the one at the end with nothing.
    const int units[] = {0, 1, 3, 4, 5, 6, 7, 8};
    for (int position = 0; position <= shown.Length(); ++position)
        EXPECT_EQ(shown.PlaceOf(position).unit, units[position]) << position;
    EXPECT_EQ(shown.UnitCount(), 9);
    EXPECT_EQ(shown.PlaceOf(5).character, 4);
}

TEST_F(ShownMessageTest, OfFormatsThatOverlapTheLastHolds) {
    // Bold over "abcdef", small over "cd" in the middle, red on it, and italic beyond the end.
    EmsTestMessage message;
    ASSERT_EQ(Read(message, true,
                   {FromHex("15 0A03 00 06 13 0A03 02 02 0B 0A04 03 01 03 A0 0A03 06 09 23") + "abcdefg"}, 0),
              EmsResult::Done);
    EXPECT_EQ(Seen(ShownMessage(message)), "[b]ab[S]c[g10]d[b]ef[i]g");
}

TEST_F(ShownMessageTest, AnObjectHasTheLookOfWhatFollows) {
    EmsTestMessage message;
    AddText(&message, u"ab", &boldFormat);
    MoveCursorBackward(&message, 1);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 1);
    MoveCursorForward(&message, 1);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 2);
    EXPECT_EQ(Seen(ShownMessage(message)), "[b]aob[]o");
}

}  // namespace
}  // namespace tarnbridge
