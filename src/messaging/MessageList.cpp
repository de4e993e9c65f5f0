#include "messaging/MessageList.h"

#include <algorithm>
#include <numeric>

#include "core/base/StringTable.h"
#include "messaging/MessageDownload.h"
#include "messaging/Recipients.h"
#include "messaging/RecordText.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

uint64_t Comparable(const SmsTimestamp& time) {
    uint64_t value = static_cast<uint64_t>(time.FullYear());
    for (const uint8_t field : {time.month, time.day, time.hour, time.minute, time.second})
        value = value << 8 | field;
    return value;
}

std::u16string TextIn(const SmsRecord& record) {
    std::u16string text = ShownText(record);
    return record.unreadable ? Words(Word::UnreadableMessage, {text}) : text;
}

}  // namespace

void MessageList::Open(const MessageFolder& folder) {
    Close();
    {
        const std::lock_guard guard(folder.lock);
        rows_.reserve(folder.records.size());
        for (const auto& record : folder.records) {
            rows_.push_back({record.get(), record->timestamp, Comparable(record->timestamp),
                             record->status == smsUnread, MemoryWords(record->storage),
                             WidenBytes(record->address.number), TextIn(*record)});
            rows_.back().sendable = IsSendable(*record);
        }
    }
    Show();
}

void MessageList::Close() {
    rows_.clear();
    shown_.clear();
}

void MessageList::Sort(Column column, bool ascending) {
    column_ = column;
    ascending_ = ascending;
    sorted_ = true;
    Show();
}

void MessageList::Filter(std::u16string_view text) {
    filter_ = FoldCase(text);
    Show();
}

void MessageList::Show() {
    shown_.resize(rows_.size());
    std::iota(shown_.begin(), shown_.end(), 0U);
    if (!filter_.empty()) {
        std::erase_if(shown_, [this](uint32_t place) {
            Row& row = rows_[place];
            if (row.folded.empty()) row.folded = FoldCase(row.address + u"\n" + row.text);
            return row.folded.find(filter_) == std::u16string::npos;
        });
    }
    if (!sorted_) return;
    const auto sort = [this](auto key) {
        std::stable_sort(shown_.begin(), shown_.end(), [&](uint32_t first, uint32_t second) {
            return ascending_ ? key(rows_[first]) < key(rows_[second])
                              : key(rows_[second]) < key(rows_[first]);
        });
    };
    switch (column_) {
        case Column::Memory:
            sort([](const Row& row) -> std::u16string_view { return row.memory; });
            break;
        case Column::Address:
            sort([](const Row& row) -> std::u16string_view { return row.address; });
            break;
        case Column::Time:
            sort([](const Row& row) { return row.time; });
            break;
        case Column::Text:
            sort([](const Row& row) -> std::u16string_view { return row.text; });
            break;
    }
}

std::u16string MessageList::CellOf(const Row& row, Column column) {
    switch (column) {
        case Column::Memory:
            return row.memory;
        case Column::Address:
            return row.address;
        case Column::Time:
            return row.timestamp.IsSet() ? WidenBytes(row.timestamp.ToText()) : std::u16string();
        case Column::Text:
            break;
    }
    return row.text;
}

}  // namespace tarnbridge
