#include <sstream>

#include <gtest/gtest.h>

#include "messaging/MessageTextFile.h"
#include "messaging/ems/Ems.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

using namespace std::string_literals;

class MessageTextFile : public ::testing::Test {
protected:
    MessageTextFile() { EmsInit(uint8_t{0}); }
    ~MessageTextFile() override { EmsShutdown(); }

    static std::string LittleEndian(std::u16string_view text) {
        std::string bytes;
        for (const char16_t unit : text)
            bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        return bytes;
    }

    static std::u16string Line(const std::u16string& text) {
        return u"\"1\"\t\"2007/03/14 15:09:26\"\t\"" + text + u"\"\r\n";
    }

    /// What came of a file: the texts taken, each with a blank behind it, then the lines refused with the
    /// first letter of why.
    static std::string Read(const std::string& bytes) {
        std::istringstream in(bytes);
        std::string story;
        size_t taken = 0;
        const auto result = ReadMessageText(in, 0, [&](std::unique_ptr<SmsRecord> record) {
            story += record->TextAsBytes() + ' ';
            ++taken;
        });
        if (!result) return "foreign";
        EXPECT_EQ(result->taken, taken);
        EXPECT_EQ(result->refused, result->refusedLines.size());
        for (const auto& [number, fault] : result->refusedLines)
            story += std::to_string(number) + "?MTN"[static_cast<int>(fault)];
        return story;
    }
};

TEST_F(MessageTextFile, FilesOfAllKinds) {
    const std::string a = LittleEndian(Line(u"a"));
    const std::string b = LittleEndian(Line(u"b"));
    const std::string mark = "\xFF\xFE";
    const struct Row {
        const char* fault;
        std::string bytes;
        const char* story;
    } rows[] = {
        {"nothing", "", ""},
        {"a byte order mark alone", mark, ""},
        {"a byte order mark as part of the first line", mark + a + b, "a b "},
        {"no byte order mark", a + b, "a b "},
        {"a second byte order mark", mark + mark + a, "a "},
        {"big-endian", "\xFE\xFF\0\""s + a, "foreign"},
        {"UTF-8 with a mark", "\xEF\xBB\xBF\"1\"", "foreign"},
        {"UTF-8 without one", "\"1\"\t\"2007\"\t\"a\"\r\n", "1M"},
        {"blank lines, which are counted", a + LittleEndian(u"\r\n\nx\n") + b, "a b 4M"},
        {"a last line without its end", a + b.substr(0, b.size() - 2), "a 2M"},
        {"half a unit at the end", a + "\n", "a 2M"},
        {"a line break in a text", LittleEndian(Line(u"one\ntwo")) + a, "a 1M2M"},
        {"a line longer than any", LittleEndian(Line(std::u16string(70'000, u'x'))) + a, "a 1T"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fault);
        EXPECT_EQ(Read(row.bytes), row.story);
    }
}

TEST_F(MessageTextFile, CutAtEveryByte) {
    const std::string whole = "\xFF\xFE" + LittleEndian(Line(u"a\"\"") + Line(u"b"));
    const size_t first = 2 + LittleEndian(Line(u"a\"\"")).size();
    for (size_t size = 0; size <= whole.size(); ++size) {
        const std::string taken = size < first ? "" : size < whole.size() ? "a\" " : "a\" b ";
        const bool isRestThere = size != 0 && size != 2 && size != first && size != whole.size();
        const std::string refused = isRestThere ? size < first ? "1M" : "2M" : "";
        EXPECT_EQ(Read(whole.substr(0, size)), taken + refused) << size;
    }
}

TEST_F(MessageTextFile, OnlyTheFirstRefusedLinesAreListed) {
    std::string many;
    for (int i = 0; i < 5000; ++i)
        many += LittleEndian(u"x\n");
    std::istringstream in(many);
    const auto result = ReadMessageText(in, 0, [](auto) { FAIL(); });
    ASSERT_TRUE(result);
    EXPECT_EQ(result->refused, 5000u);
    EXPECT_EQ(result->refusedLines.size(), MessageImport::mostRefusedLines);
}

TEST_F(MessageTextFile, ThereAndBack) {
    const test::TemporaryFolder folder;
    // Enough for several pieces, with line lengths that put ends of pieces anywhere.
    std::vector<SmsRecord> records(2000);
    std::vector<const SmsRecord*> pointers;
    size_t texts = 0;
    for (size_t i = 0; i < records.size(); ++i) {
        records[i].text8 = std::string(i % 97, 'x');
        records[i].address.number = std::to_string(i);
        pointers.push_back(&records[i]);
        texts += records[i].text8.empty() ? 0 : 1;
    }
    const auto done = ExportMessages(folder / "a file.csv", pointers);
    ASSERT_TRUE(done);
    EXPECT_EQ(done->written, texts);
    EXPECT_EQ(done->skipped, records.size() - texts);
    EXPECT_EQ(ReadFile(folder / "a file.csv")->substr(0, 6), "\xFF\xFE\"\0001\0"s);

    size_t next = 0;
    const auto read = ImportMessages(folder / "a file.csv", 0, [&](std::unique_ptr<SmsRecord> record) {
        while (records[next].text8.empty())
            ++next;
        ASSERT_EQ(record->address.number, records[next].address.number);
        ASSERT_EQ(record->text8, records[next++].text8);
    });
    ASSERT_TRUE(read);
    EXPECT_EQ(read->taken, texts);
    EXPECT_EQ(read->refused, 0u);
}

TEST_F(MessageTextFile, FilesThatFail) {
    const test::TemporaryFolder folder;
    const auto none = [](std::unique_ptr<SmsRecord>) { FAIL(); };
    EXPECT_FALSE(ImportMessages(folder / "missing", 0, none));
    const auto ofFolder = ImportMessages(folder.Path(), 0, none);
    ASSERT_FALSE(ofFolder);
    EXPECT_NE(ofFolder.Failure().text.find("irectory"), std::string::npos) << ofFolder.Failure().text;
    ASSERT_TRUE(WriteFileAtomically(folder / "big-endian", "\xFE\xFF\0\""s));
    EXPECT_FALSE(ImportMessages(folder / "big-endian", 0, none));

    std::filesystem::create_directory(folder / "taken");
    EXPECT_FALSE(ExportMessages(folder / "taken", {}));
    size_t calls = 0;
    SmsRecord large;
    large.text8 = std::string(40'000, 'x');
    const std::vector<const SmsRecord*> records(10, &large);
    WriteMessageText(records, [&](std::string_view) { return ++calls > 1; });
    EXPECT_EQ(calls, 1u) << "a full disk isn't written to again";
}

}  // namespace
}  // namespace tarnbridge
