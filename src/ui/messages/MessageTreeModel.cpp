#include "ui/messages/MessageTreeModel.h"

#include <QFont>
#include <algorithm>
#include <unordered_set>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/messages/DraggedMessages.h"

namespace tarnbridge {
namespace {

std::vector<MessageFolder*> ChildrenOf(const MessageFolder& folder) {
    const std::lock_guard guard(folder.lock);
    std::vector<MessageFolder*> children;
    for (const auto& child : folder.children)
        children.push_back(child.get());
    return children;
}

int UnreadIn(const MessageFolder& folder) {
    const std::lock_guard guard(folder.lock);
    return static_cast<int>(std::count_if(folder.records.begin(), folder.records.end(),
                                          [](const auto& record) { return record->status == smsUnread; }));
}

}  // namespace

MessageTreeModel::MessageTreeModel(MessageTree tree, MessageFolders& folders, QObject* parent)
    : QAbstractItemModel(parent), tree_(tree), folders_(folders), root_(new Node{&tree.Root()}) {
    nodes_[root_->folder].reset(root_);
    InsertNew();
}

MessageTreeModel::~MessageTreeModel() = default;

void MessageTreeModel::Refresh() {
    RemoveGone();
    InsertNew();
}

/// Goes down only to folders that are still where they were.
void MessageTreeModel::RemoveGone() {
    std::vector<Node*> waiting = {root_};
    while (!waiting.empty()) {
        Node& node = *waiting.back();
        waiting.pop_back();
        const std::vector<MessageFolder*> present = ChildrenOf(*node.folder);
        const std::unordered_set<MessageFolder*> there(present.begin(), present.end());
        for (size_t place = node.children.size(); place-- > 0;) {
            if (there.contains(node.children[place]->folder))
                waiting.push_back(node.children[place]);
            else
                RemoveWithAllBelow(node, place);
        }
    }
}

void MessageTreeModel::RemoveWithAllBelow(Node& parent, size_t place) {
    const int row = static_cast<int>(place);
    beginRemoveRows(IndexOf(parent), row, row);
    std::vector<Node*> doomed = {parent.children[place]};
    parent.children.erase(parent.children.begin() + row);
    while (!doomed.empty()) {
        const Node* const node = doomed.back();
        doomed.pop_back();
        doomed.insert(doomed.end(), node->children.begin(), node->children.end());
        nodes_.erase(node->folder);
    }
    endRemoveRows();
}

void MessageTreeModel::InsertNew() {
    std::vector<Node*> waiting = {root_};
    while (!waiting.empty()) {
        Node& node = *waiting.back();
        waiting.pop_back();
        const std::vector<MessageFolder*> present = ChildrenOf(*node.folder);
        for (size_t place = 0; place < present.size(); ++place) {
            MessageFolder* const folder = present[place];
            const bool known = place < node.children.size() && node.children[place]->folder == folder;
            if (!known) {
                auto made = std::make_unique<Node>(Node{folder, &node});
                Describe(*made);
                const int row = static_cast<int>(place);
                beginInsertRows(IndexOf(node), row, row);
                node.children.insert(node.children.begin() + row, made.get());
                nodes_[folder] = std::move(made);
                endInsertRows();
            } else if (Describe(*node.children[place])) {
                const QModelIndex changed = IndexOf(*node.children[place]);
                Q_EMIT dataChanged(changed, changed);
            }
            waiting.push_back(node.children[place]);
        }
    }
}

/// Whether anything has changed.
bool MessageTreeModel::Describe(Node& node) const {
    const MessageFolder& folder = *node.folder;
    QString name;
    {
        const std::lock_guard guard(folder.lock);
        name = ToQString(folder.name).simplified();
    }
    const int unread = UnreadIn(folder);
    node.mayChange = MessageFolders::MayChange(folder);
    node.holdsMessages = tree_.HoldsMessages(folder);
    if (node.icon.isNull()) node.icon = FolderIcon(tree_.LookOf(folder));
    const bool changed = name != node.name || unread != node.unread;
    node.name = name;
    node.unread = unread;
    return changed;
}

MessageTreeModel::Node& MessageTreeModel::NodeOf(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *root_;
}

QModelIndex MessageTreeModel::IndexOf(const Node& node) const {
    if (!node.parent) return {};
    const std::vector<Node*>& siblings = node.parent->children;
    const auto found = std::find(siblings.begin(), siblings.end(), &node);
    return createIndex(static_cast<int>(found - siblings.begin()), 0, const_cast<Node*>(&node));
}

MessageFolder* MessageTreeModel::FolderAt(const QModelIndex& index) const {
    return index.isValid() ? NodeOf(index).folder : nullptr;
}

QModelIndex MessageTreeModel::IndexOf(const MessageFolder* folder) const {
    const auto found = nodes_.find(folder);
    return found == nodes_.end() ? QModelIndex() : IndexOf(*found->second);
}

int MessageTreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : static_cast<int>(NodeOf(parent).children.size());
}

int MessageTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

QModelIndex MessageTreeModel::index(int row, int column, const QModelIndex& parent) const {
    const std::vector<Node*>& children = NodeOf(parent).children;
    if (column != 0 || row < 0 || row >= static_cast<int>(children.size())) return {};
    return createIndex(row, 0, children[static_cast<size_t>(row)]);
}

QModelIndex MessageTreeModel::parent(const QModelIndex& child) const {
    return child.isValid() ? IndexOf(*NodeOf(child).parent) : QModelIndex();
}

QVariant MessageTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const Node& node = NodeOf(index);
    switch (role) {
        case Qt::DisplayRole:
            return node.unread == 0 ? node.name : QStringLiteral("%1 (%2)").arg(node.name).arg(node.unread);
        case Qt::EditRole:
            return node.name;
        case Qt::AccessibleTextRole:
            return node.unread == 0 ? node.name
                                    : QWords(Word::FolderWithUnread, {ToText(node.name), node.unread});
        case Qt::DecorationRole:
            return node.icon;
        case Qt::FontRole: {
            QFont font;
            font.setBold(node.unread != 0);
            return font;
        }
        case UnreadRole:
            return node.unread;
        default:
            return {};
    }
}

bool MessageTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole) return false;
    Node& node = NodeOf(index);
    if (!folders_.Rename(*node.folder, ToText(value.toString().simplified()))) return false;
    Describe(node);
    Q_EMIT dataChanged(index, index);
    return true;
}

Qt::ItemFlags MessageTreeModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const Node& node = NodeOf(index);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (node.mayChange) flags |= Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
    if (node.holdsMessages) flags |= Qt::ItemIsDropEnabled;
    return flags;
}

QStringList MessageTreeModel::mimeTypes() const {
    return {QString::fromLatin1(DraggedMessages::messagesType),
            QString::fromLatin1(DraggedMessages::folderType)};
}

QMimeData* MessageTreeModel::mimeData(const QModelIndexList& indexes) const {
    return indexes.isEmpty() ? nullptr : new DraggedMessages(*FolderAt(indexes.front()));
}

bool MessageTreeModel::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int,
                                       const QModelIndex& parent) const {
    const auto* const dropped = qobject_cast<const DraggedMessages*>(data);
    if (!dropped || row >= 0 || !parent.isValid() || nodes_.count(dropped->folder) == 0) return false;
    const Node& target = NodeOf(parent);
    if (dropped->records.empty())
        return action == Qt::MoveAction && folders_.MayMove(*dropped->folder, *target.folder);
    return target.holdsMessages && (action == Qt::CopyAction || dropped->folder != target.folder);
}

bool MessageTreeModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                    const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent)) return false;
    const auto* const dropped = qobject_cast<const DraggedMessages*>(data);
    QMetaObject::invokeMethod(
        this,
        [this, from = dropped->folder, records = dropped->records, to = FolderAt(parent),
         move = action == Qt::MoveAction] {
            if (records.empty())
                Q_EMIT folderDropped(from, to);
            else
                Q_EMIT messagesDropped(from, records, to, move);
        },
        Qt::QueuedConnection);
    return true;
}

}  // namespace tarnbridge
