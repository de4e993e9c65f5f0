#include <gtest/gtest.h>

#include "messaging/GsmAlphabet.h"
#include "messaging/PduBuffer.h"

namespace tarnbridge {
namespace {

PduBuffer Reader(std::string_view octets) {
    return PduBuffer({reinterpret_cast<const uint8_t*>(octets.data()), octets.size()});
}

TEST(PduBuffer, EndsAreSilent) {
    PduBuffer full;
    full.putOctets(std::string(511, 'x'));
    full.putSeptets("abc");
    full.putBits(0xFFFF, 16);
    full.putZone(79, false);
    EXPECT_EQ(full.octetCount(), 512);

    PduBuffer reader = Reader("\x01\xFF");
    EXPECT_EQ(reader.getBits(12), 0xF01u);
    EXPECT_FALSE(reader.overrun());
    EXPECT_EQ(reader.getBits(8), 0xFu) << "bits past the end are zero";
    EXPECT_TRUE(reader.overrun());
    EXPECT_EQ(reader.getOctet(), 0);
    reader.markUserData();
    reader.alignToSeptet();
    EXPECT_EQ(reader.getSeptets(3), std::string(3, '\0'));
    EXPECT_EQ(reader.getSeptets(0), "");
    EXPECT_EQ(reader.getSeptets(513), "");
    EXPECT_EQ(Reader(std::string(600, 'x')).octetCount(), 0);
}

TEST(PduBuffer, SemiOctets) {
    PduBuffer buffer;
    buffer.putAddressDigits("12*#pw+");
    EXPECT_EQ(buffer.toHex(), "21BADCFE");
    PduBuffer reader = Reader("\x21\xBA\xDC\xFE\x4F");
    EXPECT_EQ(reader.getAddressDigits(7), "12*#pw+");
    EXPECT_EQ(reader.getAddressDigits(2), "?4") << "15 is left out of a high half only";

    PduBuffer values;
    values.putBcdValue(7, 2);
    values.putBcdValue(107, 2);
    EXPECT_EQ(values.toHex(), "7001F7");
    PduBuffer back = Reader("\x70\xF5\xEF");
    EXPECT_EQ(back.getBcd(2), 7);
    EXPECT_EQ(back.getBcd(2), 5);
    EXPECT_EQ(back.getBcd(2), 164);
}

TEST(GsmAlphabet, WritingFoldsAndReadingDoesNotUnfold) {
    // Each row: local bytes, the GSM values they go out as, and how these read back.
    struct Row {
        std::string local;
        std::string gsm;
        std::string back;
    };
    const Row rows[] = {
        {"Az09\n\r", "Az09\n\r", "Az09\n\r"},
        {"@$_", std::string("\x00\x02\x11", 3), "@$_"},
        {"\xA1\xA3\xA4\xA5\xBF\xDF", "\x40\x01\x24\x03\x60\x1E", "\xA1\xA3\xA4\xA5\xBF\xDF"},
        {"\xC0\xC6\xE9\xF1\xFF\xD8\xDC", "AAenyOU", "AAenyOU"},
        {"`\xA7\x01", "___", "\xA7\xA7\xA7"},
        {"{", "\x28", "("},
        {"\x1B{\x1B\\\x1B\x80\x80",
         "\x1B\x28\x1B\x2F\x1B"
         "ee",
         "\x1B{\x1B\\\x1B\x80"
         "e"},
        {"\x1B|^~[]}", "\x1B\x40\x14\x3D\x3C\x3E\x29", "\x1B|_=<>)"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToGsmAlphabet(row.local), row.gsm);
        EXPECT_EQ(FromGsmAlphabet(row.gsm), row.back);
    }
    EXPECT_EQ(FromGsmAlphabet("\x1B"
                              "A((\x1B\x42"),
              "\x1B"
              "A{(\x1B"
              "B")
        << "an escape waits for its match";
    EXPECT_EQ(FromGsmAlphabet(std::string("\x10\x1A\x80\xFF\x04\x7F\x5B", 7)), "____\xE8\xE0\xC4");
}

}  // namespace
}  // namespace tarnbridge
