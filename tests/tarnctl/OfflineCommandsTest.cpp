// The verbs that need no port.

#include "platform/Files.h"
#include "tarnctl/TarnctlFixture.h"

namespace tarnbridge {
namespace {

using OfflineCommands = TarnctlFixture;

constexpr const char* plainPdu =
    "0791889653704434040C9188962143658700007030415190622312C8F71D14969741F9771D447F93C3F91F";
constexpr const char* firstPart = "00440B911316325476F8000870807041205182080500030A02010041";
constexpr const char* secondPart = "00440B911316325476F8000870807041205182080500030A02020042";

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

TEST_F(OfflineCommands, HelpAndWrongUsage) {
    for (const std::vector<std::string>& verb : {std::vector<std::string>{"pdu", "decode"},
                                                 {"pdu", "encode"},
                                                 {"sms", "join"},
                                                 {"ems", "decode"},
                                                 {"ems", "encode"},
                                                 {"vcard", "read"},
                                                 {"vcard", "write"},
                                                 {"vcard", "import"},
                                                 {"contact", "check"}}) {
        auto help = verb;
        help.push_back("--help");
        EXPECT_EQ(Run(help).exitCode, 0);
        auto wrong = verb;
        wrong.push_back("--nonsense");
        EXPECT_EQ(Run(wrong).exitCode, 2);
        const auto empty = Run(verb);
        EXPECT_EQ(empty.exitCode, 0) << verb[0] << " " << verb[1] << ": no input is no failure";
        EXPECT_EQ(empty.output + empty.errors, "");
    }
    EXPECT_EQ(Run({"pdu"}).exitCode, 2);
    const auto unknown = Run({"pdu", "frob"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_NE(unknown.errors.find("no command pdu frob"), std::string::npos) << unknown.errors;
    EXPECT_EQ(Run({"ems", "encode", "--reference", "256"}).exitCode, 2);
}

TEST_F(OfflineCommands, InputIsFilesOrStandardInput) {
    const std::string file = folder / "first";
    WriteFileAtomically(file, std::string(plainPdu) + "\r\nbad\n");
    const std::string missing = folder / "missing";
    const auto output = Run({"pdu", "decode", file, missing, "-"}, std::string(firstPart) + "\nbad");
    EXPECT_EQ(output.exitCode, 1);
    const auto records = Records(output.output);
    ASSERT_EQ(records.size(), 4u);
    EXPECT_EQ(records[0]["text"], "How are you today?");
    EXPECT_TRUE(records[1].contains("error"));
    EXPECT_EQ(records[2]["text"], "A");
    EXPECT_EQ(CountLines(output.errors), 3u);
    for (const std::string& words : {std::string("line 2: "), missing, std::string("line 4: ")})
        EXPECT_NE(output.errors.find(words), std::string::npos) << output.errors;
    EXPECT_EQ(Run({"pdu", "decode", missing}).exitCode, 1);
}

TEST_F(OfflineCommands, PdusComeBackAsTheyWere) {
    const std::string pdus =
        Lines({plainPdu, firstPart, secondPart, "0011410B916407281553F80000AA0AE8329BFD4697D9EC37",
               "0019000C9188962143658700008020923295952314D6303B4D06D5DDF4341BC42E87E12072380F",
               "00440B911316325476F80004708070412051820D0605040B8423F0FF00801B0A7F"});
    const auto decoded = Run({"--json", "pdu", "decode"}, pdus);
    EXPECT_EQ(decoded.exitCode, 0) << decoded.errors;
    EXPECT_EQ(decoded.output, Run({"pdu", "decode"}, pdus).output);
    const auto encoded = Run({"pdu", "encode"}, decoded.output);
    EXPECT_EQ(encoded.exitCode, 0) << encoded.errors;
    EXPECT_EQ(encoded.output, pdus);

    const auto asJson = Run({"--json", "pdu", "encode"}, decoded.output);
    const auto records = Records(asJson.output);
    ASSERT_EQ(records.size(), 6u);
    EXPECT_EQ(records[0]["pdu"], plainPdu);
    EXPECT_EQ(records[0]["length"], 35) << "without the 8 octets of the service centre";
    EXPECT_EQ(records[1]["length"], 27);
}

TEST_F(OfflineCommands, EncodeGoesOnAfterABadLine) {
    const std::string lines =
        Lines({R"({"number":"12","text":"a","messageReference":0})", "{", "", R"({"number":12})",
               R"({"number":"12","text":"b","messageReference":1})"});
    const auto plain = Run({"pdu", "encode"}, lines);
    EXPECT_EQ(plain.exitCode, 1);
    EXPECT_EQ(plain.output,
              "000100028121000001"
              "61\n000101028121000001"
              "62\n");
    EXPECT_EQ(CountLines(plain.errors), 3u);
    const auto records = Records(Run({"--json", "pdu", "encode"}, lines).output);
    ASSERT_EQ(records.size(), 5u) << "as JSON there is an answer to each line";
    EXPECT_EQ(records[1]["error"], "not a JSON object");
}

TEST_F(OfflineCommands, WhatCouldNotBeReadIsNotWritten) {
    const std::string unread = R"({"error":"no reader knew it"})";
    for (const std::vector<std::string>& verb : {std::vector<std::string>{"pdu", "encode"},
                                                 {"ems", "decode"},
                                                 {"ems", "encode"},
                                                 {"vcard", "write"},
                                                 {"contact", "check"}}) {
        const auto output = Run(verb, unread);
        EXPECT_EQ(output.exitCode, 1);
        EXPECT_EQ(output.errors, "line 1: no reader knew it\n") << verb[0] << " " << verb[1];
    }
}

TEST_F(OfflineCommands, JoinsMixedParts) {
    const auto output = Run({"sms", "join"}, Lines({secondPart, plainPdu, "bad", firstPart, secondPart}));
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_EQ(output.errors, "line 3: a character other than 0-9 and A-F\n");
    const auto records = Records(output.output);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0]["parts"], Json({2}));
    EXPECT_EQ(records[1]["line"], 3);
    EXPECT_EQ(records[2]["parts"], Json({4, 1, 5})) << "the part that came twice is there twice";
    EXPECT_EQ(records[2]["text"], "AB");
    // What was joined can be read as Enhanced Messaging content.
    const auto content = Records(Run({"ems", "decode"}, records[2].dump() + "\n").output);
    ASSERT_EQ(content.size(), 1u);
    EXPECT_EQ(content[0]["text"], "AB");
    EXPECT_FALSE(content[0].contains("error"));
}

TEST_F(OfflineCommands, EmsDecodeNamesWhatItFinds) {
    const auto output = Run({"ems", "decode"},
                            Lines({R"({"dcs":0,"hasHeader":true,"segments":["160A030104120A0405032223120502)"
                                   R"(0102FF810B02040748656C6C6F20776F726C64"]})",
                                   R"({"dcs":0,"segments":["6162"]})",
                                   R"({"dcs":8,"hasHeader":true,"segments":["0500030A02010041",null]})"}));
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    const auto records = Records(output.output);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0]["text"], "Hello world");
    EXPECT_EQ(records[0]["objects"], Json::parse(R"([
        {"kind":"picture","position":2,"isExtended":false,"isReused":false,"mayBePassedOn":true,
         "width":8,"height":2,"depth":1,"data":"FF81"},
        {"kind":"predefinedSound","position":4,"isExtended":false,"isReused":false,"number":7}])"));
    EXPECT_EQ(records[0]["formats"], Json::parse(R"([
        {"start":1,"length":4,"size":"normal","alignment":"right","bold":true,"italic":false,"underline":false,
         "strikethrough":false,"foreground":0,"background":9},
        {"start":5,"length":3,"size":"normal","alignment":"right","bold":false,"italic":true,"underline":false,
         "strikethrough":false,"foreground":3,"background":2}])"));
    EXPECT_EQ(records[0]["segmentsUsed"], 1);
    EXPECT_EQ(records[1]["text"], "ab");
    EXPECT_EQ(records[2]["text"], "A(.....)");
}

