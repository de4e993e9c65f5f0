#include <gtest/gtest.h>

#include "images/PLAnyBmp.h"
#include "images/PLAnyPicDecoder.h"
#include "images/PLTextException.h"
#include "platform/Files.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

using namespace std::string_literals;

/// The rows of a bitmap of 1 bit per pixel, `#` for black, each closed by a bar; or the number of the error.
template <typename Decoder>
std::string Decoded(const std::string& file) {
    // A copy of just that size, so that a byte read behind it doesn't go unseen.
    const std::vector<uint8_t> bytes(file.begin(), file.end());
    PLMemSource source(bytes);
    Decoder decoder;
    PLAnyBmp bitmap;
    try {
        decoder.open(source);
        decoder.decodeInto(bitmap);
    } catch (const PLTextException& failure) {
        EXPECT_TRUE(bitmap.rows().empty()) << "a failure leaves the bitmap as it was";
        return std::to_string(static_cast<int>(failure.code()));
    }
    EXPECT_EQ(bitmap.bitsPerPixel(), 1);
    EXPECT_EQ(bitmap.width(), decoder.width());
    EXPECT_EQ(bitmap.rows().size(), static_cast<size_t>(bitmap.height()));
    EXPECT_EQ(bitmap.palette()[0], (PLColour{0, 0, 0, 255}));
    EXPECT_EQ(bitmap.palette()[1], (PLColour{255, 255, 255, 255}));
    std::string text;
    for (const uint8_t* const row : bitmap.rows()) {
        for (int x = 0; x < bitmap.width(); ++x)
            text += (row[x / 8] >> (7 - x % 8) & 1) != 0 ? '.' : '#';
        text += '|';
    }
    return text;
}

std::string RowOf(size_t pixels, char colour) {
    std::string row(pixels, colour);
    row += '|';
    return row;
}

std::string EmsFile(const std::string& size, const std::string& pixels) {
    return "??" + size + "??" + pixels;
}

TEST(EmsDecoder, Pictures) {
    const std::string file = EmsFile("\x10\0\2\0"s, "\x80\1\xF0\x0F"s);
    const std::string picture = "#..............#|####........####|";
    EXPECT_EQ(Decoded<PLEMSDecoder>(file), picture);
    EXPECT_EQ(Decoded<PLEMSDecoder>(file + "behind it"), picture);
    for (size_t size = 0; size < file.size(); ++size)
        EXPECT_EQ(Decoded<PLEMSDecoder>(file.substr(0, size)), "2") << size;
    EXPECT_EQ(Decoded<PLEMSDecoder>(EmsFile("\x0C\0\2\0"s, "\xFF\x81"s)), "########....|#......#....|")
        << "of 12 pixels a row has one byte";
    EXPECT_EQ(Decoded<PLEMSDecoder>(EmsFile("\3\0\1\0"s, "")), "...|");
    EXPECT_EQ(Decoded<PLEMSDecoder>(EmsFile("\0\1\1\0"s, std::string(32, '\xFF'))), RowOf(256, '#'));
    EXPECT_EQ(Decoded<PLEMSDecoder>(EmsFile("\0\0\1\0"s, "")), "3");
    EXPECT_EQ(Decoded<PLEMSDecoder>(EmsFile("\x08\0\0\0"s, "")), "3");
    EXPECT_EQ(Decoded<PLEMSDecoder>(EmsFile("\xFF\xFF\xFF\xFF"s, "x")), "2") << "nothing of it is made";
}

