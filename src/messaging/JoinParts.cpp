#include "messaging/JoinParts.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "messaging/ConcatHeader.h"

namespace tarnbridge {
namespace {

struct Part {
    std::unique_ptr<SmsRecord> record;
    int sequence = 0;
    int64_t time = 0;    ///< of the service centre, in seconds
    size_t arrival = 0;  ///< place in the list
    SmsRecordList doubles{};
};

/// Parts in the order of the sequence.
using Message = std::vector<Part*>;

/// Only received messages have a time of their own.
int64_t TimeOf(const SmsRecord& record) {
    return record.messageType == SmsRecord::deliver ? record.timestamp.ToSeconds() : 0;
}

std::string_view ContentOf(const SmsRecord& record) {
    return record.rawParts.empty() ? std::string_view(record.text8) : record.rawParts.front();
}

std::string_view PduOf(const SmsRecord& record) {
    return record.handsetPdus.empty() ? std::string_view() : record.handsetPdus.front();
}

bool IsDouble(const Part& first, const Part& second) {
    return first.sequence == second.sequence && ContentOf(*first.record) == ContentOf(*second.record) &&
           first.time == second.time && PduOf(*first.record) == PduOf(*second.record) &&
           first.record->userDataHeader == second.record->userDataHeader;
}

/// Hands the doubles to the first of their kind, and gives what is left of each number of the sequence, by
/// time and arrival.
std::map<int, std::vector<Part*>> Distinct(std::vector<Part>& parts) {
    std::sort(parts.begin(), parts.end(), [](const Part& first, const Part& second) {
        const auto order = [](const Part& part) {
            return std::tuple(part.sequence, part.time, ContentOf(*part.record), PduOf(*part.record),
                              std::string_view(part.record->userDataHeader), part.arrival);
        };
        return order(first) < order(second);
    });
    std::map<int, std::vector<Part*>> distinct;
    Part* last = nullptr;
    for (Part& part : parts) {
        if (last && IsDouble(*last, part)) {
            last->doubles.push_back(std::move(part.record));
        } else {
            last = &part;
            distinct[part.sequence].push_back(last);
        }
    }
    for (auto& [sequence, same] : distinct) {
        std::stable_sort(same.begin(), same.end(), [](const Part* first, const Part* second) {
            return std::pair(first->time, first->arrival) < std::pair(second->time, second->arrival);
        });
    }
    return distinct;
}

/// The messages that still lack a number of the sequence, by the time and arrival of a part that each has.
class Unfinished {
public:
    explicit Unfinished(const std::vector<Part*>& seeds) {
        for (size_t i = 0; i < seeds.size(); ++i)
            places_.emplace(seeds[i]->time, seeds[i]->arrival, i);
    }

    int64_t DistanceTo(const Part& part) const { return std::abs(NearestTime(part.time) - part.time); }

    /// The nearest one. Among those of one time it is the first where each gets a part, since parts come in
    /// turn then, and otherwise the one that arrived last before the part.
    size_t Take(const Part& part, bool eachGetsOne) {
        const int64_t time = NearestTime(part.time);
        auto place = places_.lower_bound({time, eachGetsOne ? 0 : part.arrival, 0});
        if (!eachGetsOne && place != places_.begin() && std::get<0>(*std::prev(place)) == time) --place;
        const size_t message = std::get<2>(*place);
        places_.erase(place);
        return message;
    }

private:
    int64_t NearestTime(int64_t time) const {
        const auto after = places_.lower_bound({time, 0, 0});
        if (after == places_.begin()) return std::get<0>(*after);
        const int64_t before = std::get<0>(*std::prev(after));
        if (after == places_.end()) return before;
        return time - before <= std::get<0>(*after) - time ? before : std::get<0>(*after);
    }

    std::set<std::tuple<int64_t, size_t, size_t>> places_;
};

/// The messages that parts of one key make up.
std::vector<Message> MessagesOf(std::vector<Part>& parts) {
    const auto distinct = Distinct(parts);
    const auto& seeds = std::max_element(distinct.begin(), distinct.end(), [](const auto& a, const auto& b) {
                            return a.second.size() < b.second.size();
                        })->second;
    const Unfinished all(seeds);
    std::vector<Message> messages(seeds.size());
    for (const auto& [sequence, same] : distinct) {
        std::vector<std::pair<int64_t, Part*>> byDistance;
        for (Part* const part : same)
            byDistance.emplace_back(all.DistanceTo(*part), part);
        std::stable_sort(byDistance.begin(), byDistance.end(),
                         [](const auto& first, const auto& second) { return first.first < second.first; });
        Unfinished open(seeds);
        for (const auto& [distance, part] : byDistance)
            messages[open.Take(*part, same.size() == seeds.size())].push_back(part);
    }
    return messages;
}

std::unique_ptr<SmsRecord> Join(const Message& message, const CodePage& page) {
    std::unique_ptr<SmsRecord> base = std::move(message.front()->record);
    for (size_t i = 1; i < message.size(); ++i)
        base->MergeFrom(*message[i]->record, page);
    for (const Part* const part : message) {
        for (const auto& copy : part->doubles)
            base->AddDouble(*copy);
    }
    return base;
}

}  // namespace

std::optional<std::string> JoinKey(const SmsRecord& record) {
    // What was joined before is no part.
    if (record.unreadable || record.handsetIndices.size() != 1) return std::nullopt;
    const auto element = FindConcat(record.userDataHeader);
    const auto key = record.ConcatKey();
    if (!element || !key) return std::nullopt;
    std::string joined;
    for (int shift = 0; shift < 24; shift += 8)  // all but the sequence
        joined.push_back(static_cast<char>(*key >> shift));
    joined.push_back(element->wide ? 'w' : 'n');
    joined.push_back(static_cast<char>(record.dcs));
    return joined + record.address.number;
}

void JoinParts(SmsRecordList& records, const CodePage& page) {
    std::unordered_map<std::string, std::vector<Part>> groups;
    SmsRecordList kept;
    for (size_t i = 0; i < records.size(); ++i) {
        auto& record = records[i];
        if (const auto key = JoinKey(*record)) {
            const int sequence = FindConcat(record->userDataHeader)->sequence;
            const int64_t time = TimeOf(*record);
            groups[*key].push_back({std::move(record), sequence, time, i});
        } else {
            kept.push_back(std::move(record));
        }
    }

    struct Joined {
        uint32_t key;
        size_t arrival;
        std::unique_ptr<SmsRecord> record;
    };
    std::vector<Joined> joined;
    for (auto& [key, parts] : groups) {
        for (const Message& message : MessagesOf(parts)) {
            const Part& first = *message.front();
            const uint32_t order = first.record->ConcatKey().value_or(0);
            const size_t arrival = first.arrival;
            joined.push_back({order, arrival, Join(message, page)});
        }
    }
    std::sort(joined.begin(), joined.end(), [](const Joined& first, const Joined& second) {
        return std::pair(first.key, first.arrival) < std::pair(second.key, second.arrival);
    });
    for (Joined& message : joined)
        kept.push_back(std::move(message.record));
    records = std::move(kept);
}

}  // namespace tarnbridge
