#include <gtest/gtest.h>

#include "link/DescribeFields.h"
#include "link/LineReader.h"
#include "support/FakeWire.h"

namespace tarnbridge {
namespace {

/// A port without a thread: each final result is taken at once.
class FakeHost final : public LineReaderHost {
public:
    void OnPrompt() override { log += "prompt\n"; }
    void OnCommandEnd() override {
        ATResult result;
        reader->FetchResult(result);
        log += Describe(result) + "--\n";
    }
    void SwallowUntilStopped() override { log += "swallowed\n"; }

    LineReader* reader = nullptr;
    std::string log;
};

class LineReaderTest : public ::testing::Test {
protected:
    LineReaderTest() {
        host.reader = &reader;
        reader.SetUrcCallback([this](const ATResult& result) { host.log += "urc " + Describe(result); });
    }

    void Expect(const char* prefix, bool needsLine = false, bool allLines = false) {
        ATResult expected;
        expected.prefix = prefix;
        expected.needsLine = needsLine;
        expected.allLines = allLines;
        reader.SetExpected(expected);
    }

    std::atomic<bool> abortParse{false};
    Event cancel{ResetMode::Manual};
    FakeHost host;
    LineReader reader{host, ParseStop{abortParse, cancel}};
};

/// What a stream gives when its first `head` bytes are fed and then the rest in pieces.
std::string Read(const std::string& stream, const char* prefix, bool pduFollows, size_t head,
                 size_t pieceSize) {
    std::atomic<bool> abortParse{false};
    Event cancel{ResetMode::Manual};
    FakeHost host;
    LineReader reader(host, ParseStop{abortParse, cancel});
    host.reader = &reader;
    reader.SetUrcCallback([&](const ATResult& result) { host.log += "urc " + Describe(result); });
    ATResult expected;
    expected.prefix = prefix;
    reader.SetExpected(expected);
    reader.SetExpectPduLine(pduFollows);
    reader.Feed(std::span(stream).first(head));
    for (; head < stream.size(); head += pieceSize)
        reader.Feed(std::span(stream).subspan(head, std::min(pieceSize, stream.size() - head)));
    return host.log;
}

TEST(LineReader, DialoguesCutAtEveryByte) {
    struct Row {
        const char* what;
        const char* prefix;
        bool pduFollows;
        std::string stream;
        const char* log;
    };
    const std::vector<std::string> urcs = {"RING",          "+CMTI: \"SM\",3", "+CLIP: \"+4912\",145",
                                           "NO CARRIER: 1", "+EADC: 5",        "+GPIOS: 1",
                                           "+EKPDS: 1",     "+BATS: 3"};
    const Row rows[] = {
        {"final results", "", false, test::Lines({"OK", "ERROR", "CONNECT"}),
         "'OK'\n--\n'ERROR'\n--\n'CONNECT'\n--\n"},
        {"CONNECT with a rate isn't final", "", false, test::Lines({"CONNECT 115200", "OK"}), "'OK'\n--\n"},
        {"OK inside a line isn't final", "", false, test::Lines({"a,OK", "OK: 1", "(OK)", "\"OK\"", "OK"}),
         "'OK'\n--\n"},
        {"errors with number, words and nothing", "", false,
         test::Lines({"+CME ERROR: 10", "+CMS ERROR: full", "+CME ERROR"}),
         "'+CME ERROR' 10\n--\n'+CMS ERROR' 0\n--\n'+CME ERROR' 0\n--\n"},
        {"only the awaited prefix is kept", "+CSQ", false,
         "AT+CSQ\r" + test::Lines({"+CREG: 1", "hello: world", "+CSQ: 20,99", "OK"}),
         "'+CSQ' 20 99\n'OK'\n--\n"},
        {"without a prefix nothing is kept", "", false, test::Lines({"hello: world", ": x", "  ", "OK"}),
         "'OK'\n--\n"},
        {"PDU line", "+CMGR", true, "\r\n+CMGR: 0,,25\r\n0791aF\r\n" + test::Lines({"OK"}),
         "'+CMGR' 0 _ 25 '0791aF'\n'OK'\n--\n"},
        {"lines between a header and its PDU", "+CMGR", true,
         "\r\n+CMGR: 0,,25\r\n" + test::Lines({"RING", "+CMTI: \"SM\",3", "babble"}) + "0791\r\n" +
             test::Lines({"OK"}),
         "urc 'RING'\nurc '+CMTI' 'SM' 3\n'+CMGR' 0 _ 25 '0791'\n'OK'\n--\n"},
        {"a header without a PDU", "+CMGR", true,
         "\r\n+CMGR: 0,,25\r\n" + test::Lines({"RING", "+CMS ERROR: 500", "OK"}),
         "urc 'RING'\n'+CMGR' 0 _ 25 ''\n'+CMS ERROR' 500\n--\n'OK'\n--\n"},
        {"a PDU with something else in it", "+CMGR", true,
         "\r\n+CMGR: 0,,25\r\n07\xC1\"91\r\n" + test::Lines({"RING", "OK"}),
         "urc 'RING'\n'+CMGR' 0 _ 25 '07\xC1\"91'\n'OK'\n--\n"},
        {"CR in a PDU line swallows up to LF", "+CMGR", true,
         "\r\n+CMGR: 1\r\n0791\rXY\n" + test::Lines({"OK"}), "'+CMGR' 1 '0791'\n'OK'\n--\n"},
        {"the flag for a PDU line goes off", "+CMGR", true,
         "\r\n+CMGR: 0\r\nAB\r\n" + test::Lines({"+CMGR: 1", "OK"}), "'+CMGR' 0 'AB'\n'+CMGR' 1\n'OK'\n--\n"},
        {"unsolicited lines stay out", "+X", false,
         test::Lines({urcs[0], "+X: 1", urcs[1], urcs[2], urcs[3], "+X: 2", urcs[4], urcs[5], urcs[6],
                      urcs[7], "OK"}),
         "urc 'RING'\nurc '+CMTI' 'SM' 3\nurc '+CLIP' '+4912' 145\nurc 'NO CARRIER' 1\nurc '+EADC' 5\nurc "
         "'+GPIOS' 1\n"
         "urc '+EKPDS' 1\nurc '+BATS' 3\n'+X' 1\n'+X' 2\n'OK'\n--\n"},
        {"a bare NO CARRIER is nothing", "", false, test::Lines({"NO CARRIER", "OK"}), "'OK'\n--\n"},
        {"a first line without CRLF is lost", "", false, "OK\r\nERROR\r\n", "'ERROR'\n--\n"},
        {"lines of one byte vanish", "X", false, "\r\nX\r\n\r\nOK\r\n", "'OK'\n--\n"},
        {"an unterminated quote drops even a final result", "", false, test::Lines({"OK\"", "ERROR"}),
         "'ERROR'\n--\n"},
    };
    for (const Row& row : rows) {
        for (size_t head = 0; head <= row.stream.size(); ++head) {
            for (const size_t piece : {size_t{1}, size_t{512}}) {
                ASSERT_EQ(Read(row.stream, row.prefix, row.pduFollows, head, piece), row.log)
                    << row.what << ", cut at " << head << ", pieces of " << piece;
            }
        }
    }
}

TEST_F(LineReaderTest, WhatIsKeptAndWhatIsPassedOver) {
    Expect("+X", true);
    reader.Feed(test::Lines({"OK", "+CMS ERROR: 1", "ERROR", "+X: 1", "OK"}));
    EXPECT_EQ(host.log, "'+X' 1\n'OK'\n--\n") << "late results aren't the answer of a query";
    host.log.clear();
    Expect("+X", false, true);
    reader.Feed(test::Lines({"Northlight", "RING", "+Y: 2", "+X: 1", "OK"}));
    EXPECT_EQ(host.log, "urc 'RING'\n'Northlight'\n'+Y: 2'\n'+X' 1\n'OK'\n--\n");
}

TEST_F(LineReaderTest, Prompt) {
    struct Row {
        const char* rule;
        const char* bytes;
        bool seen;
    };
    const Row rows[] = {
        {"after CRLF", "\r\n> ", true},
        {"after other bytes of the line", "\r\nabc> ", true},
        {"an error in its place isn't seen", "\r\nERROR\r\n\r\n+CMS ERROR: 500\r\n", false},
        {"without CRLF it is lost", "> ", false},
        {"without its blank it is dropped, and waiting goes on", "\r\n>x> ", true},
        {"a doubled sign hides it", "\r\n>> ", false},
    };
    for (const Row& row : rows) {
        for (const size_t piece : {size_t{1}, size_t{512}}) {
            host.log.clear();
            reader.Reset();
            reader.SetAwaitPrompt(true);
            for (std::string_view rest = row.bytes; !rest.empty();
                 rest.remove_prefix(std::min(piece, rest.size())))
                reader.Feed(rest.substr(0, piece));
            EXPECT_EQ(host.log, row.seen ? "prompt\n" : "") << row.rule;
        }
    }
    // After the prompt lines are lines again.
    reader.Reset();
    host.log.clear();
    reader.SetAwaitPrompt(true);
    reader.Feed(std::string("\r\n> \r\n+CMGW: 5\r\n\r\nOK\r\n"));
    EXPECT_EQ(host.log, "prompt\n'OK'\n--\n");
}

TEST_F(LineReaderTest, NoMoreBytesInTheMiddleOfALineDropIt) {
    Expect("+CMGR");
    reader.SetExpectPduLine(true);
    reader.Feed(std::string("\r\n+CMGR: 0\r\n0791"));
    EXPECT_EQ(host.log, "");
    reader.Reset();
    reader.Feed(test::Lines({"OK"}));
    EXPECT_EQ(host.log, "'OK'\n--\n");
}

TEST_F(LineReaderTest, LongLinesAreCut) {
    Expect("+X");
    ATResult result;
    reader.SetLineFilter([&](const ATLine& line) {
        result.lines.push_back(line);
        return true;
    });
    reader.Feed("\r\n+X: " + std::string(100'000, 'a') + "\r\n" + test::Lines({"OK"}));
    ASSERT_EQ(result.lines.size(), 1u);
    EXPECT_EQ(result.lines[0][1].text.size(), LineReader::longestLine - 4);
    EXPECT_EQ(host.log, "'OK'\n--\n") << "the line was taken by the filter";

    reader.SetLineFilter({});
    reader.SetExpectPduLine(true);
    host.log.clear();
    reader.Feed("\r\n+X: 1\r\n" + std::string(20'000, 'b') + "\r\n" + test::Lines({"OK"}));
    EXPECT_EQ(host.log, "'+X' 1 '" + std::string(LineReader::longestLine, 'b') + "'\n'OK'\n--\n");
}

TEST_F(LineReaderTest, CancelEndsFeeding) {
    reader.SetLineFilter([&](const ATLine&) {
        cancel.Set();
        return false;
    });
    Expect("+X");
    reader.Feed(test::Lines({"+X: 1", "OK"}));
    EXPECT_EQ(host.log, "");
}

}  // namespace
}  // namespace tarnbridge
