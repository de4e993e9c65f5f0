#include "messaging/HandsetMemories.h"

#include "link/HandsetLink.h"

namespace tarnbridge {

void HandsetMemories::Begin() {
    Do(
        [names = names_](HandsetLink& link, int&) {
            if (!link.EnsureSession()) return 0;
            const HandsetFeatures features = link.Features();
            if (features.hasMeStore) names->emplace_back(u"ME");
            if (features.hasSimMemory) names->emplace_back(u"SM");
            return 1;
        },
        [this](int, int) { End(); });
}

}  // namespace tarnbridge
