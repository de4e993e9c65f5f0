#include <gtest/gtest.h>

#include "phonebook/DesktopVcard.h"
#include "phonebook/HandsetVcard.h"

namespace tarnbridge {
namespace {

std::string Card(std::string_view lines) {
    return "BEGIN:VCARD\r\nVERSION:2.1\r\n" + std::string(lines) + "END:VCARD\r\n";
}

TEST(HandsetVcard, Writes) {
    Contact contact;
    contact.SetNameNumber(u"A;B", u"+886912", plainName);
    EXPECT_EQ(HandsetVcardOf(contact), Card("N;CHARSET=UTF-8:A\\;B\r\nFN;CHARSET=UTF-8:A\\;B\r\n"
                                            "TEL;CELL;VOICE:+886912\r\nBDAY:00000000\r\n"));
    contact.SetNameNumber(u"\\;\u5B57", u"", plainName);
    contact.details = {u"1", u"none", u"a;b@c", u"2",         u"3\u00E9",   u"x",
                       u"x", u"x",    u"x",     {2001, 2, 3}, {1900, 1, 1}, u"m\\;n"};
    EXPECT_EQ(HandsetVcardOf(contact),
              Card("N;CHARSET=UTF-8:\\\\\\;\xE5\xAD\x97\r\nFN;CHARSET=UTF-8:\\\\\\;\xE5\xAD\x97\r\nTEL;CELL;"
                   "VOICE:\r\n"
                   "TEL;HOME;VOICE:1\r\nTEL;WORK;VOICE:2\r\nTEL;FAX;VOICE:3\xE9\r\nEMAIL:a;b@c\r\n"
                   "MEMO;CHARSET=UTF-8:m\\\\\\;n\r\n"));
}

TEST(HandsetVcard, ReadsEachKeyAndItsFallBack) {
    Contact contact;
    ASSERT_TRUE(ParseHandsetVcard(
        contact, Card("TEL;HOME;VOICE:1\r\nTEL;WORK;VOICE:2\r\nTEL;FAX;VOICE:3\r\nEMAIL:\xE9@x\r\n"
                      "BDAY:20010203\r\nN:ignored\r\n")));
    EXPECT_EQ(contact.details.home, u"1");
    EXPECT_EQ(contact.details.office, u"2");
    EXPECT_EQ(contact.details.fax, u"3");
    EXPECT_EQ(contact.details.email, u"\u00E9@x");
    EXPECT_EQ(contact.details.birthday, (ContactDate{2001, 2, 3}));
    EXPECT_EQ(contact.name, u"");
    EXPECT_TRUE(contact.detailsLoaded);

    Contact other;
    ASSERT_TRUE(ParseHandsetVcard(
        other, Card("TEL;HOME:1\r\nTEL;WORK:2\r\nTEL;FAX;VOICE:\r\nTEL;FAX:3\r\nEMAIL;INTERNET:x@y\r\n")));
    EXPECT_EQ(other.details.home, u"1");
    EXPECT_EQ(other.details.office, u"2");
    EXPECT_EQ(other.details.fax, u"3");
    EXPECT_EQ(other.details.email, u"x@y");
    EXPECT_FALSE(other.details.birthday.IsSet());
}

TEST(HandsetVcard, MemosAreQuotedAndFolded) {
    const std::string key = "MEMO;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:";
    struct Row {
        const char* rule;
        std::string card;
        const char16_t* memo;
    };
    const Row rows[] = {
        {"two lines", Card(key + "=41=42\r\n==43\r\n"), u"ABC"},
        {"UTF-8", Card(key + "=E5=AD=97 x\r\n"), u"\u5B57 x"},
        {"a lone CR is a byte", Card(key + "a\rb\r\n"), u"a\rb"},
        {"any byte is a digit", Card(key + "=4:\r\n"), u"C"},
        {"the plain key isn't the reader's", Card("MEMO;CHARSET=UTF-8:x\r\n"), u""},
        {"the last two bytes are left out", "BEGIN:VCARD\r\n" + key + "abcd", u"ab"},
        {"a key at the very end", "BEGIN:VCARD\r\n" + key, u""},
        {"`=` within the last two bytes", Card(key + "x=4\r\n"), u"x=4"},
    };
    for (const Row& row : rows) {
        Contact contact;
        EXPECT_TRUE(ParseHandsetVcard(contact, row.card)) << row.rule;
        EXPECT_EQ(contact.details.memo, row.memo) << row.rule;
    }
}

TEST(HandsetVcard, OddBirthdays) {
    struct Row {
        const char* value;
        ContactDate date;
    };
    const Row rows[] = {
        {"19650806", {1965, 8, 6}}, {"1965-08-06", {1965, 0, 8}}, {"1965", {1965, 9, 9}},  {"", {9, 9, 9}},
        {"x", {9, 9, 9}},           {" 1965 8 6", {1965, 8, 6}},  {"00000000", {0, 0, 0}},
    };
    for (const Row& row : rows) {
        Contact contact;
        contact.details.birthday = {9, 9, 9};
        ParseHandsetVcard(contact, Card(std::string("BDAY:") + row.value + "\r\n"));
        EXPECT_EQ(contact.details.birthday, row.date) << row.value;
    }
}

TEST(HandsetVcard, WhatIsNoCardAndZeroBytes) {
    Contact untouched;
    for (const char* const bad : {"", "BEGIN:VCAR", "begin:vcard\r\nTEL;HOME:1\r\n", " BEGIN:VCARD"})
        EXPECT_FALSE(ParseHandsetVcard(untouched, bad));
    EXPECT_FALSE(untouched.detailsLoaded);

    std::string card = "BEGIN:VCARD\r\n";
    card.resize(250, ' ');
    card.push_back('\0');
    card += "lost!TEL;HOME:7\r\nEND\r\n";
    ParseHandsetVcard(untouched, card);
    EXPECT_EQ(untouched.details.home, u"7") << "a zero byte costs the rest of its 256 bytes, no more";
}

TEST(HandsetVcard, EveryPrefixAndEveryFlippedByteIsRead) {
    const std::string card = Card(
        "TEL;HOME;VOICE:1\r\nEMAIL;INTERNET:x@y\r\nBDAY:20010203\r\n"
        "MEMO;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=AD=97\r\n==41\r\n");
    for (size_t length = 0; length <= card.size(); ++length) {
        Contact contact;
        EXPECT_EQ(ParseHandsetVcard(contact, card.substr(0, length)), length >= 11);
    }
    for (size_t place = 0; place < card.size(); ++place) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string flipped = card;
            flipped[place] = static_cast<char>(flipped[place] ^ 1 << bit);
            Contact contact;
            ParseHandsetVcard(contact, flipped);
        }
    }
}

