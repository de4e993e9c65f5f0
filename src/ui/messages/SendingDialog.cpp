#include "ui/messages/SendingDialog.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/Icons.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr int statusColumn = 1;

constexpr QSize usualSize(420, 340);

}  // namespace

SendingDialog::SendingDialog(std::unique_ptr<MessageSending> sending, QWidget* parent)
    : TaskDialog(QWords(Word::SendingMessages), *sending, parent),
      sending_(std::move(sending)),
      rows_(new QTreeWidget) {
    setObjectName(QStringLiteral("sending"));
    rows_->setObjectName(QStringLiteral("rows"));
    rows_->setAccessibleName(QWords(Word::SendingMessages));
    rows_->setHeaderLabels({QWords(Word::SendingRecipient), QWords(Word::SendingStatus)});
    rows_->setRootIsDecorated(false);
    rows_->setUniformRowHeights(true);
    rows_->setSelectionMode(QAbstractItemView::NoSelection);
    rows_->header()->setSectionResizeMode(QHeaderView::Stretch);
    QList<QTreeWidgetItem*> items;
    for (const MessageSending::Item& item : sending_->Items())
        items << new QTreeWidgetItem({ToQString(item.outcome.title), QWords(Word::SendWaiting)});
    rows_->addTopLevelItems(items);
    Content()->addWidget(rows_);
    resize(usualSize);
}

SendingDialog::~SendingDialog() = default;

void SendingDialog::ShowStanding(const HandsetTask::Standing& standing) {
    current_ = static_cast<size_t>(std::max(standing.done, 0));
    const int item = std::min(standing.done + 1, standing.total);
    TaskDialog::ShowStanding(
        {standing.done, standing.total, Words(Word::SendingProgress, {item, standing.total})});
    ShowRows(std::min(current_ + 1, sending_->Items().size()));
    shown_ = current_;
}

void SendingDialog::ShowRows(size_t end) {
    for (size_t item = shown_; item < end; ++item) {
        QTreeWidgetItem* const row = rows_->topLevelItem(static_cast<int>(item));
        row->setText(statusColumn, StatusOf(item));
        row->setToolTip(statusColumn, row->text(statusColumn));
        const bool failed = sending_->Items()[item].outcome.state == MessageOutcome::State::Failed;
        row->setIcon(statusColumn, failed ? ThemedIcon(QStringLiteral("warning")) : QIcon());
        rows_->scrollToItem(row);
    }
}

QString SendingDialog::StatusOf(size_t item) const {
    const MessageOutcome& outcome = sending_->Items()[item].outcome;
    switch (outcome.state) {
        case MessageOutcome::State::Done:
            return QWords(Word::SendSuccess);
        case MessageOutcome::State::Failed:
            return outcome.error >= 0 ? QWords(Word::SendFailedError, {outcome.error})
                                      : QWords(outcome.words);
        case MessageOutcome::State::NotTried:
            break;
    }
    return QWords(IsRunning() && item == current_ ? Word::SendUnderWay : Word::SendNotTried);
}

bool SendingDialog::ShowEnd() {
    ShowRows(sending_->Items().size());
    const auto& items = sending_->Items();
    const auto sent = std::count_if(items.begin(), items.end(), [](const MessageSending::Item& item) {
        return item.outcome.state == MessageOutcome::State::Done;
    });
    QString words =
        QWords(Word::SendingSummary, {static_cast<int64_t>(sent), static_cast<int64_t>(items.size())});
    if (sending_->LostHandset()) words = QWords(Word::HandsetLost) + u'\n' + words;
    ShowWords(words);
    return true;
}

}  // namespace tarnbridge
