#include "messaging/ems/EmsSupport.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

using EmsElements = EmsTest;
using ElementList = std::vector<std::pair<int, std::string>>;

std::string Bytes(int size) {
    std::string bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 7 + 1);
    return bytes;
}

TEST_F(EmsElements, FormOfEachObject) {
    struct Row {
        const char* object;
        EmsKind kind;
        EmsObjectData data;
        int size;
        std::string front;  // of the element's content, or of the extended record from its control octet on
        int element;
    };
    const Row rows[] = {
        {"melody", EmsKind::Melody, {}, 128, "02", 12},
        {"long melody", EmsKind::Melody, {}, 129, "00010002", 20},
        {"large animation", EmsKind::Animation, ImageData("", 16, 16, 1, 4), 128, "02", 14},
        {"small animation", EmsKind::Animation, ImageData("", 8, 8, 1, 4), 32, "02", 15},
        {"animation of another side", EmsKind::Animation, ImageData("", 32, 8, 1, 4), 128,
         "00060002 20080400", 20},
        {"animation of three frames", EmsKind::Animation, ImageData("", 8, 8, 1, 3), 24, "00060002 08080300",
         20},
        {"grey animation", EmsKind::Animation, ImageData("", 8, 8, 2, 4), 64, "00070002 08080400", 20},
        {"colour animation", EmsKind::Animation, ImageData("", 8, 8, 6, 4), 192, "00080002 08080400", 20},
        {"large picture", EmsKind::Picture, ImageData("", 32, 32, 1), 128, "02", 16},
        {"small picture", EmsKind::Picture, ImageData("", 16, 16, 1), 32, "02", 17},
        {"picture of whole bytes", EmsKind::Picture, ImageData("", 24, 8, 1), 24, "020308", 18},
        {"square picture of whole bytes", EmsKind::Picture, ImageData("", 8, 8, 1), 8, "020108", 18},
        {"picture with spare bits", EmsKind::Picture, ImageData("", 20, 20, 1), 50, "00020002 1414", 20},
        {"big picture", EmsKind::Picture, ImageData("", 40, 32, 1), 160, "00020002 2820", 20},
        {"grey picture", EmsKind::Picture, ImageData("", 16, 16, 2), 64, "00030002 1010", 20},
        {"colour picture", EmsKind::Picture, ImageData("", 16, 16, 6), 192, "00040002 1010", 20},
        {"vCard", EmsKind::VCard, {}, 30, "00090002", 20},
        {"vCalendar", EmsKind::VCalendar, {}, 30, "000A0002", 20},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.object);
        EmsTestMessage message;
        EmsSetCompression(&message, false);
        AddText(&message, u"ab");
        const std::string bytes = Bytes(row.size);
        EmsObjectData data = row.data;
        data.bytes = reinterpret_cast<const uint8_t*>(bytes.data());
        data.size = static_cast<uint16_t>(bytes.size());
        ASSERT_EQ(AddObject(&message, row.kind, &data), EmsResult::Done);
        std::string content;
        for (const std::string& segment : Write(message)) {
            for (const auto& [number, chunk] : Elements(segment)) {
                if (number < 10) continue;
                EXPECT_EQ(number, row.element);
                content += chunk;
            }
        }
        std::string expected = FromHex(row.front);
        if (row.element == 20) {
            const size_t length = expected.size() - 4 + bytes.size();
            expected = std::string{1, static_cast<char>(length >> 8), static_cast<char>(length)} + expected;
        }
        EXPECT_EQ(BytesToHex(content), BytesToHex(expected + bytes));

        data.size = static_cast<uint16_t>(row.size - 1);
        const bool isImage = row.kind == EmsKind::Picture || row.kind == EmsKind::Animation;
        if (isImage) {
            EXPECT_EQ(AddObject(&message, row.kind, &data), EmsResult::InvalidObject);
        }
    }
}

