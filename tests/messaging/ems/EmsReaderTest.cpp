#include "messaging/ems/EmsSupport.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

using EmsReader = EmsTest;
using Lines = std::vector<std::string>;

std::string Header(const std::string& elements) {
    return static_cast<char>(elements.size()) + elements;
}

std::string Repeated(const char* hex, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += FromHex(hex);
    return bytes;
}

TEST_F(EmsReader, ChecksOfTheCall) {
    EmsTestMessage message;
    const uint8_t segment[] = {0x61};
    const uint8_t* const buffers[] = {segment, nullptr};
    const uint8_t* const missing[] = {nullptr, nullptr};
    const int lengths[] = {1, 0};
    const uint8_t codings[] = {0, 0};
    EXPECT_EQ(Parse(&message, false, 0, buffers, lengths, codings), EmsResult::InvalidData);
    EXPECT_EQ(Parse(&message, false, 2, buffers, lengths, codings), EmsResult::InvalidData);
    EXPECT_EQ(Parse(&message, true, 2, missing, lengths, codings), EmsResult::NullPointer);
    EXPECT_EQ(Parse(&message, true, 2, nullptr, lengths, codings), EmsResult::NullPointer);
    EXPECT_EQ(Parse(&message, true, 2, buffers, nullptr, codings), EmsResult::NullPointer);
    EXPECT_EQ(Parse(&message, true, 2, buffers, lengths, nullptr), EmsResult::NullPointer);
    EXPECT_EQ(Parse(&message, false, 1, buffers, lengths, codings), EmsResult::Done);
    EXPECT_EQ(EmsText(message), u"a");
    EXPECT_EQ(message.cursor, 0);
}

TEST_F(EmsReader, SegmentsThatCannotBeReadAreMarked) {
    const std::string one = FromHex("050003010301") + "one";
    const std::string three = FromHex("050003010303") + "three";
    const std::string longHeader = static_cast<char>(140) + std::string(150, 'x');
    struct Row {
        const char* fault;
        const std::string* middle;
        uint8_t dcs;
    };
    const Row rows[] = {
        {"missing", nullptr, 0}, {"header of 140", &longHeader, 0}, {"unknown coding", &one, 12}};
    for (const Row& row : rows) {
        EmsTestMessage message;
        const auto at = [](const std::string* text) {
            return text ? reinterpret_cast<const uint8_t*>(text->data()) : nullptr;
        };
        const uint8_t* const buffers[] = {at(&one), at(row.middle), at(&three)};
        const int lengths[] = {9, row.middle ? static_cast<int>(row.middle->size()) : 0, 11};
        const uint8_t codings[] = {0, row.dcs, 0};
        EXPECT_EQ(Parse(&message, true, 3, buffers, lengths, codings), EmsResult::Done) << row.fault;
        EXPECT_EQ(EmsText(message), u"one(.....)three") << row.fault;
        EXPECT_EQ(message.segmentsUsed, 1);
        CheckConsistent(message);
    }
}

TEST_F(EmsReader, CodingsOfTheSegmentsAreMixed) {
    const std::string plain = FromHex("050003010201") + "a\xE9";
    const std::string wide = FromHex("050003010202 20AC FF");
    const uint8_t* const buffers[] = {reinterpret_cast<const uint8_t*>(plain.data()),
                                      reinterpret_cast<const uint8_t*>(wide.data())};
    const int lengths[] = {8, 9};
    for (const auto& [first, second, dcs] : {std::tuple{0, 8, 8}, {4, 8, 8}, {0, 4, 4}, {16, 0, 0}}) {
        EmsTestMessage message;
        const uint8_t codings[] = {static_cast<uint8_t>(first), static_cast<uint8_t>(second)};
        ASSERT_EQ(Parse(&message, true, 2, buffers, lengths, codings), EmsResult::Done);
        EXPECT_EQ(message.dcs, dcs);
        EXPECT_EQ(EmsText(message), second == 8 ? u"aé€" : u"aé\u0020\u00AC\u00FF");
    }
}

TEST_F(EmsReader, HeadersOfLengthNoneAndText) {
    EmsTestMessage message;
    ASSERT_EQ(Read(message, true, {FromHex("0061")}, 0), EmsResult::Done);
    EXPECT_EQ(EmsText(message), u"a") << "a header of no octets is none";
    ASSERT_EQ(Read(message, false, {FromHex("0361")}, 0), EmsResult::Done);
    EXPECT_EQ(EmsText(message), u"\u0003a");
    ASSERT_EQ(Read(message, true, {""}, 0), EmsResult::Done);
    EXPECT_EQ(EmsText(message), u"");
}

