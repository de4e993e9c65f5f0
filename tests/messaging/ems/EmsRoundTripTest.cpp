#include <map>
#include <set>

#include "messaging/ems/EmsSupport.h"

namespace tarnbridge {
namespace {

class EmsRoundTrip : public EmsTest {
protected:
    /// Writes the message, reads it into another and compares.
    static void ExpectReadBackEqual(EmsMessage& message) {
        EmsTestMessage read;
        const auto segments = Write(message);
        ASSERT_EQ(Read(read, message.hasHeader != 0, segments, message.dcs == 16 ? uint8_t{0} : message.dcs),
                  EmsResult::Done);
        EXPECT_EQ(EmsText(read), EmsText(message));
        EXPECT_EQ(Describe(read), Describe(message));
        EXPECT_EQ(read.dcs, message.dcs == 16 ? 0 : message.dcs);
        EXPECT_EQ(read.hasPorts, message.hasPorts);
        EXPECT_EQ(read.sourcePort, message.sourcePort);
        EXPECT_EQ(read.destPort, message.destPort);
        CheckConsistent(read);
    }
};

/// Makes messages by chance, of every kind of object and of every length.
class Author {
public:
    explicit Author(unsigned seed) : random_(seed) {}

    int Below(int bound) { return static_cast<int>(random_() % bound); }
    bool Chance(int percent) { return Below(100) < percent; }

    void PlaceCursor(EmsMessage& message) {
        if (Chance(40)) return;
        EmsResetCursor(&message);
        MoveCursorForward(&message, Chance(30) ? emsLongestText : Below(message.textLength / 2 + 10));
        MoveCursorBackward(&message, Below(4));
    }

    std::u16string Text(const EmsMessage& message, int longest) {
        std::u16string text(1 + Below(longest), u'\0');
        for (char16_t& unit : text)
            unit = static_cast<char16_t>(message.dcs == 8 ? random_() : Below(256));
        return text;
    }

    EmsTextFormat Format() {
        EmsTextFormat format;
        if (Chance(20)) return format;
        // Few values, so that formats of equal attributes meet.
        format.bold = static_cast<uint8_t>(Below(2));
        format.underline = static_cast<uint8_t>(Below(2));
        format.size = static_cast<uint8_t>(Below(3) * 4);
        if (Chance(20)) format.alignment = static_cast<uint8_t>(Below(4));
        if (Chance(30)) {
            format.foreground = static_cast<uint8_t>(Below(16));
            format.background = static_cast<uint8_t>(Below(16));
        }
        return format;
    }

    EmsResult Object(EmsMessage& message) {
        static constexpr EmsKind kinds[] = {
            EmsKind::PredefinedSound, EmsKind::Melody,  EmsKind::PredefinedAnimation,
            EmsKind::Animation,       EmsKind::Picture, EmsKind::VCard,
            EmsKind::VCalendar};
        const EmsKind kind = kinds[Below(std::size(kinds))];
        if (kind == EmsKind::PredefinedSound) return AddObject(&message, kind, nullptr, uint8_t(Below(10)));
        if (kind == EmsKind::PredefinedAnimation)
            return AddObject(&message, kind, nullptr, uint8_t(Below(15)));
        std::string bytes;
        EmsObjectData data;
        if (kind == EmsKind::Animation || kind == EmsKind::Picture) {
            static constexpr int depths[] = {1, 1, 1, 2, 6};
            static constexpr int sides[] = {8, 16, 32, 12, 24, 20};
            const int width = sides[Below(std::size(sides))];
            const int height = Chance(50) ? width : sides[Below(std::size(sides))];
            const int depth = depths[Below(std::size(depths))];
            const int frames = kind == EmsKind::Picture ? 0 : Chance(50) ? 4 : 1 + Below(6);
            bytes = Bytes((width * height * depth + 7) / 8 * std::max(frames, 1));
            data = ImageData(bytes, width, height, depth, frames);
            const bool isNormal = depth == 1 && frames == 4 && width == height && width <= 16 && width != 12;
            if (kind == EmsKind::Animation && !isNormal) {
                data.animationLow = static_cast<uint8_t>(Below(16));
                data.animationHigh = static_cast<uint8_t>(Below(16));
            }
        } else {
            bytes = Bytes(1 + Below(Chance(80) ? 140 : 600));
            data = PlainData(bytes);
        }
        data.flags = Chance(40) ? 1 : 0;
        return AddObject(&message, kind, &data);
    }

private:
    /// Some that come again, some that can be compressed, some that can't.
    std::string Bytes(int size) {
        if (Chance(30)) return std::string(size, static_cast<char>(Below(2) * 255));
        std::string bytes = RandomBytes(random_, size);
        if (Chance(40)) {
            for (int i = 8; i < size; ++i)
                bytes[i] = bytes[i % 8];
        }
        return bytes;
    }

