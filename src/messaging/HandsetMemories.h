#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/base/HandsetTask.h"

namespace tarnbridge {

/// Finds out into which memories of the handset messages can be put.
class HandsetMemories : public HandsetTask {
public:
    using HandsetTask::HandsetTask;

    /// "ME" and "SM", as far as there are; empty where no handset answers.
    const std::vector<std::u16string>& Names() const { return *names_; }

private:
    void Begin() override;

    const std::shared_ptr<std::vector<std::u16string>> names_ =
        std::make_shared<std::vector<std::u16string>>();
};

}  // namespace tarnbridge
