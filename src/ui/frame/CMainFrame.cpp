#include "ui/frame/CMainFrame.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QThread>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include "core/app/CTarnbridgeDoc.h"
#include "core/app/FrameMessages.h"
#include "core/app/WindowPlacement.h"
#include "platform/Text.h"
#include "ui/Icons.h"
#include "ui/PortWatcher.h"
#include "ui/QtText.h"
#include "ui/dialogs/AboutDialog.h"
#include "ui/dialogs/HelpWindow.h"
#include "ui/frame/CTarnbridgeView.h"
#include "ui/frame/ConnectionPane.h"
#include "ui/frame/FormView.h"
#include "ui/frame/ViewTable.h"

namespace tarnbridge {
namespace {

constexpr const char* placementSection = "Option";
constexpr const char* placementEntry = "Placement";
constexpr int paneMargin = 6;
constexpr int placementDelay = 300;  // milliseconds, so that a move isn't a hundred writes
constexpr int retryDelay = 20;       // until a dialog that is given up has gone
constexpr int saveDelay = 1000;      // the same for a change of what the user keeps

/// The rectangle if its title can be reached on some screen; otherwise one of that size, as far as there is
/// room, in the middle of the first screen.
QRect Reachable(const QRect& rect) {
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const QRect title(rect.left(), rect.top(), rect.width(), 1);
        if (screen->availableGeometry().intersected(title).width() >= smallestWindowWidth / 4) return rect;
    }
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QRect moved(QPoint(), rect.size().boundedTo(available.size()));
    moved.moveCenter(available.center());
    return moved;
}

}  // namespace

CMainFrame::CMainFrame(CTarnbridgeDoc& document, QWidget* parent)
    : QMainWindow(parent),
      document_(document),
      features_(new CTarnbridgeView),
      right_(new QVBoxLayout),
      viewActions_(new QActionGroup(this)),
      timer_(new QTimer(this)),
      placementTimer_(new QTimer(this)),
      saveTimer_(new QTimer(this)),
      receiver_([this](Message& message) { return Receive(message); }) {
    setObjectName(QStringLiteral("TarnbridgeClassName"));
    setWindowTitle(QWords(Word::ProgramName));
    setWindowIcon(ProgramIcon());
    setMinimumSize(smallestWindowWidth, smallestWindowHeight);
    document_.SetWindow(receiver_.Target());

    auto* const centre = new QWidget;
    auto* const columns = new QHBoxLayout(centre);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(features_);
    auto* const line = new QFrame;
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    columns->addWidget(line);
    right_->setContentsMargins(0, 0, 0, 0);
    right_->setSpacing(0);
    columns->addLayout(right_, 1);
    setCentralWidget(centre);
    connect(features_, &CTarnbridgeView::chosen, this, &CMainFrame::Choose);

    timer_->setObjectName(QStringLiteral("timer%1").arg(connectionTimer));
    timer_->setInterval(connectionInterval);
    connect(timer_, &QTimer::timeout, this, &CMainFrame::Tick);
    // What is plugged in or out is looked at at once, not at the next tick.
    connect(new PortWatcher(document_.Store(), this), &PortWatcher::changed, this, [this] {
        if (timer_->isActive()) Tick();
    });
    placementTimer_->setSingleShot(true);
    placementTimer_->setInterval(placementDelay);
    connect(placementTimer_, &QTimer::timeout, this, &CMainFrame::StorePlacement);
    saveTimer_->setObjectName(QStringLiteral("saveTimer"));
    saveTimer_->setSingleShot(true);
    saveTimer_->setInterval(saveDelay);
    connect(saveTimer_, &QTimer::timeout, this, [this] { document_.SaveContent(); });

    MakeMenus();
    MakeStatusBar();
    ShowModel();
    Open(ViewToOpen(document_.Preferences().GetNumber(SettingIndex::View), document_.Model().second));
}

