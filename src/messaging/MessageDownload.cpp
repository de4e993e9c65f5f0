#include "messaging/MessageDownload.h"

#include <algorithm>
#include <utility>

#include "core/base/StringTable.h"
#include "link/HandsetLink.h"
#include "messaging/JoinParts.h"

namespace tarnbridge {

MessageDownload::MessageDownload(BackgroundWorker& worker, MessageTree tree, std::u16string only)
    : MemoryTask(worker), tree_(tree), only_(std::move(only)), memories_(std::make_shared<Memories>()) {}

void MessageDownload::Begin() {
    Enter([this](int ready, int) {
        if (ready)
            AskMemories();
        else
            End();
    });
}

void MessageDownload::AskMemories() {
    Do(
        [memories = memories_, only = only_, lost = GetLostFlag()](HandsetLink& link, int&) {
            const unsigned session = link.SessionNumber();
            Ask(link, only, *memories);
            // Where the phone's own memory begins depends on the SIM's: no answer is no reading.
            *lost = memories->unanswered || !link.IsSessionReady() || link.SessionNumber() != session;
            return 1;
        },
        [this](int, int) {
            report_.refused = memories_->refused;
            if (memories_->listed.empty() || LostHandset()) {
                report_.noMemory = report_.refused.empty() && !LostHandset();
                Leave();
                return;
            }
            EmptyMirror();
            ReadNext();
        });
}

void MessageDownload::Ask(HandsetLink& link, const std::u16string& only, Memories& memories) {
    const auto ask = [&](const char16_t* name) {
        MemoryUsage usage;
        Refusal refusal;
        bool known = QueryMessageMemory(link, name, usage, &refusal);
        if (!known && !refusal.answered) known = QueryMessageMemory(link, name, usage, &refusal);
        memories.unanswered = memories.unanswered || (!known && !refusal.answered);
        const bool wanted = only.empty() || only == name;
        if (wanted && known) memories.listed.push_back({name, usage});
        if (wanted && !known) memories.refused.emplace_back(name);
        return known ? usage.total : -1;
    };
    const HandsetFeatures features = link.Features();
    // One that tells of no memories may have them all the same.
    const bool toldNone = !features.hasSimMemory && !features.hasMeStore;
    int sim = features.hasSimMemory || toldNone ? ask(u"SM") : 0;
    const bool wantsOwn = (features.hasMeStore || toldNone) && (only.empty() || only == u"ME");
    const int own = wantsOwn ? ask(u"ME") : -1;
    MemoryUsage both;
    // What the SIM doesn't tell is what the union of both has more than the phone alone.
    if (sim < 0 && own >= 0 && QueryMessageMemory(link, u"MT", both)) sim = both.total - own;
    memories.simOffset = std::max(0, sim);
    if (toldNone) memories.refused.clear();
}

void MessageDownload::ReadNext() {
    const std::vector<Memory>& listed = memories_->listed;
    while (memory_ < listed.size() && location_ >= listed[memory_].usage.total) {
        ++memory_;
        location_ = 0;
    }
    if (memory_ == listed.size() || WasCancelled() || LostHandset()) {
        Finish();
        return;
    }
    ++location_;
    int total = 0;
    for (const Memory& memory : listed)
        total += memory.usage.total;
    Show({done_++, total, Words(Word::ReadingMessagesFrom, {MemoryWords(listed[memory_].name)})});
    ReadLocation(false);
}

void MessageDownload::ReadLocation(bool again) {
    const std::u16string& name = memories_->listed[memory_].name;
    const int index = location_ + (name == u"ME" ? memories_->simOffset : 0);
    const auto record = std::make_shared<SmsRecord>();
    Do(
        [record, name, index, lost = GetLostFlag()](HandsetLink& link, int& error) {
            const bool read = record->Read(link, name, index, error);
            // After silence there is no point in going on if nobody is there.
            if (record->reading == SmsRecord::Reading::NoAnswer) *lost = !link.Ping();
            return read ? 1 : 0;
        },
        [this, record, name, index, again](int read, int error) {
            const bool unanswered = record->reading == SmsRecord::Reading::NoAnswer;
            if (unanswered && !again && !LostHandset() && !WasCancelled()) {
                ReadLocation(true);
                return;
            }
            const bool empty = record->reading == SmsRecord::Reading::Empty;
            if (read || empty) answered_.insert(index);
            if (read)
                Store(*record);
            else if (!empty)
                report_.unread.push_back({name, index, error, !unanswered});
            ReadNext();
        },
        BackgroundWorker::ReadMessage, index);
}

/// Takes the old picture out, and notes what of it is unread, since the reading finds that as read.
void MessageDownload::EmptyMirror() {
    for (const MessagePlace place : handsetPlaces) {
        MessageFolder& folder = tree_.OnHandset(place);
        const std::lock_guard guard(folder.lock);
        for (auto& record : folder.records) {
            if (record->status == smsUnread)
                unreadPdus_.insert(record->handsetPdus.begin(), record->handsetPdus.end());
            old_.emplace_back(place, std::move(record));
        }
        folder.records.clear();
    }
}

/// Of the old picture stays what nobody has looked at.
void MessageDownload::PutBack() {
    const std::vector<Memory>& listed = memories_->listed;
    for (auto& [place, owned] : old_) {
        std::unique_ptr<SmsRecord> record = std::move(owned);
        const std::vector<int>& locations = record->handsetIndices;
        const auto memory = std::find_if(listed.begin(), listed.end(), [&](const Memory& candidate) {
            return candidate.name == record->storage;
        });
        const int offset = record->storage == u"ME" ? memories_->simOffset : 0;
        const auto isGone = [&](int location) {
            return memory != listed.end() &&
                   (answered_.contains(location) || location > offset + memory->usage.total);
        };
        if (std::none_of(locations.begin(), locations.end(), isGone) && !locations.empty())
            tree_.OnHandset(place).Append(std::move(record));
    }
    old_.clear();
}

void MessageDownload::Store(SmsRecord& record) {
    ++found_;
    if (record.status == smsRead && unreadPdus_.contains(record.handsetPdus.front()))
        record.status = smsUnread;
    tree_.OnHandset(PlaceOfStatus(record.status)).Append(std::make_unique<SmsRecord>(std::move(record)));
}

void MessageDownload::Finish() {
    int used = 0;
    for (const Memory& memory : memories_->listed)
        used += memory.usage.used;
    const bool toTheEnd = memory_ == memories_->listed.size();
    if (toTheEnd) report_.missing = std::max(0, used - found_ - static_cast<int>(report_.unread.size()));
    const bool whole = toTheEnd && report_.missing == 0 && report_.refused.empty() && report_.unread.empty();
    for (const MessagePlace place : handsetPlaces) {
        MessageFolder& folder = tree_.OnHandset(place);
        const std::lock_guard guard(folder.lock);
        JoinParts(folder.records);
        for (const auto& record : folder.records)
            record->mayHaveMoreParts = !whole && record->LacksParts();
        report_.messages += static_cast<int>(folder.records.size());
    }
    PutBack();
    Leave();
}

std::u16string MemoryWords(std::u16string_view name) {
    return name == u"SM" ? std::u16string(Words(Word::MemorySim)) : std::u16string(name);
}

}  // namespace tarnbridge
