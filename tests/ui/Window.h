#pragma once

#include <QDialog>
#include <functional>

#include <gtest/gtest.h>

#include "core/app/CTarnbridgeDoc.h"
#include "support/ScriptedUser.h"
#include "support/TemporaryFolder.h"
#include "support/VirtualHandset.h"
#include "ui/Await.h"
#include "ui/frame/CMainFrame.h"
#include "ui/frame/CTarnbridgeApp.h"

namespace tarnbridge::test {

/// Runs `use` on the next dialog that opens with this name, once it is open.
void OnDialog(const QString& name, const std::function<void(QDialog&)>& use);

/// The program as a user has it, with settings, data and sockets in folders of its own, dialogs that are
/// answered beforehand, and the handset behind a device that the settings name.
class Window : public ::testing::Test {
protected:
    Window();
    ~Window() override;

    /// Starts the program with the settings as they stand.
    void Start();

    /// Closes the window and waits for the end of the program.
    void Close();

    /// Makes the handset's device the port of the settings.
    void UsePort(const std::string& device);

    /// The file of the profile as it stands on the disk.
    std::unique_ptr<Profile> StoredProfile() const;

    CMainFrame& Frame() { return *program->Frame(); }
    CTarnbridgeDoc& Document() { return *program->Document(); }

    /// A child of the frame by its object name; a missing one is a failure and ends the test program.
    template <typename Widget>
    Widget& Find(const QString& name) {
        auto* const found = Frame().findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        if (!found) std::abort();
        return *found;
    }

    QString ConnectionWords();
    bool AwaitWords(const QString& words);
    /// The number of the view that is open.
    int OpenView();

    TemporaryFolder folder;
    const std::unique_ptr<EntryStore> store;
    ScriptedUser user;
    /// Whether the program shows its own dialogs, for OnDialog; before Start.
    bool realDialogs = false;
    /// What a restart does in place of a new process; before Start.
    std::function<bool()> startAgain = [] { return false; };
    std::unique_ptr<CTarnbridgeApp> program;

private:
    static std::unique_ptr<EntryStore> StoreIn(const TemporaryFolder& folder);
};

}  // namespace tarnbridge::test
