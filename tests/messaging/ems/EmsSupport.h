#pragma once

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "messaging/ems/Ems.h"

namespace tarnbridge {

/// The library, started for a test, with the first reference number 0.
class EmsTest : public testing::Test {
protected:
    EmsTest() { EXPECT_EQ(EmsInit(uint8_t{0}), EmsResult::Done); }
    ~EmsTest() override { EXPECT_EQ(EmsShutdown(), EmsResult::Done); }
};

/// A created message.
struct EmsTestMessage : EmsMessage {
    explicit EmsTestMessage(uint8_t coding = 0) { EXPECT_EQ(EmsCreate(this, coding), EmsResult::Done); }
};

/// Bytes of hexadecimal digits, among which blanks are passed over.
std::string FromHex(std::string_view hex);

/// The segments as Generate writes them. A failure of the test when it doesn't.
std::vector<std::string> Write(EmsMessage& message);

/// Parses segments of one coding, all with a header when there is any.
EmsResult Read(EmsMessage& message, bool hasHeader, const std::vector<std::string>& segments, uint8_t dcs);

/// The information elements of a segment: number and content.
std::vector<std::pair<int, std::string>> Elements(const std::string& segment);

/// One line for each object, with everything that a reader must find again, in an order that doesn't depend
/// on the list's.
std::vector<std::string> Describe(const EmsMessage& message);

/// The formats alone, as "position+length octet".
std::vector<std::string> Formats(const EmsMessage& message);

/// Checks what holds after every operation: the list's order, bounds, the cursor, and counts that agree with
/// the segments as written.
void CheckConsistent(EmsMessage& message);

EmsObjectData ImageData(const std::string& bytes, int width, int height, int depth, int frames = 0);
EmsObjectData PlainData(const std::string& bytes);

std::string RandomBytes(std::mt19937& random, size_t size);

}  // namespace tarnbridge
