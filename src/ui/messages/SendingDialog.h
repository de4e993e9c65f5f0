#pragma once

#include "messaging/MessageSending.h"
#include "ui/dialogs/TaskDialog.h"

class QTreeWidget;

namespace tarnbridge {

/// Messages on their way: a row for each recipient with what became of it. It stays until the user has seen
/// that.
class SendingDialog : public TaskDialog {
    Q_OBJECT

public:
    SendingDialog(std::unique_ptr<MessageSending> sending, QWidget* parent = nullptr);
    ~SendingDialog() override;

    const MessageSending& Sending() const { return *sending_; }

private:
    void ShowStanding(const HandsetTask::Standing& standing) override;
    bool ShowEnd() override;
    void ShowRows(size_t end);
    QString StatusOf(size_t item) const;

    const std::unique_ptr<MessageSending> sending_;
    QTreeWidget* const rows_;
    size_t current_ = 0;  // item under way
    size_t shown_ = 0;    // items whose row is final
};

}  // namespace tarnbridge
