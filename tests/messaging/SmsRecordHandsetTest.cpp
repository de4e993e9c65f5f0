#include <gtest/gtest.h>

#include "messaging/MessageMemory.h"
#include "messaging/SmsRecord.h"
#include "messaging/ems/Ems.h"
#include "support/HandsetSession.h"

namespace tarnbridge {
namespace {

using Locations = std::map<int, int>;

class SmsRecordHandset : public ::testing::Test {
protected:
    SmsRecordHandset() {
        EmsInit(1);
        session.SetCapacities(20, 100);
    }
    ~SmsRecordHandset() override { EmsShutdown(); }

    static SmsRecord Plain(std::string text, int status = smsDraft) {
        SmsRecord record;
        record.address = SmsAddress("+4670123", 0);
        record.text8 = std::move(text);
        record.status = status;
        return record;
    }

    static SmsRecord Ems(const std::u16string& text, int status = smsDraft) {
        SmsRecord record = Plain({}, status);
        record.emsMessage = EmsHandle::Make(0);
        EXPECT_EQ(AddText(record.emsMessage.Get(), text), EmsResult::Done);
        return record;
    }

    bool Write(SmsRecord& record, std::u16string_view to) { return record.Write(link, to, error); }

    void Fill(const std::string& memory, int count) {
        session.handset.With([&](simulator::HandsetContent& content) {
            for (int i = 0; i < count; ++i)
                content.Add(memory, 1,
                            "07911326040000F0040B911346610089F60000208062917314080CC8F71D14969741F977FD07");
            return 0;
        });
    }