std::vector<std::unique_ptr<Contact>> Import(std::u16string_view lines) {
    return ImportDesktopVcards(u"BEGIN:VCARD\n" + std::u16string(lines) + u"END:VCARD\n");
}

TEST(DesktopVcard, NamesAreMadeOfTheirParts) {
    struct Row {
        const char16_t* lines;
        const char16_t* name;
    };
    const Row rows[] = {
        {u"N:Chan\nLN:Tai\n", u"Chan Tai"},
        {u"N:\u5927\u6587\nLN:\u9673\n", u"\u9673 \u5927\u6587"},
        {u"N:Chan\nLN:\u9673\n", u"\u9673 Chan"},
        {u"N:Chan\n", u"Chan "},
        {u"N:\u5927\u6587\n", u"\u5927\u6587"},
        {u"FN:Chan\nLN:Tai\n", u"Chan Tai"},
        {u"FN:\u5927\u6587\nLN:\u9673\n", u"\u9673 \u5927\u6587"},
        {u"FN:\u5927\u6587\n", u""},
        {u"N:a\nFN:b\n", u"a "},
        {u"LN:\u9673\n", u"\u9673"},
        {u"n:  lower \t\nln : no such key\n", u"lower "},
    };
    for (const Row& row : rows) {
        const auto contacts = Import(row.lines + std::u16string(u"TEL;CELL;VOICE:1\n"));
        ASSERT_EQ(contacts.size(), 1u);
        EXPECT_EQ(contacts[0]->name, row.name);
        EXPECT_EQ(contacts[0]->storage, u"PC");
    }
}