TEST_F(OfflineCommands, EmsFaultsAreNamed) {
    const auto decoded = Run(
        {"ems", "decode"},
        Lines({R"({"dcs":0,"hasHeader":true,"segments":["040B0300006162"]})", "[]",
               R"({"dcs":0,"segments":[]})", R"({"dcs":0,"segments":["6"]})", R"({"dcs":0,"segments":[7]})",
               R"({"dcs":0,"segments":["61","62"]})", R"({"dcs":0,"segments":["61"]})"}));
    EXPECT_EQ(decoded.exitCode, 1);
    const auto answers = Records(decoded.output);
    ASSERT_EQ(answers.size(), 7u);
    for (size_t i = 0; i < 6; ++i)
        EXPECT_TRUE(answers[i].contains("error")) << answers[i];
    EXPECT_EQ(answers[0]["text"], "ab") << "the rest of the message is there";
    EXPECT_EQ(answers[6]["text"], "a");

    const auto longText = [](int count, int segments) {
        return Json{{"text", std::string(count, 'x')}, {"segmentsAllowed", segments}}.dump();
    };
    const std::pair<std::string, std::string> refused[] = {
        {longText(161, 1), "Not support long SMS, last input maybe lost."},
        {longText(1531, 10), "The message is too long (more than 10 SMS)!Last input may be lost!"},
        {R"({"dcs":3})", "Invalid DCS!"},
        {R"({"text":"a","objects":[{"kind":"picture","width":8,"height":1,"data":"0000"}]})",
         "Invalid Object!"},
        {R"({"text":"a","objects":[{"kind":"picture","width":8,"height":1,"data":"00","position":2}]})",
         "position isn't a number from 0 to 1"},
        {R"({"text":"a","objects":[{"kind":"hologram"}]})", "unknown kind: hologram"},
        {R"({"text":"a","formats":[{"start":1,"length":1}]})", "length isn't a number from 0 to 0"},
        {R"({"text":"\u5b57"})", "the text needs dcs 8"},
        {R"({"segmentsAllowed":0})", "Unspecified Error!"},
    };
    std::vector<std::string> lines;
    for (const auto& row : refused)
        lines.push_back(row.first);
    const auto encoded = Run({"ems", "encode"}, Lines(lines));
    EXPECT_EQ(encoded.exitCode, 1);
    const auto errors = Records(encoded.output);
    ASSERT_EQ(errors.size(), lines.size());
    for (size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(errors[i]["error"], refused[i].second) << lines[i];
}

TEST_F(OfflineCommands, EmsContentComesBackAsItWas) {
    std::vector<std::string> lines;
    for (const int dcs : {0, 4, 8, 16}) {
        Json message = {{"dcs", dcs}, {"text", std::string(200, 'a') + std::string(120, 'b')}};
        message["objects"] = Json::parse(R"([
            {"kind":"predefinedAnimation","number":14,"position":0},
            {"kind":"animation","position":3,"width":8,"height":8,
             "data":"0123456789ABCDEF0123456789ABCDEF0123456789ABCDEF0123456789ABCDEF"},
            {"kind":"picture","position":5,"width":12,"height":2,"depth":2,"data":"0123456789AB",
             "mayBePassedOn":false},
            {"kind":"animation","position":90,"width":8,"height":8,"frames":2,"animationLow":3,"animationHigh":9,
             "data":"0123456789ABCDEF0123456789ABCDEF"},
            {"kind":"melody","position":250},
            {"kind":"predefinedSound","position":300,"number":9},
            {"kind":"vCard","position":320,"data":"42454749"},
            {"kind":"vCard","position":320,"data":"42454749"},
            {"kind":"vCalendar","position":320,"data":"31"}])");
        message["objects"][4]["data"] = std::string(600, 'E');  // too long for a plain element
        message["formats"] = Json::parse(R"([
            {"start":0,"length":50,"bold":true,"size":"small"},
            {"start":50,"length":10,"alignment":"centre"},
            {"start":140,"length":180,"underline":true,"foreground":12}])");
        for (const bool compressed : {true, false}) {
            message["compression"] = compressed;
            if (!compressed) message["ports"] = {{"source", 5}, {"destination", 9200}};
            lines.push_back(message.dump());
        }
    }
    const auto encoded = Run({"ems", "encode"}, Lines(lines));
    ASSERT_EQ(encoded.exitCode, 0) << encoded.errors;
    const auto decoded = Run({"ems", "decode"}, encoded.output);
    ASSERT_EQ(decoded.exitCode, 0) << decoded.errors;
    const auto messages = Records(decoded.output);
    ASSERT_EQ(messages.size(), lines.size());
    for (size_t i = 0; i < lines.size(); ++i) {
        SCOPED_TRACE(i);
        const Json wanted = Json::parse(lines[i]);
        EXPECT_EQ(messages[i]["text"], wanted["text"]);
        EXPECT_EQ(messages[i].value("ports", Json()), wanted.value("ports", Json()));
        if (wanted["compression"]) {
            EXPECT_EQ(messages[i]["segmentsUsed"], Records(encoded.output)[i]["segments"].size());
        }
        ASSERT_EQ(messages[i]["objects"].size(), wanted["objects"].size());
        ASSERT_EQ(messages[i]["formats"].size(), wanted["formats"].size());
        for (const char* const list : {"objects", "formats"}) {
            for (size_t k = 0; k < wanted[list].size(); ++k) {
                for (const auto& [name, value] : wanted[list][k].items())
                    EXPECT_EQ(messages[i][list][k][name], value) << list << " " << k << " " << name;
            }
        }
        EXPECT_EQ(messages[i]["objects"][7]["isReused"], true);
    }
    // Once more round: all that was decoded, and not only what was asked for.
    const auto again = Run({"ems", "decode"}, Run({"ems", "encode"}, decoded.output).output);
    EXPECT_EQ(again.output, decoded.output);
}

