#include "messaging/EditorSupport.h"
#include "messaging/MessageDraft.h"
#include "support/ManualClock.h"
#include "support/ScriptedUser.h"

namespace tarnbridge {
namespace {

using MessageDraftTest = EmsTest;

CheckedRecipients Checked(const MessageDraft& draft) {
    return CheckRecipients(draft.Recipients(), VerbatimMatcher());
}

TEST_F(MessageDraftTest, ANewMessageBecomesARecord) {
    test::ManualClock clock;
    const auto draft = MessageDraft::New({});
    ASSERT_TRUE(draft);
    draft->SetRecipients(u" +491 ; 0170");
    Type(draft->Editor(), u"a{b");
    draft->Editor().ApplyFormat(0, 1, bold);
    const auto record = draft->MakeRecord(Checked(*draft), clock);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->status, smsComposed);
    EXPECT_EQ(record->storage, u"PC");
    EXPECT_EQ(record->timestamp, SmsTimestamp::FromLocal(clock.local));
    EXPECT_EQ(record->address.number, "+491;0170");
    EXPECT_EQ(NumbersOf(*record), (std::vector<std::string>{"+491", "0170"}));
    EXPECT_EQ(record->dcs, 0);
    EXPECT_EQ(record->hasHeader, 1);
    EXPECT_EQ(record->text8, "a\x1B{b");
    EXPECT_TRUE(record->text16.empty());
    EXPECT_EQ(Describe(*record->emsMessage.Get()), Describe(draft->Editor().Message()));

    // The record's message is its own.
    Type(draft->Editor(), u"\u4E2D");
    EXPECT_EQ(EmsText(*record->emsMessage.Get()), u"a\x1B{b");
    const auto wide = draft->MakeRecord(Checked(*draft), clock);
    EXPECT_EQ(wide->dcs, 8);
    EXPECT_EQ(wide->text16, u"a{b\u4E2D");
    EXPECT_TRUE(wide->text8.empty());
    draft->SetRecipients(u"+49170");
    EXPECT_EQ(draft->MakeRecord(Checked(*draft), clock)->address,
              SmsAddress("+49170", SmsAddress::international));
}

TEST_F(MessageDraftTest, AnOpenedRecordStaysUntilTheResultTakesItsPlace) {
    test::ManualClock clock;
    SmsRecord original;
    original.storage = u"ME";
    original.handsetIndices = {4, 5};
    original.status = smsDraft;
    original.address = SmsAddress("0170", SmsAddress::unknown);
    original.rawParts = {FromHex("05 0A03 00 02 13") + "text"};
    original.hasHeader = 1;
    const auto draft = MessageDraft::Open({}, original);
    ASSERT_TRUE(draft);
    EXPECT_FALSE(draft->Modified());
    EXPECT_EQ(draft->Recipients(), u"0170");
    EXPECT_EQ(Seen(draft->Editor().Shown()), "[b]te[]xt");
    EXPECT_FALSE(original.emsMessage) << "a record in a list holds no slot";
    draft->Editor().Delete(0, 2);
    const auto record = draft->MakeRecord(Checked(*draft), clock);
    EXPECT_EQ(original.rawParts.size(), 1u);
    EXPECT_EQ(record->storage, u"ME");
    EXPECT_EQ(record->handsetIndices, original.handsetIndices);
    EXPECT_EQ(record->status, smsComposed);
    EXPECT_EQ(record->text8, "xt");
    EXPECT_EQ(record->hasHeader, 0);
    EXPECT_TRUE(record->rawParts.empty());
}

TEST_F(MessageDraftTest, AnswersAndCopiesForOthers) {
    SmsRecord received;
    received.dcs = 8;
    received.text16 = u"\u4E2D\r\n";
    received.storage = u"SM";
    received.address = SmsAddress("Ann Lee", SmsAddress::unknown);
    test::ManualClock clock;
    const auto reply = MessageDraft::Reply({}, received);
    EXPECT_EQ(reply->Recipients(), u"AnnLee");
    EXPECT_EQ(reply->Editor().Shown().Length(), 0);
    EXPECT_FALSE(reply->Modified());
    const auto forward = MessageDraft::Forward({}, received);
    EXPECT_EQ(forward->Recipients(), u"");
    EXPECT_EQ(forward->Editor().Shown().Text(), u"\u4E2D\n");
    EXPECT_EQ(Checked(*forward).fault, Word::NoRecipient);
    forward->SetRecipients(u"1");
    EXPECT_EQ(forward->MakeRecord(Checked(*forward), clock)->storage, u"PC") << "new, wherever it came from";
}

TEST_F(MessageDraftTest, AsksOnlyForWhatWouldBeLost) {
    test::ScriptedUser user;
    const auto draft = MessageDraft::New({});
    EXPECT_EQ(draft->AskToSave(user), Answer::No);
    draft->SetRecipients(u"1");
    EXPECT_TRUE(draft->Modified());
    draft->SetRecipients(u"");
    EXPECT_FALSE(draft->Modified());
    Type(draft->Editor(), u"a");
    user.answers.push_back(Answer::Cancel);
    EXPECT_EQ(draft->AskToSave(user), Answer::Cancel);
    draft->MarkSaved();
    EXPECT_EQ(draft->AskToSave(user), Answer::No);
}

TEST_F(MessageDraftTest, WithoutASlot) {
    const auto draft = MessageDraft::New({});
    std::vector<EmsHandle> all;
    while (EmsHandle next = EmsHandle::Make(0))
        all.push_back(std::move(next));
    test::ManualClock clock;
    draft->SetRecipients(u"1");
    EXPECT_FALSE(draft->MakeRecord(Checked(*draft), clock));
    EXPECT_FALSE(MessageDraft::New({}));
    SmsRecord record;
    record.text8 = "x";
    EXPECT_FALSE(MessageDraft::Forward({}, record));
    all.resize(all.size() - 3);
    EXPECT_TRUE(MessageDraft::Forward({}, record));
}

}  // namespace
}  // namespace tarnbridge
