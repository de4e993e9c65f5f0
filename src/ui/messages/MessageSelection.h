#pragma once

#include <memory>
#include <vector>

#include "messaging/MessageTree.h"

namespace tarnbridge {

/// Messages of one folder, told by their addresses.
struct MessageSelection {
    MessageFolder* folder = nullptr;
    std::vector<SmsRecord*> records{};

    bool IsEmpty() const { return records.empty(); }

    /// Without the messages that aren't in the folder any more.
    MessageSelection StillThere() const;
};

/// Selections that are kept for later: what was cut, what an editor was opened on. A new record may get the
/// address of one that is gone, so whoever takes records out of their folder, or destroys a folder, says so
/// here; they are no part of the selections then.
class KeptSelections {
public:
    using Kept = std::shared_ptr<MessageSelection>;

    /// Kept as long as the pointer is.
    Kept Keep(MessageSelection selection);

    /// These leave their folder.
    void Forget(const std::vector<SmsRecord*>& records);

    /// Those of this folder, and of all folders below it.
    std::vector<Kept> AllIn(const MessageFolder& folder);

private:
    std::vector<Kept> Alive();

    std::vector<std::weak_ptr<MessageSelection>> kept_;
};

}  // namespace tarnbridge
