#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>

#include "core/base/MessageTarget.h"
#include "ui/MessageReceiver.h"
#include "ui/frame/FormView.h"

class QAction;
class QActionGroup;
class QLabel;
class QTimer;
class QToolBar;
class QVBoxLayout;

namespace tarnbridge {

class CTarnbridgeDoc;
class CTarnbridgeView;
class ConnectionPane;
struct ViewEntry;

/// The main window: the column of features, and the tool bar and the form of the feature that is chosen. It
/// watches the connection, keeps its place on the screen, and sees to it that what the user keeps is saved
/// soon after each change.
class CMainFrame : public QMainWindow {
    Q_OBJECT

public:
    /// The number of the connection timer, and its interval.
    static constexpr int connectionTimer = 216;
    static constexpr int connectionInterval = 3000;  // milliseconds

    /// The document, which is open, must outlive the frame. Opens the view that was open last.
    explicit CMainFrame(CTarnbridgeDoc& document, QWidget* parent = nullptr);

    /// Shows the window where it stood last.
    void ShowAtItsPlace();

    /// Checks the connection now and from now on.
    void StartConnectionTimer();
    /// While a step needs the port for itself.
    void StopConnectionTimer();

    /// For all who post to the frame.
    std::weak_ptr<MessageTarget> Target() const { return receiver_.Target(); }

    FormView* ActiveForm() const { return form_; }
    /// The number of its feature.
    int OpenView() const { return openView_; }

public Q_SLOTS:
    /// Replaces the two right panes, unless the view must stay.
    void Choose(int number);

    /// Puts the window on top and into focus, with the dialog that stands over it.
    void BringToFront();

Q_SIGNALS:
    /// The user wants the program to start again.
    void restartWanted();
    /// The document is closed: the program can end.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeMenus();
    void MakeStatusBar();
    void Open(const ViewEntry& view);
    void MarkOpenView();
    void ShowModel();
    void ShowConnection();
    void Tick();
    intptr_t Receive(Message& message);
    void TakeCheckResult(bool answers);
    bool EndDialogs();
    bool MayLeave(std::function<void()> otherwiseLater);
    void PlaceWindow();
    void StorePlacement();
    void SaveSoon();

    CTarnbridgeDoc& document_;
    CTarnbridgeView* const features_;
    QVBoxLayout* const right_;
    QPointer<FormView> form_;
    std::function<void()> afterwards_;  // when the form is ready to leave
    int openView_ = -1;
    QPointer<QToolBar> toolbar_;
    QActionGroup* const viewActions_;
    QAction* firstFixedMenu_ = nullptr;  // the form's menus stand before it
    QList<QAction*> formMenus_;
    QLabel* formStatus_ = nullptr;
    QLabel* port_ = nullptr;
    QLabel* model_ = nullptr;
    ConnectionPane* connection_ = nullptr;
    QTimer* const timer_;
    QTimer* const placementTimer_;
    QTimer* const saveTimer_;
    bool placed_ = false;
    bool closing_ = false;
    MessageReceiver receiver_;
};

}  // namespace tarnbridge
