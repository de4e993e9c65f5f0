#pragma once

#include <QDialog>

namespace tarnbridge {

/// What the program is, its version, and what it is built with under which licences.
class AboutDialog : public QDialog {
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent);
};

}  // namespace tarnbridge
