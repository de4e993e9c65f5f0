#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QIcon>
#include <vector>

#include "messaging/MessageList.h"

namespace tarnbridge {

/// The messages of a folder as a table, a row each. It is a picture that is taken when a folder is opened or
/// refreshed, and looks at no record afterwards.
class MessageListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { MemoryColumn, AddressColumn, TimeColumn, TextColumn, ColumnCount };
    enum Role { UnreadRole = Qt::UserRole };

    explicit MessageListModel(QObject* parent);

    /// Null shows nothing.
    /// \param received  whether its messages come from somebody, rather than go to somebody
    void Open(const MessageFolder* folder, bool received);

    /// Takes the picture anew. Rows keep nothing of before.
    void Refresh();

    /// Shows only messages with this in their address or text; all if empty.
    void SetFilter(const QString& text);
    bool IsFiltered() const { return filtered_; }

    const MessageFolder* Folder() const { return folder_; }

    /// Shows the rows dimmed: they are of an old reading.
    void SetOld(bool old);

    /// All that the folder has, shown or not.
    size_t CountInFolder() const { return list_.CountOfAll(); }

    /// The address of the row's message, which may have left the folder since the last Refresh.
    SmsRecord* RecordAt(int row) const { return list_.At(static_cast<size_t>(row)).record; }

    /// Whether it was written rather than received.
    bool IsSendable(int row) const { return list_.At(static_cast<size_t>(row)).sendable; }

    /// The rows of these messages, in order, without those that aren't shown.
    std::vector<int> RowsOf(const std::vector<SmsRecord*>& records) const;

    /// Shows a message as read from now on.
    void ShowAsRead(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    void sort(int column, Qt::SortOrder order) override;

    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

private:
    QVariant CellOf(const MessageList::Row& row, int column) const;

    MessageList list_;
    const MessageFolder* folder_ = nullptr;
    bool received_ = false;
    bool filtered_ = false;
    bool old_ = false;
    const QIcon readIcon_;
    const QIcon unreadIcon_;
};

}  // namespace tarnbridge
