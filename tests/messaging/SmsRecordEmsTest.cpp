#include <gtest/gtest.h>

#include "messaging/SmsRecord.h"
#include "messaging/ems/Ems.h"

namespace tarnbridge {
namespace {

class SmsRecordEms : public ::testing::Test {
protected:
    SmsRecordEms() { EmsInit(1); }
    ~SmsRecordEms() override { EmsShutdown(); }

    /// A record of two segments whose text has a bold word.
    static SmsRecord LongRecord() {
        SmsRecord record;
        record.emsMessage = EmsHandle::Make(0);
        EmsTextFormat bold;
        bold.bold = 1;
        AddText(record.emsMessage.Get(), u"bold", &bold);
        AddText(record.emsMessage.Get(), std::u16string(200, u'x'));
        return record;
    }
};

TEST_F(SmsRecordEms, PartsAndBack) {
    SmsRecord record = LongRecord();
    ASSERT_TRUE(record.PrepareParts());
    ASSERT_EQ(record.rawParts.size(), 2u);
    EXPECT_TRUE(record.emsMessage.HasHeader());

    SmsRecord read;
    read.hasHeader = 1;
    read.rawParts = record.rawParts;
    ASSERT_TRUE(read.RebuildFromParts());
    EXPECT_EQ(read.text8, "bold" + std::string(200, 'x'));
    EXPECT_EQ(read.rawParts, record.rawParts) << "what was received stays until the content is edited";
    const EmsObject* format = read.emsMessage.Get()->first;
    ASSERT_NE(format, nullptr);
    EXPECT_EQ(format->kind, EmsKind::TextFormat);
}

TEST_F(SmsRecordEms, MadeOutOfWhatThereIs) {
    SmsRecord plain;
    plain.text8 = "caf\xE9";
    ASSERT_TRUE(plain.EnsureEmsMessage());
    EXPECT_EQ(EmsText(*plain.emsMessage.Get()), u"caf\u00E9");
    SmsRecord wide;
    wide.dcs = 8;
    wide.text16 = u"\u4E2D";
    ASSERT_TRUE(wide.EnsureEmsMessage());
    EXPECT_EQ(EmsText(*wide.emsMessage.Get()), u"\u4E2D");
    SmsRecord parts;
    parts.text8 = "stale";
    parts.rawParts = {"fresh"};
    ASSERT_TRUE(parts.EnsureEmsMessage());
    EXPECT_EQ(parts.text8, "fresh");
    SmsRecord tooLong;
    tooLong.text8 = std::string(1531, 'x');
    EXPECT_FALSE(tooLong.EnsureEmsMessage());
    EXPECT_EQ(tooLong.text8.size(), 1531u);
}

TEST_F(SmsRecordEms, ACopyHasAMessageOfItsOwn) {
    SmsRecord record = LongRecord();
    SmsRecord copy = record;
    ASSERT_TRUE(copy.emsMessage);
    EXPECT_NE(copy.emsMessage.Get()->slot, record.emsMessage.Get()->slot);
    AddText(copy.emsMessage.Get(), u"!");
    EXPECT_EQ(EmsText(*record.emsMessage.Get()).size() + 1, EmsText(*copy.emsMessage.Get()).size());

    std::vector<EmsHandle> all;
    while (EmsHandle next = EmsHandle::Make(0))
        all.push_back(std::move(next));
    EXPECT_EQ(all.size(), static_cast<size_t>(emsSlots - 2));
    SmsRecord without = record;
    EXPECT_FALSE(without.emsMessage) << "no slot is left";
    EXPECT_FALSE(without.EnsureEmsMessage());
    all.pop_back();
    EXPECT_TRUE(without.EnsureEmsMessage());
}

}  // namespace
}  // namespace tarnbridge
