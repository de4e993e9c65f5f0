#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

TEST(Text, MalformedUtf8BecomesReplacements) {
    struct Row {
        const char* fault;
        std::string bytes;
        std::u16string text;
    };
    const Row rows[] = {
        {"lone continuation", "\x80z", u"\uFFFDz"},
        {"sequence cut at the end", "a\xE2\x82", u"a\uFFFD\uFFFD"},
        {"overlong slash", "\xC0\xAF", u"\uFFFD\uFFFD"},
        {"encoded surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"beyond U+10FFFF", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Utf8ToText(row.bytes), row.text) << row.fault;
    EXPECT_EQ(TextToUtf8(u"\xD83Dx"), "\xEF\xBF\xBDx");
    EXPECT_EQ(TextToUtf8(u"\xDE00\xD83D"), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(CodePage, EveryByteOfEachPageComesBack) {
    for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
        const auto page = CodePage::Find(number);
        ASSERT_TRUE(page) << number;
        for (int byte = 0; byte < 256; ++byte) {
            const std::string bytes(1, static_cast<char>(byte));
            EXPECT_EQ(page->ToBytes(page->ToText(bytes)), bytes) << number << " byte " << byte;
        }
    }
}

TEST(CodePage, WindowsLatinAndWhatItDoesNotHold) {
    const CodePage& page = CodePage::System();
    EXPECT_EQ(page.ToText("\x80\x81\xE9"), u"\u20AC\u0081\u00E9");
    EXPECT_EQ(page.ToBytes(u"\u20AC\u4E00\u00E9"), "\x80?\xE9");
}

}  // namespace
}  // namespace tarnbridge
