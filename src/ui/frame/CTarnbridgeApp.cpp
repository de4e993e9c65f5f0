#include "ui/frame/CTarnbridgeApp.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QSessionManager>
#include <array>

#include "core/app/CTarnbridgeDoc.h"
#include "core/app/Languages.h"
#include "core/base/FirstStartSettings.h"
#include "core/base/StringTable.h"
#include "messaging/ems/Ems.h"
#include "platform/Process.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "ui/QtText.h"
#include "ui/frame/CMainFrame.h"
#include "ui/frame/FirstInstance.h"

namespace tarnbridge {
namespace {

bool HasWords(int32_t language) {
    return FindData(LanguageFileName(language)).has_value();
}

bool StartAgain() {
    return static_cast<bool>(Process::Start(ToPath(QCoreApplication::applicationFilePath()), {}));
}

}  // namespace

CTarnbridgeApp::CTarnbridgeApp(Surroundings surroundings)
    : surroundings_(std::move(surroundings)),
      store_(OpenUserStore()),
      settings(*store_),
      guard_(RuntimeFolder()) {
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

CTarnbridgeApp::~CTarnbridgeApp() {
    ExitInstance();
}

UserInteraction& CTarnbridgeApp::User() {
    return surroundings_.user ? *surroundings_.user : dialogs_;
}

bool CTarnbridgeApp::InitInstance() {
    if (!guard_.Enter()) {
        FirstInstance::AskToShow();
        return false;
    }
    firstInstance_ = std::make_unique<FirstInstance>();

    ReadDialUpSettings();
    emsReady_ = EmsInit() == EmsResult::Done;
    if (!emsReady_) {
        User().Tell(Words(Word::EmsLibraryFailed));
        return false;
    }
    settings.Load();
    ChooseLanguage();

    document_ = std::make_unique<CTarnbridgeDoc>(CTarnbridgeDoc::Surroundings{
        *store_, settings, dialUp_, saveDialUp_, User(), clock_, ProgramFolder()});
    if (!document_->OnNewDocument()) return false;
    frame_ = std::make_unique<CMainFrame>(*document_);
    dialogs_.SetWindow(frame_.get());
    connect(frame_.get(), &CMainFrame::restartWanted, this, &CTarnbridgeApp::Restart);
    connect(frame_.get(), &CMainFrame::closed, this, &CTarnbridgeApp::closed);
    connect(firstInstance_.get(), &FirstInstance::shownWanted, frame_.get(), &CMainFrame::BringToFront);
    // A session that ends may leave no time for an orderly close.
    connect(qApp, &QGuiApplication::commitDataRequest, frame_.get(), [this] { document_->Save(); });

    frame_->ShowAtItsPlace();
    frame_->StartConnectionTimer();
    return true;
}

void CTarnbridgeApp::ReadDialUpSettings() {
    constexpr const char* name = "DialUpSetting.ini";
    if (LoadDialUpSettings(dialUp_)) return;
    std::error_code ignored;
    saveDialUp_ = !std::filesystem::exists(ProgramFolder() / name, ignored);
    User().Tell(Words(Word::IniFileMissing));
}

void CTarnbridgeApp::ChooseLanguage() {
    const FirstStartSettings first = TakeFirstStartSettings(*store_);
    if (first.usedGroupName) dialUp_.usedGroupName = *first.usedGroupName;

    std::vector<int32_t> wanted{first.languageId.value_or(settings.GetNumber(SettingIndex::Language))};
    // The user's languages, then that of the system's formats.
    for (const QString& locale : QLocale::system().uiLanguages()) {
        if (const auto language = LanguageOfLocale(locale.toStdString())) wanted.push_back(*language);
    }
    if (const auto language = LanguageOfLocale(QLocale::system().name().toStdString()))
        wanted.push_back(*language);
    const int32_t language = tarnbridge::ChooseLanguage(wanted, HasWords);
    LoadWords(language);
    settings.SetNumber(SettingIndex::Language, language);
}

void CTarnbridgeApp::LoadWords(int32_t language) {
    StringTable::Translation translation;
    const auto file = FindData(LanguageFileName(language));
    if (file && words_.load(PathToQString(*file))) {
        const StringTable english;
        for (size_t i = 0; i < StringTable::Keys().size(); ++i) {
            const std::string& key = StringTable::Keys()[i];
            const std::string source = TextToUtf8(english.Get(static_cast<Word>(i)));
            const QString words = words_.translate("Words", source.c_str(), key.c_str());
            if (!words.isEmpty()) translation[key] = ToText(words);
        }
        if (wordsOfQt_.load(QLocale(words_.language()), QStringLiteral("qtbase"), QStringLiteral("_"),
                            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(&wordsOfQt_);
    }
    ProgramWords().Replace(translation);
}

void CTarnbridgeApp::Restart() {
    document_->Save();
    guard_.AnnounceRestart();
    const bool started = surroundings_.startAgain ? surroundings_.startAgain() : StartAgain();
    if (!started) {
        User().Tell(Words(Word::RestartFailed));
        return;
    }
    QMetaObject::invokeMethod(frame_.get(), &QWidget::close, Qt::QueuedConnection);
}

void CTarnbridgeApp::ExitInstance() {
    frame_.reset();
    document_.reset();
    if (std::exchange(emsReady_, false)) EmsShutdown();
    firstInstance_.reset();
    guard_.Leave();
}

}  // namespace tarnbridge
