#include <gtest/gtest.h>

#include "messaging/MessageTextLine.h"
#include "messaging/RecordText.h"
#include "messaging/ems/Ems.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

using namespace std::string_literals;

constexpr int zone = 60;

class MessageTextLine : public ::testing::Test {
protected:
    MessageTextLine() { EmsInit(uint8_t{0}); }
    ~MessageTextLine() override { EmsShutdown(); }

    static std::u16string LineWith(const std::u16string& text, const std::u16string& number = u"123") {
        return u"\"" + number + u"\"\t\"2007/03/14 15:09:26\"\t\"" + text + u"\"\r\n";
    }

    static MessageLineFault FaultOf(const std::u16string& line) {
        SmsRecord record;
        return ReadMessageLine(line, zone, record);
    }

    /// The text that a line gives, or the number of its fault.
    static std::u16string TextRead(const std::u16string& text) {
        SmsRecord record;
        const MessageLineFault fault = ReadMessageLine(LineWith(text), zone, record);
        return fault == MessageLineFault::None ? record.TextAsWide() : std::u16string(1, u'0' + int(fault));
    }
};

TEST_F(MessageTextLine, EachFieldIsWhereTheFormatHasIt) {
    SmsRecord record;
    record.address = SmsAddress("+420123", SmsAddress::unknown);
    record.timestamp.year = 7;
    record.timestamp.month = 3;
    record.timestamp.day = 4;
    record.text8 = "say \"a\x1B{\"\r\nh\xE9";
    EXPECT_EQ(MessageLineOf(record), u"\"+420123\"\t\"2007/03/04 00:00:00\"\t\"say \"\"a{\"\"h\u00E9\"\r\n");
    record.address.number = "A\"B\r\n";
    record.text8 = "x";
    EXPECT_EQ(MessageLineOf(record), u"\"AB\"\t\"2007/03/04 00:00:00\"\t\"x\"\r\n")
        << "nothing that would move the fields behind it";
    record.text8 = "\n";
    EXPECT_EQ(MessageLineOf(record), u"\"AB\"\t\"2007/03/04 00:00:00\"\t\"\"\r\n");
}

/// Records in lists have no EmsMessage, and there are more of them than slots.
TEST_F(MessageTextLine, TheTextIsTheOneThatTheEmsMessageWouldHold) {
    const struct Row {
        const char* fault;
        int dcs;
        bool hasHeader;
        std::vector<std::string> parts;
    } rows[] = {
        {"bytes in the system's code page", 0, false, {"caf\xE9 \x1B\x80 \x10"}},
        {"an older text shown instead of the parts", 0, false, {"fresh"}},
        {"a header as text", 0, true, {"\5\0\3\1\2\1one "s, "\5\0\3\1\2\2two"s}},
        {"a header of no length, whose octet is text", 0, true, {"\1\0x"s, "\0b"s}},
        {"a header longer than its part", 0, true, {"\x20tail", "\1\0x"s}},
        {"a header that no part can hold", 0, true, {"\x8Ctail", "\0next"s}},
        {"an empty part", 0, true, {"", "\1\0x"s}},
        {"octets of a low half", 8, false, {"\x4E\x2D\x00\x41\x00"s}},
        {"UCS2 behind a header", 8, true, {"\5\0\3\1\2\1\x4E\x2D"s, "\5\0\3\1\2\2\0!"s}},
        {"8-bit data", 4, false, {"\xFFkey"}},
        {"what is behind a zero", 8, false, {"\0a\0\0\0b"s}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fault);
        SmsRecord record;
        record.dcs = row.dcs;
        record.hasHeader = row.hasHeader ? 1 : 0;
        record.rawParts = row.parts;
        record.text8 = "stale";
        record.text16 = u"stale";
        const std::u16string line = MessageLineOf(record);
        EXPECT_FALSE(record.emsMessage);
        ASSERT_TRUE(record.EnsureEmsMessage());
        EXPECT_EQ(line, MessageLineOf(record));
        EXPECT_NE(line, u"");
    }
    SmsRecord euro;
    euro.rawParts = {"\x1B\x80 \x10\x1B\nx"};
    EXPECT_NE(MessageLineOf(euro).find(u"\"\u20AC \u0394x\""), std::u16string::npos);
    SmsRecord tooLong;
    tooLong.text8 = std::string(2000, 'x');
    EXPECT_NE(MessageLineOf(tooLong).find(std::u16string(2000, u'x')), std::u16string::npos)
        << "what no EmsMessage can hold isn't lost";
}

TEST_F(MessageTextLine, ObjectsAreLeftOutAndAMessageWithoutTextIsSkipped) {
    SmsRecord record;
    record.emsMessage = EmsHandle::Make(0);
    AddObject(record.emsMessage.Get(), EmsKind::PredefinedSound, nullptr, 1);
    EXPECT_EQ(MessageLineOf(record), u"");
    EmsTextFormat bold;
    bold.bold = 1;
    AddText(record.emsMessage.Get(), u"Hi", &bold);
    EXPECT_NE(MessageLineOf(record).find(u"\t\"Hi\"\r\n"), std::u16string::npos);
    SmsRecord binary;
    binary.dcs = 4;
    binary.rawParts = {"\0\1\2"s};
    EXPECT_EQ(MessageLineOf(binary), u"");
    EXPECT_EQ(MessageLineOf(SmsRecord()), u"");
}