TEST(DesktopVcard, NumbersAndDetails) {
    auto contacts = Import(
        u"N:A\r\nTEL;CELL;VOICE:+886 (9)12\r\nTEL;CELL;VOICE:\r\nTEL;HOME;VOICE:1-1\r\n"
        u"TEL;WORK;VOICE:22\r\nTEL;WORK;FAX:33\r\nEMAIL;PREF;INTERNET:a@b:c\r\nANN:19991231\r\n"
        u"MEMO: m \r\nTEL;HOME:44\r\n\r\nno colon\r\n");
    ASSERT_EQ(contacts.size(), 1u);
    const Contact& contact = *contacts[0];
    EXPECT_EQ(contact.number.number, "+886912");
    EXPECT_EQ(contact.number.type, SmsAddress::international);
    EXPECT_EQ(contact.nameEncoding, ucs2Name);
    ContactDetails expected;
    expected.home = u"11";
    expected.office = u"22";
    expected.fax = u"33";
    expected.email = u"a@b:c";
    expected.birthday = {1999, 12, 31};
    expected.memo = u"m";
    EXPECT_EQ(contact.details, expected);

    contacts = Import(u"TEL;WORK;VOICE:22\nANN:1999\n");
    ASSERT_EQ(contacts.size(), 1u);
    EXPECT_EQ(contacts[0]->number.number, "22") << "the office number serves for the mobile one";
    EXPECT_EQ(contacts[0]->details.office, u"22");
    EXPECT_EQ(contacts[0]->details.birthday, ContactDate());
    contacts = Import(u"TEL;WORK;VOICE:22\nTEL;HOME;VOICE:11\n");
    EXPECT_EQ(contacts.at(0)->number.number, "11") << "home before office";
    contacts = Import(u"TEL;CELL;VOICE:" + std::u16string(50, u'7') + u"\n");
    EXPECT_EQ(contacts.at(0)->number.number, std::string(40, '7'));
    EXPECT_TRUE(Import(u"EMAIL;PREF;INTERNET:a@b\nTEL;WORK;FAX:3\n").empty()) << "no name and no number";
}

TEST(DesktopVcard, WhereReadingEnds) {
    const std::u16string card = u"BEGIN:VCARD\nN:A\nTEL;WORK;VOICE:1\nEND:VCARD\n";
    EXPECT_EQ(ImportDesktopVcards(card + card).size(), 2u);
    EXPECT_EQ(ImportDesktopVcards(card + u"\r\n" + card).size(), 2u);
    EXPECT_EQ(ImportDesktopVcards(card + u"\n" + card).size(), 1u) << "a line of nothing but LF";
    EXPECT_EQ(ImportDesktopVcards(card + u"BEGIN:VCALENDAR\n" + card).size(), 1u);
    EXPECT_EQ(ImportDesktopVcards(card.substr(0, card.size() - 1)).size(), 0u) << "the last line has no LF";
    const auto second = ImportDesktopVcards(card + u"BEGIN:VCARD\nN:B\nEND:VCARD\n");
    ASSERT_EQ(second.size(), 2u);
    EXPECT_EQ(second[1]->number.number, "") << "nothing of the first card is left";
}

TEST(DesktopVcard, EveryPrefixAndEveryFlippedUnitIsRead) {
    const std::u16string card =
        u"BEGIN:VCARD\nN:\u5927\nLN:A\nTEL;CELL;VOICE:+1p2\nANN:19991231\nMEMO:m\nEND:VCARD\n";
    for (size_t length = 0; length <= card.size(); ++length)
        EXPECT_EQ(ImportDesktopVcards(card.substr(0, length)).size(), length == card.size() ? 1u : 0u);
    for (size_t place = 0; place < card.size(); ++place) {
        for (int bit = 0; bit < 16; ++bit) {
            std::u16string flipped = card;
            flipped[place] = static_cast<char16_t>(flipped[place] ^ 1 << bit);
            EXPECT_LE(ImportDesktopVcards(flipped).size(), 1u);
        }
    }
}

}  // namespace
}  // namespace tarnbridge
