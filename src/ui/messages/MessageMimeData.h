#pragma once

#include <QMimeData>

#include "messaging/MessageFragment.h"
#include "ui/QtText.h"

namespace tarnbridge {

/// A part of a message on its way from one editor of this process to another; for all others its text.
class MessageMimeData : public QMimeData {
    Q_OBJECT

public:
    explicit MessageMimeData(MessageFragment fragment) : fragment_(std::move(fragment)) {
        setText(ToQString(PlainText(fragment_)));
    }

    const MessageFragment& Fragment() const { return fragment_; }

private:
    const MessageFragment fragment_;
};

}  // namespace tarnbridge
