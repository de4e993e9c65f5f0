#include "ui/messages/CSmsReadDialog.h"

#include "messaging/DownloadWords.h"
#include "ui/QtText.h"

namespace tarnbridge {

CSmsReadDialog::CSmsReadDialog(std::unique_ptr<MessageDownload> download, QWidget* parent)
    : TaskDialog(QWords(Word::ReadingMessages), *download, parent), download_(std::move(download)) {
    setObjectName(QStringLiteral("reading"));
    ShowWords(QWords(Word::ReadingMessage));
}

CSmsReadDialog::~CSmsReadDialog() = default;

bool CSmsReadDialog::ShowEnd() {
    const QString words =
        ToQString(DownloadWords(download_->GetReport(), download_->LostHandset(), download_->WasCancelled()));
    ShowWords(words);
    return !words.isEmpty();
}

}  // namespace tarnbridge
