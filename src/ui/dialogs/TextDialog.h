#pragma once

#include <QDialog>

#include "core/base/UserInteraction.h"

class QLineEdit;

namespace tarnbridge {

/// Asks for one line of text.
class TextDialog : public QDialog {
    Q_OBJECT

public:
    TextDialog(const TextQuestion& question, QWidget* parent);

    std::u16string Text() const;

private:
    QLineEdit* const edit_;
};

}  // namespace tarnbridge