TEST_F(EmsReader, TextBeyondTheLongestIsCutAndEndsTheReading) {
    EmsTestMessage message;
    std::vector<std::string> segments(11, FromHex("050003010B01") + std::string(153, 'x'));
    segments.push_back(Header(FromHex("0B020001")) + "end");
    ASSERT_EQ(Read(message, true, segments, 0), EmsResult::Done);
    EXPECT_EQ(message.textLength, emsLongestReadText);
    EXPECT_EQ(message.first, nullptr) << "the segments behind aren't read";
    EXPECT_EQ(message.segmentsUsed, 11) << "more than are allowed";
    int count = 0;
    EXPECT_EQ(Generate(&message, false, &count, nullptr, nullptr), EmsResult::NoRoom);
    CheckConsistent(message);
    EXPECT_EQ(Backspace(&message, 1), 0) << "the cursor is at the start";
}

TEST_F(EmsReader, WorkedExampleOfBoldText) {
    // 3GPP TS 23.040, 9.2.3.24.10.2.
    EmsTestMessage message;
    ASSERT_EQ(
        Read(message, true,
             {FromHex("050A030F1210") + "This is a text with bold option on following with normal text."}, 0),
        EmsResult::Done);
    EXPECT_EQ(Formats(message), Lines{"30+36 10"});
}

TEST_F(EmsReader, FormatsThatTouchAreJoinedInAnyOrder) {
    EmsTestMessage message;
    ASSERT_EQ(
        Read(message, true, {Header(FromHex("0A03040210 0A03000210 0A03020210 0A03060220")) + "abcdefgh"}, 0),
        EmsResult::Done);
    EXPECT_EQ(Formats(message), (Lines{"0+12 10", "12+4 20"}));
}

TEST_F(EmsReader, ElementsThatAreLeftOut) {
    struct Row {
        const char* fault;
        std::string elements;
        EmsResult result;
    };
    const Row rows[] = {
        {"position beyond the text", FromHex("0B020401"), EmsResult::Done},
        {"format beyond the text", FromHex("0A03041010"), EmsResult::Done},
        {"format without a length", FromHex("0A03000010"), EmsResult::Done},
        {"format of a reserved size", FromHex("0A0300021C"), EmsResult::Done},
        {"format too short", FromHex("0A020002"), EmsResult::InvalidData},
        {"unknown elements", FromHex("7002FFFF 1301FF 0100"), EmsResult::Done},
        {"ports of a wrong length", FromHex("0503000000"), EmsResult::Done},
        {"sound 10", FromHex("0B02000A"), EmsResult::InvalidData},
        {"animation 15", FromHex("0D02000F"), EmsResult::InvalidData},
        {"sound without a number", FromHex("0B0100"), EmsResult::InvalidData},
        {"melody without a byte", FromHex("0C0100"), EmsResult::InvalidData},
        {"melody of 129 bytes", FromHex("0C8200") + std::string(129, 'm'), EmsResult::InvalidData},
        {"picture of 31 bytes", FromHex("112000") + std::string(31, 'p'), EmsResult::InvalidData},
        {"picture wider than 255", FromHex("1223002001") + std::string(32, 'p'), EmsResult::InvalidData},
        {"picture of no height", FromHex("1203000100"), EmsResult::InvalidData},
        {"element beyond the header", FromHex("0B020001 0C7F00"), EmsResult::InvalidData},
        {"extended type 13", FromHex("1408 010001000D000000"), EmsResult::InvalidExtendedObject},
        {"extended type 11, which others know", FromHex("1408 010001000B000000"), EmsResult::Done},
        {"extended picture of a wrong size", FromHex("1409 010002000200000808"), EmsResult::InvalidData},
        {"extended sound 10", FromHex("1408 010001000000000A"), EmsResult::InvalidData},
        {"extended object that never ends", FromHex("1408 0100050009000041"),
         EmsResult::InvalidExtendedObject},
        {"extended object too short to tell", FromHex("1402 0100"), EmsResult::InvalidExtendedObject},
        {"chunk longer than the object", FromHex("140A 01000100090000414141"),
         EmsResult::InvalidExtendedObject},
        {"reference to nothing", FromHex("1503 010000"), EmsResult::InvalidExtendedObject},
        {"compressed by another method", FromHex("1605 0100028141"), EmsResult::InvalidExtendedObject},
        {"compressed badly", FromHex("1605 0000020601"), EmsResult::InvalidExtendedObject},
        {"compressed block of other elements", FromHex("1605 0000028141"), EmsResult::InvalidExtendedObject},
    };
    for (const Row& row : rows) {
        EmsTestMessage message;
        EXPECT_EQ(Read(message, true, {Header(row.elements) + "abc"}, 0), row.result) << row.fault;
        const bool hasSound = row.elements.substr(0, 4) == FromHex("0B020001");
        EXPECT_EQ(Describe(message).size(), hasSound ? 1U : 0U) << row.fault;
        EXPECT_EQ(EmsText(message), u"abc") << row.fault;
        CheckConsistent(message);
    }
}

