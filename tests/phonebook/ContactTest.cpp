#include <gtest/gtest.h>

#include "phonebook/Contact.h"
#include "phonebook/ContactChecks.h"
#include "phonebook/ContactForm.h"

namespace tarnbridge {
namespace {

HandsetNameLimits Limits(std::optional<int> textLength, bool packed = true) {
    return {packed, [textLength](bool) { return textLength; }};
}

TEST(Contact, NameAndNumberAreTakenApart) {
    Contact contact;
    contact.SetNameNumber(u"A\r\nB\rC\nD\r\r\n\nE", u"0912 345", packedUcs2Name);
    EXPECT_EQ(contact.name, u"AB\rC\nDE") << "no pair is left, not even one that cutting makes";
    EXPECT_EQ(contact.number.type, SmsAddress::alphanumeric);
    EXPECT_EQ(contact.nameEncoding, packedUcs2Name);
}

TEST(ContactChecks, NamesAreClassified) {
    struct Row {
        const char16_t* name;
        int encoding;
        int length;
    };
    const Row rows[] = {
        {u"Ann", 0, 3},          {u"A[b", 0, 4},           {u"", 0, 0},
        {u"\\|[]{}^~", 0, 16},   {u"\u00E9t\u00E9", 2, 3}, {u"[\u00E9]", 2, 3},
        {u"\u00E9\u0416", 1, 2}, {u"\u00E9\u5B57", 1, 2},  {u"\u5B57[", 1, 2},
        {u"\u0E5F", 2, 1},       {u"\u0E60", 1, 1},
    };
    for (const Row& row : rows) {
        int length = -1;
        EXPECT_EQ(ClassifyName(row.name, length), row.encoding) << row.length;
        EXPECT_EQ(length, row.length);
    }
}

TEST(ContactChecks, NamesThatFitTheHandset) {
    struct Row {
        const char* rule;
        std::u16string name;
        bool isSim;
        HandsetNameLimits limits;
        bool fits;
        int encoding;
        int maxLength;
        size_t left;
    };
    const std::u16string accent(1, u'\u00E9');
    const Row rows[] = {
        {"plain, exactly", std::u16string(14, u'a'), true, Limits(14), true, 0, 14, 14},
        {"plain, one more", std::u16string(15, u'a'), true, Limits(14), false, 0, 14, 14},
        {"doubled ones leave it over", std::u16string(14, u'['), true, Limits(14), false, 0, 14, 14},
        {"UCS-2", std::u16string(7, u'\u5B57'), true, Limits(14), false, 1, 14, 6},
        {"packed", std::u16string(11, u'\u00E9'), true, Limits(14), true, 2, 14, 11},
        {"packed, one more", std::u16string(12, u'\u00E9'), true, Limits(14), false, 2, 14, 11},
        {"packed isn't known", std::u16string(7, u'\u00E9'), true, Limits(14, false), false, 1, 14, 6},
        {"SIM without an answer", std::u16string(15, u'a'), true, Limits({}), false, 0, 14, 14},
        {"phone without an answer", std::u16string(31, u'a'), false, Limits({}), false, 0, 30, 30},
        {"nobody to ask", std::u16string(30, u'a'), false, {}, true, 0, 30, 30},
        {"an absurd answer", accent, true, Limits(0), false, 2, 0, 0},
    };
    for (const Row& row : rows) {
        std::u16string name = row.name;
        uint8_t encoding = 9;
        int maxLength = -1;
        EXPECT_EQ(FitNameToHandset(name, row.isSim, encoding, true, maxLength, row.limits), row.fits)
            << row.rule;
        EXPECT_EQ(encoding, row.encoding) << row.rule;
        EXPECT_EQ(maxLength, row.maxLength) << row.rule;
        EXPECT_EQ(name.size(), row.left) << row.rule;
    }
    std::u16string name(100, u'\u00E9');
    uint8_t encoding = 9;
    int maxLength = 0;
    EXPECT_TRUE(FitNameToHandset(name, true, encoding, false, maxLength, Limits(14, false)));
    EXPECT_EQ(encoding, packedUcs2Name);
}

TEST(ContactChecks, AcceptedSets) {
    for (const char16_t* const good : {u"", u"+123", u"12p3", u"1*#", u"*#06#", u"1pw2", u"1P", u"+p1"})
        EXPECT_TRUE(IsNumberCharsOk(good)) << std::string(good, good + std::u16string_view(good).size());
    for (const char16_t* const bad :
         {u"+", u"+123+4", u"1+", u"p123", u"W1", u"12p*3", u"1w#", u"1 2", u"1-2", u"12a"})
        EXPECT_FALSE(IsNumberCharsOk(bad)) << std::string(bad, bad + std::u16string_view(bad).size());

    EXPECT_TRUE(IsNumberLengthOk(std::u16string(40, u'1')));
    EXPECT_FALSE(IsNumberLengthOk(std::u16string(41, u'1')));
    EXPECT_TRUE(IsNumberLengthOk(u"+" + std::u16string(40, u'1')));
    EXPECT_FALSE(IsNumberLengthOk(u"+" + std::u16string(41, u'1')));
    EXPECT_FALSE(IsNumberLengthOk(u"1\u0661"));

    for (const char16_t* const good : {u"", u"a@b", u"a.b@c.d-e", u"!#$%&\\*+-/=?^_`{|}~@x"})
        EXPECT_TRUE(IsEmailOk(good)) << std::string(good, good + std::u16string_view(good).size());
    for (const char16_t* const bad : {u"ab", u"@ab", u"ab@", u"abc", u".a@b", u"a.@b.c", u"a@.b", u"a@b.c.",
                                      u"a@b@c", u"a'b@c", u"a b@c", u"a@b_c", u"\u00E9@bc", u"a,b@c"})
        EXPECT_FALSE(IsEmailOk(bad)) << std::string(bad, bad + std::u16string_view(bad).size());
    EXPECT_TRUE(IsEmailOk(std::u16string(58, u'a') + u"@b"));
    EXPECT_FALSE(IsEmailOk(std::u16string(59, u'a') + u"@b"));

    for (const char16_t unit : std::u16string(u"\\/`;"))
        EXPECT_FALSE(IsNameCharsOk(std::u16string(u"a") + unit));
    EXPECT_TRUE(IsNameCharsOk(u"O'Neil [x] |:,\""));

    EXPECT_EQ(CleanNumber(u"(+886) 912-345p1"), u"+886912345p1");
    EXPECT_EQ(CleanNumber(u"pw1+2"), u"12");
    EXPECT_EQ(CleanNumber(u"tel: +"), u"");
}

TEST(ContactDate, AcceptedDates) {
    struct Row {
        const char16_t* text;
        bool good;
        ContactDate date;
    };
    const Row rows[] = {
        {u"", true, {}},
        {u"25/01/2004", true, {2004, 1, 25}},
        {u"1/2/1999", true, {1999, 2, 1}},
        {u"29/02/2000", true, {2000, 2, 29}},
        {u"1/1/1901", true, {1901, 1, 1}},
        {u"2/1/1900", true, {1900, 1, 2}},
        {u"31/12/2030", true, {2030, 12, 31}},
        {u"29/02/1900", false, {}},
        {u"31/02/2004", false, {}},
        {u"0/1/2004", false, {}},
        {u"1/13/2004", false, {}},
        {u"01/01/1900", false, {}},
        {u"1/1/2031", false, {}},
        {u"1/1/1899", false, {}},
        {u"25/01/04", false, {}},
        {u"025/01/2004", false, {}},
        {u"25/01", false, {}},
        {u"/1/2004", false, {}},
        {u"1/1/2004/", false, {}},
        {u"-1/1/2004", false, {}},
        {u"1x/1/2004", false, {}},
        {u" 1/1/2004", false, {}},
    };
    for (const Row& row : rows) {
        ContactDate date{1999, 9, 9};
        EXPECT_EQ(ParseDate(row.text, date), row.good)
            << std::string(row.text, row.text + std::u16string_view(row.text).size());
        EXPECT_EQ(date, row.date);
    }
    EXPECT_FALSE((ContactDate{1900, 1, 1}.IsSet()));
    EXPECT_TRUE((ContactDate{1900, 1, 2}.IsSet()));
}

TEST(ContactForm, ChecksRunInTheirOrder) {
    // Every field is wrong; each step repairs the one that was named.
    const std::u16string tooLong(42, u'1');
    ContactForm form{u"PC", std::u16string(61, u'/'), u"p1", u"1a", u"1b", tooLong, u"x", u"1/1"};
    struct Step {
        ContactField field;
        Word words;
        std::function<void()> repair;
    };
    const Step steps[] = {
        {ContactField::name, Word::NameHasSlash, [&] { form.name.assign(61, u'a'); }},
        {ContactField::name, Word::NameTooLong, [&] { form.name.clear(); }},
        {ContactField::mobile, Word::InvalidNumberFormat, [&] { form.mobile = tooLong; }},
        {ContactField::mobile, Word::NumberTooLong, [&] { form.mobile.clear(); }},
        {ContactField::name, Word::NameOrNumberMissing, [&] { form.mobile = u"1"; }},
        {ContactField::home, Word::InvalidNumberFormat, [&] { form.home = u"1"; }},
        {ContactField::office, Word::InvalidNumberFormat, [&] { form.office.clear(); }},
        {ContactField::fax, Word::NumberTooLong, [&] { form.fax = u"2"; }},
        {ContactField::email, Word::InvalidEmail, [&] { form.email = u"a@b"; }},
        {ContactField::birthday, Word::InvalidAnniversary, [&] { form.birthday = u"1/1/2000"; }},
    };
    for (const Step& step : steps) {
        const auto problem = CheckContactForm(form, {});
        ASSERT_TRUE(problem);
        EXPECT_EQ(problem->field, step.field);
        EXPECT_EQ(problem->words, step.words);
        step.repair();
    }
    form.home = u"1a";
    EXPECT_EQ(CheckContactForm(form, {})->Sentence(), u"Invalid home number format!");
    form.home.clear();
    EXPECT_FALSE(CheckContactForm(form, {}));
}

TEST(ContactForm, LimitsOfTheHandset) {
    ContactForm form{u"SM", std::u16string(15, u'a'), u"1", u"bad", u"bad", u"bad", u"bad", u"bad"};
    auto problem = CheckContactForm(form, Limits(14));
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->words, Word::NameTooLongForHandset);
    EXPECT_EQ(problem->Sentence().substr(0, 82),
              u"The maximum of contact name is 14 English characters,\nor 6 Chinese characters!\n\nEa");
    form.name = u"short";
    EXPECT_FALSE(CheckContactForm(form, Limits(14))) << "the SIM keeps no details";

    form.storage = u"ME";
    form.name.assign(40, u'\u00E9');
    problem = CheckContactForm(form, Limits({}));
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->words, Word::NameTooLongPacked);
    EXPECT_EQ(problem->numbers, (std::vector<int>{30, 27, 14}));
    EXPECT_EQ(form.name.size(), 40u);
    form.name = u"ok";
    problem = CheckContactForm(form, Limits({}));
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->field, ContactField::home);
}

}  // namespace
}  // namespace tarnbridge
