#pragma once

#include <QTreeView>

namespace tarnbridge {

/// The list of messages. What is dragged from it is small enough to see the folder below.
class MessageListView : public QTreeView {
    Q_OBJECT

public:
    explicit MessageListView(QWidget* parent = nullptr);

protected:
    void startDrag(Qt::DropActions actions) override;
};

}  // namespace tarnbridge
