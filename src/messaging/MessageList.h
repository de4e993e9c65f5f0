#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "messaging/MessageFolder.h"

namespace tarnbridge {

/// The list of a folder's messages as the user sees it, sorted and filtered, in the records' own order at
/// first. Nothing is decoded for it. It is a picture of the folder, which Open takes anew after a change: no
/// record is looked at afterwards, so one may leave the folder at any time. For the thread that owns the
/// folder.
class MessageList {
public:
    enum class Column { Memory, Address, Time, Text };

    struct Row {
        SmsRecord* record = nullptr;
        SmsTimestamp timestamp;
        uint64_t time = 0;  ///< for comparing
        bool unread = false;
        std::u16string memory;  ///< as the user sees it
        std::u16string address;
        std::u16string text;  ///< as ShownText has it; of an unreadable one it says so
        std::u16string folded{};
        bool sendable = false;
    };

    /// Takes the folder's lock; sorts and filters as before.
    void Open(const MessageFolder& folder);
    void Close();

    /// Rows that are equal keep their order.
    void Sort(Column column, bool ascending);

    /// Shows only those whose address or text contains this, whatever the case of its letters; all if empty.
    void Filter(std::u16string_view text);

    /// The row's message has been read.
    void ShowAsRead(size_t place) { rows_[shown_[place]].unread = false; }

    size_t CountOfAll() const { return rows_.size(); }
    size_t Count() const { return shown_.size(); }
    const Row& At(size_t place) const { return rows_[shown_[place]]; }

    /// What stands in a column of a row.
    static std::u16string CellOf(const Row& row, Column column);

private:
    void Show();

    std::vector<Row> rows_;
    std::vector<uint32_t> shown_;
    std::u16string filter_;
    Column column_ = Column::Time;
    bool sorted_ = false;
    bool ascending_ = true;
};

}  // namespace tarnbridge