TEST_F(EmsElements, RefusedObjects) {
    EmsTestMessage message;
    const std::string bytes(2100, 'x');
    const auto add = [&](EmsKind kind, EmsObjectData data, int size, uint8_t number = 0) {
        data.bytes = reinterpret_cast<const uint8_t*>(bytes.data());
        data.size = static_cast<uint16_t>(size);
        return AddObject(&message, kind, &data, number);
    };
    EXPECT_EQ(add(EmsKind::PredefinedSound, {}, 0, 10), EmsResult::InvalidObject);
    EXPECT_EQ(add(EmsKind::PredefinedAnimation, {}, 0, 15), EmsResult::InvalidObject);
    EXPECT_EQ(add(EmsKind::Picture, ImageData("", 16, 16, 4), 128), EmsResult::InvalidObject) << "depth 4";
    EXPECT_EQ(add(EmsKind::Animation, ImageData("", 16, 16, 1, 0), 0), EmsResult::InvalidObject)
        << "no frame";
    EXPECT_EQ(add(EmsKind::Melody, {}, 0), EmsResult::InvalidObject) << "empty";
    EXPECT_EQ(add(EmsKind::TextFormat, {}, 4), EmsResult::InvalidObject) << "comes with its text only";
    EXPECT_EQ(add(static_cast<EmsKind>(6), {}, 4), EmsResult::InvalidObject) << "no such kind";
    EXPECT_EQ(add(EmsKind::VCard, {}, 2049), EmsResult::NoMemory) << "more than one allocation may have";
    EXPECT_EQ(AddObject(&message, EmsKind::Melody, nullptr), EmsResult::NullPointer);
    EXPECT_EQ(message.first, nullptr);
    EXPECT_EQ(add(EmsKind::VCard, {}, 2048), EmsResult::Done)
        << "one byte repeated, so it is short in the end";
    EXPECT_EQ(add(EmsKind::Melody, {}, 729), EmsResult::NoMemory)
        << "the arena is 2,800 bytes with two heads of 12";
    EXPECT_EQ(add(EmsKind::Melody, {}, 728), EmsResult::Done);
    EXPECT_EQ(add(EmsKind::Melody, {}, 728), EmsResult::Done) << "an equal one shares its bytes";
    CheckConsistent(message);
}

TEST_F(EmsElements, PortsMakeAnObjectExtendedEarlier) {
    const std::string bytes(124, 'x');
    EmsObjectData data = PlainData(bytes);
    EmsTestMessage message;
    EmsSetPorts(&message, true, 0x1234, 0x0B84);
    ASSERT_EQ(AddObject(&message, EmsKind::Melody, &data), EmsResult::Done);
    EXPECT_TRUE(message.first->isExtended);
    data.size = 123;
    ASSERT_EQ(AddObject(&message, EmsKind::Melody, &data), EmsResult::Done);
    EXPECT_FALSE(message.last->isExtended);

    EmsTestMessage text;
    EmsSetPorts(&text, true, 0x1234, 0x0B84);
    AddText(&text, u"a");
    EXPECT_EQ(BytesToHex(Write(text).at(0)), "0605040B84123461");
    AddText(&text, std::u16string(160, u'x'));
    EXPECT_EQ(BytesToHex(Write(text).at(1).substr(0, 12)), "0B05040B8412340003000202");
}

TEST_F(EmsElements, SecondEqualPictureIsAReference) {
    EmsTestMessage message;
    EmsSetCompression(&message, false);
    const std::string bytes = Bytes(50);
    const EmsObjectData data = ImageData(bytes, 20, 20, 1);
    AddText(&message, u"abc");
    AddObject(&message, EmsKind::Picture, &data);
    AddText(&message, u"de");
    AddObject(&message, EmsKind::Picture, &data);
    EXPECT_EQ(Elements(Write(message).at(0)),
              (ElementList{{20, FromHex("0100340002 0003 1414") + bytes}, {21, FromHex("010005")}}));

    // One in front of both takes the content over, and gives it back when it goes.
    EmsResetCursor(&message);
    AddObject(&message, EmsKind::Picture, &data);
    EXPECT_EQ(Elements(Write(message).at(0)), (ElementList{{20, FromHex("0100340002 0000 1414") + bytes},
                                                           {21, FromHex("010003")},
                                                           {21, FromHex("010005")}}));
    CheckConsistent(message);
    EXPECT_EQ(Backspace(&message, 1), 1);
    EXPECT_EQ(Elements(Write(message).at(0)),
              (ElementList{{20, FromHex("0100340002 0003 1414") + bytes}, {21, FromHex("010005")}}));
    CheckConsistent(message);
}

TEST_F(EmsElements, AnimationsAreEqualOnlyWithTheirControlOctet) {
    EmsTestMessage message;
    const std::string bytes = Bytes(24);
    EmsObjectData data = ImageData(bytes, 8, 8, 1, 3);
    AddObject(&message, EmsKind::Animation, &data);
    data.animationHigh = 2;
    data.animationLow = 5;
    AddObject(&message, EmsKind::Animation, &data);
    EXPECT_FALSE(message.last->isReused);
    AddObject(&message, EmsKind::Animation, &data);
    EXPECT_TRUE(message.last->isReused);
}

TEST_F(EmsElements, CompressedBlock) {
    EmsTestMessage message;
    AddText(&message, u"abc");
    const std::string white(50, '\0');
    const EmsObjectData picture = ImageData(white, 20, 20, 1);
    AddObject(&message, EmsKind::Picture, &picture);
    AddObject(&message, EmsKind::Picture, &picture);
    AddObject(&message, EmsKind::PredefinedSound, nullptr, 7);
    // The literals, 49 zeros copied from the first one, and the reference behind.
    EXPECT_EQ(Elements(Write(message).at(0)),
              (ElementList{{22, FromHex("000013 8B 140100340002 0003 1414 00 6201 84 15010003")},
                           {11, FromHex("0307")}}));

    // What compression would only lengthen goes out by itself.
    EmsTestMessage dense;
    std::mt19937 random(4);
    const std::string noise = RandomBytes(random, 50);
    const EmsObjectData noisy = ImageData(noise, 20, 20, 1);
    AddObject(&dense, EmsKind::Picture, &noisy);
    EXPECT_EQ(Elements(Write(dense).at(0)).at(0).first, 20);
}

