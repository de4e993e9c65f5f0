#pragma once

#include <QStackedWidget>

#include "messaging/SmsRecord.h"
#include "ui/messages/MessageTextView.h"

class QLabel;

namespace tarnbridge {

class EmptyHint;

/// The reading pane: a message with its sender or recipients, its time and its folder, or, where there is
/// none, what to do.
class MessageReader : public QStackedWidget {
    Q_OBJECT

public:
    explicit MessageReader(QWidget* parent = nullptr);

    /// Shows a copy; the record may go afterwards.
    /// \param folder  what its folder is called
    void Show(const SmsRecord& record, const QString& folder);
    /// Shows none.
    /// \param chosen  how many messages are chosen in the list
    void Clear(qsizetype chosen = 0);

    MessageTextView& Text() { return *text_; }

private:
    EmptyHint* const empty_;
    QWidget* const page_;
    QLabel* const addressTitle_;
    QLabel* const address_;
    QLabel* const time_;
    QLabel* const folder_;
    MessageTextView* const text_;
};

}  // namespace tarnbridge
