#include <thread>

#include <gtest/gtest.h>

#include "platform/FileEntryStore.h"
#include "platform/Files.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

class EntryStoreTest : public ::testing::Test {
protected:
    test::TemporaryFolder folder;
    std::filesystem::path path = folder / "settings" / "Test.conf";
    FileEntryStore store{path};
};

TEST_F(EntryStoreTest, EveryTextComesBack) {
    const std::u16string texts[] = {u"plain",
                                    u"",
                                    u" blanks at both ends ",
                                    u"line\r\nbreaks\tand\\slashes\\n",
                                    u"; [x] = # \"quoted\"",
                                    u"\u00F1\u4E00\U0001F600",
                                    std::u16string(1, u'\0')};
    for (const std::u16string& text : texts) {
        ASSERT_TRUE(store.SetText("Section", "entry", text));
        EXPECT_EQ(store.GetText("Section", "entry"), text);
        EXPECT_EQ(FileEntryStore(path).GetText("Section", "entry"), text) << "in another process";
    }
}

TEST_F(EntryStoreTest, MissingEmptyAndMalformed) {
    EXPECT_EQ(store.GetText("Option", "Port"), std::nullopt);
    EXPECT_TRUE(store.Remove("Option", "Port"));
    store.SetText("Option", "Phone", u"Empty");
    EXPECT_EQ(store.GetText("Option", "Phone"), std::nullopt) << "Empty stands for a missing value";
    for (const char16_t* text : {u"", u"x", u"12x", u"99999999999", u" 1"}) {
        store.SetText("Option", "Port", text);
        EXPECT_EQ(store.GetNumber("Option", "Port"), std::nullopt);
    }
    store.SetNumber("Option", "Port", -7);
    EXPECT_EQ(store.GetNumber("Option", "Port"), -7);
    store.SetBytes("Window", "Place", std::string("\0\xFF z", 4));
    EXPECT_EQ(store.GetBytes("Window", "Place"), std::string("\0\xFF z", 4));
    store.SetText("Window", "Place", u"0g");
    EXPECT_EQ(store.GetBytes("Window", "Place"), std::nullopt);
    EXPECT_EQ(store.Entries("Option"), (std::vector<std::string>{"Phone", "Port"}));
    EXPECT_TRUE(store.Remove("Option", "Phone"));
    EXPECT_EQ(store.Entries("Option"), std::vector<std::string>{"Port"});
}

TEST_F(EntryStoreTest, TwoProcessesDoNotUndoEachOther) {
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([this, writer] {
            FileEntryStore own(path);
            for (int i = 0; i < 10; ++i)
                own.SetNumber("S", std::to_string(writer * 100 + i), i);
        });
    }
    for (std::thread& writer : writers)
        writer.join();
    EXPECT_EQ(store.Entries("S").size(), 40u);
}

TEST_F(EntryStoreTest, AFileThatCannotBeReadIsNotReplaced) {
    std::filesystem::create_directories(path);
    EXPECT_FALSE(store.SetNumber("S", "a", 1));
    EXPECT_EQ(store.GetNumber("S", "a"), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

}  // namespace
}  // namespace tarnbridge
