#include "ui/HandsetTaskRunner.h"

#include <utility>

#include "core/app/CTarnbridgeDoc.h"
#include "core/base/StringTable.h"
#include "ui/dialogs/TaskDialog.h"

namespace tarnbridge {
namespace {

constexpr std::chrono::milliseconds cancelInterval{100};

}  // namespace

HandsetTaskRunner::HandsetTaskRunner(CTarnbridgeDoc& document, QObject* parent)
    : QObject(parent), document_(document), receiver_([this](Message& message) { return Receive(message); }) {
    cancelWatch_.setInterval(cancelInterval);
    connect(&cancelWatch_, &QTimer::timeout, this, &HandsetTaskRunner::TakeCancel);
}

HandsetTaskRunner::~HandsetTaskRunner() {
    if (IsBusy()) document_.viewSwitchAllowed = true;
    delete dialog_;
}

bool HandsetTaskRunner::Run(std::shared_ptr<HandsetTask> task, const std::u16string& title,
                            std::function<void()> ended) {
    if (IsBusy()) return Refuse();
    task_ = std::move(task);
    ended_ = std::move(ended);
    standing_ = {};
    task_->onProgress = [this](const HandsetTask::Standing& standing) { Show(standing); };
    if (!task_->Start(receiver_.Target())) {
        task_.reset();
        return Refuse();
    }
    if (task_->HasEnded()) {
        task_.reset();
        std::exchange(ended_, nullptr)();
        return true;
    }
    document_.viewSwitchAllowed = false;
    if (!title.empty()) {
        progress_ = document_.User().ShowProgress(title);
        cancelWatch_.start();
    }
    Show(standing_);
    Q_EMIT busyChanged();
    return true;
}

bool HandsetTaskRunner::Run(std::unique_ptr<TaskDialog> dialog, std::function<void()> ended) {
    if (IsBusy()) return Refuse();
    dialog_ = dialog.get();
    connect(dialog_, &TaskDialog::ended, this, std::move(ended));
    connect(dialog_, &QDialog::finished, this, [this] {
        dialog_->deleteLater();
        dialog_ = nullptr;
        document_.viewSwitchAllowed = true;
        Q_EMIT busyChanged();
    });
    if (!dialog->Start()) return Refuse();
    // One whose task needed no handset may be closed by now.
    if (dialog.release() == dialog_) {
        document_.viewSwitchAllowed = false;
        Q_EMIT busyChanged();
    }
    return true;
}

bool HandsetTaskRunner::Refuse() {
    document_.User().Tell(Words(Word::HandsetBusy));
    return false;
}

void HandsetTaskRunner::Cancel() {
    if (task_) task_->Cancel();
    if (dialog_) dialog_->GiveUp();
}

intptr_t HandsetTaskRunner::Receive(Message& message) {
    if (!task_ || task_->HasEnded()) return 0;
    TakeCancel();
    task_->Take(message);
    if (task_->HasEnded()) Finish();
    return 0;
}

void HandsetTaskRunner::TakeCancel() {
    if (task_ && progress_ && progress_->Cancelled()) task_->Cancel();
}

void HandsetTaskRunner::Show(const HandsetTask::Standing& standing) {
    standing_ = standing;
    if (!progress_) return;
    progress_->SetTotal(standing.total);
    progress_->SetDone(standing.done);
    if (!standing.words.empty()) progress_->SetWords(standing.words);
}

/// What follows may ask the user, over a window from which the progress must have gone first: its going is
/// queued before this.
void HandsetTaskRunner::Finish() {
    cancelWatch_.stop();
    progress_.reset();
    QMetaObject::invokeMethod(
        this,
        [this] {
            task_.reset();
            document_.viewSwitchAllowed = true;
            // It may tell the user something; only then is nothing in the way any more.
            const QPointer<HandsetTaskRunner> alive(this);
            std::exchange(ended_, nullptr)();
            if (alive) Q_EMIT busyChanged();
        },
        Qt::QueuedConnection);
}

}  // namespace tarnbridge
