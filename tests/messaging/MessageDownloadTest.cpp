#include <fmt/format.h>
#include <gtest/gtest.h>

#include "messaging/MessageDownload.h"
#include "messaging/MessageTaskTest.h"
#include "simulator/Pdu.h"

namespace tarnbridge::test {
namespace {

using simulator::HandsetContent;

class Download : public MessageTask {
protected:
    void Receive(const std::string& memory, int location, int stat, const std::u16string& text) {
        session.handset.With([&](HandsetContent& content) {
            simulator::MessageText message;
            message.number = "+4670123";
            message.text = text;
            content.Messages(memory)->items[location] = {
                stat, simulator::WriteDeliver(message, content.identity.serviceCentre), {}};
            return 0;
        });
    }

    MessageDownload::Report Run(const std::u16string& only = {}) {
        MessageDownload download(worker, tree, only);
        EXPECT_TRUE(RunTask(download));
        lost = download.LostHandset();
        return download.GetReport();
    }

    bool lost = false;
};

TEST_F(Download, AsksForEachLocationOnceAndForNothingElse) {
    Receive("SM", 20, 1, u"last of the SIM");
    Receive("ME", 1, 0, u"first of the phone");
    Receive("ME", 100, 2, u"last of the phone");
    tree.OnHandset(sentPlace).Append(std::make_unique<SmsRecord>());
    const MessageDownload::Report report = Run();
    EXPECT_EQ(report.messages, 3);
    EXPECT_TRUE(report.unread.empty());
    EXPECT_EQ(Texts(tree.OnHandset(inboxPlace)),
              (std::vector<std::string>{"last of the SIM", "first of the phone"}));
    EXPECT_EQ(tree.OnHandset(draftPlace).records.at(0)->handsetIndices, std::vector<int>{120});
    EXPECT_TRUE(tree.OnHandset(sentPlace).records.empty()) << "what was there before goes";

    std::vector<std::string> expected = {"AT+CPMS?",
                                         "AT+CPMS=\"SM\"",
                                         "AT+CPMS=\"ME\", \"ME\", \"ME\"",
                                         "AT+CPMS=\"ME\"",
                                         "AT+CPMS=\"ME\", \"ME\", \"ME\"",
                                         "AT+CPMS=\"SM\", \"SM\", \"SM\""};
    for (int i = 1; i <= 120; ++i) {
        if (i == 21) expected.push_back("AT+CPMS=\"ME\", \"ME\", \"ME\"");
        expected.push_back(fmt::format("AT+CMGR={}", i));
    }
    expected.push_back("AT+CPMS=\"ME\", \"ME\", \"ME\"");
    std::vector<std::string> commands = session.handset.Commands();
    EXPECT_EQ(commands.back().substr(0, 8), "AT+CPMS=") << "what was selected before";
    commands.back() = expected.back();
    EXPECT_EQ(commands, expected);
}

TEST_F(Download, ABadLocationIsListedOrNamedAndDoesNotStopThePass) {
    Receive("SM", 5, 1, u"good");
    session.handset.Script("AT+CMGR=2", "\r\n+CMGR: 3,,5\r\nZZ0102\r\n\r\nOK\r\n");
    session.handset.Script("AT+CMGR=3", "\r\n+CMS ERROR: 320\r\n");
    session.handset.Script("AT+CMGR=4", "");
    const MessageDownload::Report report = Run(u"SM");
    EXPECT_EQ(Texts(tree.OnHandset(inboxPlace)), std::vector<std::string>{"good"});
    EXPECT_EQ(tree.OnHandset(sentPlace).records.size(), 1u) << "listed by its state";
    ASSERT_EQ(report.unread.size(), 2u);
    EXPECT_EQ(report.unread[0].location, 3);
    EXPECT_EQ(report.unread[0].error, 320);
    EXPECT_EQ(report.unread[1].location, 4);
    EXPECT_FALSE(lost) << "it answered when asked";
}

TEST_F(Download, AHandsetWithoutASimIsReadFromOne) {
    session.SetCapacities(0, 3);
    Receive("ME", 1, 1, u"x");
    EXPECT_EQ(Run().messages, 1);
    EXPECT_EQ(session.handset.Count("AT+CMGR=4"), 0u);
}

TEST_F(Download, ACancelLeavesWhatWasRead) {
    Receive("SM", 1, 1, u"one");
    Receive("SM", 3, 1, u"three");
    MessageDownload download(worker, tree);
    download.onProgress = [&](const HandsetTask::Standing& standing) {
        EXPECT_EQ(standing.total, 120);
        if (standing.done == 1) download.Cancel();
    };
    ASSERT_TRUE(RunTask(download));
    EXPECT_EQ(Texts(tree.OnHandset(inboxPlace)), std::vector<std::string>{"one"});
    EXPECT_EQ(session.handset.Count("AT+CMGR=3"), 0u);
    MemorySelection selected;
    EXPECT_TRUE(GetMessageMemories(link, selected));
    EXPECT_EQ(selected[0], "SM") << "put back";
}

}  // namespace
}  // namespace tarnbridge::test
