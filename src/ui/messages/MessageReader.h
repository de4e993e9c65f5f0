#pragma once

#include <QStackedWidget>

#include "messaging/SmsRecord.h"
#include "ui/messages/MessageTextView.h"

class QLabel;

namespace tarnbridge {

/// The reading pane: a message with its sender or recipients, its time and its folder, or, where there is
/// none, what to do.
class MessageReader : public QStackedWidget {
    Q_OBJECT

public:
    explicit MessageReader(QWidget* parent = nullptr);

    /// Shows a copy; the record may go afterwards.
    /// \param folder  what its folder is called
    void Show(const SmsRecord& record, const QString& folder);
    void Clear();

    MessageTextView& Text() { return *text_; }

private:
    QWidget* const empty_;
    QWidget* const page_;
    QLabel* const addressTitle_;
    QLabel* const address_;
    QLabel* const time_;
    QLabel* const folder_;
    MessageTextView* const text_;
};

}  // namespace tarnbridge
