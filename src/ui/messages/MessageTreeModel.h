#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <memory>
#include <unordered_map>
#include <vector>

#include "messaging/MessageFolders.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

/// The folders of messages as a tree of names with drawings and counts of unread messages. It is a picture
/// that Refresh takes anew after each change of the folders; no folder is looked at in between but by what
/// the user does: he renames a folder of his in place, and drops messages and folders on others, which is
/// told by signals.
class MessageTreeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    enum Role { UnreadRole = Qt::UserRole };  ///< how many messages are unread

    /// All must outlive the model.
    MessageTreeModel(MessageTree tree, MessageFolders& folders, QObject* parent);
    ~MessageTreeModel() override;

    void Refresh();

    /// Null for an invalid index.
    MessageFolder* FolderAt(const QModelIndex& index) const;

    /// Invalid for a folder that wasn't there at the last Refresh.
    QModelIndex IndexOf(const MessageFolder* folder) const;

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

Q_SIGNALS:
    /// Queued, so that no question is asked while the mouse is still being followed.
    void messagesDropped(tarnbridge::MessageFolder* from, const std::vector<tarnbridge::SmsRecord*>& records,
                         tarnbridge::MessageFolder* to, bool move);
    void folderDropped(tarnbridge::MessageFolder* folder, tarnbridge::MessageFolder* under);

private:
    struct Node {
        MessageFolder* folder = nullptr;
        Node* parent = nullptr;
        std::vector<Node*> children{};
        QString name{};
        QIcon icon{};
        int unread = 0;
        bool mayChange = false;
        bool holdsMessages = false;
    };

    Node& NodeOf(const QModelIndex& index) const;
    QModelIndex IndexOf(const Node& node) const;
    void RemoveGone();
    void RemoveWithAllBelow(Node& parent, size_t place);
    void InsertNew();
    bool Describe(Node& node) const;

    const MessageTree tree_;
    MessageFolders& folders_;
    Node* const root_;
    /// All nodes, so that a tree of any depth goes without recursion.
    std::unordered_map<const MessageFolder*, std::unique_ptr<Node>> nodes_;
};

}  // namespace tarnbridge
