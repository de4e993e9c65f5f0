#include "messaging/MessageDraft.h"

#include <utility>

#include "messaging/MessageQuestions.h"
#include "messaging/ems/Ems.h"
#include "platform/Text.h"

namespace tarnbridge {

std::unique_ptr<MessageDraft> MessageDraft::New(const EditorOptions& options) {
    std::optional<MessageEditor> editor = MessageEditor::Make(options);
    if (!editor) return nullptr;
    return std::unique_ptr<MessageDraft>(new MessageDraft(std::move(*editor)));
}

std::unique_ptr<MessageDraft> MessageDraft::CopyOf(const EditorOptions& options, const SmsRecord& record,
                                                   const CodePage& page) {
    // The record itself is left without a slot.
    SmsRecord copy = record;
    if (!copy.EnsureEmsMessage(page)) return nullptr;
    std::optional<MessageEditor> editor = MessageEditor::Make(options, copy.emsMessage.Get());
    if (!editor) return nullptr;
    return std::unique_ptr<MessageDraft>(new MessageDraft(std::move(*editor)));
}

std::unique_ptr<MessageDraft> MessageDraft::Open(const EditorOptions& options, const SmsRecord& record,
                                                 const CodePage& page) {
    std::unique_ptr<MessageDraft> draft = CopyOf(options, record, page);
    if (!draft) return nullptr;
    draft->recipients_ = draft->savedRecipients_ = page.ToText(record.address.number);
    draft->storage_ = record.storage;
    draft->handsetIndices_ = record.handsetIndices;
    return draft;
}

std::unique_ptr<MessageDraft> MessageDraft::Reply(const EditorOptions& options, const SmsRecord& record,
                                                  const CodePage& page) {
    std::unique_ptr<MessageDraft> draft = New(options);
    if (draft) draft->recipients_ = draft->savedRecipients_ = page.ToText(record.address.number);
    return draft;
}

std::unique_ptr<MessageDraft> MessageDraft::Forward(const EditorOptions& options, const SmsRecord& record,
                                                    const CodePage& page) {
    return CopyOf(options, record, page);
}

void MessageDraft::MarkSaved() {
    editor_.MarkSaved();
    savedRecipients_ = recipients_;
}

Answer MessageDraft::AskToSave(UserInteraction& user) const {
    return Modified() ? user.Ask(SaveQuestion()) : Answer::No;
}

std::optional<SmsRecord> MessageDraft::MakeRecord(const CheckedRecipients& recipients, Clock& clock) const {
    EmsHandle message = EmsHandle::Make(editor_.Message().dcs);
    if (!message || EmsCopy(message.Get(), &editor_.Message()) != EmsResult::Done) return std::nullopt;
    SmsRecord record;
    record.SetEmsMessage(std::move(message));
    record.messageType = SmsRecord::submit;
    record.status = smsComposed;
    record.storage = storage_;
    record.handsetIndices = handsetIndices_;
    record.timestamp = SmsTimestamp::FromLocal(clock.Local());
    record.address = SmsAddress(TextToUtf8(recipients.text), SmsAddress::unknown);
    return record;
}

}  // namespace tarnbridge
