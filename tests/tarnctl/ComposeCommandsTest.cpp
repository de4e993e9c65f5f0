// sms send, save, reply, forward, as a script meets them.

#include <thread>

#include "platform/Files.h"
#include "tarnctl/MessageCommandsFixture.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;
using Strings = std::vector<std::string>;
using Numbers = std::map<int, int>;

class ComposeCommands : public MessageCommandsFixture {
protected:
    ComposeCommands() {
        std::string bitmap("\0\0\x08\x02\xFE\x7F", 6);
        EXPECT_TRUE(WriteFileAtomically(picture, bitmap));
        EXPECT_TRUE(WriteFileAtomically(melody,
                                        "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nMELODY:c2d2\r\n"
                                        "END:IMELODY\r\n"));
    }

    /// Sends to four numbers; the rows go into a file.
    Process StartSending() {
        auto program = Process::Start(
            "bash", {"-c", "exec \"$0\" --port \"$1\" --json sms send --to 1,2,3,4 hi > \"$2\"", TARNCTL,
                     handset.Path(), rowFile});
        EXPECT_TRUE(program);
        return std::move(*program);
    }

    /// Waits until so many sends have begun.
    void AwaitSend(size_t count) {
        const auto end = std::chrono::steady_clock::now() + 20s;
        while (CountOf("AT+CMGS=") < count && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(5ms);
    }

    Strings Results() { return Texts(Records(*ReadFile(rowFile)), "result"); }

    const std::string rowFile = (folder / "rows").string();
    const std::string picture = (folder / "picture.wbmp").string();
    const std::string melody = (folder / "melody.imy").string();
};

TEST_F(ComposeCommands, SendGivesARowForEachNumber) {
    handset.SetFaults({"error=+CMGS:38,after=2,times=1"});
    const auto output = Sms({"send", "--to", "11,22;33,+44,55", "hello"});
    EXPECT_EQ(output.exitCode, 1);
    const auto rows = Records(output.output);
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_EQ(Texts(rows, "number"), (Strings{"11", "22", "33", "+44", "55"}));
    EXPECT_EQ(Texts(rows, "result"), (Strings{"sent", "sent", "failed", "sent", "sent"}));
    EXPECT_EQ(rows[2]["error"], 38);
    EXPECT_EQ(Texts(List("pc/Sent"), "address"), Strings{"11,22,+44,55"});
    EXPECT_EQ(Texts(List("pc/Outbox"), "address"), Strings{"33"});

    const auto again = Sms({"send", "--all", "--yes"});
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_EQ(Records(again.output), Records("{\"number\":\"33\",\"result\":\"sent\"}\n"));
    EXPECT_TRUE(List("pc/Outbox").empty());
    EXPECT_EQ(Sms({"send", "--all", "--yes"}).output, "");
    EXPECT_EQ(CountOf("AT+CMGS="), 6u);
}

TEST_F(ComposeCommands, ACancelSendsNothingMoreAndTellsWhatWasSent) {
    handset.SetFaults({"delay=300,after=handshake"});
    auto program = StartSending();
    AwaitSend(2);
    program.Terminate();
    EXPECT_EQ(program.Wait(20s), 1);
    EXPECT_EQ(Results(), (Strings{"sent", "sent", "notSent", "notSent"}))
        << "the one under way comes to its end";
    EXPECT_EQ(CountOf("AT+CMGS="), 2u);
    EXPECT_EQ(handset.Commands().back(), "AT+ESLP=1");
    EXPECT_EQ(Texts(List("pc/Outbox"), "address"), Strings{"3,4"});
    EXPECT_EQ(Texts(List("pc/Sent"), "address"), Strings{"1,2"});
}

TEST_F(ComposeCommands, ASecondCancelBreaksOffWhatHangs) {
    EXPECT_EQ(Sms({"send", "--to", "1", "hi"}).exitCode, 0);
    const Strings commands = handset.Commands();
    const auto send = std::find_if(commands.begin(), commands.end(),
                                   [](const auto& command) { return command.starts_with("AT+CMGS="); });
    ASSERT_NE(send, commands.end());
    handset.Script(*send, "\r\n> ");  // takes the message, and never says what became of it
    handset.ForgetCommands();
    auto program = StartSending();
    AwaitSend(1);
    std::optional<int> code;
    for (int tries = 0; !code && tries < 60; ++tries) {
        program.Terminate();
        code = program.Wait(300ms);
    }
    EXPECT_EQ(code, 1);
    EXPECT_EQ(Results(), (Strings{"failed", "notSent", "notSent", "notSent"}));
    EXPECT_TRUE(Records(*ReadFile(rowFile))[0].value("unconfirmed", false));
    EXPECT_EQ(Texts(List("pc/Outbox"), "address"), Strings{"1,2,3,4"});
}

TEST_F(ComposeCommands, ToOnesOwnNumberItComesBackUnread) {
    EXPECT_EQ(Sms({"send", "--to", "+15550100200", "-"}, "note\n").exitCode, 0);
    const auto messages = List("Inbox");
    EXPECT_EQ(Texts(messages), Strings{"note"});
    EXPECT_EQ(messages[0]["status"], 0);
}

TEST_F(ComposeCommands, CodingAndLength) {
    struct Case {
        const char* unicode;
        std::string text;
        int dcs;
        int parts;
        const char* sent;  // null: the same
    };
    const Case cases[] = {{"auto", "plain", 0, 1, nullptr},
                          {"auto", "Grüße", 8, 1, nullptr},
                          {"7bit", "Grüße", 0, 1, "Gruße"},
                          {"7bit", "ü Ж", 0, 1, "u ?"},
                          {"auto", std::string(160, 'x'), 0, 1, nullptr},
                          {"auto", std::string(161, 'x'), 0, 2, nullptr},
                          {"auto", "ü" + std::string(70, 'x'), 8, 2, nullptr},
                          {"auto", std::string(1530, 'x'), 0, 10, nullptr}};
    for (const Case& each : cases) {
        handset.ForgetCommands();
        EXPECT_EQ(Sms({"send", "--to", "1", "--unicode", each.unicode, each.text}).exitCode, 0);
        const Json kept = List("pc/Sent").back();
        EXPECT_EQ(kept["dcs"], each.dcs) << each.text;
        EXPECT_EQ(kept["parts"], each.parts) << each.text;
        EXPECT_EQ(kept["text"], each.sent ? each.sent : each.text);
        EXPECT_EQ(CountOf("AT+CMGS="), static_cast<size_t>(each.parts)) << each.text;
    }
    handset.ForgetCommands();
    const auto tooLong = Sms({"send", "--to", "1", std::string(1531, 'x')});
    EXPECT_EQ(tooLong.exitCode, 1);
    EXPECT_NE(tooLong.errors.find("more than 10 SMS"), std::string::npos);
    EXPECT_TRUE(handset.Commands().empty());
}

TEST_F(ComposeCommands, WhatIsRefusedBeforeAnythingIsSent) {
    const Strings refused[] = {{"send", "--to", "1,2a", "x"},
                               {"send", "--to", "", "x"},
                               {"send", "--to", "46+70", "x"},
                               {"send", "--to", std::string(257, '1'), "x"},
                               {"send", "--to", "1", "x", "--picture", melody},
                               {"send", "--to", "1", "x", "--melody", picture},
                               {"send", "--to", "1", "x", "--melody", folder / "missing"},
                               {"save", "--to", "1a", "x"},
                               {"save", "--folder", "Draft", "x"}};
    for (const Strings& arguments : refused) {
        const auto output = Sms(arguments);
        EXPECT_EQ(output.exitCode, 1) << arguments[2];
        EXPECT_EQ(CountLines(output.errors), 1u) << output.errors;
    }
    EXPECT_TRUE(handset.Commands().empty());
    EXPECT_TRUE(List("pc/Outbox").empty());
}

TEST_F(ComposeCommands, SaveTakesTheFolderAndTheMemoryThatAreNamed) {
    const auto saved = Sms({"save", "--to", "12", "--memory", "SM", "--folder", "Outbox", "--picture",
                            picture, "--melody", melody, "both"});
    EXPECT_EQ(saved.exitCode, 0) << saved.errors;
    const Json message = Records(saved.output).at(0);
    EXPECT_EQ(message["folder"], "Outbox");
    EXPECT_EQ(message["memory"], "SM");
    EXPECT_EQ(handset.Locations("SM"), (Numbers{{1, 5}}));
    EXPECT_EQ(List("Outbox").at(0)["objects"], message["objects"]);
    EXPECT_EQ(Texts(message["objects"], "kind"), (Strings{"picture", "melody"}));
    EXPECT_EQ(message["objects"][0]["data"], "0180") << "black is 1 in a message and 0 in the file";
    EXPECT_EQ(Sms({"save", "--to", "12", "--folder", "Sent", "x"}).exitCode, 0);
    EXPECT_EQ(handset.Locations("ME"), (Numbers{{1, 3}})) << "the preferred memory";

    handset.Unplug();
    EXPECT_EQ(Sms({"save", "--to", "12", "--folder", "pc/Draft", "x"}).exitCode, 0) << "needs no handset";
    EXPECT_EQ(List("pc/Draft").at(0)["status"], 7);
    EXPECT_EQ(Sms({"save", "--to", "12", "x"}).exitCode, 3);
}

TEST_F(ComposeCommands, SaveTellsOnlyWhatIsOnTheDisk) {
    EXPECT_EQ(Sms({"save", "--folder", "pc/Draft", "to whom?"}).exitCode, 0);
    EXPECT_EQ(Texts(List("pc/Draft"), "address"), Strings{""}) << "a draft needs no recipient";
    // A limit on the size of files stands in for a full disk.
    const auto full = RunProcess("bash",
                                 {"-c", "trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\"", TARNCTL, "--json",
                                  "sms", "save", "--folder", "pc/Draft", "lost"},
                                 "", 20s);
    ASSERT_TRUE(full);
    EXPECT_EQ(full->exitCode, 1);
    EXPECT_EQ(full->output, "");
    EXPECT_NE(full->errors.find("Fail to save user data."), std::string::npos);
    EXPECT_EQ(Texts(List("pc/Draft")), Strings{"to whom?"});
}

TEST_F(ComposeCommands, WhatTheMemoryHasNoRoomForGoesToBoth) {
    for (int location = 1; location <= 19; ++location)
        Receive("SM", location, 1, u"x");
    const std::string text(400, 'y');
    EXPECT_EQ(Sms({"save", "--to", "1", "--memory", "SM", text}).exitCode, 0);
    EXPECT_EQ(handset.Locations("SM").size(), 20u);
    EXPECT_EQ(handset.Locations("ME").size(), 2u);
    EXPECT_EQ(Texts(List("Draft")), Strings{text}) << "joined again";

    handset.With([](simulator::HandsetContent& content) { return content.phoneMessages.capacity = 4; });
    const auto full = Sms({"save", "--to", "1", "--memory", "SM", text});
    EXPECT_EQ(full.exitCode, 1);
    EXPECT_NE(full.errors.find("error 322"), std::string::npos) << full.errors;
    EXPECT_EQ(handset.Locations("ME").size(), 2u) << "the parts that had room are deleted again";
}

TEST_F(ComposeCommands, WhatTheHandsetCannotStoreAsReceivedLiesInItsDraft) {
    EXPECT_EQ(Sms({"save", "--to", "1", "--folder", "Inbox", "x"}).exitCode, 0);
    EXPECT_EQ(handset.Locations("ME"), (Numbers{{1, 1}}));
    handset.With([](simulator::HandsetContent& content) {
        content.features.storeQuery = "ERROR";
        return 0;
    });
    const auto output = Sms({"save", "--to", "1", "--folder", "Inbox", "x"});
    EXPECT_EQ(output.exitCode, 0);
    EXPECT_NE(output.errors.find("They lie in its Draft folder"), std::string::npos);
    EXPECT_EQ(Records(output.output).at(0)["folder"], "Draft");
    EXPECT_EQ(handset.Locations("ME"), (Numbers{{1, 1}, {2, 2}}));
}

TEST_F(ComposeCommands, ReplyAndForward) {
    Receive("SM", 2, 1, u"question");
    EXPECT_EQ(Sms({"reply", "SM", "2", "answer"}).exitCode, 0);
    EXPECT_EQ(Sms({"save", "--to", "1", "--folder", "pc/Draft", "--picture", picture, "see"}).exitCode, 0);
    EXPECT_EQ(Sms({"forward", "pc/Draft", "1", "--to", "7,8"}).exitCode, 0);
    const auto sent = List("pc/Sent");
    EXPECT_EQ(Texts(sent, "address"), (Strings{"+4670123", "7,8"}));
    EXPECT_EQ(Texts(sent), (Strings{"answer", "see"}));
    EXPECT_EQ(sent[1]["objects"].size(), 1u);
    EXPECT_EQ(List("pc/Draft").size(), 1u) << "the original stays";
    const size_t before = CountOf("AT+CMGS=");
    EXPECT_EQ(Sms({"reply", "SM", "3", "x"}).errors, "there is no message 3 in SM\n");
    EXPECT_EQ(Sms({"forward", "pc/Draft", "1", "--to", "x"}).exitCode, 1);
    EXPECT_EQ(CountOf("AT+CMGS="), before);
}

}  // namespace
}  // namespace tarnbridge