TEST(WbmpDecoder, Pictures) {
    const std::string file = "\0\0\x09\2\x7F\x80\xFF\0"s;
    EXPECT_EQ(Decoded<PLWBMPDecoder>(file), "#........|........#|");
    for (size_t size = 0; size < file.size(); ++size)
        EXPECT_EQ(Decoded<PLWBMPDecoder>(file.substr(0, size)), "2") << size;
    EXPECT_EQ(Decoded<PLWBMPDecoder>("\x05\x80" + file.substr(2)), "#........|........#|")
        << "type and fixed header aren't looked at";
    EXPECT_EQ(Decoded<PLWBMPDecoder>("\0\0\x81\x48\1"s + std::string(25, '\xFF')), RowOf(200, '.'));
    EXPECT_EQ(Decoded<PLWBMPDecoder>("\0\0\x82\x2C\1"s + std::string(6, '\xFF')), RowOf(44, '.'))
        << "300 pixels are 44";
    EXPECT_EQ(Decoded<PLWBMPDecoder>("\0\0\x82\0\1"s + std::string(40, '\xFF')), "3")
        << "256 pixels are none";
    EXPECT_EQ(Decoded<PLWBMPDecoder>("\0\0"s + std::string(1000, '\xFF')), "2") << "a number without an end";
}

TEST(AnyPicDecoder, ChoosesByTheFile) {
    const test::TemporaryFolder folder;
    const std::string ems = EmsFile("\x08\0\1\0"s, "\xFF");
    ASSERT_TRUE(WriteFileAtomically(folder / "a.Ems", ems));
    ASSERT_TRUE(WriteFileAtomically(folder / "a.wbmp", "\0\0\x08\1\xFF"s));
    ASSERT_TRUE(WriteFileAtomically(folder / "cut.ems", ems.substr(0, 8)));
    ASSERT_TRUE(WriteFileAtomically(folder / "a.wmf.ems", ems));
    ASSERT_TRUE(WriteFileAtomically(folder / "short.bmp", "BM"));
    ASSERT_TRUE(WriteFileAtomically(folder / "text", "text"));
    PLAnyPicDecoder decoder;
    std::string said;
    decoder.setTrace([&said](int, std::string_view text) { said += text; });
    PLAnyBmp bitmap;
    const auto decode = [&](const std::string& name) {
        said.clear();
        try {
            decoder.decodeFile(folder / name, bitmap);
        } catch (const PLTextException& failure) {
            return std::to_string(static_cast<int>(failure.code())) + ' ' + failure.what();
        }
        return said + std::to_string(bitmap.rows()[0][0]);
    };
    EXPECT_EQ(decode("a.Ems"), "EMS file recognized.\nDecoding EMS.\n0");
    EXPECT_EQ(decode("a.wbmp"), "WBMP file recognized.\n255");
    EXPECT_EQ(decode("cut.ems"), "2 The file ends before its picture does.");
    EXPECT_EQ(bitmap.rows()[0][0], 255) << "the bitmap of before";
    EXPECT_EQ(decoder.width(), 0) << "it is closed";
    EXPECT_EQ(decode("a.wmf.ems"), "12 Library not compiled for this file type.");
    EXPECT_EQ(decode("short.bmp"), "12 Library not compiled for this file type.");
    EXPECT_EQ(decode("text"), "8 Unknown file type.");
    EXPECT_EQ(decode("missing").substr(0, 2), "1 ");
    EXPECT_EQ(decode("a.Ems"), "EMS file recognized.\nDecoding EMS.\n0") << "and works again";
    EXPECT_EQ(decoder.width(), 0) << "it is closed";
    EXPECT_THROW(decoder.decodeInto(bitmap), PLTextException);
}

TEST(Bitmap, WhatCannotBeMadeLeavesItAsItWas) {
    PLAnyBmp bitmap;
    bitmap.create(3, 2, 8, false, false);
    const auto errorOf = [&](int width, int height, int depth) {
        try {
            bitmap.create(width, height, depth, false, false);
        } catch (const PLTextException& failure) {
            return failure.code();
        }
        return PLError{};
    };
    EXPECT_EQ(errorOf(0, 1, 1), PLError::Invalid);
    EXPECT_EQ(errorOf(1, -1, 1), PLError::Invalid);
    EXPECT_EQ(errorOf(1, 1, 3), PLError::Invalid);
    EXPECT_EQ(errorOf(INT_MAX, INT_MAX, 32), PLError::OutOfMemory);
    EXPECT_EQ(errorOf(65'535, 65'535, 1), PLError::OutOfMemory);
    EXPECT_EQ(bitmap.rows().size(), 2u) << "as it was";
}

}  // namespace
}  // namespace tarnbridge
