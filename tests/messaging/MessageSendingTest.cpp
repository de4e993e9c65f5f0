#include <gtest/gtest.h>

#include "messaging/MessageSending.h"
#include "messaging/MessageTaskTest.h"
#include "support/ScriptedUser.h"

namespace tarnbridge::test {
namespace {

using Strings = std::vector<std::string>;

class Sending : public MessageTask {
protected:
    SmsRecord& PutFor(const std::string& numbers, const std::u16string& text = u"x") {
        SmsRecord& record = Put(outbox, text);
        record.address.number = numbers;
        return record;
    }

    /// Sends messages of a folder; `step` is called as each item begins.
    void Run(MessageFolder& folder, const std::vector<SmsRecord*>& records,
             const std::function<void(MessageSending&, int)>& step = {}) {
        std::vector<MessageSending::Waiting> waiting;
        for (SmsRecord* const record : records)
            waiting.push_back({&folder, record});
        MessageSending sending(worker, tree, keeper, clock, waiting);
        sending.onProgress = [&](const HandsetTask::Standing& standing) {
            if (step) step(sending, standing.done);
        };
        ASSERT_TRUE(RunTask(sending));
        items = sending.Items();
        lost = sending.LostHandset();
    }

    /// "number:state" of each item; a refusal with its error.
    Strings Results() const {
        Strings results;
        for (const MessageSending::Item& item : items) {
            const char* const states[] = {"not tried", "done", "failed"};
            results.push_back(item.number + ":" + states[static_cast<int>(item.outcome.state)]);
            if (item.outcome.error >= 0) results.back() += " " + std::to_string(item.outcome.error);
        }
        return results;
    }

    static Strings Numbers(const MessageFolder& folder) {
        Strings numbers;
        for (const auto& record : folder.records)
            numbers.push_back(record->address.number);
        return numbers;
    }

    /// How many PDUs were sent or tried.
    size_t Sends() {
        const auto commands = session.handset.Commands();
        return static_cast<size_t>(std::count_if(commands.begin(), commands.end(), [](const auto& command) {
            return command.starts_with("AT+CMGS=");
        }));
    }

    MessageFolder& outbox = tree.OnPc(outboxPlace);
    MessageFolder& sent = tree.OnPc(sentPlace);
    VirtualTime& clock = session.clock;
    std::vector<MessageSending::Item> items;
    bool lost = false;
};

TEST_F(Sending, EachNumberHasItsResultAndWhatFailedStaysForIt) {
    SmsRecord& several = PutFor("11,+22;33", u"several");
    SmsRecord& none = PutFor("", u"none");
    SmsRecord& single = PutFor("44", u"singl\xE9");
    session.handset.SetFaults({"error=+CMGS:38,after=1,times=1"});
    Run(outbox, {&several, &none, &single});
    EXPECT_EQ(Results(), (Strings{"11:done", "+22:failed 38", "33:done", ":failed", "44:done"}));
    EXPECT_EQ(items[3].outcome.words, Word::NoRecipient);
    EXPECT_EQ(Texts(outbox), (Strings{"several", "none"}));
    EXPECT_EQ(Numbers(outbox), (Strings{"+22", ""}));
    EXPECT_EQ(Texts(sent), (Strings{"several", "single"}));
    EXPECT_EQ(Numbers(sent), (Strings{"11,33", "44"}));
    EXPECT_EQ(sent.records[1].get(), &single) << "what was sent to all is moved";
    for (const auto& record : sent.records) {
        EXPECT_EQ(record->status, smsSentFromHere);
        EXPECT_EQ(record->storage, u"PC");
        EXPECT_EQ(record->timestamp, SmsTimestamp::FromLocal(clock.Local()));
    }
    EXPECT_EQ(several.status, smsComposed);
    EXPECT_FALSE(lost);

    Run(outbox, {&several});
    EXPECT_EQ(Results(), Strings{"+22:done"}) << "nobody gets it twice";
    EXPECT_EQ(Numbers(sent), (Strings{"11,33", "44", "+22"}));
}

TEST_F(Sending, AMessageWithAPartThatFailedHasFailed) {
    SmsRecord& record = PutFor("11", std::u16string(400, u'x'));
    session.handset.SetFaults({"error=+CMGS:38,after=1,times=1"});
    Run(outbox, {&record});
    EXPECT_EQ(Results(), Strings{"11:failed 38"});
    EXPECT_EQ(Sends(), 2u) << "the third part isn't tried";
    EXPECT_EQ(Numbers(outbox), Strings{"11"});
    EXPECT_TRUE(sent.records.empty());
}

TEST_F(Sending, UnpluggedOnTheWayTheRestIsNotTried) {
    SmsRecord& first = PutFor("11,22", u"first");
    SmsRecord& second = PutFor("33", u"second");
    link.commandTimeout = 60;
    Run(outbox, {&first, &second}, [&](MessageSending&, int done) {
        if (done == 1) session.handset.Unplug();
    });
    EXPECT_TRUE(lost);
    EXPECT_EQ(Results(), (Strings{"11:done", "22:failed", "33:not tried"}));
    EXPECT_EQ(Numbers(outbox), (Strings{"22", "33"}));
    EXPECT_EQ(Numbers(sent), Strings{"11"});
}

TEST_F(Sending, AMessageOfTheHandsetStaysThereAsItIs) {
    SmsRecord& record = PutOnHandset(u"draft", smsDraft);
    const std::vector<int> locations = record.handsetIndices;
    Run(tree.OnHandset(draftPlace), {&record});
    EXPECT_EQ(Results(), Strings{"+4670123:done"});
    EXPECT_EQ(session.handset.Locations("ME"), (std::map<int, int>{{1, 2}}));
    EXPECT_EQ(tree.OnHandset(draftPlace).records.at(0).get(), &record);
    EXPECT_EQ(record.handsetIndices, locations);
    EXPECT_EQ(record.status, smsDraft);
    EXPECT_EQ(Texts(sent), Strings{"draft"});
    EXPECT_EQ(sent.records[0]->storage, u"PC");
}

TEST_F(Sending, AllOfTheOutboxUpToTheLimit) {
    std::vector<SmsRecord*> records;
    for (size_t i = 0; i < mostMessagesToSend; ++i)
        records.push_back(&PutFor(std::to_string(i)));
    ScriptedUser user;
    user.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(CollectOutbox(tree, user)) << "the user doesn't want to";
    const auto waiting = CollectOutbox(tree, user);
    ASSERT_TRUE(waiting);
    ASSERT_EQ(waiting->size(), 1200u);
    Run(outbox, records);
    EXPECT_EQ(Sends(), 1200u);
    EXPECT_TRUE(outbox.records.empty());
    ASSERT_EQ(sent.records.size(), 1200u);
    EXPECT_EQ(sent.records.back().get(), records.back()) << "in their order";

    for (size_t i = 0; i <= mostMessagesToSend; ++i)
        PutFor(std::to_string(i));
    user.answers = {Answer::Yes};
    user.heard.clear();
    EXPECT_FALSE(CollectOutbox(tree, user));
    EXPECT_EQ(user.heard,
              (std::vector<std::u16string>{Words(Word::SendAllOutbox), Words(Word::TooManyMessages)}));
    EXPECT_EQ(outbox.records.size(), 1201u);
}

}  // namespace
}  // namespace tarnbridge::test
