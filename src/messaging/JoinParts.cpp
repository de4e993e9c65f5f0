#include "messaging/JoinParts.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace tarnbridge {

void JoinParts(SmsRecordList& records, const CodePage& page) {
    std::unordered_map<uint32_t, std::unique_ptr<SmsRecord>> parts;
    std::vector<uint32_t> keys;
    SmsRecordList kept;
    for (auto& record : records) {
        const auto key = record->ConcatKey();
        if (!key)
            kept.push_back(std::move(record));
        else if (parts.try_emplace(*key, std::move(record)).second)
            keys.push_back(*key);
    }
    std::sort(keys.begin(), keys.end());

    for (const uint32_t first : keys) {
        if (!parts.contains(first)) continue;
        const uint32_t message = first & 0x00FFFFFF;  // all but the sequence
        const unsigned total = message >> 16;
        std::unique_ptr<SmsRecord> base;
        const auto take = [&](uint32_t key) {
            auto part = parts.extract(key);
            if (part.empty()) return;
            if (base)
                base->MergeFrom(*part.mapped(), page);
            else
                base = std::move(part.mapped());
        };
        for (unsigned sequence = 1; sequence <= total; ++sequence)
            take(message | sequence << 24);
        // Signed, -1 isn't above -56: with such a total the first part may lie beyond it and is still taken.
        take(first);
        kept.push_back(std::move(base));
    }
    records = std::move(kept);
}

}  // namespace tarnbridge
