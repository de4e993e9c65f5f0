#include <gtest/gtest.h>

#include "messaging/ConcatHeader.h"
#include "messaging/JoinParts.h"

namespace tarnbridge {
namespace {

std::string Header(int reference, int total, int sequence) {
    return {'\0', '\3', static_cast<char>(reference), static_cast<char>(total), static_cast<char>(sequence)};
}

std::string WideHeader(int reference, int total, int sequence) {
    return {'\10',
            '\4',
            static_cast<char>(reference >> 8),
            static_cast<char>(reference),
            static_cast<char>(total),
            static_cast<char>(sequence)};
}

std::unique_ptr<SmsRecord> Part(const std::string& header, const std::string& text, int location) {
    auto record = std::make_unique<SmsRecord>();
    record->userDataHeader = header;
    record->text8 = text;
    record->rawParts = {text};
    record->handsetIndices = {location};
    return record;
}

TEST(ConcatHeader, WhichElementsCount) {
    struct Row {
        const char* rule;
        std::string header;
        bool counts;
        int reference;
    };
    const Row rows[] = {
        {"narrow", Header(9, 3, 1), true, 9},
        {"wide", WideHeader(0x1234, 3, 1), true, 0x1234},
        {"behind another element", std::string("\x05\x04\x0B\x84\x23\xF0", 6) + Header(9, 2, 2), true, 9},
        {"the first that counts", Header(9, 0, 1) + WideHeader(7, 2, 1), true, 7},
        {"sequence 0", Header(9, 3, 0), false, 0},
        {"sequence above total", Header(9, 3, 4), false, 0},
        {"signed: 1 is above -56", Header(9, 200, 1), false, 0},
        {"signed: -106 isn't", Header(9, 200, 150), true, 9},
        {"cut off", Header(9, 3, 1).substr(0, 4), false, 0},
        {"another length", std::string("\0\x02\x01\x01", 4) + "x", false, 0},
        {"element longer than the header", "\x05\xFF\x01\x02\x03\x04", false, 0},
        {"nothing", "", false, 0},
    };
    for (const Row& row : rows) {
        const auto found = FindConcat(row.header);
        EXPECT_EQ(found.has_value(), row.counts) << row.rule;
        if (found) {
            EXPECT_EQ(found->reference, row.reference) << row.rule;
        }
    }
}

TEST(ConcatHeader, StoringReplacesTheOldOnes) {
    std::string header = Header(1, 2, 1) + "\x24\x01\x01" + WideHeader(5, 2, 1);
    StoreConcat(header, Header(9, 3, 2));
    EXPECT_EQ(header, Header(9, 3, 2));
    header = std::string("\x05\x04\x0B\x84\x23\xF0", 6);
    StoreConcat(header, Header(9, 3, 2));
    EXPECT_EQ(header, Header(9, 3, 2) + "\xF0") << "written over the start of what is there";
    header.clear();
    StoreConcat(header, WideHeader(9, 3, 2));
    EXPECT_EQ(header, WideHeader(9, 3, 2));
}

TEST(SmsRecord, KeysTellReadFromUnreadUnlessWide) {
    SmsRecord record;
    record.userDataHeader = Header(0xAB, 3, 2);
    EXPECT_EQ(record.ConcatKey(), 0x020302ABu);
    record.status = smsRead;
    EXPECT_EQ(record.ConcatKey(), 0x020301ABu);
    record.status = smsOutbox;
    EXPECT_EQ(record.ConcatKey(), 0x020302ABu);
    record.userDataHeader = WideHeader(0xABCD, 3, 2);
    EXPECT_EQ(record.ConcatKey(), 0x0203CDABu);
}

TEST(SmsRecord, MergingFollowsTheTextInUse) {
    SmsRecord narrow = *Part("", "one ", 4);
    SmsRecord wide;
    wide.dcs = 8;
    wide.text16 = u"\u20AC";
    EXPECT_FALSE(narrow.MergeFrom(wide)) << "it has no location";
    wide.handsetIndices = {9, 10};
    EXPECT_TRUE(narrow.MergeFrom(wide));
    EXPECT_EQ(narrow.text8, "one \x80");
    EXPECT_EQ(narrow.handsetIndices, (std::vector<int>{4, 9}));
    EXPECT_EQ(narrow.rawParts.size(), 1u);
    EXPECT_TRUE(wide.MergeFrom(*Part("", "two", 5)));
    EXPECT_EQ(wide.text16, u"\u20ACtwo");
    EXPECT_EQ(wide.rawParts, std::vector<std::string>{"two"});
}

/// A part of "reference" from somebody, told as "text@minute", as it comes from a list.
std::unique_ptr<SmsRecord> PartOf(const std::string& sender, int total, int sequence, const std::string& text,
                                  int minute, int location) {
    auto part = Part(Header(9, total, sequence), text, location);
    part->address.number = sender;
    part->timestamp = {0, 7, 3, 14, static_cast<uint8_t>(minute / 60), static_cast<uint8_t>(minute % 60),
                       0, 1};
    part->handsetPdus = {text + std::to_string(minute)};
    return part;
}

std::vector<std::string> TextsOf(const SmsRecordList& records) {
    std::vector<std::string> texts;
    for (const auto& record : records)
        texts.push_back(record->text8);
    return texts;
}

TEST(JoinParts, EachRuleOfJoining) {
    SmsRecordList records;
    records.push_back(Part(Header(9, 3, 3), "c", 1));
    records.push_back(Part("", "alone", 2));
    records.push_back(Part(Header(9, 3, 1), "a", 3));
    records.push_back(Part(WideHeader(0x1234, 2, 2), "y", 4));
    records.push_back(Part(WideHeader(0x1234, 2, 1), "x", 6));
    records.back()->status = smsRead;
    records.push_back(Part(Header(9, 2, 1), "other total", 7));
    records.push_back(Part(Header(9, 3, 0), "no sequence", 8));
    records.push_back(Part(Header(7, 200, 150), "beyond", 9));
    records.push_back(Part(Header(9, 3, 2), "unreadable", 10));
    records.back()->unreadable = "0791...";
    JoinParts(records);
    EXPECT_EQ(TextsOf(records), (std::vector<std::string>{"alone", "no sequence", "unreadable", "other total",
                                                          "xy", "ac", "beyond"}));
    EXPECT_EQ(records[5]->handsetIndices, (std::vector<int>{3, 1})) << "the gap leaves no mark";
    EXPECT_EQ(records[5]->rawParts, (std::vector<std::string>{"a", "c"}));
    EXPECT_EQ(records[5]->PartCount(), 2u);
}

TEST(JoinParts, AnExactDoubleIsAFurtherLocation) {
    SmsRecordList records;
    int location = 0;
    for (const char* const text : {"a", "b", "a", "b", "a"})
        records.push_back(PartOf("1", 2, *text - 'a' + 1, text, 0, ++location));
    JoinParts(records);
    ASSERT_EQ(TextsOf(records), std::vector<std::string>{"ab"});
    EXPECT_EQ(records[0]->handsetIndices, (std::vector<int>{1, 2, 3, 5, 4}));
    EXPECT_EQ(records[0]->handsetPdus, (std::vector<std::string>{"a0", "b0", "a0", "a0", "b0"}));
    EXPECT_EQ(records[0]->PartCount(), 2u);
}

/// Parts are told as sender, number, minute: in capitals the first message, in small letters the second.
TEST(JoinParts, TwoMessagesUnderOneReferenceAreNotMixed) {
    const struct Row {
        const char* fault;
        std::vector<std::string> parts;
        std::vector<std::string> texts;
    } rows[] = {
        {"two senders", {"1A10", "2a10", "2b10", "1B10"}, {"AB", "ab"}},
        {"one after the other", {"1A10", "1B10", "1a60", "1b60"}, {"AB", "ab"}},
        {"free locations in the way", {"1A10", "1b60", "1a60", "1B10"}, {"AB", "ab"}},
        {"the second without its first part", {"1A10", "1b60", "1B11"}, {"AB", "b"}},
        {"the first without its second part", {"1b60", "1A10", "1a61"}, {"A", "ab"}},
        {"both without one", {"1A10", "1b60", "1a60", "1C11", "1B10"}, {"ABC", "ab"}},
        {"within one second, by turns", {"1A10", "1a10", "1B10", "1b10"}, {"AB", "ab"}},
        {"within one second, by bursts", {"1A10", "1B10", "1a10", "1b10"}, {"AB", "ab"}},
        {"within one second, one lacking", {"1A10", "1a10", "1b10"}, {"A", "ab"}},
    };
    for (const Row& row : rows) {
        SmsRecordList records;
        for (const std::string& part : row.parts)
            records.push_back(PartOf(part.substr(0, 1), 3, (part[1] & 0x1F), part.substr(1, 1),
                                     std::stoi(part.substr(2)), static_cast<int>(records.size()) + 1));
        JoinParts(records);
        auto texts = TextsOf(records);
        std::sort(texts.begin(), texts.end());
        EXPECT_EQ(texts, row.texts) << row.fault;
    }
}

TEST(JoinParts, NoPartIsLostOrTurnsTheLoop) {
    SmsRecordList records;
    for (int total = 0; total < 256; ++total) {
        for (int sequence = 0; sequence < 256; sequence += 5)
            records.push_back(Part(Header(3, total, sequence), "x", 1));
    }
    const size_t count = records.size();
    JoinParts(records);
    size_t characters = 0;
    for (const auto& record : records)
        characters += record->text8.size();
    EXPECT_EQ(characters, count);
}

}  // namespace
}  // namespace tarnbridge
