#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>

#include "core/base/HandsetTask.h"
#include "core/base/UserInteraction.h"
#include "ui/MessageReceiver.h"
#include "ui/dialogs/TaskDialog.h"

namespace tarnbridge {

class CTarnbridgeDoc;

/// Runs the tasks of a view, one at a time, with their progress shown over the window. While one runs the
/// view can't be switched. For the interface thread.
class HandsetTaskRunner : public QObject {
    Q_OBJECT

public:
    HandsetTaskRunner(CTarnbridgeDoc& document, QObject* parent);
    /// A task that runs goes with it; the job under way ends by itself.
    ~HandsetTaskRunner() override;

    bool IsBusy() const { return task_ != nullptr || dialog_ != nullptr; }

    /// Begins a task and returns; `ended` is called when it has ended and another one can begin. A task that
    /// needs no handset has ended then. False, and the user has been told, when another one runs or the
    /// handset is in use; then `ended` isn't called.
    /// \param title  of the progress; empty for a task too short to be shown
    bool Run(std::shared_ptr<HandsetTask> task, const std::u16string& title, std::function<void()> ended);

    /// The same for a task with a dialog of its own, over which this takes the ownership. `ended` is called
    /// when the task has ended; the next one can begin when the dialog is closed too.
    bool Run(std::unique_ptr<TaskDialog> dialog, std::function<void()> ended);

    /// The task that runs, if any, ends soon, and a dialog of its own goes.
    void Cancel();

Q_SIGNALS:
    void busyChanged();

private:
    intptr_t Receive(Message& message);
    void Show(const HandsetTask::Standing& standing);
    void TakeCancel();
    void Finish();
    bool Refuse();

    CTarnbridgeDoc& document_;
    std::shared_ptr<HandsetTask> task_;
    std::function<void()> ended_;
    std::unique_ptr<Progress> progress_;
    HandsetTask::Standing standing_;
    QPointer<TaskDialog> dialog_;
    QTimer cancelWatch_;  // a handset that says nothing must not keep the user's cancel waiting
    MessageReceiver receiver_;
};

}  // namespace tarnbridge
