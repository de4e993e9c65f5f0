#include <gtest/gtest.h>

#include "messaging/EmsMelody.h"
#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

using namespace std::string_literals;

std::string MelodyOf(size_t size) {
    const std::string start = "BEGIN:IMELODY\r\nMELODY:";
    const std::string end = "\r\nEND:IMELODY\r\n";
    return start + std::string(size - start.size() - end.size(), 'c') + end;
}

TEST(EmsMelody, WhatIsAnIMelody) {
    const std::string whole = MelodyOf(60);
    EXPECT_EQ(CheckEmsMelody(whole), EmsMelodyFit::Fits);
    EXPECT_EQ(CheckEmsMelody("begin:imelody\nMELODY:c2 end:imelody"), EmsMelodyFit::Fits);
    EXPECT_EQ(CheckEmsMelody(whole + "\r\n \t"), EmsMelodyFit::Fits);
    for (size_t size = 0; size + 2 < whole.size(); ++size) {
        EXPECT_EQ(CheckEmsMelody(whole.substr(0, size)), EmsMelodyFit::NotIMelody) << size;
    }
    for (const std::string& other : {"MThd\0\0\0\6"s, " " + whole, whole + "x", "BEGIN:IMELODYEND:IMELODY"s,
                                     "BEGIN:IMELODY\r\n\0\r\nEND:IMELODY"s, "BEGIN:IMELODY2\r\nEND:IMELODY"s})
        EXPECT_EQ(CheckEmsMelody(other), EmsMelodyFit::NotIMelody) << other;
}

/// The check and the layer that takes the melody have to be of one mind.
TEST(EmsMelody, WhatFitsIsWhatAMessageTakes) {
    ASSERT_EQ(EmsInit(uint8_t{0}), EmsResult::Done);
    for (const size_t size : {128, 129, 2048, 2049, 70'000}) {
        const std::string melody = MelodyOf(size);
        EmsMessage message;
        EmsCreate(&message, 0);
        EmsObjectData data;
        data.bytes = reinterpret_cast<const uint8_t*>(melody.data());
        data.size = static_cast<uint16_t>(std::min<size_t>(size, UINT16_MAX));
        const bool isTaken = AddObject(&message, EmsKind::Melody, &data) == EmsResult::Done;
        EXPECT_EQ(CheckEmsMelody(melody), isTaken ? EmsMelodyFit::Fits : EmsMelodyFit::TooLarge) << size;
    }
    EmsShutdown();
}

}  // namespace
}  // namespace tarnbridge
