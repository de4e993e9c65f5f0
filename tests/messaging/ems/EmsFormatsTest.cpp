#include "messaging/ems/EmsSupport.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

using EmsFormats = EmsTest;
using Lines = std::vector<std::string>;

EmsTextFormat Bold() {
    EmsTextFormat format;
    format.bold = 1;
    return format;
}

EmsTextFormat Italic() {
    EmsTextFormat format;
    format.italic = 1;
    return format;
}

TEST_F(EmsFormats, Typing) {
    const EmsTextFormat plain;
    const EmsTextFormat bold = Bold();
    const EmsTextFormat italic = Italic();
    struct Step {
        int caret;  // units from the start
        const EmsTextFormat* format;
    };
    struct Row {
        const char* rule;
        std::vector<Step> steps;  // after "abcdef" in bold; each types "xy"
        Lines formats;
    };
    const Row rows[] = {
        {"at the end it grows", {{6, &bold}}, {"0+16 13"}},
        {"inside it grows", {{3, &bold}}, {"0+16 13"}},
        {"text without a format inside becomes part of it", {{3, nullptr}}, {"0+16 13"}},
        {"text without a format at the end doesn't", {{6, nullptr}}, {"0+12 13"}},
        {"another format inside cuts it", {{3, &italic}}, {"0+6 13", "6+4 23", "10+6 13"}},
        {"the default format inside cuts it too", {{3, &plain}}, {"0+6 13", "10+6 13"}},
        {"the default format at the end closes it", {{6, &plain}, {8, &bold}}, {"0+12 13", "16+4 13"}},
        {"another at the end begins", {{6, &italic}}, {"0+12 13", "12+4 23"}},
        {"another at the start begins", {{0, &italic}}, {"0+4 23", "4+12 13"}},
        {"the same at the start joins what follows", {{0, &bold}}, {"0+16 13"}},
        {"the default format at the start moves it", {{0, &plain}}, {"4+12 13"}},
        {"into the middle of what was cut in",
         {{3, &italic}, {4, &italic}, {3, &bold}},
         {"0+10 13", "10+8 23", "18+6 13"}},
    };
    for (const Row& row : rows) {
        EmsTestMessage message;
        ASSERT_EQ(AddText(&message, u"abcdef", &bold), EmsResult::Done);
        for (const Step& step : row.steps) {
            EmsResetCursor(&message);
            MoveCursorForward(&message, step.caret);
            ASSERT_EQ(AddText(&message, u"xy", step.format), EmsResult::Done);
            CheckConsistent(message);
        }
        EXPECT_EQ(Formats(message), row.formats) << row.rule;
    }
}

TEST_F(EmsFormats, DeletingShrinksRemovesAndJoins) {
    const EmsTextFormat bold = Bold();
    const EmsTextFormat italic = Italic();
    struct Row {
        int caret;
        int count;
        Lines formats;
    };
    // "aabbcc": bold, italic, bold.
    const Row rows[] = {
        {6, 1, {"0+4 13", "4+4 23", "8+2 13"}},
        {6, 2, {"0+4 13", "4+4 23"}},
        {6, 3, {"0+4 13", "4+2 23"}},
        {4, 2, {"0+8 13"}},
        {4, 1, {"0+4 13", "4+2 23", "6+4 13"}},
        {5, 4, {"0+4 13"}},
        {6, 6, {}},
    };
    for (const Row& row : rows) {
        EmsTestMessage message;
        AddText(&message, u"aa", &bold);
        AddText(&message, u"bb", &italic);
        AddText(&message, u"cc", &bold);
        EmsResetCursor(&message);
        MoveCursorForward(&message, row.caret);
        EXPECT_EQ(Backspace(&message, row.count), row.count);
        EXPECT_EQ(Formats(message), row.formats) << row.caret << " back " << row.count;
        CheckConsistent(message);
    }
}

TEST_F(EmsFormats, OctetsOfTheElement) {
    EmsTextFormat format;
    format.alignment = 1;
    format.size = 8;
    format.bold = format.italic = format.underline = format.strikethrough = 1;
    EmsTestMessage message;
    AddText(&message, u"plain ");
    AddText(&message, u"all", &format);
    format = {};
    format.foreground = 3;
    format.background = 12;
    AddText(&message, u"colour", &format);
    EXPECT_EQ(BytesToHex(Write(message).at(0).substr(0, 12)), "0B0A030603F90A04090603C3");
    format.size = 12;
    EXPECT_EQ(AddText(&message, u"x", &format), EmsResult::InvalidObject);
}

}  // namespace
}  // namespace tarnbridge
