#pragma once

#include <QDialog>

class QTextBrowser;

namespace tarnbridge {

class CTarnbridgeDoc;

/// The help page, beside the program's window and not over it.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    /// Opens the page in the language of the program, in English where there is none, or brings it to the
    /// front if it is open.
    static void Show(CTarnbridgeDoc& document, QWidget* window);

private:
    HelpWindow(const QString& file, QWidget* window);
};

}  // namespace tarnbridge
