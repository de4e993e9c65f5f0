#include <gtest/gtest.h>

#include "link/WireText.h"

namespace tarnbridge {
namespace {

TEST(WireText, HexOfUnitsInBothOrders) {
    EXPECT_EQ(WideToHexUcs2(u"A\xD83D\u00F1", true), "0041D83D00F1");
    EXPECT_EQ(WideToHexUcs2(u"A\xD83D", false), "41003DD8");
    EXPECT_EQ(WideToHexUcs2(std::u16string(600, u'x'), true).size(), 512u * 4);
    EXPECT_EQ(WideToHexUcs2(u"", true), "");
}

TEST(WireText, HexToUnits) {
    struct Row {
        const char* rule;
        const char* hex;
        bool bigEndian;
        const char16_t* text;
    };
    const Row rows[] = {
        {"network order", "00410042", true, u"AB"},
        {"low byte first", "41004200", false, u"AB"},
        {"upper-case digit", "004A", true, u"J"},
        {"odd last digit is ignored", "004100420", true, u"AB"},
        {"a zero unit ends the text", "004100000042", true, u"A"},
        {"a last byte alone is a low half", "004142", true, u"AB"},
        {"one byte", "41", true, u"A"},
        {"nothing", "", true, u""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(HexUcs2ToWide(row.hex, row.bigEndian), row.text) << row.rule;

    std::string tooLong;
    for (int i = 0; i < 600; ++i)
        tooLong += "0041";
    EXPECT_EQ(HexUcs2ToWide(tooLong, true).size(), 512u);
    for (const char* bad : {"004a", "00 1", "G041", "00\"041", "00000g"}) {
        try {
            HexUcs2ToWide(bad, true);
            ADD_FAILURE() << bad;
        } catch (const WireTextError& error) {
            EXPECT_STREQ(error.what(), "error");
        }
    }
}

TEST(WireText, HexRoundTripOfEveryUnit) {
    for (unsigned unit = 1; unit < 0x10000; ++unit) {
        const std::u16string text(1, static_cast<char16_t>(unit));
        ASSERT_EQ(HexUcs2ToWide(WideToHexUcs2(text, true), true), text);
        ASSERT_EQ(HexUcs2ToWide(WideToHexUcs2(text, false), false), text);
        ASSERT_EQ(Utf8ToWide(WideToUtf8(text)), text);
    }
}

TEST(WireText, Utf8EndsWhereItCannotGoOn) {
    EXPECT_EQ(Utf8ToWide("A\xC3\xB1\xE2\x82\xAC"), u"A\u00F1\u20AC");
    EXPECT_EQ(Utf8ToWide("ab\xF0\x9F\x98\x80yz"), u"ab");
    EXPECT_EQ(Utf8ToWide("ab\x80z"), u"ab");
    EXPECT_EQ(Utf8ToWide("ab\xE2\x82"), u"ab");
    EXPECT_EQ(Utf8ToWide(std::string_view("a\0b", 3)), u"a");
    EXPECT_EQ(Utf8ToWide("\xC3z"), std::u16string(1, static_cast<char16_t>(3 << 6 | ('z' & 0x3F))))
        << "continuation bytes aren't checked";
    EXPECT_EQ(Utf8ToWide(std::string(3000, 'x')).size(), 2047u);
}

TEST(WireText, ToUtf8CutsBetweenCharacters) {
    const std::string bytes = WideToUtf8(std::u16string(2000, u'\u20AC'));
    EXPECT_EQ(bytes.size(), 4095u);
    EXPECT_EQ(WideToUtf8(u"\xD83D"), "\xED\xA0\xBD");
}

TEST(WireText, NarrowSwapsAndCuts) {
    EXPECT_EQ(WideToNarrow(u"UCS2_0x81", false), "UCS2_0x81");
    EXPECT_EQ(WideToNarrow(u"\x4100\x4200", true), "AB");
    EXPECT_EQ(WideToNarrow(u"a\u4E00", false), "a?");
    EXPECT_EQ(WideToNarrow(std::u16string(2000, u'x'), false).size(), 1023u);
}

TEST(WireText, PackedAlphaIdentifier) {
    std::string packed;
    EXPECT_EQ(PackUcs2Alpha(u"\u0410\u0411", packed), 5);
    EXPECT_EQ(packed, "\x81\x02\x08\x90\x91");
    EXPECT_EQ(PackUcs2Alpha(u"A\u00F1b", packed), 6);
    EXPECT_EQ(packed, std::string("\x81\x03\x01\x41\xF1\x62", 6));
    EXPECT_EQ(PackUcs2Alpha(u"\u0410" + std::u16string(116, u'x'), packed), 120);

    const std::u16string refused[] = {
        u"Abc", u"", u"\u0410\u0631", u"A\u4E00", u"\u0E01\u0E60", u"\u0410" + std::u16string(117, u'x')};
    for (const std::u16string& text : refused) {
        EXPECT_EQ(PackUcs2Alpha(text, packed), 0);
        EXPECT_EQ(packed, "");
    }
}

TEST(WireText, HalfPagesEndWhereTheyShould) {
    EXPECT_EQ(HalfPageOf(0x0E5F), 0x0E00);
    EXPECT_EQ(HalfPageOf(0x0E60), 0);
    EXPECT_EQ(HalfPageOf(0x0480), 0);
    EXPECT_EQ(HalfPageOf(0x007F), 0);
    EXPECT_EQ(HalfPageOf(0x0180), 0x0180);
    EXPECT_EQ(HalfPageOf(0x0C7F), 0x0C00);
}

}  // namespace
}  // namespace tarnbridge
