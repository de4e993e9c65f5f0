#include "ui/messages/MessageReader.h"

#include <QFormLayout>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

#include "core/base/StringTable.h"
#include "messaging/RecordText.h"
#include "platform/CodePage.h"
#include "platform/Text.h"
#include "ui/EmptyHint.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

void Fill(MessageTextView& text, SmsRecord record) {
    if (!record.unreadable && record.EnsureEmsMessage()) {
        text.ShowMessage(ShownMessage(*record.emsMessage.Get()));
        return;
    }
    // A record from elsewhere may hold more text than a message can.
    std::u16string bare = ShownText(record);
    if (record.unreadable) bare = Words(Word::UnreadableMessage, {bare});
    for (char16_t& unit : bare) {
        if (unit != u'\n' && IsUnshowable(unit)) unit = u' ';
    }
    text.Document().ShowText(bare);
}

void AddLine(QFormLayout& header, QLabel* title, QLabel* value, const char* name) {
    value->setObjectName(QLatin1String(name));
    value->setTextFormat(Qt::PlainText);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    value->setWordWrap(true);
    title->setBuddy(value);
    header.addRow(title, value);
}

}  // namespace

MessageReader::MessageReader(QWidget* parent)
    : QStackedWidget(parent),
      empty_(new EmptyHint(QStringLiteral("messages"), QWords(Word::ReaderEmptyTitle),
                           QWords(Word::ReaderEmptyHint))),
      page_(new QWidget),
      addressTitle_(new QLabel),
      address_(new QLabel),
      time_(new QLabel),
      folder_(new QLabel),
      text_(new MessageTextView) {
    setObjectName(QStringLiteral("reader"));
    auto* const header = new QFormLayout;
    header->setContentsMargins(8, 6, 8, 6);
    header->setVerticalSpacing(2);
    header->setHorizontalSpacing(8);
    AddLine(*header, addressTitle_, address_, "readerAddress");
    AddLine(*header, new QLabel(QWords(Word::ReaderTime)), time_, "readerTime");
    AddLine(*header, new QLabel(QWords(Word::ReaderFolder)), folder_, "readerFolder");
    auto* const line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    text_->setObjectName(QStringLiteral("readerText"));
    text_->setAccessibleName(QWords(Word::EditorText));
    text_->setFrameShape(QFrame::NoFrame);

    auto* const layout = new QVBoxLayout(page_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(header);
    layout->addWidget(line);
    layout->addWidget(text_, 1);
    addWidget(empty_);
    addWidget(page_);
}

void MessageReader::Show(const SmsRecord& record, const QString& folder) {
    const bool received = record.messageType == SmsRecord::deliver;
    addressTitle_->setText(QWords(received ? Word::ReaderFrom : Word::ReaderTo));
    address_->setText(ToQString(CodePage::System().ToText(record.address.number)));
    const bool hasTime = record.timestamp.IsSet();
    time_->setText(hasTime ? ToQString(Utf8ToText(record.timestamp.ToText())) : QString());
    folder_->setText(folder);
    Fill(*text_, record);
    text_->moveCursor(QTextCursor::Start);
    setCurrentWidget(page_);
}

void MessageReader::Clear(qsizetype chosen) {
    empty_->SetTitle(chosen > 0 ? QWords(Word::ReaderSeveralTitle, {static_cast<int64_t>(chosen)})
                                : QWords(Word::ReaderEmptyTitle));
    text_->ShowMessage({});
    setCurrentWidget(empty_);
}

}  // namespace tarnbridge
