#include <gtest/gtest.h>

#include "messaging/MessageTaskTest.h"
#include "messaging/MessageTransfer.h"

namespace tarnbridge::test {
namespace {

using Strings = std::vector<std::string>;
using Locations = std::map<int, int>;

class Transfer : public MessageTask {
protected:
    /// Runs a transfer of some records; the outcomes are in `outcomes`.
    bool Run(MessageFolder& from, std::vector<SmsRecord*> records, MessageFolder& to, bool move,
             const std::u16string& memory = u"ME", int cancelAfter = -1) {
        MessageTransfer transfer(worker, tree, keeper, {&from, std::move(records), &to, memory, move});
        transfer.onProgress = [&](const HandsetTask::Standing& standing) {
            if (standing.done == cancelAfter) transfer.Cancel();
        };
        EXPECT_TRUE(RunTask(transfer));
        outcomes = transfer.Outcomes();
        return AllDone(outcomes);
    }

    MessageFolder& inbox = tree.OnPc(inboxPlace);
    MessageFolder& draft = tree.OnPc(draftPlace);
    MessageFolder& handsetInbox = tree.OnHandset(inboxPlace);
    MessageFolder& handsetDraft = tree.OnHandset(draftPlace);
    std::vector<MessageOutcome> outcomes;
};

TEST_F(Transfer, WithinThePcRecordsMoveAndCopiesAreNew) {
    SmsRecord& first = Put(inbox, u"first");
    SmsRecord& second = Put(inbox, u"second");
    worker.Stop();
    EXPECT_TRUE(Run(inbox, {&second}, draft, true));
    EXPECT_EQ(draft.records.at(0).get(), &second);
    EXPECT_TRUE(Run(inbox, {&first}, draft, false));
    EXPECT_EQ(Texts(inbox), Strings{"first"});
    EXPECT_EQ(Texts(draft), (Strings{"second", "first"}));
    EXPECT_EQ(keeper.changes, 2);
    EXPECT_TRUE(session.handset.Commands().empty());
}

TEST_F(Transfer, NothingLeavesTheHandsetBeforeItIsOnTheDisk) {
    SmsRecord& record = PutOnHandset(u"x", smsRead);
    keeper.fails = true;
    EXPECT_FALSE(Run(handsetInbox, {&record}, inbox, true));
    EXPECT_EQ(outcomes[0].words, Word::MessageNotSaved);
    EXPECT_FALSE(Run(handsetInbox, {&record}, handsetDraft, true));
    EXPECT_EQ(session.handset.Locations("ME"), (Locations{{1, 1}}));
    EXPECT_TRUE(inbox.records.empty() && draft.records.empty());
    EXPECT_EQ(Texts(handsetInbox), Strings{"x"});
}

TEST_F(Transfer, AMoveOnTheHandsetIsWrittenAnewInItsNewFolder) {
    SmsRecord& record = PutOnHandset(u"x", smsDraft);
    EXPECT_TRUE(Run(handsetDraft, {&record}, tree.OnHandset(sentPlace), true, {}));
    EXPECT_EQ(session.handset.Locations("ME"), (Locations{{1, 3}}));
    EXPECT_TRUE(handsetDraft.records.empty());
    EXPECT_TRUE(draft.records.empty()) << "the copy is needed no more";
    EXPECT_FALSE(tree.OnHandset(sentPlace).records.at(0)->emsMessage) << "what lies in a list takes no slot";
    EXPECT_TRUE(Run(tree.OnHandset(sentPlace), {tree.OnHandset(sentPlace).records[0].get()}, handsetDraft,
                    true, u"SM"));
    EXPECT_EQ(session.handset.Locations("SM"), (Locations{{1, 2}}));
    EXPECT_TRUE(session.handset.Locations("ME").empty());
}

TEST_F(Transfer, ACancelLeavesTheRestAsItWas) {
    std::vector<SmsRecord*> records;
    for (const char16_t* const text : {u"a", u"b", u"c"})
        records.push_back(&PutOnHandset(text, smsRead));
    EXPECT_FALSE(Run(handsetInbox, records, inbox, true, {}, 1));
    EXPECT_EQ(Texts(inbox), (Strings{"a", "b"})) << "a copy goes when its message stays";
    EXPECT_EQ(Texts(handsetInbox), Strings{"c"});
    EXPECT_EQ(session.handset.Locations("ME").size(), 1u);
    EXPECT_EQ(outcomes[2].state, MessageOutcome::State::NotTried);
}

TEST_F(Transfer, WhatCannotBeReadWholeIsNotWrittenAnew) {
    SmsRecord& record = Put(inbox, u"x", smsRead);
    record.hasHeader = 1;
    record.rawParts.assign(1, "\x05\x11\x20too short for a picture");
    EXPECT_FALSE(Run(inbox, {&record}, handsetInbox, true));
    EXPECT_EQ(outcomes[0].words, Word::MessageNotWritten);
    EXPECT_EQ(inbox.records.size(), 1u);
    EXPECT_TRUE(session.handset.Locations("ME").empty());
}

TEST_F(Transfer, APartThatStaysOnTheHandsetIsNamedThoughTheRestWorked) {
    SmsRecord& record = PutOnHandset(std::u16string(400, u'x'), smsRead);
    session.handset.Script("AT+CMGD=22", "");
    EXPECT_FALSE(Run(handsetInbox, {&record}, handsetDraft, true));
    EXPECT_EQ(outcomes[0].leftBehind, std::vector<int>{22});
    EXPECT_EQ(handsetInbox.records.at(0)->handsetIndices, std::vector<int>{22});
    EXPECT_EQ(handsetDraft.records.size(), 1u);
    EXPECT_FALSE(outcomes[0].keptInDraft) << "the message itself is whole";
}

}  // namespace
}  // namespace tarnbridge::test