TEST_F(MessageTextLine, ALineBecomesAComposedRecord) {
    SmsRecord record;
    ASSERT_EQ(ReadMessageLine(LineWith(u"h\u00E9 \u4E2D", u"+1"), zone, record), MessageLineFault::None);
    EXPECT_EQ(record.address, SmsAddress("+1", SmsAddress::international));
    EXPECT_EQ(record.timestamp.year, 107) << "three digits, as a time of a text has them";
    EXPECT_EQ(record.timestamp.zoneMinutes, uint16_t(-zone));
    EXPECT_EQ(record.timestamp.ToFileText(), "2007/03/14 15:09:26");
    EXPECT_EQ(record.storage, u"PC");
    EXPECT_EQ(record.status, smsComposed);
    EXPECT_EQ(record.dcs, 8);
    EXPECT_EQ(record.text16, u"h\u00E9 \u4E2D");
    EXPECT_EQ(record.text8, "");
    EXPECT_FALSE(record.emsMessage) << "records in a list hold no slot";

    SmsRecord plain;
    ASSERT_EQ(ReadMessageLine(LineWith(std::u16string(161, u'x')), zone, plain), MessageLineFault::None);
    EXPECT_EQ(plain.dcs, 0);
    EXPECT_EQ(plain.text8, std::string(161, 'x'));
    ASSERT_EQ(plain.rawParts.size(), 2u);
    EXPECT_EQ(plain.hasHeader, 1) << "or the headers would be read as text";
    ASSERT_TRUE(plain.EnsureEmsMessage());
    EXPECT_EQ(EmsText(*plain.emsMessage.Get()), std::u16string(161, u'x'));
    EXPECT_EQ(plain.emsMessage.Get()->slot, 1);
}

TEST_F(MessageTextLine, TextsComeBack) {
    for (const std::u16string& text : {std::u16string(u"\""), std::u16string(u"\"\""),
                                       std::u16string(u"a\t\"\tb"), std::u16string(u"tab\there, [x] and {"),
                                       std::u16string(u"\u00E9 {"), std::u16string(u"\xD83D\xDE00 \xDE00"),
                                       std::u16string(1530, u'x'), std::u16string(670, u'\u4E2D')}) {
        SmsRecord record;
        record.dcs = 8;
        record.text16 = text;
        SmsRecord read;
        ASSERT_EQ(ReadMessageLine(MessageLineOf(record), zone, read), MessageLineFault::None);
        EXPECT_EQ(ShownText(read), text);
    }
    EXPECT_EQ(TextRead(u""), u"") << "the number and the time are worth keeping";
    EXPECT_EQ(TextRead(u"\"\"\""), u"\"\"");
    EXPECT_EQ(TextRead(u"a \x1B{ {"), u"a \x1B{ \x1B{") << "or it would go out as a letter";
    EXPECT_EQ(TextRead(u"\u00E9 \x1B{ \x1Bx"), u"\u00E9 { \x1Bx") << "UCS2 has no extension table";
}

TEST_F(MessageTextLine, NumbersAndTimesAreCut) {
    SmsRecord record;
    ASSERT_EQ(ReadMessageLine(LineWith(u"x", std::u16string(300, u'5')), zone, record),
              MessageLineFault::None);
    EXPECT_EQ(record.address, SmsAddress(std::string(256, '5'), SmsAddress::unknown));
    ASSERT_EQ(ReadMessageLine(LineWith(u"x", u"Z\u00FCrich Bank \u4E2D"), zone, record),
              MessageLineFault::None);
    EXPECT_EQ(record.address.type, SmsAddress::alphanumeric);
    EXPECT_EQ(record.address.number, "Z\xFCrichBank?");
    const std::u16string far = u"2007/01/02 03:04:" + std::u16string(47, u' ') + u"05";
    ASSERT_EQ(ReadMessageLine(u"\"\"\t\"" + far + u"\"\t\"x\"\n", zone, record), MessageLineFault::None);
    EXPECT_EQ(record.timestamp.ToFileText(), "2007/01/02 03:04:00") << "the seconds lie behind the cut";
}

TEST_F(MessageTextLine, RefusedLines) {
    const std::u16string line = LineWith(u"say \"\"hi\"\" {");
    ASSERT_EQ(FaultOf(line), MessageLineFault::None);
    ASSERT_EQ(FaultOf(line.substr(0, line.size() - 2) + u"\n"), MessageLineFault::None);
    for (size_t size = 0; size < line.size(); ++size) {
        const std::vector<char16_t> prefix(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(size));
        SmsRecord record;
        EXPECT_EQ(ReadMessageLine({prefix.data(), size}, zone, record), MessageLineFault::Malformed) << size;
    }
    EXPECT_EQ(FaultOf(u"\"1\"\t\"2007\"\t\"\n"), MessageLineFault::Malformed)
        << "five quotation marks, no last";
    EXPECT_EQ(FaultOf(LineWith(u"a\0b"s)), MessageLineFault::Malformed);
    EXPECT_EQ(FaultOf(LineWith(std::u16string(1531, u'x'))), MessageLineFault::TooLong);
    EXPECT_EQ(FaultOf(LineWith(std::u16string(671, u'\u00E9'))), MessageLineFault::TooLong);
    EXPECT_EQ(FaultOf(LineWith(std::u16string(100'000, u'x'))), MessageLineFault::TooLong);

    std::vector<EmsHandle> all;
    while (EmsHandle next = EmsHandle::Make(0))
        all.push_back(std::move(next));
    EXPECT_EQ(all.size(), static_cast<size_t>(emsSlots)) << "none of the lines above kept its slot";
    EXPECT_EQ(FaultOf(line), MessageLineFault::NoSlot);
    all.pop_back();
    EXPECT_EQ(FaultOf(line), MessageLineFault::None);
}

}  // namespace
}  // namespace tarnbridge
