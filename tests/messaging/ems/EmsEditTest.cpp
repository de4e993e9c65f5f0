#include "messaging/ems/EmsSupport.h"

namespace tarnbridge {
namespace {

using EmsEdit = EmsTest;

/// The units in order: the text, with the number of a sound in brackets where it stands, and | for the
/// cursor.
std::string Units(const EmsMessage& message) {
    const std::u16string text = EmsText(message);
    std::string units;
    const EmsObject* node = message.first;
    bool isCursorDue = true;
    const auto showCursor = [&](int at) {
        const bool isPassed = !message.current || message.current->kind == EmsKind::TextFormat ||
                              message.current->position < message.cursor;
        if (isCursorDue && at == message.cursor && isPassed) {
            units += '|';
            isCursorDue = false;
        }
    };
    for (int at = 0; at <= message.textLength; at += 2) {
        showCursor(at);
        for (; node && node->position == at; node = node->next) {
            if (node->kind != EmsKind::TextFormat) units += "[" + std::to_string(node->number) + "]";
            if (isCursorDue && node == message.current && at == message.cursor) {
                units += '|';
                isCursorDue = false;
            }
        }
        if (at < message.textLength) units += static_cast<char>(text[at / 2]);
    }
    return units;
}

void MakeMixed(EmsMessage& message) {
    AddText(&message, u"ab");
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 1);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 2);
    const EmsTextFormat bold{.bold = 1};
    AddText(&message, u"cd", &bold);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 3);
}

TEST_F(EmsEdit, TheCursorStopsAtEachUnit) {
    EmsTestMessage message;
    MakeMixed(message);
    EXPECT_EQ(Units(message), "ab[1][2]cd[3]|");
    const char* const stops[] = {"|ab[1][2]cd[3]", "a|b[1][2]cd[3]", "ab|[1][2]cd[3]", "ab[1]|[2]cd[3]",
                                 "ab[1][2]|cd[3]", "ab[1][2]c|d[3]", "ab[1][2]cd|[3]", "ab[1][2]cd[3]|"};
    EmsResetCursor(&message);
    for (const char* const stop : stops) {
        EXPECT_EQ(Units(message), stop);
        MoveCursorForward(&message, 1);
    }
    EXPECT_EQ(MoveCursorForward(&message, 1), 0);
    for (int i = 7; i >= 0; --i) {
        EXPECT_EQ(Units(message), stops[i]);
        EXPECT_EQ(MoveCursorBackward(&message, 1), i > 0 ? 1 : 0);
    }
}

TEST_F(EmsEdit, BackspaceTakesObjectsAndCharactersInTurn) {
    struct Row {
        int caret;
        int count;
        const char* units;
        int removed;
    };
    const Row rows[] = {
        {7, 1, "ab[1][2]cd|", 1},    {7, 2, "ab[1][2]c|", 2},
        {7, 4, "ab[1]|", 4},         {7, 99, "|", 7},
        {4, 1, "ab[1]|cd[3]", 1},    {3, 1, "ab|[2]cd[3]", 1},
        {2, 1, "a|[1][2]cd[3]", 1},  {3, 3, "|[2]cd[3]", 3},
        {0, 1, "|ab[1][2]cd[3]", 0},
    };
    for (const Row& row : rows) {
        EmsTestMessage message;
        MakeMixed(message);
        EmsResetCursor(&message);
        MoveCursorForward(&message, row.caret);
        EXPECT_EQ(Backspace(&message, row.count), row.removed) << row.caret << " back " << row.count;
        EXPECT_EQ(Units(message), row.units);
        CheckConsistent(message);
    }
}

TEST_F(EmsEdit, InsertionsGoToTheCursorAmongObjectsOfOnePlace) {
    EmsTestMessage message;
    MakeMixed(message);
    EmsResetCursor(&message);
    MoveCursorForward(&message, 3);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 9);
    EXPECT_EQ(Units(message), "ab[1][9]|[2]cd[3]");
    AddText(&message, u"xy");
    EXPECT_EQ(Units(message), "ab[1][9]xy|[2]cd[3]");
    const EmsTextFormat bold{.bold = 1};
    AddText(&message, u"z", &bold);
    EXPECT_EQ(Units(message), "ab[1][9]xyz|[2]cd[3]");
    EXPECT_EQ(Formats(message), std::vector<std::string>{"8+6 13"}) << "joined with the bold text behind";
    CheckConsistent(message);
}

TEST_F(EmsEdit, RefusedCallsAndTheirOrder) {
    EmsTestMessage message;
    const uint8_t text[2] = {0, 'a'};
    EXPECT_EQ(AddText(nullptr, text, 1), EmsResult::NullPointer);
    EXPECT_EQ(AddText(&message, static_cast<const uint8_t*>(nullptr), 0), EmsResult::NullPointer);
    EXPECT_EQ(AddText(&message, text, 0), EmsResult::InvalidData);
    EXPECT_EQ(AddText(&message, std::u16string(1531, u'a')), EmsResult::NoRoom);
    EXPECT_EQ(EmsSetDcs(&message, 12), EmsResult::InvalidDcs);
    EXPECT_EQ(Generate(&message, true, nullptr, nullptr, nullptr), EmsResult::NullPointer);
    EmsRelease(&message);
    EXPECT_EQ(AddText(&message, text, 1), EmsResult::InvalidMessage);
    EXPECT_EQ(Backspace(&message, 1), 0);
    EXPECT_EQ(EmsRelease(&message), EmsResult::InvalidMessage);
}

