#pragma once

#include <memory>
#include <optional>

#include "core/base/HandsetTask.h"
#include "messaging/MessageMemory.h"

namespace tarnbridge {

/// A task that selects message memories, and at its end selects what was selected before.
class MemoryTask : public HandsetTask {
protected:
    using HandsetTask::HandsetTask;

    /// The first job: makes the session and notes what is selected. Its result tells whether there is one;
    /// without one the handset is lost.
    void Enter(Next next);

    /// The last one, unless the handset is lost; then the task ends.
    void Leave();

private:
    const std::shared_ptr<std::optional<MemorySelection>> selected_ =
        std::make_shared<std::optional<MemorySelection>>();
};

}  // namespace tarnbridge
