#include "MessageWidgets.h"

#include <QAction>
#include <QCoreApplication>
#include <QLineEdit>
#include <QMenu>

#include "core/app/CTarnbridgeDoc.h"
#include "messaging/ems/Ems.h"
#include "ui/messages/CSmsDialog.h"
#include "ui/messages/CSmsReadDialog.h"
#include "ui/messages/MessageEdit.h"
#include "ui/messages/MessageReader.h"
#include "ui/messages/SendingDialog.h"

namespace tarnbridge {
namespace {

constexpr QSize readerSize(420, 380);

/// A face of 16 x 16 pixels, or of 2 or 6 bits a pixel a run of their colours.
MessageObject Picture(int depth) {
    static constexpr uint16_t face[16] = {0x07E0, 0x1818, 0x2004, 0x4002, 0x4C32, 0x8C31, 0x8001, 0x8001,
                                          0x8001, 0x9009, 0x8811, 0x47E2, 0x4002, 0x2004, 0x1818, 0x07E0};
    std::string bits;
    if (depth == 1) {
        for (const uint16_t row : face)
            bits += {static_cast<char>(row >> 8), static_cast<char>(row & 0xFF)};
        return MessageObject::Picture(bits, 16, 16);
    }
    for (int i = 0; i < 16 * 16 * depth / 8; ++i)
        bits += static_cast<char>(i * 37);
    return MessageObject::Picture(bits, 16, 16, depth);
}

void Write(MessageEditor& editor, std::u16string_view text, const FormatChange& look = {}) {
    const int begin = editor.Shown().Length();
    editor.Replace(begin, begin, {FormattedText{std::u16string(text), look.AppliedTo({})}});
}

void Add(MessageEditor& editor, const MessageObject& object) {
    editor.Insert(editor.Shown().Length(), object);
}

/// Every kind of thing that a message can hold.
void Fill(MessageEditor& editor) {
    Write(editor, u"Birthday party\n", {.size = 4, .alignment = 1, .bold = 1});
    Write(editor, u"Saturday at eight, ");
    Write(editor, u"bring cake", {.underline = 1, .foreground = 10});
    Write(editor, u" and ");
    Write(editor, u"no presents", {.strikethrough = 1});
    Write(editor, u"! ");
    Add(editor, Picture(1));
    Add(editor, MessageObject::PredefinedSound(4));
    Write(editor, u"\n");
    for (uint8_t colour = 1; colour < 16; ++colour)
        Write(editor, u"Aa ", {.foreground = colour});
    Write(editor, u"\n");
    for (uint8_t colour = 0; colour < 16; ++colour)
        Write(editor, u"Bb ", {.background = colour});
    Write(editor, u"\n");
    Add(editor, Picture(2));
    Add(editor, Picture(6));
    Write(editor, u" ");
    Add(editor, MessageObject::Animation(
                    std::string("\x3C\x42\x81\x81\x81\x81\x42\x3C", 8) + std::string(24, '\x55'), 8, 8, 4));
    Add(editor, MessageObject::PredefinedAnimation(2));
    Add(editor, MessageObject::Melody("BEGIN:IMELODY\r\nEND:IMELODY"));
    Add(editor, {.kind = EmsKind::VCard, .bytes = "BEGIN:VCARD\r\nFN:Eva Holm\r\nEND:VCARD\r\n"});
    Write(editor, u"\nsmall and right", {.size = 8, .alignment = 2, .italic = 1});
}

struct NoKeeper : MessageKeeper {
    void PcFoldersChanged() override {}
    bool SaveNow() override { return true; }
};

void AwaitEnd(const TaskDialog& dialog) {
    while (dialog.IsRunning())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void ShowTasks(CTarnbridgeDoc& document, const std::function<void(QWidget&, const QString&)>& grab) {
    const MessageTree tree(document.Content().messageRoot);
    MessageFolder& outbox = tree.OnPc(outboxPlace);
    std::vector<MessageSending::Waiting> waiting;
    for (const char* const numbers : {"+46701740601,+46701740602", "", "112,+46701740603,+46701740604"}) {
        auto record = std::make_unique<SmsRecord>();
        record->text8 = "Hello";
        record->address = SmsAddress(numbers, 0);
        record->timestamp = {.year = 24, .month = 5, .day = 6, .hour = 17, .minute = 8, .second = 9};
        record->messageType = SmsRecord::submit;
        record->status = smsComposed;
        waiting.push_back({&outbox, &outbox.Append(std::move(record))});
    }
    NoKeeper keeper;
    SendingDialog sending(
        std::make_unique<MessageSending>(document.Worker(), tree, keeper, document.Time(), waiting));
    sending.Start();
    grab(sending, QStringLiteral("message-sending"));
    AwaitEnd(sending);
    grab(sending, QStringLiteral("message-sent"));
    CSmsReadDialog reading(std::make_unique<MessageDownload>(document.Worker(), tree));
    reading.Start();
    grab(reading, QStringLiteral("message-reading"));
    AwaitEnd(reading);
}

}  // namespace

void ShowMessageWidgets(CTarnbridgeDoc& document, const std::function<void(QWidget&, const QString&)>& grab) {
    const VerbatimMatcher matcher;
    const auto open = [&] {
        auto dialog = std::make_unique<CSmsDialog>(
            MessageDraft::New({}), CSmsDialog::Surroundings{document.User(), document.Time(), matcher});
        dialog->show();
        return dialog;
    };
    const auto editor = open();
    grab(*editor, QStringLiteral("message-editor-empty"));

    auto draft = MessageDraft::New({});
    Fill(draft->Editor());
    draft->SetRecipients(u"+46701740601; 112");
    auto filled = std::make_unique<CSmsDialog>(
        std::move(draft), CSmsDialog::Surroundings{document.User(), document.Time(), matcher});
    filled->resize(820, 620);
    filled->show();
    QTextCursor cursor = filled->Text().textCursor();
    cursor.setPosition(5);
    cursor.setPosition(70, QTextCursor::KeepAnchor);
    filled->Text().setTextCursor(cursor);
    grab(*filled, QStringLiteral("message-editor-full"));
    for (const char* const name : {"foreground", "insertSound", "insertAnimation"}) {
        auto& menu = *filled->findChild<QMenu*>(QLatin1String(name));
        menu.popup({0, 0});
        grab(menu, QStringLiteral("message-menu-") + QLatin1String(name));
        menu.hide();
    }
    filled->findChild<QLineEdit*>(QStringLiteral("recipients"))->setText(QStringLiteral("07+01"));
    filled->findChild<QAction*>(QStringLiteral("send"))->trigger();
    grab(*filled, QStringLiteral("message-editor-refusal"));

    MessageReader reader;
    reader.resize(readerSize);
    reader.show();
    grab(reader, QStringLiteral("message-reader-empty"));
    SmsRecord record;
    record.emsMessage = EmsHandle::Make(0);
    EmsCopy(record.emsMessage.Get(), &filled->Text().Editor().Message());
    record.address = SmsAddress("+46701740601", 0);
    record.timestamp = {.year = 24, .month = 5, .day = 6, .hour = 17, .minute = 8, .second = 9};
    reader.Show(record, QStringLiteral("Inbox"));
    grab(reader, QStringLiteral("message-reader"));
    ShowTasks(document, grab);
}

}  // namespace tarnbridge
