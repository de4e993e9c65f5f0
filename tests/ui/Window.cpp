#include "ui/Window.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTimer>
#include <cstdlib>

#include "platform/Files.h"
#include "platform/PortMap.h"
#include "ui/QtText.h"

namespace tarnbridge::test {
void OnDialog(const QString& name, const std::function<void(QDialog&)>& use) {
    auto* const look = new QTimer;
    look->start(1);
    QObject::connect(look, &QTimer::timeout, look, [=] {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            auto* const dialog = qobject_cast<QDialog*>(window);
            if (!dialog || !dialog->isVisible() || dialog->objectName() != name) continue;
            look->stop();
            look->deleteLater();
            use(*dialog);
            return;
        }
    });
}

std::unique_ptr<EntryStore> Window::StoreIn(const TemporaryFolder& folder) {
    const auto enter = [&](const char* variable, const char* name) {
        std::filesystem::create_directories(folder / name);
        ::setenv(variable, (folder / name).c_str(), 1);
    };
    enter("XDG_CONFIG_HOME", "config");
    enter("XDG_DATA_HOME", "data");
    enter("XDG_RUNTIME_DIR", "run");
    // The data that stands beside the programs, as a package would bring it.
    std::filesystem::create_directories(folder / "share");
    std::filesystem::create_directory_symlink(WINDOW_DATA, folder / "share/tarnbridge");
    ::setenv("XDG_DATA_DIRS", (folder / "share").c_str(), 1);
    return OpenUserStore();
}

Window::Window() : store(StoreIn(folder)) {
    UsePort("/dev/nothing-is-plugged-in-here");
}

Window::~Window() {
    program.reset();
    ProgramWords().Replace({});
}

void Window::Start() {
    program = std::make_unique<CTarnbridgeApp>(
        CTarnbridgeApp::Surroundings{realDialogs ? nullptr : &user, startAgain});
    ASSERT_TRUE(program->InitInstance());
    ASSERT_TRUE(Await([this] { return Frame().isActiveWindow(); }));
}

void Window::Close() {
    QSignalSpy closed(program.get(), &CTarnbridgeApp::closed);
    Frame().close();
    EXPECT_TRUE(Await([&] { return !closed.isEmpty(); }));
    program->ExitInstance();
}

void Window::UsePort(const std::string& device) {
    store->SetNumber("Option", "Port", PortMap(*store).NumberOf(device));
}

std::unique_ptr<Profile> Window::StoredProfile() const {
    auto profile = std::make_unique<Profile>();
    EXPECT_EQ(ReadProfile(folder / "data/tarnbridge/Tarnbridge.bin", *profile), ProfileState::Whole);
    return profile;
}

QString Window::ConnectionWords() {
    return Find<QLabel>(QStringLiteral("connectionWords")).text();
}

bool Window::AwaitWords(const QString& words) {
    return Await([&] { return ConnectionWords() == words; });
}

int Window::OpenView() {
    return Frame().OpenView();
}

}  // namespace tarnbridge::test
