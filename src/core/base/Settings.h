#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/EntryStore.h"

namespace tarnbridge {

/// The rows of the table of settings. What each stands for in the store, with its type and its default, is
/// in Settings.cpp.
enum class SettingIndex : int {
    View,        ///< number: the view last selected
    Port,        ///< number: n of COMn
    Phone,       ///< text: key of the phone model in use
    Language,    ///< number: language id
    SmsColumns,  ///< list, as the following: column widths
    PhonebookColumns,
    ImagesColumns,
    MelodyColumns,
    MmsColumns,
    FileColumns,
    PhonebookHistory,  ///< history: what was searched for among the contacts
    SoundHistory,      ///< history: what was searched for among the sounds
    SmsSplitter,       ///< list, as the following: splitter positions
    PhonebookSplitter,
    ImagesSplitter,
    MelodySplitter,
    MmsSplitter,
    FileSplitter,
    SmsMemory,       ///< text: preferred message storage
    MmsImageFolder,  ///< text, as the following: the folder last used
    MmsSoundFolder,
    MmsVideoFolder,
    FileFolder,
    ImageFolder,
    MelodyFolder,
    MmsFolder,
    LongSms,      ///< text: `TRUE` allows messages of several parts
    SevenBitSms,  ///< text: `TRUE` sends with 7-bit coding
    SmsFolder,    ///< list: the rows from the root of the folders to the one last open
    SmsSorting,   ///< list: the column that the messages are sorted by, and 1 if downwards
    AskTrash,     ///< text: `FALSE` moves to the trash can without a question
    Count
};

/// The user's settings: a fixed table over the store, kept in memory by type and written through at once. A
/// change whose writing fails holds in memory nevertheless. An index of another type, or out of range, reads
/// as -1 or empty and isn't written. All operations may be called from any thread.
class Settings {
public:
    /// All defaults. `store` must outlive this.
    explicit Settings(EntryStore& store);

    /// Reads all rows; those that the store hasn't keep what they have.
    void Load();

    int32_t GetNumber(SettingIndex index) const;
    Outcome SetNumber(SettingIndex index, int32_t value);

    std::u16string GetText(SettingIndex index) const;
    Outcome SetText(SettingIndex index, std::u16string_view value);

    std::vector<int32_t> GetList(SettingIndex index) const;
    Outcome SetList(SettingIndex index, std::vector<int32_t> value);

    /// At most 10 texts, in the order in which they were set. One with a comma in it is two when it is read
    /// again.
    std::vector<std::u16string> GetHistory(SettingIndex index) const;
    Outcome SetHistory(SettingIndex index, std::vector<std::u16string> value);

private:
    using Value = std::variant<int32_t, std::u16string, std::vector<int32_t>, std::vector<std::u16string>>;
    struct Row;

    static const std::vector<Row>& Rows();

    template <typename Type>
    Type Get(SettingIndex index, Type otherwise) const;
    template <typename Type, typename Write>
    Outcome Set(SettingIndex index, Type value, Write write);

    EntryStore& store_;
    mutable std::mutex mutex_;
    std::vector<Value> values_;
};

}  // namespace tarnbridge
