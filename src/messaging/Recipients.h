#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/base/StringTable.h"
#include "messaging/SmsRecord.h"

namespace tarnbridge {

inline constexpr size_t longestRecipientsToSend = 256;   ///< characters, when a message is sent or saved
inline constexpr size_t longestRecipientsToEdit = 4096;  ///< characters, when a contact is added

/// Finds the numbers of the names among the recipients of a message.
class RecipientMatcher {
public:
    virtual ~RecipientMatcher() = default;

    /// The text with each name replaced by a number, the separators `,` and `;` and whatever isn't a name as
    /// they stand. Nothing when a name isn't known.
    virtual std::optional<std::u16string> NamesToNumbers(std::u16string_view text) const = 0;
};

/// Knows no names and takes every text as it stands.
class VerbatimMatcher : public RecipientMatcher {
public:
    std::optional<std::u16string> NamesToNumbers(std::u16string_view text) const override {
        return std::u16string(text);
    }
};

/// What CheckRecipients found. Text and numbers are there only without a fault.
struct CheckedRecipients {
    std::optional<Word> fault;              ///< what to tell the user
    std::u16string text{};                  ///< the numbers and their separators in one, without blanks
    std::vector<std::u16string> numbers{};  ///< in order

    explicit operator bool() const { return !fault; }
};

/// The check before a message is sent: the names become numbers; neither the text nor what became of
/// it is too long; there is a number, and each consists of 0 to 9, `*`, `#` and one `+`, at its front, at
/// most. Blanks around a number don't count, those in it do. A separator with nothing on one side of it
/// leaves an invalid number, and a text of separators alone no recipient.
CheckedRecipients CheckRecipients(std::u16string_view text, const RecipientMatcher& matcher);

/// The same before one is saved: a draft needs no recipient, and has no number then.
CheckedRecipients CheckDraftRecipients(std::u16string_view text, const RecipientMatcher& matcher);

/// Adds a recipient, a name or a number, behind the text. Word::RecipientsTextTooLong, with nothing changed,
/// when that makes the text longer than longestRecipientsToEdit; otherwise nothing.
std::optional<Word> AddRecipient(std::u16string& text, std::u16string_view recipient);

/// The numbers of a record's address, which may be several in one; empty ones and blanks are left out.
std::vector<std::string> NumbersOf(const SmsRecord& record);

/// Whether the message was written rather than received, so that it can be sent as it is.
bool IsSendable(const SmsRecord& record);

/// The record as it goes to one of its numbers. Its EmsMessage is a copy, so it may have none when all slots
/// are taken.
SmsRecord RecordForNumber(const SmsRecord& record, std::string_view number);

}  // namespace tarnbridge