void CMainFrame::MakeMenus() {
    QMenu* const file = menuBar()->addMenu(QWords(Word::MenuFile));
    QAction* const quit = file->addAction(ThemedIcon(QStringLiteral("quit")), QWords(Word::CommandQuit), this,
                                          &CMainFrame::close);
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);

    QMenu* const view = menuBar()->addMenu(QWords(Word::MenuView));
    firstFixedMenu_ = view->menuAction();
    int key = Qt::Key_1;
    for (const ViewEntry& entry : Views()) {
        QAction* const action =
            view->addAction(ThemedIcon(QString::fromLatin1(entry.icon)), QWords(entry.name), this,
                            [this, number = entry.number] { Choose(number); });
        action->setData(entry.number);
        action->setCheckable(true);
        action->setShortcut(QKeySequence(QKeyCombination(Qt::ControlModifier, static_cast<Qt::Key>(key++))));
        viewActions_->addAction(action);
    }
    view->addSeparator();
    QAction* const toFeatures =
        view->addAction(QWords(Word::CommandFeatures), features_, &CTarnbridgeView::FocusCurrent);
    toFeatures->setShortcut(QKeySequence(Qt::Key_F6));
    QAction* const toForm = view->addAction(QWords(Word::CommandForm), this, [this] {
        if (form_) form_->setFocus(Qt::ShortcutFocusReason);
    });
    toForm->setShortcut(QKeySequence(QKeyCombination(Qt::ShiftModifier, Qt::Key_F6)));

    QMenu* const help = menuBar()->addMenu(QWords(Word::MenuHelp));
    QAction* const contents = help->addAction(ThemedIcon(QStringLiteral("help")), QWords(Word::CommandHelp),
                                              this, [this] { HelpWindow::Show(document_, this); });
    contents->setShortcut(QKeySequence::HelpContents);
    QAction* const about = help->addAction(ProgramIcon(), QWords(Word::CommandAbout), this, [this] {
        AboutDialog dialog(this);
        dialog.exec();
    });
    about->setObjectName(QStringLiteral("about"));
    about->setMenuRole(QAction::AboutRole);
}

void CMainFrame::MakeStatusBar() {
    formStatus_ = new QLabel;
    formStatus_->setObjectName(QStringLiteral("formStatus"));
    formStatus_->setTextFormat(Qt::PlainText);
    port_ = new QLabel;
    port_->setObjectName(QStringLiteral("portPane"));
    port_->setTextFormat(Qt::PlainText);
    model_ = new QLabel;
    model_->setObjectName(QStringLiteral("modelPane"));
    model_->setTextFormat(Qt::PlainText);
    connection_ = new ConnectionPane;
    statusBar()->addWidget(formStatus_, 1);
    for (QLabel* const pane : {formStatus_, port_, model_})
        pane->setContentsMargins(paneMargin, 0, paneMargin, 0);
    for (QWidget* const pane :
         {static_cast<QWidget*>(port_), static_cast<QWidget*>(model_), static_cast<QWidget*>(connection_)})
        statusBar()->addPermanentWidget(pane);
}

void CMainFrame::Choose(int number) {
    const ViewEntry& view = ViewToOpen(number, document_.Model().second);
    if (view.number != openView_ && document_.viewSwitchAllowed &&
        MayLeave([this, number] { Choose(number); })) {
        Open(view);
        document_.Preferences().SetNumber(SettingIndex::View, openView_);
    }
    // A button that was pressed in vain goes back up.
    MarkOpenView();
}

void CMainFrame::Open(const ViewEntry& view) {
    const bool hadFocus = form_ && form_->isAncestorOf(QApplication::focusWidget());
    for (QAction* const menu : formMenus_)
        menuBar()->removeAction(menu);
    formMenus_.clear();
    delete toolbar_;
    delete form_;

    form_ = view.makeForm(document_, centralWidget());
    form_->setObjectName(QStringLiteral("form"));
    openView_ = view.number;
    form_->setAccessibleName(QWords(view.name));
    connect(form_, &FormView::statusChanged, formStatus_, &QLabel::setText);
    connect(form_, &FormView::modelChanged, this, &CMainFrame::ShowModel);
    connect(form_, &FormView::restartWanted, this, &CMainFrame::restartWanted);
    connect(
        form_, &FormView::readyToLeave, this,
        [this] {
            if (afterwards_) std::exchange(afterwards_, nullptr)();
        },
        Qt::QueuedConnection);
    toolbar_ = view.makeToolbar(*form_);
    toolbar_->setParent(centralWidget());
    toolbar_->setObjectName(QStringLiteral("toolbar"));
    toolbar_->setAccessibleName(QWords(Word::ToolbarName));
    right_->addWidget(toolbar_);
    right_->addWidget(form_, 1);
    toolbar_->show();
    form_->show();
    if (hadFocus) form_->setFocus();

    formStatus_->setText(form_->Status());
    for (QMenu* const menu : form_->Menus())
        formMenus_ << menuBar()->insertMenu(firstFixedMenu_, menu);
    MarkOpenView();
}

void CMainFrame::MarkOpenView() {
    features_->SetCurrent(openView_);
    for (QAction* const action : viewActions_->actions())
        action->setChecked(action->data().toInt() == openView_);
}

void CMainFrame::ShowModel() {
    const auto& [key, model] = document_.Model();
    features_->ShowFeaturesOf(model);
    for (const ViewEntry& view : Views()) {
        for (QAction* const action : viewActions_->actions()) {
            if (action->data().toInt() == view.number) action->setVisible(view.offered(model));
        }
    }
    model_->setText(ToQString(model.phoneModel.empty() ? key : model.phoneModel));
    port_->setText(QStringLiteral("COM%1").arg(document_.Preferences().GetNumber(SettingIndex::Port)));
    ShowConnection();
}

