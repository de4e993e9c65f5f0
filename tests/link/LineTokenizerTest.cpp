#include <gtest/gtest.h>

#include "link/DescribeFields.h"
#include "link/LineTokenizer.h"

namespace tarnbridge {
namespace {

class LineTokenizer : public ::testing::Test {
protected:
    std::atomic<bool> abortParse{false};
    Event cancel{ResetMode::Manual};
    const ParseStop stop{abortParse, cancel};
};

/// The fields with the last one appended as for a line of the awaited response, or "dropped".
std::string Fields(const std::string& line, const ParseStop& stop) {
    TokenizedLine tokenized;
    if (!TokenizeLine(line, stop, tokenized)) return "dropped";
    if (!tokenized.token.empty() || tokenized.emptyQuoted) {
        tokenized.fields.push_back(ATParam::Flat(tokenized.token, tokenized.quoted));
    }
    return Describe(tokenized.fields);
}

TEST_F(LineTokenizer, Fields) {
    struct Row {
        const char* rule;
        std::string line;
        const char* fields;
    };
    const Row rows[] = {
        {"empty field in the middle", "+CMGR: 0,,25", "'+CMGR' 0 _ 25"},
        {"number", "+EFSW: 1024", "'+EFSW' 1024"},
        {"quoted digits are text", "+X: \"007\"", "'+X' '007'"},
        {"digits are a number", "+X: 007", "'+X' 7"},
        {"a sign makes it text", "+X: -5", "'+X' '-5'"},
        {"number beyond 32 bits", "+X: 99999999999", "'+X' 2147483647"},
        {"later colons are ordinary", "+X: 12:30:00,1", "'+X' '12:30:00' 1"},
        {"blanks after a comma go, others stay", "+X: 1,   a b ,2", "'+X' 1 'a b ' 2"},
        {"the byte after the colon is skipped, whatever it is", "+X:12", "'+X' 2"},
        {"blanks, commas and brackets in quotes", "+X: \" a,(b) \"", "'+X' ' a,(b) '"},
        {"empty quoted text", "+X: \"\"", "'+X' ''"},
        {"empty quoted text in the middle, and the mark that it leaves", "+X: \"\",", "'+X' '' _"},
        {"text after a quote begins anew", "+X: \"ab\"cd,1", "'+X' 'cd' 1"},
        {"trailing comma gives no field", "+X: 1,", "'+X' 1"},
        {"no colon: fields before the last token", "a,b", "'a' 'b'"},
        {"a zero byte ends the line", std::string("+X: 1\0,2", 8), "'+X' 1"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Fields(row.line, stop), row.fields) << row.rule;
}

TEST_F(LineTokenizer, FieldsInParentheses) {
    struct Row {
        const char* rule;
        const char* line;
        const char* fields;
    };
    const Row rows[] = {
        {"range, then fields", "+CPBR: (1-250),40,14", "'+CPBR' (1-250|250) 40 14"},
        {"the comma after a bracket empties the left-over token", "+CPBR: (1-250),,14",
         "'+CPBR' (1-250|250) _ 14"},
        {"a list at the end is read once more", "+CSCS: (\"GSM\",\"UCS2\")", "'+CSCS' ['GSM','UCS2'] 'UCS2'"},
        {"the spare field follows the flat rule", "+CMGW: (0-3)", "'+CMGW' (0-3|3) 3"},
        {"several lists", "+CPMS: (\"SM\",\"ME\"),(\"SM\")", "'+CPMS' ['SM','ME'] ['SM'] 'SM'"},
        {"empty items are the number 0", "+X: (,1,),5", "'+X' [0,1,0] 5"},
        {"empty parentheses have one item", "+X: (),5", "'+X' [0] 5"},
        {"quoted digits in a list are text", "+X: (\"1\",2),5", "'+X' ['1',2] 5"},
        {"items before a range", "+X: (0,4-7),5", "'+X' (4-7|0,7) 5"},
        {"text up to the next comma is passed", "+X: (1)abc,5", "'+X' [1] 5"},
        {"a list in the list gives none of its items", "+X: ((\"a\",\"b\"),3),5", "'+X' ['b',3] 5"},
        {"a range in the list in the list", "+X: ((1-2),3),5", "'+X' [2,3] 5"},
        {"unterminated list", "+X: (1,2", "'+X' [1] 2"},
        {"unterminated quote in a list", "+X: (1,\"2),3", "'+X' [1]"},
        {"a range without a lower end", "+X: (-5),3", "'+X' (0-0|) 3"},
        {"a range with letters above", "+X: (1-x),3", "'+X' (1-0|) 3"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Fields(row.line, stop), row.fields) << row.rule;
}

TEST_F(LineTokenizer, LinesThatMeanNothing) {
    for (const char* line : {"+CMGL: 1,\"abc", "\"", "+X:", "OK\""})
        EXPECT_EQ(Fields(line, stop), "dropped") << line;
    EXPECT_EQ(Fields(std::string("+X: \"a\0b\"", 9), stop), "dropped") << "a zero byte in quotes";
}

TEST_F(LineTokenizer, DepthDoesNotExhaustTheStack) {
    const std::string deep = "+X: " + std::string(8000, '(') + "1";
    EXPECT_EQ(Fields(deep, stop), "'+X' [] 1");
    EXPECT_EQ(Fields(deep + std::string(8000, ')') + ",2", stop), "'+X' [1] 2");
}

TEST(ATResult, ANumberCountsOnlyInALineBelowItsOwnNumberOfFields) {
    ATResult result;
    result.lines.assign(3, {ATParam::Flat("+X", true), ATParam::Flat("7", false)});
    EXPECT_EQ(result.GetNumber(1, 1), 7);
    EXPECT_EQ(result.GetNumber(2, 1), -1);
}

}  // namespace
}  // namespace tarnbridge
