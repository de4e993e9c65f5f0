#include "ui/messages/MessageListModel.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/messages/DraggedMessages.h"

namespace tarnbridge {
namespace {

constexpr qsizetype longestCell = 300;  // units of text, more than any column shows

/// One line.
QString LineOf(std::u16string_view text) {
    QString line = ToQString(text.substr(0, longestCell));
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = u' ';
    }
    return line;
}

}  // namespace

MessageListModel::MessageListModel(QObject* parent)
    : QAbstractTableModel(parent),
      readIcon_(ThemedIcon(QStringLiteral("message-read"))),
      unreadIcon_(ThemedIcon(QStringLiteral("message-unread"))) {}

void MessageListModel::Open(const MessageFolder* folder, bool received) {
    folder_ = folder;
    received_ = received;
    Refresh();
    Q_EMIT headerDataChanged(Qt::Horizontal, AddressColumn, AddressColumn);
}

void MessageListModel::Refresh() {
    beginResetModel();
    if (folder_)
        list_.Open(*folder_);
    else
        list_.Close();
    endResetModel();
}

void MessageListModel::SetFilter(const QString& text) {
    beginResetModel();
    filtered_ = !text.isEmpty();
    list_.Filter(ToText(text));
    endResetModel();
}

void MessageListModel::SetOld(bool old) {
    if (std::exchange(old_, old) == old || rowCount() == 0) return;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1), {Qt::ForegroundRole});
}

std::vector<int> MessageListModel::RowsOf(const std::vector<SmsRecord*>& records) const {
    const std::unordered_set<const SmsRecord*> wanted(records.begin(), records.end());
    std::vector<int> rows;
    for (int row = 0; !wanted.empty() && row < rowCount(); ++row) {
        if (wanted.contains(RecordAt(row))) rows.push_back(row);
    }
    return rows;
}

void MessageListModel::ShowAsRead(int row) {
    list_.ShowAsRead(static_cast<size_t>(row));
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

int MessageListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.Count());
}

int MessageListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MessageListModel::CellOf(const MessageList::Row& row, int column) const {
    switch (column) {
        case MemoryColumn:
            return ToQString(row.memory);
        case AddressColumn:
            return LineOf(row.address);
        case TimeColumn:
            return LineOf(MessageList::CellOf(row, MessageList::Column::Time));
        case TextColumn:
            return LineOf(row.text);
        default:
            return {};
    }
}

QVariant MessageListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const MessageList::Row& row = list_.At(static_cast<size_t>(index.row()));
    switch (role) {
        case Qt::DisplayRole:
            return CellOf(row, index.column());
        case Qt::DecorationRole:
            if (index.column() != AddressColumn) return {};
            return row.unread ? unreadIcon_ : readIcon_;
        case Qt::FontRole: {
            if (!row.unread) return {};
            QFont font;
            font.setBold(true);
            return font;
        }
        case Qt::ForegroundRole:
            if (!old_) return {};
            return QGuiApplication::palette().color(QPalette::PlaceholderText);
        case Qt::AccessibleTextRole: {
            const QString cell = CellOf(row, index.column()).toString();
            if (index.column() != AddressColumn || !row.unread) return {};
            return QWords(Word::UnreadFrom, {ToText(cell)});
        }
        case UnreadRole:
            return row.unread;
        default:
            return {};
    }
}

QVariant MessageListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
        case MemoryColumn:
            return QWords(Word::ColumnMemory);
        case AddressColumn:
            return QWords(received_ ? Word::ColumnFrom : Word::ColumnTo);
        case TimeColumn:
            return QWords(Word::ColumnTime);
        case TextColumn:
            return QWords(Word::ColumnMessage);
        default:
            return {};
    }
}

Qt::ItemFlags MessageListModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid()) flags |= Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    return flags;
}

void MessageListModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= ColumnCount) return;
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<const SmsRecord*> records;
    for (const QModelIndex& index : before)
        records.push_back(RecordAt(index.row()));
    list_.Sort(static_cast<MessageList::Column>(column), order == Qt::AscendingOrder);
    if (!before.isEmpty()) {
        std::unordered_map<const SmsRecord*, int> rows;
        for (int row = 0; row < rowCount(); ++row)
            rows[RecordAt(row)] = row;
        QModelIndexList after;
        for (qsizetype i = 0; i < before.size(); ++i)
            after << index(rows[records[static_cast<size_t>(i)]], before[i].column());
        changePersistentIndexList(before, after);
    }
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

QMimeData* MessageListModel::mimeData(const QModelIndexList& indexes) const {
    std::vector<int> rows;
    for (const QModelIndex& index : indexes)
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (rows.empty() || !folder_) return nullptr;
    std::vector<SmsRecord*> records;
    for (const int row : rows)
        records.push_back(RecordAt(row));
    return new DraggedMessages(const_cast<MessageFolder&>(*folder_), std::move(records));
}

}  // namespace tarnbridge
