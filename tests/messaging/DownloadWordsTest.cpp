#include <gtest/gtest.h>

#include "messaging/DownloadWords.h"
#include "messaging/MirrorState.h"

namespace tarnbridge {
namespace {

using Report = MessageDownload::Report;

TEST(DownloadWords, TellApartWhyTheListIsntWhole) {
    const struct Row {
        const char* fault;
        Report report;
        bool lost;
        bool cancelled;
        const char16_t* words;
    } rows[] = {
        {"all is well", {}, false, false, u""},
        {"a silent handset has no empty memory",
         {true, 0, 0, {}, {}},
         true,
         false,
         u"The handset doesn't answer any more."},
        {"no memory", {true, 0, 0, {}, {}}, false, false, u"There is no available message in handset!"},
        {"refused memories",
         {false, 0, 0, {u"SM", u"ME"}, {}},
         false,
         false,
         u"Memories of the phone that it didn't open: SIM, ME"},
        {"counted and not there",
         {false, 9, 2, {}, {{u"ME", 3, 320, true}}},
         false,
         false,
         u"Messages that could not be read: 1\nMessages that the phone counts but didn't show: 2"},
        {"who cancels knows", {false, 0, 0, {}, {{u"ME", 3}}}, true, true, u""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(DownloadWords(row.report, row.lost, row.cancelled), row.words) << row.fault;
        EXPECT_EQ(IsWhole(row.report, row.lost, row.cancelled), &row == rows) << row.fault;
    }
}

TEST(DownloadWords, AMirrorTellsItsAge) {
    const LocalTime read{.year = 2007, .month = 3, .day = 14, .hour = 21, .minute = 4};
    LocalTime now = read;
    MirrorState mirror;
    EXPECT_EQ(mirror.Words(1, now), u"") << "nothing was read";
    mirror = {.read = true, .readAt = read, .session = 1, .whole = true};
    EXPECT_EQ(mirror.Words(1, now), u"");
    EXPECT_TRUE(mirror.Words(2, now).starts_with(u"Read at 21:04. The phone has been connected anew"));
    mirror.whole = false;
    now.day = 15;
    EXPECT_TRUE(mirror.Words(1, now).starts_with(u"Read at 2007/03/14"));
}

}  // namespace
}  // namespace tarnbridge
