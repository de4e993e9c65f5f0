#include "core/app/CTarnbridgeDoc.h"

#include "core/app/FrameMessages.h"
#include "core/app/StandardFolders.h"
#include "core/app/TemporaryFiles.h"
#include "core/base/StringTable.h"
#include "platform/SerialDevice.h"
#include "platform/Text.h"

namespace tarnbridge {
CTarnbridgeDoc::CTarnbridgeDoc(const Surroundings& surroundings)
    : surroundings_(surroundings),
      ports_(surroundings.store),
      link_(surroundings.clock, SystemSerialDevices(ports_)),
      watch_(link_, worker_, surroundings.user, [this] { return Address(); }) {}

void CTarnbridgeDoc::SetWindow(std::weak_ptr<MessageTarget> window) {
    window_ = window;
    watch_.SetWindow(std::move(window));
}

bool CTarnbridgeDoc::OnNewDocument() {
    UserInteraction& user = surroundings_.user;
    file_ = ProfileFile::Open(surroundings_.folder / "Tarnbridge.bin", surroundings_.clock);
    if (!file_) {
        user.Tell(Words(Word::ProfileInUse));
        return false;
    }
    if (!worker_.Start(link_)) user.Tell(Words(Word::BackgroundThreadFailed));
    EmptyTemporaryFolder(surroundings_.folder);
    phoneModels_.Load();
    file_->Load(profile_);
    // What was lost is told before the user works on; what can't be copied now, the next save tries again.
    file_->KeepAside();
    TellAside();
    EnsureStandardFolders(profile_, FolderNames::OfProgram());
    return true;
}

void CTarnbridgeDoc::Close() {
    watch_.Close([this] {
        OnCloseDocument();
        if (const auto window = window_.lock()) window->Post({DocumentClosed});
    });
}

void CTarnbridgeDoc::OnCloseDocument() {
    worker_.Stop();
    if (link_.IsPortOpen()) link_.Disconnect(true);
    EmptyMirrors(profile_);
    Save();
    SweepTemporaryFiles(surroundings_.folder);
    file_.reset();
}

bool CTarnbridgeDoc::Save() {
    const bool saved = SaveContent();
    if (surroundings_.saveDialUp) SaveDialUpSettings(surroundings_.dialUp);
    return saved;
}

bool CTarnbridgeDoc::SaveContent() {
    if (!file_) return false;
    if (!file_->Save(profile_)) {
        if (!std::exchange(toldNotSaved_, true)) surroundings_.user.Tell(Words(Word::ProfileNotSaved));
        return false;
    }
    toldNotSaved_ = false;
    TellAside();
    return true;
}

void CTarnbridgeDoc::TellAside() {
    if (!file_->CopiedAside() || file_->CopiedAside() == toldAside_) return;
    toldAside_ = file_->CopiedAside();
    surroundings_.user.Tell(Words(file_->WasAltered() ? Word::ProfileAltered : Word::ProfileCopiedAside,
                                  {Utf8ToText(toldAside_->string())}));
}

void CTarnbridgeDoc::NoteChange() {
    if (const auto window = window_.lock()) window->Post({ProfileChanged});
}

const PhoneModels::Map::value_type& CTarnbridgeDoc::Model() const {
    return phoneModels_.InUse(surroundings_.settings.GetText(SettingIndex::Phone));
}

bool CTarnbridgeDoc::LongMessages() const {
    return surroundings_.settings.GetText(SettingIndex::LongSms) == u"TRUE";
}

bool CTarnbridgeDoc::SevenBit() const {
    return surroundings_.settings.GetText(SettingIndex::SevenBitSms) == u"TRUE";
}

LinkAddress CTarnbridgeDoc::Address() const {
    const PhoneModelInfo& model = Model().second;
    return {PortMap::NameOf(surroundings_.settings.GetNumber(SettingIndex::Port)), model.baudRate,
            model.flowControl};
}

}  // namespace tarnbridge