TEST_F(OfflineCommands, EmsMarksAreAddedInSeptetsAlone) {
    const std::string message = R"("text":"a[\u001b]b","objects":[{"kind":"predefinedSound","position":2}],
        "formats":[{"start":1,"length":1,"bold":true}]})";
    std::string flat = message;
    std::erase(flat, '\n');
    const auto output =
        Run({"ems", "decode"},
            Run({"ems", "encode"}, Lines({"{\"dcs\":0," + flat, "{\"dcs\":8," + flat})).output);
    const auto records = Records(output.output);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0]["text"], "a\x1B[\x1B]b");
    EXPECT_EQ(records[0]["objects"][0]["position"], 3);
    EXPECT_EQ(records[0]["formats"][0]["start"], 1);
    EXPECT_EQ(records[0]["formats"][0]["length"], 2);
    EXPECT_EQ(records[1]["text"], "a[\x1B]b");
}

TEST_F(OfflineCommands, EmsReferencesCount) {
    const std::string lines = Lines({Json{{"text", std::string(200, 'x')}}.dump(), R"({"text":"short"})",
                                     Json{{"text", std::string(200, 'y')}}.dump()});
    const auto records = Records(Run({"ems", "encode", "--reference", "255"}, lines).output);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0]["segments"][0].get<std::string>().substr(0, 12), "050003FF0201");
    EXPECT_EQ(records[0]["segments"][1].get<std::string>().substr(0, 12), "050003FF0202");
    EXPECT_EQ(records[1], Json::parse(R"({"dcs":0,"hasHeader":false,"segments":["73686F7274"]})"));
    EXPECT_EQ(records[2]["segments"][0].get<std::string>().substr(0, 12), "050003000201");
}

