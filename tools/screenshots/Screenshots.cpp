// Writes pictures of every view and dialog of the window, with the virtual handset and its demonstration
// content, in light and dark and in each language: screenshots FOLDER.

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QDir>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPalette>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <thread>

#include "MessageWidgets.h"
#include "core/app/CTarnbridgeDoc.h"
#include "core/app/FrameMessages.h"
#include "core/base/Settings.h"
#include "messaging/MessageQuestions.h"
#include "messaging/SaveTarget.h"
#include "platform/PortMap.h"
#include "simulator/HandsetServer.h"
#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/dialogs/AboutDialog.h"
#include "ui/dialogs/HelpWindow.h"
#include "ui/dialogs/WindowInteraction.h"
#include "ui/frame/CMainFrame.h"
#include "ui/frame/CTarnbridgeApp.h"
#include "ui/frame/ViewTable.h"
#include "ui/messages/CSmsFormView.h"
#include "ui/settings/CSettingsFormView.h"

namespace tarnbridge {
namespace {

namespace fs = std::filesystem;

constexpr int longestWait = 10'000;  // milliseconds
constexpr QSize windowSize(1000, 680);

struct Theme {
    const char* name;
    bool dark;
};

struct Tongue {
    const char* name;
    int32_t id;
};

constexpr Theme themes[] = {{"light", false}, {"dark", true}};
constexpr Tongue tongues[] = {{"en", 0x0409}, {"de", 0x0407}};

QPalette PaletteOf(const Theme& theme) {
    if (!theme.dark) return QApplication::style()->standardPalette();
    QPalette palette(QColor(45, 47, 51));
    palette.setColor(QPalette::Base, QColor(32, 34, 37));
    palette.setColor(QPalette::AlternateBase, QColor(40, 42, 46));
    palette.setColor(QPalette::ToolTipBase, QColor(60, 62, 66));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(42, 111, 219));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(127, 176, 255));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(135, 138, 144));
    palette.setColor(QPalette::LinkVisited, QColor(190, 160, 255));
    return palette;
}

[[noreturn]] void Fail(const std::string& words) {
    std::fprintf(stderr, "screenshots: %s\n", words.c_str());
    std::exit(1);
}

