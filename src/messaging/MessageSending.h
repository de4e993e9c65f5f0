#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/base/HandsetTask.h"
#include "core/base/UserInteraction.h"
#include "messaging/MessageOutcome.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

inline constexpr size_t mostMessagesToSend = 1200;  ///< in one go

/// Sends messages, each to all of its numbers, one job a number, in the order of the messages and of the
/// numbers in each; nothing is tried twice. A message that reached all of its numbers goes from its PC folder
/// to the PC's "Sent Message". Of one that reached some of them a copy for these goes there, and the message
/// stays for the others; so it is with what a cancel left out. A message of the handset stays there, and a
/// copy goes. Each number that was reached is on the disk as such before the next one is tried.
class MessageSending : public HandsetTask {
public:
    /// One message to one number; one without any number is an item that has failed from the beginning.
    struct Item {
        SmsRecord* record = nullptr;
        MessageFolder* folder = nullptr;
        std::string number;
        MessageOutcome outcome{};
    };

    /// A message that waits in its folder.
    struct Waiting {
        MessageFolder* folder = nullptr;
        SmsRecord* record = nullptr;
    };

    /// The folders stay where they are until the end, and nobody else destroys the records.
    MessageSending(BackgroundWorker& worker, MessageTree tree, MessageKeeper& keeper, Clock& clock,
                   const std::vector<Waiting>& messages);

    /// The rows of the list that the user sees; a state changes before onProgress is called.
    const std::vector<Item>& Items() const { return items_; }

private:
    void Begin() override;
    void Next();
    void Sent(bool done, int error);
    void KeepSent();

    const MessageTree tree_;
    MessageKeeper& keeper_;
    Clock& clock_;
    std::vector<Item> items_;
    size_t current_ = 0;
    size_t first_ = 0;             // item of the record under way
    SmsRecord* partly_ = nullptr;  // its copy for the numbers that it has reached
};

/// What "Send all messages" sends: all of the PC's Outbox, after the user has said so. Nothing where he
/// hasn't, or where there are too many, which he is told.
std::optional<std::vector<MessageSending::Waiting>> CollectOutbox(const MessageTree& tree,
                                                                  UserInteraction& user);

}  // namespace tarnbridge
