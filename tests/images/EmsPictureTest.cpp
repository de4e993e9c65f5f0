#include <gtest/gtest.h>

#include "images/EmsPicture.h"
#include "images/PLAnyBmp.h"
#include "images/PLTextException.h"
#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

using Bytes = std::vector<uint8_t>;

TEST(EmsPicture, BitsAreOnePackedRun) {
    PLAnyBmp bitmap;
    bitmap.create(9, 3, 1, false, false);
    const Bytes rows[] = {{0b0111'1111, 0b1111'1111}, {0b1111'1111, 0b0000'0000}, {0b1111'1110, 0b1111'1111}};
    for (size_t y = 0; y < 3; ++y)
        std::copy(rows[y].begin(), rows[y].end(), bitmap.rows()[y]);
    // #........ ........# .......#. and five bits of nothing
    const EmsPicture picture = MakeEmsPicture(bitmap);
    EXPECT_EQ(picture.width, 9);
    EXPECT_EQ(picture.height, 3);
    EXPECT_EQ(picture.bits, (Bytes{0b1000'0000, 0b0000'0000, 0b0100'0000, 0b0100'0000}));

    std::swap(bitmap.palette()[0], bitmap.palette()[1]);
    EXPECT_EQ(MakeEmsPicture(bitmap).bits, (Bytes{0b0111'1111, 0b1111'1111, 0b1011'1111, 0b1010'0000}));
    bitmap.palette()[0] = {0, 255, 0, 255};
    bitmap.palette()[1] = {255, 0, 0, 255};
    EXPECT_EQ(MakeEmsPicture(bitmap).bits[0], 0b0111'1111) << "green is light and blue is dark";
}

/// The check and the layer that takes the picture have to be of one mind.
TEST(EmsPicture, WhatFitsIsWhatAMessageTakes) {
    ASSERT_EQ(EmsInit(uint8_t{0}), EmsResult::Done);
    const struct Row {
        int width;
        int height;
        EmsPictureFit fit;
    } rows[] = {
        {1, 1, EmsPictureFit::Fits},        {16, 16, EmsPictureFit::Fits},
        {20, 20, EmsPictureFit::Fits},      {255, 64, EmsPictureFit::Fits},
        {64, 255, EmsPictureFit::Fits},     {128, 128, EmsPictureFit::Fits},
        {241, 68, EmsPictureFit::TooLarge}, {255, 255, EmsPictureFit::TooLarge},
        {256, 1, EmsPictureFit::TooWide},   {1, 256, EmsPictureFit::TooHigh},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::to_string(row.width) + " x " + std::to_string(row.height));
        PLAnyBmp bitmap;
        bitmap.create(row.width, row.height, 1, false, false);
        EXPECT_EQ(CheckEmsPicture(bitmap), row.fit);
        if (row.fit != EmsPictureFit::Fits) {
            EXPECT_THROW(MakeEmsPicture(bitmap), PLTextException);
        }
        if (row.width > 255 || row.height > 255) continue;  // the layer has no number for it
        const EmsPicture picture = row.fit == EmsPictureFit::Fits
                                       ? MakeEmsPicture(bitmap)
                                       : EmsPicture{row.width, row.height, Bytes(8192, 0xFF)};
        EmsMessage message;
        EmsCreate(&message, 0);
        EmsObjectData data;
        data.bytes = picture.bits.data();
        data.size = static_cast<uint16_t>((row.width * row.height + 7) / 8);
        data.depth = 1;
        data.width = static_cast<uint8_t>(picture.width);
        data.height = static_cast<uint8_t>(picture.height);
        EXPECT_EQ(AddObject(&message, EmsKind::Picture, &data) == EmsResult::Done,
                  row.fit == EmsPictureFit::Fits);
    }
    PLAnyBmp colours;
    colours.create(8, 8, 24, false, false);
    EXPECT_EQ(CheckEmsPicture(colours), EmsPictureFit::NotMonochrome);
    EXPECT_EQ(CheckEmsPicture(PLAnyBmp()), EmsPictureFit::NotMonochrome);
    EXPECT_THROW(MakeEmsPicture(PLAnyBmp()), PLTextException);
    EmsShutdown();
}

}  // namespace
}  // namespace tarnbridge