TEST_F(EmsReader, ReusedObjectsStandBehindTheirOriginals) {
    EmsTestMessage message;
    const std::string card = FromHex("1409 070002010900024142");
    EXPECT_EQ(Read(message, true, {Header(card + FromHex("1503070003 1503070002")) + "abc"}, 0),
              EmsResult::Done);
    EXPECT_EQ(Describe(message).size(), 3U);
    EXPECT_EQ(message.first->reference, 1) << "a number of this message's own";
    EXPECT_EQ(message.first->data.flags, 1);
    CheckConsistent(message);
    EXPECT_EQ(Read(message, true, {Header(card + FromHex("1503070001")) + "abc"}, 0),
              EmsResult::InvalidExtendedObject)
        << "in front of it";
    EXPECT_EQ(Describe(message).size(), 1U);
    // The number taken again stands for the later object.
    EXPECT_EQ(Read(message, true, {Header(card + FromHex("1408 0700010009000241 1503070003")) + "abc"}, 0),
              EmsResult::Done);
    EXPECT_EQ(message.last->data.size, 1);
    EXPECT_EQ(message.last->reference, 2);
}

TEST_F(EmsReader, DistributionIndicatorCountsTheElementsBehindIt) {
    const std::string picture = FromHex("112100") + std::string(32, '\x55');
    struct Row {
        const char* rule;
        std::string elements;
        std::string flags;
    };
    const Row rows[] = {
        {"two of three", FromHex("17020201") + picture + picture + picture, "110"},
        {"count 0 is all", FromHex("17020001") + picture + picture + picture, "111"},
        {"a sound counts", FromHex("17020201 0B020001") + picture + picture, "010"},
        {"without the bit nothing is meant", FromHex("17020200") + picture, "0"},
        {"a later one ends the earlier", FromHex("17020001") + picture + FromHex("17020000") + picture, "10"},
    };
    for (const Row& row : rows) {
        EmsTestMessage message;
        ASSERT_EQ(Read(message, true, {Header(row.elements) + "a"}, 0), EmsResult::Done);
        std::string flags;
        for (const EmsObject* node = message.first; node; node = node->next) {
            flags += static_cast<char>('0' + node->data.flags);
        }
        EXPECT_EQ(flags, row.flags) << row.rule;
    }
}

TEST_F(EmsReader, ALostSegmentDropsTheObjectThatWentOn) {
    EmsTestMessage message;
    std::mt19937 random(9);
    const std::string noise = RandomBytes(random, 300);
    const EmsObjectData data = PlainData(noise);
    AddObject(&message, EmsKind::VCard, &data);
    AddText(&message, u"text");
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 2);
    auto segments = Write(message);
    ASSERT_EQ(segments.size(), 3U);
    EmsTestMessage read;
    const auto at = [&](int i) { return reinterpret_cast<const uint8_t*>(segments[i].data()); };
    const uint8_t* const buffers[] = {at(0), nullptr, at(2)};
    const int lengths[] = {static_cast<int>(segments[0].size()), 0, static_cast<int>(segments[2].size())};
    const uint8_t codings[] = {0, 0, 0};
    EXPECT_EQ(Parse(&read, true, 3, buffers, lengths, codings), EmsResult::InvalidExtendedObject);
    EXPECT_EQ(EmsText(read), u"(.....)text");
    EXPECT_EQ(Describe(read).size(), 1U) << "the sound";

    // What begins behind the gap is whole.
    const std::string card = FromHex("0B 1409 010002000900004142");
    const uint8_t* const others[] = {at(0), nullptr, reinterpret_cast<const uint8_t*>(card.data())};
    const int otherLengths[] = {lengths[0], 0, static_cast<int>(card.size())};
    EXPECT_EQ(Parse(&read, true, 3, others, otherLengths, codings), EmsResult::InvalidExtendedObject);
    ASSERT_EQ(Describe(read).size(), 1U);
    EXPECT_EQ(read.first->data.size, 2);
    const std::string unfinished = FromHex("1408 0100050009000041");
    const std::string block = FromHex("160E 00000B 8A 14 010002000900004142");
    EXPECT_EQ(Read(read, true, {Header(unfinished + block)}, 0), EmsResult::InvalidExtendedObject);
    EXPECT_EQ(Describe(read).size(), 1U) << "a compressed block doesn't go on with another object";
}

