#include <set>

#include <gtest/gtest.h>

#include "core/base/StringTable.h"

namespace tarnbridge {
namespace {

/// The places of a sentence, in order.
std::string PlacesOf(std::u16string_view words) {
    std::string places;
    for (size_t at = 0; (at = words.find(u'%', at)) != words.npos; at += 2)
        places += static_cast<char>(at + 1 < words.size() ? words[at + 1] : u'?');
    return places;
}

TEST(StringTable, EveryKeyHasWordsThatFormatWordsCanFill) {
    const StringTable table;
    const auto& keys = StringTable::Keys();
    ASSERT_EQ(keys.size(), static_cast<size_t>(Word::Count));
    EXPECT_EQ(std::set(keys.begin(), keys.end()).size(), keys.size());
    for (size_t index = 0; index < keys.size(); ++index) {
        const std::u16string words = table.Get(static_cast<Word>(index));
        EXPECT_FALSE(words.empty()) << keys[index];
        EXPECT_EQ(PlacesOf(words).find_first_not_of("sd"), std::string::npos) << keys[index];
    }
    EXPECT_EQ(table.Get(Word::Count), u"");
    EXPECT_EQ(table.Get(static_cast<Word>(-1)), u"");
}

TEST(StringTable, ReadsATranslation) {
    const auto translation = ReadTranslation(
        "# remark = none\r\n Inbox =  Eing\xC3\xA4nge \r\nRestartNow = Jetzt?\\nSonst\\tsp\\u00E4ter = \\\\\n"
        "no words\nOutbox=Aus\nDraft =");
    const StringTable::Translation expected = {{"Inbox", u"Eingänge"},
                                               {"RestartNow", u"Jetzt?\nSonst\tsp\\u00E4ter = \\"},
                                               {"Outbox", u"Aus"},
                                               {"Draft", u""}};
    EXPECT_EQ(translation, expected);
    EXPECT_EQ(UnescapeWords(u"end \\"), u"end \\");
    EXPECT_EQ(UnescapeWords(u"\\\\n"), u"\\n") << "a backslash, then a letter";
}

TEST(StringTable, FillsSentences) {
    EXPECT_EQ(Words(Word::ProgressOf, {-3, 7}), u"-3 / 7");
    // A translator's slip shows, and no more.
    EXPECT_EQ(FormatWords(u"%s %s %n 100%% %", {u"%s"}), u"%s %s %n 100% %");
    EXPECT_EQ(FormatWords(u"none", {1, 2}), u"none");
}

}  // namespace
}  // namespace tarnbridge
