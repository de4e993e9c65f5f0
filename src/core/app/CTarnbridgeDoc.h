#pragma once

#include <filesystem>
#include <memory>

#include "core/app/LinkWatch.h"
#include "core/app/Profile.h"
#include "core/app/ProfileFile.h"
#include "core/base/BackgroundWorker.h"
#include "core/base/DialUpSettings.h"
#include "core/base/PhoneModels.h"
#include "core/base/Settings.h"
#include "core/base/UserInteraction.h"
#include "link/HandsetLink.h"
#include "messaging/MirrorState.h"
#include "platform/Clock.h"
#include "platform/PortMap.h"

namespace tarnbridge {

/// The one document of the program: the handset, the thread that talks to it, and all that the user keeps.
/// It is made at the start, opened once by OnNewDocument, and closed once. All of it belongs to the interface
/// thread, except what has locks of its own and what says so.
class CTarnbridgeDoc {
public:
    /// What belongs to others; all must outlive the document.
    struct Surroundings {
        EntryStore& store;
        Settings& settings;
        DialUpSettings& dialUp;
        bool saveDialUp;  ///< false: its file is there and couldn't be read, so it must stay
        UserInteraction& user;
        Clock& clock;
        std::filesystem::path folder;  ///< where the profile and the temporary files stand
    };

    explicit CTarnbridgeDoc(const Surroundings& surroundings);
    CTarnbridgeDoc(const CTarnbridgeDoc&) = delete;
    CTarnbridgeDoc& operator=(const CTarnbridgeDoc&) = delete;

    /// Starts the worker and loads what the user keeps. False, and the user has been told, when another
    /// program has the profile.
    bool OnNewDocument();

    /// Runs OnCloseDocument on the teardown thread, after all that is under way there, and posts
    /// DocumentClosed to the window. Until then nobody else touches the document.
    void Close();

    /// Before any of it is used: who gets LinkStepDone, ProfileChanged, DocumentClosed, and the answers to
    /// checks of the handset.
    void SetWindow(std::weak_ptr<MessageTarget> window);

    /// Saves what the user keeps, now. False when it couldn't be saved; the user is told when that is news.
    bool SaveContent();

    /// The same, and the dial-up settings.
    bool Save();

    /// To be called after each change of what the user keeps on the PC, from any thread once the window is
    /// set: it is saved soon.
    void NoteChange();

    /// The model in use, by its key.
    const PhoneModels::Map::value_type& Model() const;

    /// Whether long messages may be written, and whether only the 7-bit alphabet is used.
    bool LongMessages() const;
    bool SevenBit() const;

    // The parts.
    BackgroundWorker& Worker() { return worker_; }
    HandsetLink& Link() { return link_; }
    Profile& Content() { return profile_; }
    /// Of the handset's messages in the content.
    MirrorState& Mirror() { return mirror_; }
    LinkWatch& Watch() { return watch_; }
    const PhoneModels& Models() const { return phoneModels_; }
    Settings& Preferences() { return surroundings_.settings; }
    UserInteraction& User() { return surroundings_.user; }
    Clock& Time() { return surroundings_.clock; }
    EntryStore& Store() { return surroundings_.store; }

    /// False while a step runs during which the view must stay.
    bool viewSwitchAllowed = true;

private:
    void OnCloseDocument();
    void TellAside();
    LinkAddress Address() const;

    const Surroundings surroundings_;
    std::weak_ptr<MessageTarget> window_;
    // Each uses those before it.
    const PortMap ports_;
    HandsetLink link_;
    BackgroundWorker worker_;
    Profile profile_;
    MirrorState mirror_;
    PhoneModels phoneModels_;
    std::unique_ptr<ProfileFile> file_;
    bool toldNotSaved_ = false;
    std::optional<std::filesystem::path> toldAside_;
    LinkWatch watch_;
};

}  // namespace tarnbridge
