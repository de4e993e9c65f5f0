#include "messaging/PlainSplit.h"
#include "messaging/ems/EmsSupport.h"

namespace tarnbridge {
namespace {

using PlainSplit = EmsTest;

/// The text of segments that Generate has written, each of which has a header.
std::vector<std::string> Bodies(EmsMessage& message) {
    std::vector<std::string> bodies;
    for (const std::string& segment : Write(message))
        bodies.push_back(segment.substr(1 + static_cast<uint8_t>(segment.front())));
    return bodies;
}

TEST_F(PlainSplit, AnEscapeStaysWithItsCharacter) {
    for (size_t place = 145; place < 160; ++place) {
        const std::string text = std::string(place, 'x') + "\x1B{" + std::string(200, 'y');
        std::string whole;
        for (const std::string_view piece : SplitBytes(text)) {
            EXPECT_NE(piece.back(), '\x1B') << place;
            EXPECT_LE(piece.size(), 153u);
            whole += piece;
        }
        EXPECT_EQ(whole, text);

        const EmsTextFormat bold{.bold = 1};
        EmsTestMessage message;
        ASSERT_EQ(AddText(&message, std::u16string(place, u'x')), EmsResult::Done);
        ASSERT_EQ(AddText(&message, u"\x1B{", &bold), EmsResult::Done);
        ASSERT_EQ(AddText(&message, std::u16string(200, u'y')), EmsResult::Done);
        CheckConsistent(message);
        whole.clear();
        for (const std::string& body : Bodies(message)) {
            EXPECT_NE(body.back(), '\x1B') << place;
            whole += body;
        }
        EXPECT_EQ(whole, text);
    }
}

TEST_F(PlainSplit, ASurrogatePairStaysWhole) {
    for (size_t place = 60; place < 70; ++place) {
        const std::u16string text = std::u16string(place, u'x') + u"\xD83D\xDE00" + std::u16string(80, u'y');
        const auto units = SplitUnits(text);
        EXPECT_EQ(units.front().size(), place == 66 ? 66u : 67u);
        std::u16string whole;
        for (const std::u16string_view piece : units)
            whole += piece;
        EXPECT_EQ(whole, text);

        EmsTestMessage message(8);
        ASSERT_EQ(AddText(&message, text), EmsResult::Done);
        CheckConsistent(message);
        EXPECT_EQ(Bodies(message).front().size(), place == 66 ? 132u : 134u);
    }
}

TEST_F(PlainSplit, WhatFitsIsOnePart) {
    EXPECT_EQ(SplitBytes("").size(), 1u);
    EXPECT_EQ(SplitBytes(std::string(160, 'x')).size(), 1u);
    EXPECT_EQ(SplitBytes(std::string(1530, 'x')).size(), 10u);
    EXPECT_EQ(SplitUnits(std::u16string(70, u'x')).size(), 1u);
    EXPECT_EQ(SplitUnits(std::u16string(671, u'x')).size(), 11u);
}

}  // namespace
}  // namespace tarnbridge