    test::HandsetSession session;
    HandsetLink& link = session.link;
    int error = 0;
};

TEST_F(SmsRecordHandset, PlainTextGoesWhereTheHandsetPutsItInAsManyPartsAsItNeeds) {
    const std::pair<size_t, size_t> cases[] = {{160, 1}, {161, 2}, {1530, 10}};
    for (const auto& [length, parts] : cases) {
        SmsRecord record = Plain(std::string(length, 'x'));
        ASSERT_TRUE(Write(record, u"ME")) << length;
        EXPECT_EQ(record.handsetIndices.size(), parts);
        EXPECT_EQ(record.storage, u"SM") << "the SIM comes first in MT";
        EXPECT_EQ(record.text8.size(), length);
        EXPECT_TRUE(record.Remove(link, error));
        EXPECT_TRUE(session.handset.Locations("SM").empty());
    }
    SmsRecord tooLong = Plain(std::string(1531, 'x'));
    session.handset.ForgetCommands();
    EXPECT_FALSE(Write(tooLong, u"ME"));
    EXPECT_TRUE(session.handset.Locations("SM").empty());
}

TEST_F(SmsRecordHandset, TheStatusDecidesFormAndCommand) {
    struct Case {
        int status;
        const char* storeQuery;
        int stat;  ///< 0: refused
    };
    const Case cases[] = {{smsRead, "(0-3)", 1},         {smsUnread, "3", 1},       {smsRead, "ERROR", 0},
                          {smsDraft, "ERROR", 2},        {smsSent, "(0-3)", 3},     {smsOutbox, "(0-3)", 5},
                          {smsSentFromHere, "(0-3)", 0}, {smsComposed, "(0-3)", 0}, {4, "(0-3)", 7}};
    for (const Case& row : cases) {
        session.SetStoreQuery(row.storeQuery);
        SmsRecord record = Ems(u"x", row.status);
        EXPECT_EQ(Write(record, u"ME"), row.stat != 0) << row.status << row.storeQuery;
        EXPECT_EQ(session.handset.Locations("ME"), row.stat != 0 ? (Locations{{1, row.stat}}) : Locations());
        SmsRecord read;
        if (row.stat != 0 && read.Read(link, u"ME", 21, error)) {
            EXPECT_EQ(read.messageType, row.stat == 1 ? SmsRecord::deliver : SmsRecord::submit);
            EXPECT_EQ(read.text8, "x");
            EXPECT_EQ(read.address.number, "+4670123");
        }
        record.Remove(link, error);
    }
}

TEST_F(SmsRecordHandset, APartThatCannotBeWrittenUndoesTheOthers) {
    SmsRecord record = Ems(std::u16string(400, u'x'));
    session.handset.SetFaults({"error=+CMGW:322,after=2"});
    EXPECT_FALSE(Write(record, u"ME"));
    EXPECT_EQ(error, 322);
    EXPECT_TRUE(session.handset.Locations("ME").empty());
    EXPECT_TRUE(record.leftBehind.empty());

    session.handset.SetFaults({"error=+CMGW:322,after=2", "error=+CMGD:302,after=1"});
    EXPECT_FALSE(Write(record, u"ME"));
    EXPECT_EQ(record.leftBehind, std::vector<int>{22}) << "written, and not freed again";
    EXPECT_EQ(session.handset.Locations("ME"), (Locations{{2, 2}}));
    EXPECT_TRUE(record.handsetIndices.empty());
}

TEST_F(SmsRecordHandset, ReadingTellsEmptyFromRefusedFromSilent) {
    Fill("SM", 1);
    SmsRecord record;
    EXPECT_TRUE(record.Read(link, u"SM", 1, error));
    EXPECT_EQ(record.status, smsRead);
    EXPECT_EQ(record.handsetIndices, std::vector<int>{1});
    EXPECT_FALSE(record.Read(link, u"SM", 2, error));
    EXPECT_TRUE(record.reading == SmsRecord::Reading::Empty && error == -1);
    session.handset.SetFaults({"empty-location=321"});
    EXPECT_FALSE(record.Read(link, u"SM", 2, error));
    EXPECT_TRUE(record.reading == SmsRecord::Reading::Empty && error == 321);
    session.handset.SetFaults({"silent-after=0"});
    EXPECT_FALSE(record.Read(link, u"SM", 1, error));
    EXPECT_EQ(record.reading, SmsRecord::Reading::NoAnswer);
    EXPECT_FALSE(record.Read(link, u"", 1, error));
    EXPECT_FALSE(record.Read(link, u"SM", -1, error));
}

TEST_F(SmsRecordHandset, DeletingGoesOnAfterSilenceAndStopsAtAnError) {
    Fill("SM", 4);
    SmsRecord record;
    record.storage = u"SM";
    record.handsetIndices = {1, 2, 3};
    session.handset.SetFaults({"error=+CMGD:302,after=1"});
    EXPECT_FALSE(record.Remove(link, error));
    EXPECT_EQ(error, 302);
    EXPECT_EQ(record.handsetIndices, (std::vector<int>{2, 3})) << "what can still be deleted";

    session.handset.SetFaults({});
    session.handset.Script("AT+CMGD=2", "");
    EXPECT_TRUE(record.Remove(link, error)) << "the last one that was answered counts";
    EXPECT_EQ(record.leftBehind, std::vector<int>{2});
    EXPECT_EQ(record.handsetIndices, std::vector<int>{2});
    EXPECT_TRUE(SmsRecord().Remove(link, error)) << "nothing to do";
}

TEST_F(SmsRecordHandset, UpdateWritesAgainWhereItLay) {
    SmsRecord record = Ems(std::u16string(200, u'x'));
    ASSERT_TRUE(Write(record, u"ME"));
    record.status = smsOutbox;
    SmsRecord old = record;
    ASSERT_TRUE(record.Update(link, old, error));
    EXPECT_TRUE(old.handsetIndices.empty());
    EXPECT_EQ(session.handset.Locations("ME"), (Locations{{1, 5}, {2, 5}}));
    session.handset.SetFaults({"refuse=+CMGD"});
    session.handset.ForgetCommands();
    old = record;
    EXPECT_FALSE(record.Update(link, old, error));
    EXPECT_EQ(old.handsetIndices.size(), 2u);
    EXPECT_EQ(session.handset.Locations("ME").size(), 2u) << "nothing is written while the old one stands";
}

TEST_F(SmsRecordHandset, SendingPlainTextStopsAtTheFirstFailure) {
    SmsRecord plain = Plain(std::string(161, 'x'), smsComposed);
    session.handset.SetFaults({"error=+CMGS:38,after=1"});
    EXPECT_FALSE(plain.Send(link, error));
    EXPECT_EQ(error, 38);
    EXPECT_EQ(plain.status, smsComposed);
}

TEST_F(SmsRecordHandset, MemoriesAreRememberedAndPutBack) {
    MemorySelection before;
    ASSERT_TRUE(GetMessageMemories(link, before));
    ASSERT_TRUE(SelectMessageMemory(link, u"SM"));
    session.handset.ForgetCommands();
    EXPECT_TRUE(SelectMessageMemory(link, u"SM"));
    EXPECT_TRUE(session.handset.Commands().empty());
    MemoryUsage usage;
    ASSERT_TRUE(QueryMessageMemory(link, u"SM", usage));
    EXPECT_EQ(usage.total, 20);
    EXPECT_EQ(link.State().currentMessageStore, u"ME");
    ASSERT_TRUE(RestoreMessageMemories(link, before));
    MemorySelection after;
    ASSERT_TRUE(GetMessageMemories(link, after));
    EXPECT_EQ(after, before);
    EXPECT_FALSE(SelectMessageMemory(link, u"XX"));
    EXPECT_TRUE(link.State().currentMessageStore.empty());
}

}  // namespace
}  // namespace tarnbridge
