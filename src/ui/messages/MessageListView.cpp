#include "ui/messages/MessageListView.h"

#include <QDrag>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>

#include "ui/Icons.h"

namespace tarnbridge {
namespace {

constexpr int margin = 4;

/// A message, or how many there are.
QPixmap PictureOf(qsizetype count, const QWidget& view) {
    QLabel label;
    label.setPalette(view.palette());
    label.setFont(view.font());
    label.setMargin(margin);
    label.setFrameShape(QFrame::Box);
    const int side = view.fontMetrics().height() * 3 / 2;
    if (count > 1)
        label.setText(QString::number(count));
    else
        label.setPixmap(ThemedIcon(QStringLiteral("messages")).pixmap({side, side}, view.devicePixelRatio()));
    label.adjustSize();
    return label.grab();
}

}  // namespace

MessageListView::MessageListView(QWidget* parent) : QTreeView(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragEnabled(true);
    setDefaultDropAction(Qt::MoveAction);
    header()->setSectionsMovable(false);
}

void MessageListView::startDrag(Qt::DropActions actions) {
    const QModelIndexList rows = selectionModel()->selectedRows();
    QMimeData* const messages = model()->mimeData(rows);
    if (!messages) return;
    auto* const drag = new QDrag(this);
    drag->setMimeData(messages);
    drag->setPixmap(PictureOf(rows.size(), *this));
    // The model takes the rows away itself.
    drag->exec(actions, defaultDropAction());
}

}  // namespace tarnbridge
