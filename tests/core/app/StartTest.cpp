#include <thread>

#include <gtest/gtest.h>

#include "core/app/InstanceGuard.h"
#include "core/app/Languages.h"
#include "core/app/WindowPlacement.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;

TEST(InstanceGuardTest, ARestartIsWaitedForUpToTheLimit) {
    const test::TemporaryFolder folder;
    InstanceGuard first(folder.Path());
    ASSERT_TRUE(first.Enter());
    ASSERT_TRUE(first.AnnounceRestart());

    InstanceGuard impatient(folder.Path(), 100ms);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(impatient.Enter()) << "one that never ends is the first";
    EXPECT_GE(std::chrono::steady_clock::now() - start, 100ms);

    std::thread successor([&] {
        InstanceGuard next(folder.Path());
        EXPECT_TRUE(next.Enter());
    });
    std::this_thread::yield();
    first.Leave();
    successor.join();
}

TEST(InstanceGuardTest, WhereNoLockCanBeMadeTheStartGoesOn) {
    InstanceGuard guard("/proc/no-such-folder");
    EXPECT_TRUE(guard.Enter());
}

TEST(LanguagesTest, LocalesSpeakLanguages) {
    EXPECT_EQ(LanguageOfLocale("de_AT.UTF-8@euro"), 0x0407);
    EXPECT_EQ(LanguageOfLocale("pt-BR"), 0x0416);
    EXPECT_EQ(LanguageOfLocale("pt_AO"), 0x0816);
    EXPECT_EQ(LanguageOfLocale("C"), std::nullopt);
    EXPECT_EQ(LanguageOfLocale(""), std::nullopt);
}

TEST(WindowPlacementTest, ABlockOfFortyFourBytes) {
    const WindowPlacement placement{-1000, 30, 700, 900, true};
    const std::string block = EncodePlacement(placement);
    EXPECT_EQ(block.size(), 44u);
    EXPECT_EQ(block.substr(0, 4), std::string("\x2C\0\0\0", 4));
    EXPECT_EQ(block.substr(8, 4), std::string("\x03\0\0\0", 4)) << "maximised";
    EXPECT_EQ(block.substr(28, 4), std::string("\x18\xFC\xFF\xFF", 4)) << "left";
    EXPECT_EQ(DecodePlacement(block), placement);
    EXPECT_EQ(DecodePlacement(block + "more"), placement);
}

TEST(WindowPlacementTest, WhatCannotBeAWindowIsRefused) {
    const auto block = [](int32_t right, int32_t bottom, char show) {
        std::string bytes = EncodePlacement({0, 0, right, bottom, false});
        bytes[8] = show;
        return bytes;
    };
    EXPECT_FALSE(DecodePlacement(block(200, 200, 1)));
    EXPECT_FALSE(DecodePlacement(block(699, 550, 1)));
    EXPECT_FALSE(DecodePlacement(block(700, 549, 1)));
    EXPECT_FALSE(DecodePlacement(block(700, 550, 12))) << "no such show command";
    EXPECT_FALSE(DecodePlacement(block(INT32_MAX, INT32_MAX, 1)));
    EXPECT_FALSE(DecodePlacement(std::string(44, '\xFF')));
    EXPECT_FALSE(DecodePlacement(block(700, 550, 1).substr(0, 43)));
    EXPECT_FALSE(DecodePlacement(""));
    // Hidden, minimised and the like come back at their place.
    for (const char show : {0, 1, 2, 5, 6, 7, 9})
        EXPECT_EQ(DecodePlacement(block(700, 550, show)), (WindowPlacement{0, 0, 700, 550, false}));
}

}  // namespace
}  // namespace tarnbridge