TEST_F(EmsEdit, AsManyObjectsAsThereAreRecords) {
    EmsTestMessage message;
    int count = 0;
    while (AddObject(&message, EmsKind::PredefinedSound, nullptr, 1) == EmsResult::Done)
        ++count;
    // 33 elements of 4 octets and the 6 of the header in front leave no room for another in a segment.
    EXPECT_EQ(count, 330);
    EXPECT_EQ(message.segmentsUsed, 10);
    EXPECT_EQ(AddText(&message, u"0123456789"), EmsResult::NoRoom);
    CheckConsistent(message);
    EXPECT_EQ(Backspace(&message, 1000), 330);
    EXPECT_EQ(message.totalLeft, 1530);
}

TEST_F(EmsEdit, RemovalsLeaveTheBytesOfOthersInPlace) {
    // Two share their bytes with one another, and others lie in front of and behind these.
    const std::string contents[] = {"front", "shared", "behind", "shared", "last"};
    for (int removed = 0; removed < 5; ++removed) {
        for (int second = 0; second < 4; ++second) {
            EmsTestMessage message;
            std::vector<std::string> expected(std::begin(contents), std::end(contents));
            for (const std::string& content : contents) {
                const EmsObjectData data = PlainData(content);
                ASSERT_EQ(AddObject(&message, EmsKind::VCard, &data), EmsResult::Done);
            }
            for (const int place : {removed, second}) {
                EmsResetCursor(&message);
                MoveCursorForward(&message, place + 1);
                Backspace(&message, 1);
                expected.erase(expected.begin() + place);
            }
            std::vector<std::string> left;
            for (const EmsObject* node = message.first; node; node = node->next) {
                left.emplace_back(reinterpret_cast<const char*>(node->data.bytes), node->data.size);
            }
            EXPECT_EQ(left, expected) << removed << ", then " << second;
            CheckConsistent(message);
        }
    }
}

TEST_F(EmsEdit, SwitchesOfCodingRewriteTheMarks) {
    EmsTestMessage message;
    const EmsTextFormat bold{.bold = 1};
    AddText(&message, u"a\x1B{");
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 1);
    AddText(&message, u"\x1B}b", &bold);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 2);
    AddText(&message,
            u"\x1B"
            u"e");
    MoveCursorBackward(&message, 3);
    const std::u16string marked = EmsText(message);
    const auto objects = Describe(message);

    ASSERT_EQ(EmsSetDcs(&message, 8), EmsResult::Done);
    EXPECT_EQ(EmsText(message),
              u"a{}b\x1B"
              u"e")
        << "a mark stands before one of the eight characters";
    EXPECT_EQ(message.first->position, 4);
    EXPECT_EQ(Formats(message), std::vector<std::string>{"4+4 13"});
    EXPECT_EQ(message.last->position, 8);
    EXPECT_EQ(message.cursor, 8);
    EXPECT_EQ(message.current->number, 0) << "the cursor is still in front of the second sound";
    CheckConsistent(message);

    ASSERT_EQ(EmsSetDcs(&message, 16), EmsResult::Done);
    EXPECT_EQ(EmsText(message), marked);
    EXPECT_EQ(Describe(message), objects);
    EXPECT_EQ(message.dcsByte, 0);
    ASSERT_EQ(EmsSetDcs(&message, 4), EmsResult::Done);
    EXPECT_EQ(EmsText(message), marked);
    EXPECT_EQ(message.dcsByte, 4);
    CheckConsistent(message);
}

TEST_F(EmsEdit, AnObjectBehindAMarkComesBeforeTheCharacter) {
    EmsTestMessage message;
    const EmsTextFormat bold{.bold = 1};
    AddText(&message, u"a");
    AddText(&message, u"\x1B{", &bold);
    MoveCursorBackward(&message, 1);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 1);
    ASSERT_EQ(EmsSetDcs(&message, 8), EmsResult::Done);
    EXPECT_EQ(Units(message), "a[1]|{");
    EXPECT_EQ(Formats(message), std::vector<std::string>{"2+2 13"});
    CheckConsistent(message);
}

TEST_F(EmsEdit, ASwitchThatDoesNotFitChangesNothing) {
    EmsTestMessage message;
    const EmsTextFormat bold{.bold = 1};
    AddText(&message, std::u16string(300, u'a') + u"\x1B{" + std::u16string(400, u'b'), &bold);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 1);
    const auto objects = Describe(message);
    const std::u16string text = EmsText(message);
    EXPECT_EQ(EmsSetDcs(&message, 8), EmsResult::NoRoom);
    EXPECT_EQ(EmsText(message), text);
    EXPECT_EQ(Describe(message), objects);
    EXPECT_EQ(message.dcs, 0);
    EXPECT_EQ(message.dcsByte, 0);
    EXPECT_EQ(message.segmentsUsed, 5);
    CheckConsistent(message);

    EmsTestMessage braces(8);
    AddText(&braces, std::u16string(670, u'{'));
    EXPECT_EQ(EmsSetDcs(&braces, 0), EmsResult::Done) << "1,340 septets";
    EXPECT_EQ(braces.segmentsUsed, 9);
}

}  // namespace
}  // namespace tarnbridge
