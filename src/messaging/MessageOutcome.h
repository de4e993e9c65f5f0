#pragma once

#include <string>
#include <vector>

#include "core/base/StringTable.h"
#include "messaging/SmsRecord.h"

namespace tarnbridge {

/// What became of one message in a task.
struct MessageOutcome {
    enum class State { NotTried, Done, Failed };

    void Fail(Word why, int handsetError = -1, std::vector<int> locations = {});

    State state = State::NotTried;
    std::u16string title;         ///< tells the message from others: address and time
    Word words = Word::Count;     ///< of a failure
    int error = -1;               ///< of a failure: the handset's number, if it gave one
    std::vector<int> leftBehind;  ///< locations of the handset that may still hold parts of it
    bool keptInDraft = false;     ///< a copy lies in the PC's Draft for a failure's sake
    /// It was sent or written, for all that is known, but the handset didn't say so.
    bool unconfirmed = false;
};

/// Address and time of a message, or the locations of one that isn't known further.
std::u16string TitleOf(const SmsRecord& record);

/// What the user is told at the end of a task: the failures, each with its message; empty if there is none.
/// Long lists are cut after some lines.
std::u16string FailureWords(const std::vector<MessageOutcome>& outcomes);

/// Whether none has failed and none has been left out.
bool AllDone(const std::vector<MessageOutcome>& outcomes);

}  // namespace tarnbridge
