#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/UserInteraction.h"
#include "messaging/MessageEditor.h"
#include "messaging/Recipients.h"
#include "messaging/SmsRecord.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"

namespace tarnbridge {

/// A message with its recipients from the opening of an editor to its end. The record that it comes from is
/// copied and stays as it is; whoever keeps the result puts it in that record's place.
class MessageDraft {
public:
    // None of these gives anything when the EMS layer has no slot for the message; the user is told
    // Word::EmsObjectNotCreated.

    static std::unique_ptr<MessageDraft> New(const EditorOptions& options);

    /// To change a record; the result takes its place, storage and locations on the handset included.
    static std::unique_ptr<MessageDraft> Open(const EditorOptions& options, const SmsRecord& record,
                                              const CodePage& page = CodePage::System());

    /// An answer: the record's address, no text.
    static std::unique_ptr<MessageDraft> Reply(const EditorOptions& options, const SmsRecord& record,
                                               const CodePage& page = CodePage::System());

    /// A copy of the message, for somebody else.
    static std::unique_ptr<MessageDraft> Forward(const EditorOptions& options, const SmsRecord& record,
                                                 const CodePage& page = CodePage::System());

    MessageEditor& Editor() { return editor_; }
    const MessageEditor& Editor() const { return editor_; }

    /// As the user writes them: names or numbers between `,` and `;`.
    const std::u16string& Recipients() const { return recipients_; }
    void SetRecipients(std::u16string_view text) { recipients_ = text; }

    /// As AddRecipient.
    std::optional<Word> AddRecipient(std::u16string_view recipient) {
        return tarnbridge::AddRecipient(recipients_, recipient);
    }

    /// Whether text or recipients differ from those at the start or at the last MarkSaved.
    bool Modified() const { return editor_.Modified() || recipients_ != savedRecipients_; }
    void MarkSaved();

    /// Asks whether to save what is modified, before the editor closes: Yes, No or Cancel. No, unasked, when
    /// nothing is.
    Answer AskToSave(UserInteraction& user) const;

    /// The message as a new record, composed now, with these recipients, which must be without fault, as one
    /// address. It has a copy of the EmsMessage and the text in the field of its coding. Nothing when there
    /// is no slot for the copy.
    std::optional<SmsRecord> MakeRecord(const CheckedRecipients& recipients, Clock& clock) const;

private:
    explicit MessageDraft(MessageEditor editor) : editor_(std::move(editor)) {}

    static std::unique_ptr<MessageDraft> CopyOf(const EditorOptions& options, const SmsRecord& record,
                                                const CodePage& page);

    MessageEditor editor_;
    std::u16string recipients_;
    std::u16string savedRecipients_;
    std::u16string storage_ = u"PC";
    std::vector<int> handsetIndices_;
};

}  // namespace tarnbridge