TEST_F(EmsReader, MoreObjectsThanTheMessageHolds) {
    EmsTestMessage message;
    const std::vector<std::string> segments(14, Header(Repeated("0B020001", 34)) + "ab");
    EXPECT_EQ(Read(message, true, segments, 0), EmsResult::NoMemory);
    EXPECT_EQ(Describe(message).size(), size_t{emsMostObjects});
    EXPECT_EQ(EmsText(message).size(), 28U) << "the text is there";
    EXPECT_EQ(Read(message, false, {"again"}, 0), EmsResult::Done);
    EXPECT_EQ(EmsText(message), u"again");
    EXPECT_EQ(message.first, nullptr);
}

/// Messages of several segments with every kind of element.
std::vector<std::vector<std::string>> ValidSamples() {
    std::vector<std::vector<std::string>> samples;
    for (const bool compression : {false, true}) {
        EmsTestMessage message;
        EmsSetCompression(&message, compression);
        EmsSetPorts(&message, true, 5, 6);
        const std::string zeros(50, '\0');
        EmsObjectData picture = ImageData(zeros, 20, 20, 1);
        EmsObjectData small = ImageData(zeros, 16, 16, 1);
        small.size = 32;
        small.flags = 1;
        EmsObjectData wide = ImageData(zeros, 40, 10, 1);
        EmsObjectData animation = ImageData(zeros, 8, 8, 1, 4);
        animation.size = 32;
        const std::string melody = "BEGIN:IMELODY\r\nMELODY:a4g4e3\r\nEND:IMELODY\r\n";
        const EmsObjectData tune = PlainData(melody);
        const std::string card(180, 'v');
        const EmsObjectData vCard = PlainData(card);
        const EmsTextFormat format{.bold = 1, .foreground = 3};
        AddText(&message, u"some text");
        AddObject(&message, EmsKind::Picture, &picture);
        AddObject(&message, EmsKind::Picture, &small);
        AddText(&message, std::u16string(70, u'f'), &format);
        AddObject(&message, EmsKind::Picture, &wide);
        AddObject(&message, EmsKind::Animation, &animation);
        AddObject(&message, EmsKind::Melody, &tune);
        AddObject(&message, EmsKind::Picture, &picture);
        AddObject(&message, EmsKind::VCard, &vCard);
        AddObject(&message, EmsKind::PredefinedAnimation, nullptr, 3);
        AddObject(&message, EmsKind::PredefinedSound, nullptr, 3);
        AddText(&message, u"end");
        samples.push_back(Write(message));
    }
    return samples;
}

TEST_F(EmsReader, TruncatedAnywhere) {
    for (const auto& sample : ValidSamples()) {
        for (size_t part = 0; part < sample.size(); ++part) {
            for (size_t length = 0; length < sample[part].size(); ++length) {
                auto segments = sample;
                segments[part].resize(length);
                EmsTestMessage message;
                Read(message, true, segments, 0);
                CheckConsistent(message);
                ASSERT_FALSE(HasFailure()) << "segment " << part << " cut to " << length;
            }
        }
    }
}

TEST_F(EmsReader, AnyByteFlippedOrChangedByChance) {
    std::mt19937 random(21);
    for (const auto& sample : ValidSamples()) {
        for (size_t part = 0; part < sample.size(); ++part) {
            for (size_t at = 0; at < sample[part].size(); ++at) {
                for (const int change : {0xFF, 0x01, 0x80, static_cast<int>(1 + random() % 255)}) {
                    auto segments = sample;
                    segments[part][at] = static_cast<char>(segments[part][at] ^ change);
                    EmsTestMessage message;
                    Read(message, true, segments, random() % 4 == 0 ? 8 : 0);
                    CheckConsistent(message);
                    ASSERT_FALSE(HasFailure()) << "segment " << part << " byte " << at << " with " << change;
                }
            }
        }
    }
}

}  // namespace
}  // namespace tarnbridge