void Settle(const std::function<bool()>& condition, const char* what) {
    QTimer look;
    look.start(10);
    for (const QDeadlineTimer deadline(longestWait); !condition();) {
        if (deadline.hasExpired()) Fail(std::string("no ") + what);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

/// One run of the program in one theme and one language.
class Session {
public:
    Session(fs::path folder, const Theme& theme, const Tongue& tongue)
        : folder_(std::move(folder)), suffix_(QStringLiteral("-%1-%2.png").arg(theme.name, tongue.name)) {
        const auto store = OpenUserStore();
        store->SetNumber("Option", "LangID", tongue.id);
        store->SetNumber("Option", "Select", 1);
        QApplication::setPalette(PaletteOf(theme));
        if (!program_.InitInstance()) Fail("the program did not start");
        program_.Frame()->showNormal();
        program_.Frame()->resize(windowSize);
        Settle([this] { return program_.Document()->Watch().IsConnected(); }, "connection");
    }

    ~Session() {
        bool closed = false;
        QObject::connect(&program_, &CTarnbridgeApp::closed, &program_, [&] { closed = true; });
        program_.Frame()->close();
        Settle([&] { return closed; }, "end");
    }

    void Run() {
        CMainFrame& frame = *program_.Frame();
        for (const ViewEntry& view : Views()) {
            frame.Choose(view.number);
            if (auto* const settings = qobject_cast<CSettingsFormView*>(frame.ActiveForm())) {
                int number = 1;
                for (QAction* const page : settings->PageActions()) {
                    page->trigger();
                    Grab(frame, QStringLiteral("settings-%1").arg(number++));
                }
            } else {
                Grab(frame, QLatin1String(view.icon));
            }
            if (auto* const messages = qobject_cast<CSmsFormView*>(frame.ActiveForm()))
                ShowMessages(*messages);
        }
        ShowDialogs();
        ShowIcons();
        ShowMessageWidgets(*program_.Document(),
                           [this](QWidget& widget, const QString& name) { Grab(widget, name); });
    }

private:
    void Grab(QWidget& widget, const QString& name) {
        QCoreApplication::processEvents();
        if (!widget.grab().save(PathToQString(folder_) + u'/' + name + suffix_))
            Fail("cannot write into " + folder_.string());
    }

    /// Runs something that opens a dialog, and takes its picture before it is closed.
    void GrabDialog(const QString& name, const std::function<void()>& open) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            look.stop();
            Grab(*dialog, name);
            dialog->reject();
        });
        look.start(1);
        open();
    }

    /// The demonstration's messages, read from the handset: a picture message, and several selected ones.
    void ShowMessages(CSmsFormView& form) {
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, &answer, [] {
            auto* const question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (question) question->defaultButton()->click();
        });
        answer.start(1);
        form.Commands().Get(MessageCommands::ReadMessages)->trigger();
        Settle([this] { return program_.Document()->viewSwitchAllowed; }, "messages");
        answer.stop();
        auto* const list = form.findChild<QTreeView*>(QStringLiteral("messages"));
        const auto select = [list](const char* text) {
            const QModelIndexList found = list->model()->match(list->model()->index(0, 3), Qt::DisplayRole,
                                                               QLatin1String(text), 1, Qt::MatchStartsWith);
            if (found.isEmpty()) Fail("no such message in the demonstration");
            list->selectionModel()->setCurrentIndex(
                found[0], QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        };
        select("Look, this");
        Grab(*program_.Frame(), QStringLiteral("messages-read"));
        // As after another handset was plugged in.
        MirrorState& mirror = program_.Document()->Mirror();
        ++mirror.session;
        Message news{HandsetConnected};
        form.Receive(news);
        Grab(*program_.Frame(), QStringLiteral("messages-old"));
        --mirror.session;
        form.Receive(news);
        auto* const find = form.findChild<QLineEdit*>(QStringLiteral("find"));
        find->setText(QStringLiteral("+1555010021"));
        list->selectAll();
        Grab(*program_.Frame(), QStringLiteral("messages-found"));
        find->setText(QStringLiteral("nothing like it"));
        Grab(*program_.Frame(), QStringLiteral("messages-nothing"));
        find->clear();
    }

    /// All drawings with their names, at three sizes.
    void ShowIcons() {
        QWidget sheet;
        auto* const grid = new QGridLayout(&sheet);
        int place = 0;
        for (const QString& file : QDir(QStringLiteral(":/icons")).entryList()) {
            const QIcon icon = ThemedIcon(QFileInfo(file).baseName());
            auto* const cell = new QHBoxLayout;
            for (const int side : {16, 24, 48}) {
                auto* const picture = new QLabel;
                picture->setPixmap(icon.pixmap(side, side));
                cell->addWidget(picture);
            }
            cell->addWidget(new QLabel(QFileInfo(file).baseName()), 1);
            grid->addLayout(cell, place / 5, place % 5);
            ++place;
        }
        Grab(sheet, QStringLiteral("icons"));
    }

    void ShowDialogs() {
        CMainFrame& frame = *program_.Frame();
        UserInteraction& user = program_.Document()->User();
        GrabDialog(QStringLiteral("dialog-about"), [&] { AboutDialog(&frame).exec(); });
        GrabDialog(QStringLiteral("dialog-question"), [&] { user.Ask({Words(Word::RestartNow)}); });
        GrabDialog(QStringLiteral("dialog-delete"), [&] {
            const MessageTree tree(program_.Document()->Content().messageRoot);
            SmsRecord message;
            user.Ask(DeleteQuestion(tree, tree.OnHandset(inboxPlace), {&message, &message, &message}));
        });
        GrabDialog(QStringLiteral("dialog-delete-folder"), [&] {
            const MessageTree tree(program_.Document()->Content().messageRoot);
            user.Ask(FolderToTrashQuestion(tree, tree.OnPc(personalPlace)));
        });
        GrabDialog(QStringLiteral("dialog-question-all"), [&] {
            user.Ask({.words = Words(Word::NameWillBeShortened, {u"Maximilian Alexander", u"Maximilian"}),
                      .answers = AnswerSet::YesNoAllCancel});
        });
        GrabDialog(QStringLiteral("dialog-note"), [&] { user.Tell(Words(Word::ProfileNotSaved)); });
        GrabDialog(QStringLiteral("dialog-text"), [&] {
            user.AskText({Words(Word::SettingsDeviceQuestion), u"/dev/rfcomm0"});
        });
        GrabDialog(QStringLiteral("dialog-folder"), [&] {
            const MessageTree tree(program_.Document()->Content().messageRoot);
            AskSaveTarget(tree,
                          {.memories = {u"SM", u"ME"},
                           .preferredMemory = u"SM",
                           .suggested = &tree.OnHandset(draftPlace)},
                          user);
        });
        const auto progress = user.ShowProgress(Words(Word::ReadingMessages), true);
        progress->SetTotal(52);
        progress->SetDone(31);
        progress->SetWords(Words(Word::ProgressOf, {31, 52}));
        QCoreApplication::processEvents();
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("progress") && window->isVisible())
                Grab(*window, QStringLiteral("dialog-progress"));
        }
        HelpWindow::Show(*program_.Document(), &frame);
        Grab(*frame.findChild<HelpWindow*>(), QStringLiteral("dialog-help"));
    }

    const fs::path folder_;
    const QString suffix_;
    CTarnbridgeApp program_;
};

/// The folders in which the program keeps things, below a temporary one.
void UseFolders(const fs::path& root) {
    const std::pair<const char*, const char*> places[] = {{"XDG_CONFIG_HOME", "config"},
                                                          {"XDG_DATA_HOME", "data"},
                                                          {"XDG_RUNTIME_DIR", "run"},
                                                          {"XDG_DATA_DIRS", "share"}};
    for (const auto& [variable, name] : places) {
        fs::create_directories(root / name);
        qputenv(variable, (root / name).c_str());
    }
    fs::create_directory_symlink(WINDOW_DATA, root / "share/tarnbridge");
}

int Run(const fs::path& folder) {
    const QTemporaryDir temporary;
    UseFolders(ToPath(temporary.path()));
    fs::create_directories(folder);

    const fs::path device = ToPath(temporary.filePath(QStringLiteral("handset")));
    simulator::HandsetServer::Options options;
    options.link = device;
    simulator::HandsetServer handset(simulator::HandsetContent::Demo(), {}, options);
    if (const Outcome outcome = handset.Start(); !outcome) Fail(outcome.Failure().text);
    const auto store = OpenUserStore();
    store->SetNumber("Option", "Port", PortMap(*store).NumberOf(device.string()));
    for (const Theme& theme : themes) {
        for (const Tongue& tongue : tongues)
            Session(folder, theme, tongue).Run();
    }
    handset.Stop();
    return 0;
}

}  // namespace
}  // namespace tarnbridge

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: screenshots FOLDER\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    // What the offscreen platform can't do is nothing to be told of.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.*=false\ndefault.warning=false"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    return tarnbridge::Run(arguments[1]);
}
