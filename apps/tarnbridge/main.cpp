#include <QApplication>

#include "platform/Files.h"
#include "platform/TerminationSignal.h"
#include "platform/Thread.h"
#include "ui/frame/CMainFrame.h"
#include "ui/frame/CTarnbridgeApp.h"

int main(int, char** arguments) {
    using namespace tarnbridge;
    LetOversizedWritesFail();
    TerminationSignal signal;
    int count = 1;  // the window takes no arguments, those of Qt among them
    QApplication application(count, arguments);
    QApplication::setApplicationName(QStringLiteral("tarnbridge"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tarnbridge"));

    CTarnbridgeApp program;
    if (!program.InitInstance()) return 0;
    QObject::connect(&program, &CTarnbridgeApp::closed, &application, &QApplication::quit);

    Event ended{ResetMode::Manual};
    Thread watcher;
    watcher.Start("signal watch", [&] {
        Event* const events[] = {&signal.Requested(), &ended};
        if (Event::WaitAny(events, forever) == 0)
            QMetaObject::invokeMethod(program.Frame(), &QWidget::close, Qt::QueuedConnection);
    });
    const int code = QApplication::exec();
    ended.Set();
    watcher.Join();
    program.ExitInstance();
    return code;
}
