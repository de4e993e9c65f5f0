#pragma once

#include <vector>

#include "messaging/MemoryTask.h"
#include "messaging/MessageOutcome.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

/// Deletes messages of a folder. Those of the handset are deleted there, one job each, if they still stand
/// where they were read; what can't be read as a message only where it is the one record. Those of the PC go
/// to the trash can, and in the trash can they are destroyed: without the handset, when Start returns.
class MessageRemoval : public MemoryTask {
public:
    /// The folder stays where it is until the end, and nobody else destroys the records.
    MessageRemoval(BackgroundWorker& worker, MessageTree tree, MessageKeeper& keeper, MessageFolder& folder,
                   std::vector<SmsRecord*> records);

    /// One for each record, in their order.
    const std::vector<MessageOutcome>& Outcomes() const { return outcomes_; }

private:
    void Begin() override;
    void RemoveOnPc();
    void Next();

    const MessageTree tree_;
    MessageKeeper& keeper_;
    MessageFolder& folder_;
    const std::vector<SmsRecord*> records_;
    std::vector<MessageOutcome> outcomes_;
    size_t current_ = 0;
};

}  // namespace tarnbridge
