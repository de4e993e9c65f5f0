#pragma once

#include <QMimeData>
#include <QPointer>

#include "messaging/MessageFragment.h"
#include "ui/QtText.h"

namespace tarnbridge {

/// A part of a message on its way from one editor of this process to another; for all others its text.
class MessageMimeData : public QMimeData {
    Q_OBJECT

public:
    /// \param source  the editor's control
    MessageMimeData(MessageFragment fragment, const QObject* source)
        : fragment_(std::move(fragment)), source_(source) {
        setText(ToQString(PlainText(fragment_)));
    }

    const MessageFragment& Fragment() const { return fragment_; }
    bool IsFrom(const QObject* control) const { return source_ == control; }

private:
    const MessageFragment fragment_;
    const QPointer<const QObject> source_;
};

}  // namespace tarnbridge
