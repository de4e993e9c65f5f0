#include "ui/messages/CSmsReadDialog.h"

#include <QStringList>

#include "ui/QtText.h"

namespace tarnbridge {

CSmsReadDialog::CSmsReadDialog(std::unique_ptr<MessageDownload> download, QWidget* parent)
    : TaskDialog(QWords(Word::ReadingMessages), *download, parent), download_(std::move(download)) {
    setObjectName(QStringLiteral("reading"));
    ShowWords(QWords(Word::ReadingMessage));
}

CSmsReadDialog::~CSmsReadDialog() = default;

bool CSmsReadDialog::ShowEnd() {
    const MessageDownload::Report& report = download_->GetReport();
    QStringList lines;
    if (download_->LostHandset()) lines << QWords(Word::HandsetLost);
    if (report.noMemory) lines << QWords(Word::NoMessageInHandset);
    if (!report.unread.empty())
        lines << QWords(Word::MessagesUnread, {static_cast<int64_t>(report.unread.size())});
    ShowWords(lines.join(u'\n'));
    return !lines.isEmpty();
}

}  // namespace tarnbridge
