#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace tarnbridge {

class CTarnbridgeDoc;
class PortListModel;

/// The settings of the connection and of the program: port, phone model, language.
class CGeneralPage : public QWidget {
    Q_OBJECT

public:
    explicit CGeneralPage(CTarnbridgeDoc& document, QWidget* parent = nullptr);

    /// Looks for what is plugged in.
    void ShowPorts();

    /// Says how the connection stands, and what to do if it doesn't.
    void ShowState();

Q_SIGNALS:
    void modelChanged();
    void restartWanted();

private:
    QWidget* MakePhoneGroup();
    QWidget* MakeProgramGroup();
    void AlignLabels();
    void ChoosePort(int number);
    void AskForDevice();
    void ChooseModel();
    void ShowModelFacts();
    void ChooseLanguage();

    CTarnbridgeDoc& document_;
    PortListModel* const ports_;
    QComboBox* const port_;
    QPushButton* const otherDevice_;
    QComboBox* const model_;
    QLabel* const modelFacts_;
    QLabel* const state_;
    QComboBox* const language_;
};

}  // namespace tarnbridge
