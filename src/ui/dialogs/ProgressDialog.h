#pragma once

#include <QDialog>
#include <atomic>
#include <memory>
#include <mutex>

#include "core/base/UserInteraction.h"
#include "ui/MessageReceiver.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace tarnbridge {

/// What who works and who looks on share.
struct ProgressState {
    std::weak_ptr<MessageTarget> window;
    std::atomic<int> total{0};
    std::atomic<int> done{0};
    std::atomic<bool> cancelled{false};
    std::atomic<bool> told{false};  ///< the dialog has been told of a change and hasn't looked yet
    std::mutex mutex;               ///< of the words
    std::u16string words;
};

/// Long work as the user sees it: words, a bar, Cancel. It blocks the window that it stands over, returns at
/// once from show, and deletes itself when the work has ended. Closing it is the wish to cancel.
class ProgressDialog : public QDialog {
    Q_OBJECT

public:
    ProgressDialog(const QString& title, bool canCancel, std::shared_ptr<ProgressState> state,
                   QWidget* parent);

    std::weak_ptr<MessageTarget> Target() const { return receiver_.Target(); }

public Q_SLOTS:
    void reject() override;

private:
    void Refresh();

    const std::shared_ptr<ProgressState> state_;
    const bool canCancel_;
    QLabel* const words_;
    QProgressBar* const bar_;
    QPushButton* const cancel_;
    MessageReceiver receiver_;
};

/// The side of who works.
class ProgressReport : public Progress {
public:
    explicit ProgressReport(std::shared_ptr<ProgressState> state);
    ~ProgressReport() override;

    void SetTotal(int steps) override;
    void SetDone(int steps) override;
    void SetWords(const std::u16string& words) override;
    bool Cancelled() const override { return state_->cancelled; }

private:
    void Tell();

    const std::shared_ptr<ProgressState> state_;
};

}  // namespace tarnbridge