    std::mt19937 random_;
};

TEST_F(EmsRoundTrip, RandomMessagesOfAllCodingsAndLengths) {
    std::map<int, std::set<int>> lengthsSeen;
    std::set<int> elementsSeen;
    for (unsigned seed = 1; seed <= 1200; ++seed) {
        SCOPED_TRACE(seed);
        Author author(seed);
        static constexpr uint8_t codings[] = {0, 16, 4, 8};
        EmsTestMessage message(codings[seed % 4]);
        ASSERT_EQ(EmsSetCompression(&message, author.Chance(50)), EmsResult::Done);
        if (author.Chance(30)) {
            ASSERT_EQ(
                EmsSetPorts(&message, true, uint16_t(author.Below(65536)), uint16_t(author.Below(65536))),
                EmsResult::Done);
        }
        const int steps = 1 + author.Below(40);
        const int longest = 1 + author.Below(200);
        for (int step = 0; step < steps; ++step) {
            author.PlaceCursor(message);
            const int choice = author.Below(10);
            if (choice < 4) {
                AddText(&message, author.Text(message, longest));
            } else if (choice < 7) {
                const EmsTextFormat format = author.Format();
                AddText(&message, author.Text(message, 30), &format);
            } else if (choice < 9) {
                author.Object(message);
            } else {
                Backspace(&message, author.Below(20));
            }
        }
        if (message.segmentsUsed > emsSegments) continue;
        lengthsSeen[message.dcs].insert(message.segmentsUsed);
        for (const std::string& segment : Write(message)) {
            if (!message.hasHeader) continue;
            for (const auto& element : Elements(segment))
                elementsSeen.insert(element.first);
        }
        CheckConsistent(message);
        ExpectReadBackEqual(message);
        if (HasFailure()) return;
    }
    for (const int dcs : {0, 16, 4, 8})
        EXPECT_EQ(lengthsSeen[dcs].size(), size_t{emsSegments}) << dcs;
}

TEST_F(EmsRoundTrip, EveryStepLeavesTheMessageConsistentOrAsItWas) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        Author author(seed * 7919);
        EmsTestMessage message(seed % 2 ? 0 : 8);
        EmsAllowSegments(&message, 1 + static_cast<int>(seed % 10));
        for (int step = 0; step < 120; ++step) {
            author.PlaceCursor(message);
            const auto objectsBefore = Describe(message);
            const std::u16string textBefore = EmsText(message);
            const int cursorBefore = message.cursor;
            EmsResult result = EmsResult::Done;
            const int choice = author.Below(6);
            switch (choice) {
                case 0:
                case 1: {
                    const EmsTextFormat format = author.Format();
                    result =
                        AddText(&message, author.Text(message, 60), author.Chance(70) ? &format : nullptr);
                    break;
                }
                case 2:
                case 3:
                    result = author.Object(message);
                    break;
                case 4:
                    Backspace(&message, author.Below(30));
                    break;
                default:
                    result = EmsSetDcs(&message, message.dcs == 8 ? 0 : 8);
                    break;
            }
            int segments = 0;
            if (Generate(&message, false, &segments, nullptr, nullptr) == EmsResult::NoRoom) {
                // Only a deletion may end so: one that moves a format onto the border of two segments.
                EXPECT_EQ(choice, 4);
                break;
            }
            CheckConsistent(message);
            if (result != EmsResult::Done) {
                EXPECT_EQ(Describe(message), objectsBefore);
                EXPECT_EQ(EmsText(message), textBefore);
                EXPECT_EQ(message.cursor, cursorBefore);
            }
            if (HasFailure()) {
                ADD_FAILURE() << "step " << step << " result " << static_cast<int>(result);
                return;
            }
        }
    }
}

TEST_F(EmsRoundTrip, CopyIsEqualAndApart) {
    Author author(5);
    EmsTestMessage message;
    for (int step = 0; step < 12; ++step) {
        AddText(&message, author.Text(message, 20));
        author.Object(message);
    }
    MoveCursorBackward(&message, 7);
    EmsTestMessage copy(8);
    ASSERT_EQ(EmsCopy(&copy, &message), EmsResult::Done);
    const auto objects = Describe(message);
    EXPECT_EQ(Describe(copy), objects);
    EXPECT_EQ(copy.cursor, message.cursor);
    EXPECT_EQ(copy.segmentsUsed, message.segmentsUsed);
    EXPECT_EQ(copy.totalLeft, message.totalLeft);
    EmsRelease(&message);
    CheckConsistent(copy);
    EXPECT_EQ(Describe(copy), objects);
    EmsResetCursor(&copy);
    MoveCursorForward(&copy, emsLongestText);
    Backspace(&copy, emsLongestText);
    EXPECT_EQ(copy.first, nullptr);
    EXPECT_EQ(copy.textLength, 0);
}

}  // namespace
}  // namespace tarnbridge
