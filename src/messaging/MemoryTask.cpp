#include "messaging/MemoryTask.h"

#include <utility>

#include "link/HandsetLink.h"

namespace tarnbridge {

void MemoryTask::Enter(Next next) {
    Do(
        [selected = selected_, lost = GetLostFlag()](HandsetLink& link, int&) {
            *lost = !link.EnsureSession();
            if (*lost) return 0;
            MemorySelection names;
            if (GetMessageMemories(link, names)) *selected = names;
            return 1;
        },
        std::move(next));
}

void MemoryTask::Leave() {
    if (!*selected_ || LostHandset()) {
        End();
        return;
    }
    Do([selected = selected_](HandsetLink& link,
                              int&) { return RestoreMessageMemories(link, **selected) ? 1 : 0; },
       [this](int, int) { End(); });
}

}  // namespace tarnbridge
