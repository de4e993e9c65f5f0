#pragma once

#include <QWidget>

class QAbstractButton;
class QButtonGroup;
class QVBoxLayout;

namespace tarnbridge {

struct PhoneModelInfo;

/// The column of the features, a button each, one of which is pressed. The arrow keys go through them.
class CTarnbridgeView : public QWidget {
    Q_OBJECT

public:
    explicit CTarnbridgeView(QWidget* parent = nullptr);

    /// Shows the buttons of what the model offers; the others take no room.
    void ShowFeaturesOf(const PhoneModelInfo& model);

    /// Presses a button without choosing.
    void SetCurrent(int number);

    void FocusCurrent();

Q_SIGNALS:
    /// The user has chosen the feature of this number.
    void chosen(int number);

private:
    QButtonGroup* const buttons_;
};

}  // namespace tarnbridge
