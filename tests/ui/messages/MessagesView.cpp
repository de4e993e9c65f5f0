#include "ui/messages/MessagesView.h"

#include <QApplication>
#include <QDropEvent>
#include <QLabel>

#include "ui/dialogs/TaskDialog.h"

namespace tarnbridge::test {

MessagesView::MessagesView() {
    UsePort(handset.Path());
}

MessagesView::~MessagesView() {
    program.reset();
}

void MessagesView::Open() {
    Start();
    ASSERT_TRUE(AwaitWords(QStringLiteral("Connected!")));
}

void MessagesView::Reopen() {
    Frame().Choose(2);
    Frame().Choose(1);
}

void MessagesView::ReadAll() {
    user.answers.push_back(Answer::Yes);
    Do("readMessages");
}

void MessagesView::Do(const char* command) {
    QAction& action = Command(command);
    ASSERT_TRUE(action.isEnabled()) << command << ": " << action.toolTip().toStdString();
    action.trigger();
    ASSERT_TRUE(AwaitRest());
}

bool MessagesView::AwaitRest() {
    QCoreApplication::processEvents();
    return Await([this] {
        auto* const work = Frame().findChild<TaskDialog*>();
        if (work && work->isVisible() && !work->IsRunning()) {
            told << work->findChild<QLabel*>(QStringLiteral("words"))->text();
            work->reject();
        }
        return Document().viewSwitchAllowed;
    });
}

void MessagesView::OpenFolder(const MessageFolder& chosen) {
    const QModelIndex index = Folders().IndexOf(&chosen);
    ASSERT_TRUE(index.isValid());
    Tree().setCurrentIndex(index);
}

void MessagesView::SelectRows(const std::vector<int>& rows) {
    QItemSelection selection;
    for (const int row : rows)
        selection.select(Messages().index(row, 0), Messages().index(row, 0));
    List().selectionModel()->select(selection,
                                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (!rows.empty())
        List().selectionModel()->setCurrentIndex(Messages().index(rows.back(), 0),
                                                 QItemSelectionModel::NoUpdate);
}

int MessagesView::RowOf(const QString& text) {
    const QStringList texts = Column(MessageListModel::TextColumn);
    for (qsizetype row = 0; row < texts.size(); ++row) {
        if (texts[row].startsWith(text)) return static_cast<int>(row);
    }
    return -1;
}

QStringList MessagesView::Column(int column) {
    QStringList cells;
    for (int row = 0; row < Messages().rowCount(); ++row)
        cells << Messages().index(row, column).data().toString();
    return cells;
}

SmsRecord& MessagesView::Put(MessageFolder& to, const std::u16string& text, int status,
                             const std::string& number) {
    auto record = std::make_unique<SmsRecord>();
    record->dcs = 8;
    record->text16 = text;
    record->address = SmsAddress(number, SmsAddress::unknown);
    record->status = status;
    record->messageType = status == smsUnread || status == smsRead ? SmsRecord::deliver : SmsRecord::submit;
    record->storage = u"PC";
    return to.Append(std::move(record));
}

QMimeData* MessagesView::DraggedRows(const std::vector<int>& rows) {
    QModelIndexList indexes;
    for (const int row : rows)
        indexes << Messages().index(row, 0) << Messages().index(row, 1);
    return Messages().mimeData(indexes);
}

void MessagesView::Drop(QMimeData* data, const MessageFolder& on, Qt::DropAction action) {
    const std::unique_ptr<QMimeData> owned(data);
    const QModelIndex target = Folders().IndexOf(&on);
    ASSERT_TRUE(target.isValid());
    Tree().scrollTo(target);
    const QPoint place = Tree().visualRect(target).center();
    const auto modifiers = action == Qt::CopyAction ? Qt::ControlModifier : Qt::ShiftModifier;
    QWidget* const viewport = Tree().viewport();
    QDragEnterEvent enter(place, Qt::MoveAction | Qt::CopyAction, data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(place, Qt::MoveAction | Qt::CopyAction, data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(viewport, &move);
    if (!move.isAccepted()) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(viewport, &leave);
        return;
    }
    QDropEvent drop(place, Qt::MoveAction | Qt::CopyAction, data, Qt::LeftButton, modifiers);
    QApplication::sendEvent(viewport, &drop);
    ASSERT_TRUE(AwaitRest());
}

size_t MessagesView::CountOn(const std::string& memory) {
    return handset.Locations(memory).size();
}

std::vector<std::u16string> TextsIn(const MessageFolder& folder) {
    const std::lock_guard guard(folder.lock);
    std::vector<std::u16string> texts;
    for (const auto& record : folder.records)
        texts.push_back(record->TextAsWide());
    return texts;
}

}  // namespace tarnbridge::test
