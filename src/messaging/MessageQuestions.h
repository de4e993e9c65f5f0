#pragma once

#include <vector>

#include "core/base/UserInteraction.h"
#include "messaging/MessageSending.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

// What the user is asked about messages: each question says what will happen, and its buttons say what they
// do. The folders' locks are taken.

/// Before messages of this folder are deleted: those of the PC go to the trash can first.
/// \param leftOut  how many of those chosen stay, since they can't be decoded
Question DeleteQuestion(const MessageTree& tree, const MessageFolder& folder,
                        const std::vector<SmsRecord*>& messages, size_t leftOut = 0);

/// Before a folder goes: Yes to the trash can, No for good.
Question FolderToTrashQuestion(const MessageTree& tree, const MessageFolder& folder);

/// Before all that is in a folder goes for good.
Question FolderForGoodQuestion(const MessageFolder& folder);

Question ReadQuestion();

/// Before an editor closes: Yes saves, No doesn't.
Question SaveQuestion();

/// Before several messages are sent.
/// \param leftOut  how many of those chosen aren't sent
Question SendQuestion(Word words, const std::vector<MessageSending::Waiting>& messages, size_t leftOut = 0);

}  // namespace tarnbridge
