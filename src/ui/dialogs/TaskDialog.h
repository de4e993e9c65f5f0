#pragma once

#include <QDialog>
#include <memory>

#include "core/base/HandsetTask.h"
#include "ui/MessageReceiver.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QVBoxLayout;

namespace tarnbridge {

/// A piece of work on the handset as the user sees it: words, a bar, Cancel. It drives its task by the
/// messages that the worker posts, and blocks the program's windows without stopping them. What the work
/// began is ended in order when it is cancelled; until then the dialog stays.
class TaskDialog : public QDialog {
    Q_OBJECT

public:
    /// Shows itself and begins the task. A task that needs no handset may have ended then. False when the
    /// handset is in use: nothing has been done, and the dialog stays hidden.
    bool Start();

    bool IsRunning() const { return running_; }

    /// Closes it, as soon as the task has ended if that still runs: nobody reads what came of it.
    void GiveUp();

public Q_SLOTS:
    /// While the task runs, the wish to cancel it.
    void reject() override;

Q_SIGNALS:
    /// The task has ended. The dialog may still be there to be read.
    void ended();

protected:
    /// `task` must be the derived class's own.
    TaskDialog(const QString& title, HandsetTask& task, QWidget* parent);

    /// Above the bar.
    QVBoxLayout* Content() const { return content_; }
    void ShowWords(const QString& words);

    virtual void ShowStanding(const HandsetTask::Standing& standing);

    /// Shows what came of it, and whether the user has to see that before the dialog goes.
    virtual bool ShowEnd() = 0;

private:
    void End();

    HandsetTask& task_;
    QVBoxLayout* const content_;
    QLabel* const words_;
    QProgressBar* const bar_;
    QPushButton* const button_;
    bool running_ = false;
    bool givenUp_ = false;
    MessageReceiver receiver_;
};

}  // namespace tarnbridge
