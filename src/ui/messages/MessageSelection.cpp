#include "ui/messages/MessageSelection.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace tarnbridge {

MessageSelection MessageSelection::StillThere() const {
    MessageSelection there{folder};
    if (!folder) return there;
    std::unordered_set<const SmsRecord*> present;
    {
        const std::lock_guard guard(folder->lock);
        for (const auto& record : folder->records)
            present.insert(record.get());
    }
    std::copy_if(records.begin(), records.end(), std::back_inserter(there.records),
                 [&](const SmsRecord* record) { return present.contains(record); });
    return there;
}

KeptSelections::Kept KeptSelections::Keep(MessageSelection selection) {
    const auto kept = std::make_shared<MessageSelection>(std::move(selection));
    Alive();
    kept_.push_back(kept);
    return kept;
}

std::vector<KeptSelections::Kept> KeptSelections::Alive() {
    std::erase_if(kept_, [](const auto& kept) { return kept.expired(); });
    std::vector<Kept> alive;
    for (const auto& kept : kept_)
        alive.push_back(kept.lock());
    return alive;
}

void KeptSelections::Forget(const std::vector<SmsRecord*>& records) {
    const std::unordered_set<const SmsRecord*> gone(records.begin(), records.end());
    for (const Kept& kept : Alive())
        std::erase_if(kept->records, [&](const SmsRecord* record) { return gone.contains(record); });
}

std::vector<KeptSelections::Kept> KeptSelections::AllIn(const MessageFolder& folder) {
    std::vector<Kept> inside;
    for (const Kept& kept : Alive()) {
        const MessageFolder* level = kept->IsEmpty() ? nullptr : kept->folder;
        while (level && level != &folder)
            level = level->parent;
        if (level) inside.push_back(kept);
    }
    return inside;
}

}  // namespace tarnbridge
