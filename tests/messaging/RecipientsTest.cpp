#include <gtest/gtest.h>

#include "messaging/Recipients.h"

namespace tarnbridge {
namespace {

/// Knows Ann, and gives whatever isn't a name as it stands. Names are those pieces that begin with a letter.
class OneContact : public RecipientMatcher {
public:
    std::optional<std::u16string> NamesToNumbers(std::u16string_view text) const override {
        std::u16string result(text);
        const size_t at = result.find(u"Ann");
        if (at != std::u16string::npos) result.replace(at, 3, number);
        for (const char16_t unit : result) {
            if (unit >= u'A' && unit <= u'Z') return std::nullopt;
        }
        return result;
    }

    std::u16string number = u"+491234";
};

TEST(Recipients, ChecksInTheirOrder) {
    const std::u16string longest = std::u16string(255, u'1') + u"2";
    struct Row {
        const char* fault;
        std::u16string text;
        std::optional<Word> word;
        std::vector<std::u16string> numbers;
    };
    const Row rows[] = {
        {"one", u"123", {}, {u"123"}},
        {"both separators, blanks around", u" +12 ,\t3*4#;\u00A05 ", {}, {u"+12", u"3*4#", u"5"}},
        {"names among numbers", u"1;Ann", {}, {u"1", u"+491234"}},
        {"an unknown name before a bad number", u"1x;Bob", Word::InvalidRecipient, {}},
        {"an unknown name in a text too long", longest + u";Bob", Word::InvalidRecipient, {}},
        {"a letter", u"1;2x", Word::InvalidPhoneNumber, {}},
        {"a blank within", u"12 34", Word::InvalidPhoneNumber, {}},
        {"pause digits of the handset", u"12p34", Word::InvalidPhoneNumber, {}},
        {"a plus behind the front", u"1+2", Word::InvalidPhoneNumber, {}},
        {"two of them", u"++12", Word::InvalidPhoneNumber, {}},
        {"a wide digit", u"\uFF11", Word::InvalidPhoneNumber, {}},
        {"nothing between separators", u"1,;2", Word::InvalidPhoneNumber, {}},
        {"nothing behind the last", u"1;", Word::InvalidPhoneNumber, {}},
        {"no text", u"", Word::NoRecipient, {}},
        {"separators alone", u" ; ,", Word::NoRecipient, {}},
        {"256 characters", longest, {}, {longest}},
        {"257 characters", longest + u"1", Word::TooManyRecipientCharacters, {}},
        {"257 with blanks around", longest + u" ", Word::TooManyRecipientCharacters, {}},
        {"257 once names are numbers", longest.substr(9) + u",Ann,1", Word::TooManyRecipientCharacters, {}},
    };
    for (const Row& row : rows) {
        const CheckedRecipients checked = CheckRecipients(row.text, OneContact());
        EXPECT_EQ(checked.fault, row.word) << row.fault;
        if (checked) {
            EXPECT_EQ(checked.numbers, row.numbers) << row.fault;
        }
    }
    EXPECT_EQ(CheckRecipients(u" 1 ; Ann,2", OneContact()).text, u"1;+491234,2");
    EXPECT_EQ(CheckRecipients(u"Ann", VerbatimMatcher()).fault, Word::InvalidPhoneNumber);
}

TEST(Recipients, AddingUpToTheLimit) {
    std::u16string text;
    EXPECT_FALSE(AddRecipient(text, u"Ann"));
    EXPECT_FALSE(AddRecipient(text, u"123"));
    EXPECT_EQ(text, u"Ann;123");
    text += u", ";
    EXPECT_FALSE(AddRecipient(text, u"5"));
    EXPECT_EQ(text, u"Ann;123, 5");
    text.assign(4092, u'1');
    EXPECT_EQ(AddRecipient(text, u"2345"), Word::RecipientsTextTooLong);
    EXPECT_EQ(text.size(), 4092u);
    EXPECT_FALSE(AddRecipient(text, u"234"));
    EXPECT_EQ(text.size(), 4096u);
}

}  // namespace
}  // namespace tarnbridge
