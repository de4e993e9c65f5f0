#include <gtest/gtest.h>

#include "core/base/Settings.h"
#include "platform/FileEntryStore.h"
#include "platform/Text.h"
#include "support/TemporaryFolder.h"

namespace tarnbridge {
namespace {

class SettingsTest : public ::testing::Test {
protected:
    test::TemporaryFolder folder;
    FileEntryStore store{folder / "settings.conf"};
    Settings settings{store};
};

TEST_F(SettingsTest, EveryRowReachesAnEntryOfItsOwnAndComesBack) {
    const auto count = static_cast<int>(SettingIndex::Count);
    const auto unlike = [](int index) { return WidenBytes(std::to_string(1000 + index)); };
    for (int index = 0; index < count; ++index) {
        const auto row = static_cast<SettingIndex>(index);
        const int written = static_cast<bool>(settings.SetNumber(row, 1000 + index)) +
                            static_cast<bool>(settings.SetText(row, unlike(index))) +
                            static_cast<bool>(settings.SetList(row, {1000 + index, -1})) +
                            static_cast<bool>(settings.SetHistory(row, {unlike(index), u"é"}));
        EXPECT_EQ(written, 1) << "row " << index << " has one type";
    }
    Settings again{store};
    again.Load();
    for (int index = 0; index < count; ++index) {
        const auto row = static_cast<SettingIndex>(index);
        EXPECT_EQ(again.GetNumber(row), settings.GetNumber(row)) << index;
        EXPECT_EQ(again.GetText(row), settings.GetText(row)) << index;
        EXPECT_EQ(again.GetList(row), settings.GetList(row)) << index;
        EXPECT_EQ(again.GetHistory(row), settings.GetHistory(row)) << index;
    }
}

TEST_F(SettingsTest, EntriesAreSpelledAsUsersHaveThem) {
    settings.SetList(SettingIndex::MelodyColumns, {120, 80, 200});
    EXPECT_EQ(store.GetText("Column", "Meoldy"), u"120,80,200,");
    settings.SetText(SettingIndex::MmsSoundFolder, u"/tmp");
    EXPECT_EQ(store.GetText("Mms", "Meoldy"), u"/tmp");
}

TEST_F(SettingsTest, ListsEndEachItemWithAComma) {
    const std::pair<std::u16string, std::vector<int32_t>> rows[] = {
        {u"", {}},
        {u"120,80,200,", {120, 80, 200}},
        {u"120,80", {120}},  // a remainder without its comma is no item, and no endless loop
        {u",, 7x,-3,word,", {0, 0, 7, -3, 0}},
        {u"99999999999,-99999999999,", {INT32_MAX, INT32_MIN}},
    };
    for (const auto& [stored, expected] : rows) {
        store.SetText("Column", "Sms", stored);
        settings.Load();
        EXPECT_EQ(settings.GetList(SettingIndex::SmsColumns), expected);
    }
}

TEST_F(SettingsTest, HistoriesHoldTenAndSplitAtCommas) {
    std::vector<std::u16string> twelve;
    for (int item = 0; item < 12; ++item)
        twelve.push_back(WidenBytes(std::to_string(item)));
    settings.SetHistory(SettingIndex::PhonebookHistory, twelve);
    twelve.resize(10);
    EXPECT_EQ(settings.GetHistory(SettingIndex::PhonebookHistory), twelve);
    EXPECT_EQ(store.GetText("FindHistory", "Phonebook"), u"0,1,2,3,4,5,6,7,8,9,");

    settings.SetHistory(SettingIndex::SoundHistory, {u"a,b", u""});
    settings.Load();
    EXPECT_EQ(settings.GetHistory(SettingIndex::SoundHistory),
              (std::vector<std::u16string>{u"a", u"b", u""}));
}

TEST_F(SettingsTest, AStoreThatCannotBeWrittenIsReportedAndTheValueHolds) {
    FileEntryStore broken(folder.Path() / "no file \xFF" / std::string(300, 'x'));
    Settings inMemory(broken);
    EXPECT_FALSE(inMemory.SetNumber(SettingIndex::Port, 9));
    EXPECT_EQ(inMemory.GetNumber(SettingIndex::Port), 9);
}

}  // namespace
}  // namespace tarnbridge
