#include "ui/messages/MessageEditors.h"

#include <algorithm>

#include "core/app/CTarnbridgeDoc.h"
#include "core/base/StringTable.h"
#include "ui/messages/MessageOperations.h"

namespace tarnbridge {

MessageEditors::MessageEditors(CTarnbridgeDoc& document, MessageOperations& operations, QWidget* owner)
    : document_(document), operations_(operations), owner_(owner) {}

MessageEditors::~MessageEditors() {
    for (const Window& window : windows_)
        delete window.dialog;
}

void MessageEditors::New() {
    Show(MessageDraft::New(EditorOptions::From(document_.Preferences())));
}

void MessageEditors::Open(const MessageSelection& selection) {
    for (const Window& window : windows_) {
        if (!window.dialog || window.origin->records != selection.records) continue;
        window.dialog->raise();
        window.dialog->activateWindow();
        return;
    }
    Show(MessageDraft::Open(EditorOptions::From(document_.Preferences()), *selection.records.front()),
         selection);
}

void MessageEditors::Reply(const SmsRecord& record) {
    const std::u16string sender = CodePage::System().ToText(record.address.number);
    if (!CheckRecipients(sender, matcher_)) {
        document_.User().Tell(Words(Word::SenderIsName, {sender}));
        return;
    }
    Show(MessageDraft::Reply(EditorOptions::From(document_.Preferences()), record));
}

void MessageEditors::Forward(const SmsRecord& record) {
    Show(MessageDraft::Forward(EditorOptions::From(document_.Preferences()), record));
}

void MessageEditors::Show(std::unique_ptr<MessageDraft> draft, MessageSelection origin) {
    if (!draft) {
        document_.User().Tell(Words(Word::EmsObjectNotCreated));
        return;
    }
    std::erase_if(windows_, [](const Window& window) { return !window.dialog; });
    auto* const dialog =
        new CSmsDialog(std::move(draft), {document_.User(), document_.Time(), matcher_}, owner_);
    const KeptSelections::Kept kept = operations_.Keep(std::move(origin));
    windows_.push_back({dialog, kept});
    const QPointer<CSmsDialog> alive = dialog;
    QObject::connect(dialog, &CSmsDialog::sendWanted, owner_, [this, alive, kept](const SmsRecord& record) {
        operations_.SendComposed(record, kept, [alive] {
            if (alive) alive->NoteSent();
        });
    });
    QObject::connect(dialog, &CSmsDialog::saveWanted, owner_, [this, alive, kept](const SmsRecord& record) {
        operations_.SaveComposed(record, kept, [this, alive](bool safe) {
            if (!alive) return;
            safe ? alive->NoteSaved() : alive->NoteNotSaved();
            if (safe) Q_EMIT saved();
        });
    });
    connect(dialog, &CSmsDialog::stays, this, &MessageEditors::stays);
    dialog->show();
}

bool MessageEditors::CloseAll() {
    for (const Window& window : std::vector<Window>(windows_)) {
        if (window.dialog && !window.dialog->close()) return false;
    }
    return true;
}

bool MessageEditors::IsSaving() const {
    return std::any_of(windows_.begin(), windows_.end(),
                       [](const Window& window) { return window.dialog && window.dialog->IsClosing(); });
}

}  // namespace tarnbridge