TEST_F(EmsElements, FlaggedObjectsStandBehindADistributionIndicator) {
    EmsTestMessage message;
    const std::string bytes = Bytes(32);
    EmsObjectData data = ImageData(bytes, 16, 16, 1);
    AddObject(&message, EmsKind::Picture, &data);
    data.flags = 1;
    AddText(&message, u"a");
    AddObject(&message, EmsKind::Picture, &data);
    AddText(&message, u"b");
    AddObject(&message, EmsKind::Picture, &data);
    EXPECT_EQ(Elements(Write(message).at(0)), (ElementList{{17, FromHex("00") + bytes},
                                                           {23, FromHex("0201")},
                                                           {17, FromHex("01") + bytes},
                                                           {17, FromHex("02") + bytes}}));

    // Header length, indicator and pictures are 75 octets or 86 septets.
    EmsTestMessage full;
    AddObject(&full, EmsKind::Picture, &data);
    AddObject(&full, EmsKind::Picture, &data);
    AddText(&full, std::u16string(74, u'x'));
    EXPECT_EQ(full.segmentsUsed, 1);
    EXPECT_EQ(full.lastSegmentLeft, 0);

    // A run that fits into one segment isn't divided: the text in front leaves room for its first object
    // only.
    EmsTestMessage divided;
    AddText(&divided, std::u16string(80, u'x'));
    AddObject(&divided, EmsKind::Picture, &data);
    AddObject(&divided, EmsKind::Picture, &data);
    AddText(&divided, std::u16string(60, u'y'));
    const auto segments = Write(divided);
    ASSERT_EQ(segments.size(), 2U);
    EXPECT_EQ(Elements(segments[0]).size(), 1U);
    EXPECT_EQ(Elements(segments[1]).at(1), (std::pair{23, FromHex("0201")}));
    CheckConsistent(divided);

    // One that doesn't is divided, each part with its own count.
    EmsTestMessage longRun;
    for (int i = 0; i < 5; ++i)
        AddObject(&longRun, EmsKind::Picture, &data);
    const auto parts = Write(longRun);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(Elements(parts[0]).at(1), (std::pair{23, FromHex("0301")}));
    EXPECT_EQ(Elements(parts[1]).at(1), (std::pair{23, FromHex("0201")}));
}

TEST_F(EmsElements, ReferencesOfConcatenatedMessages) {
    const auto referenceOf = [](EmsMessage& message) {
        return BytesToHex(Elements(Write(message).at(1)).at(0).second);
    };
    EmsTestMessage message;
    AddText(&message, std::u16string(161, u'x'));
    EXPECT_EQ(referenceOf(message), "000202");
    int count = 0;
    ASSERT_EQ(Generate(&message, false, &count, nullptr, nullptr), EmsResult::Done);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(referenceOf(message), "010202") << "counting alone uses up none";
    EmsSetReferenceSource([] { return uint16_t{0x1234}; });
    EXPECT_EQ(referenceOf(message), "340202");
    const std::string bytes(50, '\0');
    const EmsObjectData data = ImageData(bytes, 20, 20, 1);
    AddObject(&message, EmsKind::Picture, &data);
    EXPECT_EQ(referenceOf(message), "12340202") << "16 bits beside an extended object";
    EmsSetReferenceSource(nullptr);
    for (int i = 2; i < 256; ++i)
        Write(message);
    EXPECT_EQ(referenceOf(message), "00000202") << "the counter begins again";
}

TEST_F(EmsElements, ReferenceNumbersCountUpThenFillTheGaps) {
    EmsTestMessage message;
    std::string byte(1, '\0');
    const auto add = [&](int value) {
        byte[0] = static_cast<char>(value);
        const EmsObjectData data = PlainData(byte);
        return AddObject(&message, EmsKind::VCard, &data);
    };
    for (int i = 0; i < 60; ++i)
        ASSERT_EQ(add(i), EmsResult::Done);
    for (int i = 0; i < 200; ++i) {
        ASSERT_EQ(add(100), EmsResult::Done) << i;
        if (i < 194) {
            EXPECT_EQ(message.current->reference, 61 + i);
        }
        Backspace(&message, 1);
    }
    EXPECT_EQ(message.last->reference, 60);
    ASSERT_EQ(add(100), EmsResult::Done);
    EXPECT_EQ(message.current->reference, 61) << "the lowest that no extended object has";
    CheckConsistent(message);
}

}  // namespace
}  // namespace tarnbridge
