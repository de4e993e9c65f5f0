// sms list, read, delete, copy, move, folders, export, import, as a script meets them.

#include "core/app/ProfileFile.h"
#include "platform/Files.h"
#include "platform/PseudoTerminal.h"
#include "tarnctl/MessageCommandsFixture.h"

namespace tarnbridge {
namespace {

using namespace std::chrono_literals;
using Strings = std::vector<std::string>;
using Numbers = std::map<int, int>;

class MessageCommands : public MessageCommandsFixture {};

TEST_F(MessageCommands, ListGivesOneObjectForEachMessage) {
    Receive("SM", 3, 0, u"é [unread]");
    Receive("SM", 20, 1, u"third", Part(3, 3));
    Receive("ME", 1, 1, u"first ", Part(3, 1));
    Receive("ME", 50, 0, u"second ", Part(3, 2));
    Receive("ME", 100, 2, u"last");
    const auto output = Sms({"list"});
    EXPECT_EQ(output.exitCode, 0);
    EXPECT_EQ(output.errors, "");
    const auto messages = Records(output.output);
    ASSERT_EQ(messages.size(), 4u);
    EXPECT_EQ(messages[0], Json::parse(R"({"folder":"Inbox","memory":"SM","locations":[3],"status":0,
        "address":"+4670123","time":"2007-03-14T15:09:26+01:00","text":"é [unread]","dcs":0,"parts":1,
        "partsTotal":1,"objects":[]})"));
    EXPECT_EQ(Texts(messages), (Strings{"é [unread]", "first third", "second ", "last"}));
    EXPECT_EQ(messages[1]["locations"], Json({21, 20})) << "in the order of the parts";
    EXPECT_EQ(messages[1]["parts"], 2);
    EXPECT_EQ(messages[1]["partsTotal"], 3);
    EXPECT_EQ(messages[2]["parts"], 1) << "an unread part isn't joined with the ones that were read";
    EXPECT_EQ(messages[3]["folder"], "Draft");
    EXPECT_EQ(messages[3]["locations"], Json({120}));

    handset.ForgetCommands();
    const auto sim = Records(Sms({"list", "--memory", "SM", "--folder", "inbox"}).output);
    EXPECT_EQ(Texts(sim), (Strings{"é [unread]", "third"}));
    EXPECT_EQ(CountOf("AT+CMGR="), 20u);
    EXPECT_EQ(List("Inbox")[0]["status"], 1) << "reading makes it a read one";
    EXPECT_EQ(List("Inbox")[1]["locations"], Json({21, 70, 20})) << "and so the message is whole";
}

TEST_F(MessageCommands, WhatCannotBeReadIsNamedAndTheRestIsListed) {
    Receive("SM", 5, 1, u"good");
    handset.Script("AT+CMGR=3", "\r\n+CMS ERROR: 500\r\n");
    const auto bad = Sms({"list"});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(bad.errors, "SM 3: the handset gave error 500\n");
    EXPECT_EQ(Texts(Records(bad.output)), Strings{"good"});
    handset.SetFaults({"unplug-after=34"});
    const auto gone = Sms({"list"});
    EXPECT_EQ(gone.exitCode, 1);
    EXPECT_EQ(Texts(Records(gone.output)), Strings{"good"}) << "what was read until then";
    EXPECT_NE(gone.errors.find("doesn't answer any more"), std::string::npos) << gone.errors;
    EXPECT_EQ(Sms({"list"}).exitCode, 3);
}

TEST_F(MessageCommands, ReadShowsOneLocation) {
    Receive("SM", 20, 1, u"third", Part(3, 3));
    const auto part = Sms({"read", "SM", "20"});
    EXPECT_EQ(part.exitCode, 0) << part.errors;
    const Json message = Records(part.output).at(0);
    EXPECT_EQ(message["text"], "third");
    EXPECT_EQ(message["parts"], 1);
    EXPECT_EQ(message["partsTotal"], 3);
    EXPECT_EQ(CountOf("AT+CMGR="), 1u);
    const auto page = Run({"--port", handset.Path(), "sms", "read", "SM", "20"}).output;
    EXPECT_EQ(page, "SM 20  Inbox  read\n+4670123  2007-03-14T15:09:26+01:00 [1 of 3 parts]\n\nthird\n");
    const auto empty = Sms({"read", "ME", "21"});
    EXPECT_EQ(empty.exitCode, 1);
    EXPECT_EQ(empty.errors, "ME 21: there is no message\n");
    EXPECT_EQ(Sms({"read", "SM", "21"}).errors, "SM 21: there is no message\n");
}

TEST_F(MessageCommands, WrongUsageTouchesNothing) {
    for (const Strings& arguments : {Strings{"list", "--memory", "XX"},
                                     {"list", "--folder", "pc/Nowhere"},
                                     {"read", "XX", "1"},
                                     {"read", "Inbox", "1"},
                                     {"delete", "SM"},
                                     {"delete", "SM", "one"},
                                     {"delete", "SM", "1"},
                                     {"move", "SM", "1"},
                                     {"move", "SM", "1", "--folder", "Personal"},
                                     {"import", "f", "--folder", "Inbox"},
                                     {"save", "--to", "1", "--folder", "pc", "x"},
                                     {"send", "--to", "1"},
                                     {"send", "x"},
                                     {"send", "--all"},
                                     {"send", "--all", "--to", "1"},
                                     {"send", "--to", "1", "--unicode", "8bit", "x"},
                                     {"reply", "SM", "1"},
                                     {"forward", "SM", "1"}}) {
        const auto output = Sms(arguments);
        EXPECT_EQ(output.exitCode, 2) << arguments.front() << output.errors;
        EXPECT_EQ(output.output, "");
        EXPECT_NE(output.errors, "");
    }
    EXPECT_TRUE(handset.Commands().empty());
}

TEST_F(MessageCommands, DeleteTakesTheNamedLocationsAndTellsWhichAreLeft) {
    for (const int location : {1, 2, 3, 4})
        Receive("SM", location, 1, u"part", Part(4, location));
    EXPECT_EQ(Sms({"delete", "SM", "2", "2", "--yes"}).exitCode, 0);
    EXPECT_EQ(handset.Locations("SM"), (Numbers{{1, 1}, {3, 1}, {4, 1}}));
    handset.SetFaults({"error=+CMGD:302,times=1"});
    const auto output = Sms({"delete", "SM", "1", "3", "--yes"});
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_EQ(handset.Locations("SM"), (Numbers{{1, 1}, {4, 1}})) << "one failure doesn't stop the rest";
    EXPECT_NE(output.errors.find("error 302"), std::string::npos) << output.errors;
    EXPECT_NE(output.errors.find("parts of it: 1\n"), std::string::npos) << output.errors;
}

/// With a terminal for the questions and the words.
TEST_F(MessageCommands, OnATerminalDeletingAsksAndLongWorkShowsWhereItIs) {
    Receive("SM", 1, 1, u"x");
    PseudoTerminal terminal(folder / "terminal");
    ASSERT_TRUE(terminal.Plug());
    const auto run = [&](const std::string& command, const std::string& answer) {
        auto program = Process::Start(
            "bash", {"-c", "exec \"$0\" --port \"$1\" sms " + command + " < \"$2\" > /dev/null 2> \"$2\"",
                     TARNCTL, handset.Path(), terminal.Path().string()});
        EXPECT_TRUE(program);
        std::string shown;
        std::optional<int> code;
        const auto end = std::chrono::steady_clock::now() + 20s;
        while (!code && std::chrono::steady_clock::now() < end) {
            terminal.Wait(true, false, std::chrono::steady_clock::now() + 10ms);
            char bytes[4096];
            const bool asked = shown.find("Enter = Cancel") != std::string::npos;
            shown.append(bytes, terminal.Read(bytes, sizeof bytes));
            if (!asked && shown.find("Enter = Cancel") != std::string::npos) terminal.Write(answer);
            code = program->Wait(0ms);
        }
        EXPECT_TRUE(code) << shown;
        return std::make_pair(code.value_or(-1), shown);
    };
    EXPECT_EQ(run("delete SM 1", "n\n").first, 1);
    EXPECT_EQ(handset.Locations("SM").size(), 1u);
    const auto [code, shown] = run("delete SM 1", "y\n");
    EXPECT_EQ(code, 0);
    EXPECT_NE(shown.find("Do you want to delete"), std::string::npos) << shown;
    EXPECT_NE(shown.find("1 message on the phone. It can't be brought back."), std::string::npos) << shown;
    EXPECT_NE(shown.find("y = Delete"), std::string::npos) << shown;
    EXPECT_TRUE(handset.Locations("SM").empty());
    EXPECT_NE(run("list", "").second.find("Reading messages from SIM 7/120"), std::string::npos);
}

TEST_F(MessageCommands, ALocationStandsForItsWholeMessage) {
    Receive("SM", 20, 1, u"first ", Part(3, 1));
    Receive("ME", 1, 1, u"second ", Part(3, 2));
    Receive("ME", 7, 1, u"third", Part(3, 3));
    EXPECT_EQ(Sms({"copy", "ME", "20", "--folder", "pc/Inbox"}).exitCode, 1) << "20 is the SIM's";
    EXPECT_EQ(Sms({"copy", "ME", "21", "--folder", "pc/inbox"}).exitCode, 0);
    EXPECT_EQ(handset.Locations("SM").size() + handset.Locations("ME").size(), 3u);
    EXPECT_EQ(Sms({"move", "SM", "20", "ME", "--folder", "pc/Inbox"}).exitCode, 2);
    EXPECT_EQ(Sms({"move", "SM", "20", "--folder", "pc/Inbox"}).exitCode, 0);
    EXPECT_TRUE(handset.Locations("SM").empty() && handset.Locations("ME").empty())
        << "the parts in the other memory go too";
    const auto kept = List("pc/Inbox");
    EXPECT_EQ(Texts(kept), (Strings{"first second third", "first second third"}));
    EXPECT_EQ(kept[1]["parts"], 3);

    EXPECT_EQ(Sms({"move", "pc/Inbox", "2", "--folder", "Sent", "--memory", "SM"}).exitCode, 0);
    EXPECT_EQ(handset.Locations("SM"), (Numbers{{1, 3}}));
    EXPECT_EQ(Sms({"move", "SM", "1", "--folder", "Draft"}).exitCode, 0);
    EXPECT_EQ(handset.Locations("SM"), (Numbers{{1, 2}})) << "it stays in its memory";
    const auto same = Sms({"move", "SM", "1", "--folder", "Draft"});
    EXPECT_EQ(same.exitCode, 1);
    EXPECT_NE(same.errors.find("same folder"), std::string::npos);
}

TEST_F(MessageCommands, WhatAMoveCouldNotDeleteIsNamedAndNothingIsLost) {
    for (const int part : {1, 2, 3})
        Receive("ME", part, 1, u"x", Part(3, part));
    handset.SetFaults({"error=+CMGD:302,after=1"});
    const auto output = Sms({"move", "ME", "21", "--folder", "pc/Inbox"});
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_NE(output.errors.find("parts of it: 22, 23\n"), std::string::npos) << output.errors;
    EXPECT_EQ(Texts(List("pc/Inbox")), Strings{"xxx"});

    handset.SetFaults({"refuse-body=302"});
    EXPECT_EQ(Sms({"move", "pc/Inbox", "1", "--folder", "Inbox"}).exitCode, 1);
    EXPECT_EQ(Texts(List("pc/Inbox")), Strings{"xxx"});
    const auto within = Sms({"move", "ME", "22", "--folder", "Draft"});
    EXPECT_EQ(within.exitCode, 1);
    EXPECT_NE(within.errors.find("A copy is kept in the Draft folder of the PC"), std::string::npos);
    EXPECT_EQ(Texts(List("pc/Draft")), Strings{"xx"});
}

TEST_F(MessageCommands, ObjectsAndFormatsGoToThePcAndBack) {
    handset.With([](simulator::HandsetContent& content) {
        for (const auto& [location, message] : simulator::HandsetContent::Demo().phoneMessages.items) {
            if (location >= 27 && location <= 34) content.phoneMessages.items[location] = message;
        }
        return 0;
    });
    // Text, objects and formats of each message on the handset.
    const auto contents = [&] {
        std::string pdus;
        for (const Json& location : Records(Sms({"raw-list", "--memory", "ME"}).output))
            pdus += location.at("pdu").get<std::string>() + '\n';
        auto decoded = Records(Run({"ems", "decode"}, Run({"pdu", "decode"}, pdus).output).output);
        for (Json& message : decoded)
            message.erase("error");
        return decoded;
    };
    const auto before = contents();
    size_t objects = 0;
    size_t formats = 0;
    for (const Json& message : before) {
        objects += message.at("objects").size();
        formats += message.at("formats").size();
    }
    EXPECT_EQ(before.size(), 8u);
    EXPECT_GE(objects, 8u);
    EXPECT_GE(formats, 3u);
    Strings move = {"move", "ME", "--folder", "pc/Personal"};
    for (int location = 47; location <= 54; ++location)
        move.push_back(std::to_string(location));
    EXPECT_EQ(Sms(move).exitCode, 0);
    EXPECT_TRUE(handset.Locations("ME").empty());
    EXPECT_EQ(
        Sms({"move", "pc/Personal", "1", "2", "3", "4", "5", "6", "7", "8", "--folder", "Inbox"}).exitCode,
        0);
    EXPECT_EQ(contents(), before);
}

TEST_F(MessageCommands, OneOwnerOfTheProfile) {
    Receive("SM", 1, 1, u"x");
    EXPECT_EQ(Sms({"copy", "SM", "1", "--folder", "pc/Inbox"}).exitCode, 0);
    SystemClock clock;
    const auto owner = ProfileFile::Open(folder / "data" / "tarnbridge" / "Tarnbridge.bin", clock);
    ASSERT_TRUE(owner);
    handset.ForgetCommands();
    for (const Strings& arguments : {Strings{"move", "SM", "1", "--folder", "pc/Inbox"},
                                     {"copy", "pc/Inbox", "1", "--folder", "Draft"},
                                     {"delete", "pc/Inbox", "1", "--yes"},
                                     {"send", "--to", "1", "x"},
                                     {"send", "--all", "--yes"},
                                     {"save", "--to", "1", "--folder", "pc/Draft", "x"},
                                     {"reply", "SM", "1", "x"},
                                     {"forward", "SM", "1", "--to", "1"},
                                     {"import", "/dev/null"}}) {
        const auto output = Sms(arguments);
        EXPECT_EQ(output.exitCode, 1) << arguments.front();
        EXPECT_NE(output.errors.find("in use by the window or by another tarnctl"), std::string::npos);
        EXPECT_EQ(CountLines(output.errors), 1u);
    }
    EXPECT_TRUE(handset.Commands().empty());
    EXPECT_EQ(List("pc/Inbox").size(), 1u) << "looking doesn't change it";
    EXPECT_EQ(Sms({"delete", "SM", "1", "--yes"}).exitCode, 0) << "nor does the handset alone";
}

TEST_F(MessageCommands, FoldersOfThePcAndTheTrash) {
    Receive("SM", 1, 1, u"x");
    EXPECT_EQ(Sms({"copy", "SM", "1", "--folder", "pc/personal"}).exitCode, 0);
    EXPECT_EQ(Sms({"delete", "pc/Personal", "2", "--yes"}).exitCode, 1);
    EXPECT_EQ(Sms({"delete", "pc/Personal", "1", "--yes"}).exitCode, 0);
    EXPECT_EQ(Texts(List("pc/Trash")), Strings{"x"});
    const auto folders = Records(Sms({"folders"}).output);
    EXPECT_EQ(Texts(folders, "folder"), (Strings{"Inbox", "Outbox", "Sent", "Draft", "pc/Inbox", "pc/Outbox",
                                                 "pc/Sent", "pc/Draft", "pc/Personal", "pc/Trash"}));
    EXPECT_EQ(folders.back()["messages"], 1);
    EXPECT_EQ(Sms({"delete", "pc/Trash", "1", "--yes"}).exitCode, 0);
    EXPECT_TRUE(List("pc/Trash").empty());
}

TEST_F(MessageCommands, ExportAndImport) {
    Receive("SM", 1, 1, u"say \"no\"\tor\r\nyes");
    Receive("ME", 1, 1, u"Привет");
    const std::string file = (folder / "out.csv").string();
    const auto exported = Sms({"export", file, "--folder", "Inbox"});
    EXPECT_EQ(exported.output, "{\"written\":2,\"skipped\":0,\"unreadable\":0}\n") << exported.errors;
    EXPECT_EQ(Sms({"import", file}).output, "{\"taken\":2,\"refused\":0}\n");
    const auto messages = List("pc/Inbox");
    EXPECT_EQ(Texts(messages), (Strings{"say \"no\"\toryes", "Привет"}));
    EXPECT_EQ(messages[0]["dcs"], 0);
    EXPECT_EQ(messages[1]["dcs"], 8);
    EXPECT_EQ(messages[0]["time"].get<std::string>().substr(0, 19), "2007-03-14T15:09:26");

    WriteFileAtomically(file, *ReadFile(file) + std::string("x\0\n\0", 4));
    const auto imported = Sms({"import", file, "--folder", "pc/Personal"});
    EXPECT_EQ(imported.exitCode, 1);
    EXPECT_EQ(imported.errors.substr(0, 7), "line 3:");
    EXPECT_EQ(List("pc/Personal").size(), 2u) << "the good lines are taken";
    const auto missing = Sms({"import", folder / "missing"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_NE(missing.errors.find("Fail to import message from file!"), std::string::npos);
    EXPECT_EQ(Sms({"export", "/dev/null/x"}).exitCode, 1);
}

}  // namespace
}  // namespace tarnbridge
