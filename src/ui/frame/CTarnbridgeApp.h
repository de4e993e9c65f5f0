#pragma once

#include <QObject>
#include <QTranslator>
#include <functional>
#include <memory>

#include "core/app/InstanceGuard.h"
#include "core/base/DialUpSettings.h"
#include "core/base/Settings.h"
#include "platform/Clock.h"
#include "platform/EntryStore.h"
#include "ui/dialogs/WindowInteraction.h"

namespace tarnbridge {

class CMainFrame;
class CTarnbridgeDoc;
class FirstInstance;

/// The life of the program, from its start to its end, around a QApplication that the caller has made.
class CTarnbridgeApp : public QObject {
    Q_OBJECT

public:
    /// What a test replaces.
    struct Surroundings {
        UserInteraction* user = nullptr;             ///< null: dialogs over the window
        std::function<bool()> startAgain = nullptr;  ///< starts the program anew; null: a new process
    };

    explicit CTarnbridgeApp(Surroundings surroundings);
    CTarnbridgeApp() : CTarnbridgeApp(Surroundings()) {}
    ~CTarnbridgeApp() override;

    /// The start, up to the window on the screen. False when the program is to end at once: another instance
    /// runs and has been asked to come to the front, or the user has been told what is missing.
    bool InitInstance();

    /// The end, once the window has said that it is closed. Nothing after a start that failed or a second
    /// call.
    void ExitInstance();

    CMainFrame* Frame() const { return frame_.get(); }
    CTarnbridgeDoc* Document() const { return document_.get(); }

Q_SIGNALS:
    /// The window is closed: the event loop can end.
    void closed();

private:
    void ReadDialUpSettings();
    void ChooseLanguage();
    void LoadWords(int32_t language);
    void Restart();
    UserInteraction& User();

    const Surroundings surroundings_;
    SystemClock clock_;
    const std::unique_ptr<EntryStore> store_;
    Settings settings;
    DialUpSettings dialUp_;  ///< usedGroupName, groupNames, operators
    bool saveDialUp_ = true;
    InstanceGuard guard_;
    std::unique_ptr<FirstInstance> firstInstance_;
    bool emsReady_ = false;
    QTranslator words_;
    QTranslator wordsOfQt_;
    WindowInteraction dialogs_;
    std::unique_ptr<CTarnbridgeDoc> document_;
    std::unique_ptr<CMainFrame> frame_;
};

}  // namespace tarnbridge
