#include "messaging/ems/EmsSupport.h"

namespace tarnbridge {
namespace {

using EmsCounters = EmsTest;

struct Counts {
    int segments;
    int size;
    int left;
    int total;
    bool operator==(const Counts&) const = default;
};

void PrintTo(const Counts& counts, std::ostream* out) {
    *out << counts.segments << " segments of " << counts.size << ", left " << counts.left << " and "
         << counts.total;
}

Counts CountsOf(const EmsMessage& message) {
    return {message.segmentsUsed, message.segmentSize, message.lastSegmentLeft, message.totalLeft};
}

TEST_F(EmsCounters, TextOfEveryCoding) {
    struct Row {
        int dcs;
        int characters;
        Counts counts;
    };
    const Row rows[] = {
        {0, 0, {1, 160, 160, 1530}},    {0, 160, {1, 160, 0, 1370}},   {0, 161, {2, 153, 145, 1369}},
        {0, 306, {2, 153, 0, 1224}},    {0, 307, {3, 153, 152, 1223}}, {0, 1530, {10, 153, 0, 0}},
        {16, 161, {2, 153, 145, 1369}}, {4, 161, {2, 153, 145, 1369}}, {8, 0, {1, 70, 70, 670}},
        {8, 70, {1, 70, 0, 600}},       {8, 71, {2, 67, 63, 599}},     {8, 670, {10, 67, 0, 0}},
    };
    for (const Row& row : rows) {
        EmsTestMessage message(static_cast<uint8_t>(row.dcs));
        if (row.characters > 0) {
            ASSERT_EQ(AddText(&message, std::u16string(row.characters, u'x')), EmsResult::Done);
        }
        EXPECT_EQ(CountsOf(message), row.counts) << row.dcs << ", " << row.characters << " characters";
        CheckConsistent(message);
        EmsTestMessage slow(static_cast<uint8_t>(row.dcs));
        for (int i = 0; i < row.characters; ++i)
            AddText(&slow, u"x");
        EXPECT_EQ(CountsOf(slow), row.counts) << "one at a time";
    }
}

TEST_F(EmsCounters, OneCharacterTooManyIsTakenBack) {
    for (const auto& [dcs, most] : {std::pair{0, 1530}, {8, 670}}) {
        EmsTestMessage message(static_cast<uint8_t>(dcs));
        ASSERT_EQ(AddText(&message, std::u16string(most, u'x')), EmsResult::Done);
        MoveCursorBackward(&message, 10);
        EXPECT_EQ(AddText(&message, u"y"), EmsResult::NoRoom);
        EXPECT_EQ(EmsText(message), std::u16string(most, u'x'));
        EXPECT_EQ(message.cursor, (most - 10) * 2);
        EXPECT_EQ(message.segmentsUsed, 10);
        const std::string picture(32, '\x55');
        const EmsObjectData data = ImageData(picture, 16, 16, 1);
        EXPECT_EQ(AddObject(&message, EmsKind::Picture, &data), EmsResult::NoRoom);
        EXPECT_EQ(message.first, nullptr);
        CheckConsistent(message);
    }
}

TEST_F(EmsCounters, ElementsAndPortsTakeTheirRoom) {
    const std::u16string text(100, u'x');
    {
        EmsTestMessage message;
        AddText(&message, text);
        AddObject(&message, EmsKind::PredefinedSound, nullptr, 3);
        // 5 octets of header are 6 septets.
        EXPECT_EQ(CountsOf(message), (Counts{1, 160, 54, 54 + 9 * 153 - 7}));
    }
    {
        EmsTestMessage message;
        AddText(&message, std::u16string(160, u'x'));
        AddObject(&message, EmsKind::PredefinedSound, nullptr, 3);
        EXPECT_EQ(message.segmentsUsed, 2);
        EXPECT_TRUE(message.isConcatenated);
        Backspace(&message, 1);
        EXPECT_EQ(CountsOf(message), (Counts{1, 160, 0, 1370}));
        EXPECT_FALSE(message.hasHeader);
    }
    {
        EmsTestMessage message;
        EmsSetPorts(&message, true, 1, 2);
        AddText(&message, text);
        EXPECT_EQ(CountsOf(message), (Counts{1, 152, 52, 52 + 9 * 146 - 14}));
        AddText(&message, text);
        EXPECT_EQ(CountsOf(message), (Counts{2, 146, 92, 92 + 8 * 146}));
    }
    {
        EmsTestMessage message(8);
        EmsSetPorts(&message, true, 1, 2);
        AddText(&message, std::u16string(60, u'x'));
        EXPECT_EQ(CountsOf(message), (Counts{1, 66, 6, 6 + 9 * 64 - 6}));
    }
    {
        // An extended object widens the reference: 7 octets of header are 8 septets.
        EmsTestMessage message;
        std::mt19937 random(1);
        const std::string card = RandomBytes(random, 100);
        const EmsObjectData data = PlainData(card);
        AddObject(&message, EmsKind::VCard, &data);
        AddText(&message, std::u16string(60, u'x'));
        EXPECT_EQ(message.segmentsUsed, 2);
        EXPECT_EQ(message.segmentSize, 152);
        CheckConsistent(message);
    }
}

TEST_F(EmsCounters, OneSegmentAllowed) {
    EmsTestMessage message;
    ASSERT_EQ(EmsAllowSegments(&message, 1), EmsResult::Done);
    EXPECT_EQ(message.textCapacity, 320);
    ASSERT_EQ(AddText(&message, std::u16string(160, u'x')), EmsResult::Done);
    EXPECT_EQ(CountsOf(message), (Counts{1, 160, 0, 0}));
    EXPECT_EQ(AddText(&message, u"y"), EmsResult::NoRoom);
    EXPECT_EQ(AddObject(&message, EmsKind::PredefinedSound, nullptr, 0), EmsResult::NoRoom);
    EXPECT_EQ(CountsOf(message), (Counts{1, 160, 0, 0}));
    EXPECT_EQ(EmsSetDcs(&message, 8), EmsResult::NoRoom);
    EXPECT_EQ(message.dcs, 0);
    ASSERT_EQ(EmsAllowSegments(&message, 10), EmsResult::Done);
    ASSERT_EQ(AddText(&message, u"y"), EmsResult::Done);
    EXPECT_EQ(EmsAllowSegments(&message, 1), EmsResult::NoRoom);
    EXPECT_EQ(message.textCapacity, emsLongestText);
    EXPECT_EQ(message.segmentsUsed, 2);
    EXPECT_EQ(EmsAllowSegments(&message, 11), EmsResult::InvalidData);
}

}  // namespace
}  // namespace tarnbridge