void CMainFrame::ShowConnection() {
    connection_->SetConnected(document_.Watch().IsConnected());
}

void CMainFrame::StartConnectionTimer() {
    Tick();
}

void CMainFrame::StopConnectionTimer() {
    timer_->stop();
}

void CMainFrame::Tick() {
    timer_->stop();
    document_.Watch().Tick();
    timer_->start();
}

intptr_t CMainFrame::Receive(Message& message) {
    switch (static_cast<int>(message.id)) {
        case RepaintToolbar:
            if (toolbar_) toolbar_->update();
            break;
        case FormNotice:
        case FormUpdate:
            if (form_) form_->Receive(message);
            break;
        case WorkerResult:
            TakeCheckResult(message.lParam != 0);
            break;
        case LinkStepDone:
            if (const auto* const failure = message.payload.Get<SerialOpenFailure>())
                document_.Watch().StepDone(*failure);
            if (form_) form_->Receive(message);
            break;
        case ProfileChanged:
            SaveSoon();
            break;
        case DocumentClosed:
            Q_EMIT closed();
            break;
        default:
            break;
    }
    return 0;
}

void CMainFrame::TakeCheckResult(bool answers) {
    // While the timer stands still the port may belong to somebody else.
    if (!answers && !timer_->isActive()) return;
    const LinkWatch::News news = document_.Watch().TakeAnswer(answers);
    ShowConnection();
    if (news != LinkWatch::News::Connected && news != LinkWatch::News::Disconnected) return;
    Message message{news == LinkWatch::News::Connected ? HandsetConnected : HandsetDisconnected};
    if (form_) form_->Receive(message);
}

void CMainFrame::BringToFront() {
    if (closing_) return;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    QWidget* const dialog = QApplication::activeModalWidget();
    for (QWidget* const window : {static_cast<QWidget*>(this), dialog}) {
        if (!window) continue;
        window->raise();
        window->activateWindow();
    }
}

void CMainFrame::ShowAtItsPlace() {
    const auto block = document_.Store().GetBytes(placementSection, placementEntry);
    const WindowPlacement placement =
        (block ? DecodePlacement(*block) : std::nullopt).value_or(WindowPlacement());
    setGeometry(Reachable(QRect(placement.left, placement.top, placement.right - placement.left,
                                placement.bottom - placement.top)));
    if (placement.maximised) {
        showMaximized();
    } else {
        show();
    }
    placed_ = true;
}

void CMainFrame::PlaceWindow() {
    if (placed_ && !closing_) placementTimer_->start();
}

void CMainFrame::StorePlacement() {
    const QRect rect = isMaximized() || isMinimized() ? normalGeometry() : geometry();
    if (rect.isEmpty()) return;
    const WindowPlacement placement{rect.left(), rect.top(), rect.left() + rect.width(),
                                    rect.top() + rect.height(), windowState().testFlag(Qt::WindowMaximized)};
    document_.Store().SetBytes(placementSection, placementEntry, EncodePlacement(placement));
}

void CMainFrame::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    PlaceWindow();
}

void CMainFrame::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    PlaceWindow();
}

void CMainFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) PlaceWindow();
}

void CMainFrame::SaveSoon() {
    if (!closing_ && !saveTimer_->isActive()) saveTimer_->start();
}

/// A dialog that is open, as when the system ends the program, belongs to a view that waits for its answer.
/// It is given up, and the close is tried again when the view has come back. Whether there was one.
bool CMainFrame::EndDialogs() {
    if (QThread::currentThread()->loopLevel() <= 1) return false;
    for (QWidget* const open : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
        if (open) open->close();
    }
    QTimer::singleShot(retryDelay, this, &QWidget::close);
    return true;
}

/// Whether the form may go. What is wanted of it may come later, when nothing is in the way any more.
bool CMainFrame::MayLeave(std::function<void()> otherwiseLater) {
    if (!form_ || form_->MayLeave()) return true;
    afterwards_ = std::move(otherwiseLater);
    return false;
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    // The window goes when the document is closed, which may have to wait for the handset.
    event->ignore();
    if (closing_ || EndDialogs() || !MayLeave([this] { close(); })) return;
    StopConnectionTimer();
    placementTimer_->stop();
    if (placed_) StorePlacement();
    closing_ = true;
    saveTimer_->stop();
    hide();
    for (QDialog* const window : findChildren<QDialog*>())
        window->close();
    delete toolbar_;
    delete form_;
    document_.Close();
}

}  // namespace tarnbridge