TEST_F(OfflineCommands, VcardsOfTheHandset) {
    const std::string contacts =
        Lines({R"({"name":"大 A","number":"+886912","home":"1","office":"2","fax":"3","email":"a@b",)"
               R"("birthday":{"year":2001,"month":2,"day":3}})",
               R"({"name":7})", R"({"name":"B","home":"4"})"});
    const auto written = Run({"vcard", "write"}, contacts);
    EXPECT_EQ(written.exitCode, 1);
    EXPECT_EQ(written.output.substr(0, 57), "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8:大 A\r\nFN;CHARS");
    EXPECT_EQ(written.errors.substr(0, 8), "line 2: ");
    EXPECT_EQ(Records(Run({"--json", "vcard", "write"}, contacts).output).size(), 3u);

    const auto read = Run({"vcard", "read"}, written.output);
    EXPECT_EQ(read.exitCode, 0) << read.errors;
    const auto records = Records(read.output);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0]["office"], "2");
    EXPECT_EQ(records[0]["birthday"]["year"], 2001);
    EXPECT_EQ(records[1]["home"], "4");
    EXPECT_EQ(records[1]["fax"], "");

    const auto bad = Run({"vcard", "read"},
                         "\xEF\xBB\xBF"
                         "BEGIN:VCARD\r\n" +
                             written.output);
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(Records(bad.output).size(), 3u);
}

TEST_F(OfflineCommands, VcardsOfTheDesktop) {
    const auto output = Run({"vcard", "import"},
                            "BEGIN:VCARD\nN:\xE5\xA4\xA7\nTEL;CELL;VOICE:(1) 2\nEND:VCARD\n"
                            "BEGIN:VCARD\nFN:Ann\nEND:VCARD\n");
    EXPECT_EQ(output.exitCode, 0) << output.errors;
    const auto records = Records(output.output);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0]["name"], "大");
    EXPECT_EQ(records[0]["number"], "12");

    const auto partly =
        Run({"vcard", "import"}, "BEGIN:VCARD\nNOTE:x\nEND:VCARD\n\nBEGIN:VCARD\nN:Ada\nEND:VCARD\n");
    EXPECT_EQ(partly.exitCode, 1) << "a card that gives nothing is told";
    EXPECT_EQ(Records(partly.output).size(), 2u);
}

TEST_F(OfflineCommands, ContactCheckTellsTheFirstFailure) {
    const auto output =
        Run({"contact", "check"},
            Lines({R"({"name":"Ann","mobile":"12"})", R"({"name":"Ann","number":"1p","email":"x"})",
                   R"({"name":"Ann","number":"1","birthday":{"year":2031,"month":1,"day":1}})", "{"}));
    EXPECT_EQ(output.exitCode, 1);
    EXPECT_EQ(CountLines(output.errors), 3u);
    const auto records = Records(output.output);
    ASSERT_EQ(records.size(), 4u);
    EXPECT_EQ(records[0]["ok"], true);
    EXPECT_EQ(records[1]["ok"], false);
    EXPECT_EQ(records[1]["field"], "email");
    EXPECT_EQ(records[2]["field"], "birthday");
    EXPECT_TRUE(records[3].contains("error"));
    EXPECT_EQ(Run({"contact", "check"}, R"({"name":"Ann"})").exitCode, 0);
}

}  // namespace
}  // namespace tarnbridge
