#include "messaging/MessageDownload.h"

#include <utility>

#include "core/base/StringTable.h"
#include "link/HandsetLink.h"
#include "messaging/JoinParts.h"

namespace tarnbridge {
namespace {

constexpr int emptyLocation = 321;  // 3GPP TS 27.005 clause 3.2.5: invalid memory index

}  // namespace

MessageDownload::MessageDownload(BackgroundWorker& worker, MessageTree tree, std::u16string only)
    : MemoryTask(worker), tree_(tree), only_(std::move(only)), memories_(std::make_shared<Memories>()) {}

void MessageDownload::Begin() {
    Enter([this](int ready, int) {
        if (ready) {
            AskMemories();
        } else {
            report_.noMemory = true;
            End();
        }
    });
}

void MessageDownload::AskMemories() {
    Do(
        [memories = memories_, only = only_](HandsetLink& link, int&) {
            Ask(link, only, *memories);
            return 1;
        },
        [this](int, int) {
            if (memories_->listed.empty()) {
                report_.noMemory = true;
                Leave();
                return;
            }
            for (const MessagePlace place : handsetPlaces)
                tree_.OnHandset(place).RemoveRecords();
            ReadNext();
        });
}

void MessageDownload::Ask(HandsetLink& link, const std::u16string& only, Memories& memories) {
    MemoryUsage usage;
    if (link.Features().hasSimMemory) {
        const bool known = QueryMessageMemory(link, u"SM", usage);
        memories.simOffset = known ? usage.total : 0;
        if (known && (only.empty() || only == u"SM")) memories.listed.push_back({u"SM", usage});
    }
    if ((only.empty() || only == u"ME") && QueryMessageMemory(link, u"ME", usage))
        memories.listed.push_back({u"ME", usage});
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
    const std::u16string& name = listed[memory_].name;
    ++location_;
    int total = 0;
    for (const Memory& memory : listed)
        total += memory.usage.total;
    Show({done_++, total, Words(Word::ReadingMessagesFrom, {MemoryWords(name)})});
    const int index = location_ + (name == u"ME" ? memories_->simOffset : 0);
    const auto record = std::make_shared<SmsRecord>();
    Do(
        [record, name, index, lost = GetLostFlag()](HandsetLink& link, int& error) {
            const bool read = record->Read(link, name, index, error);
            // An empty location says so; after silence there is no point in going on if nobody is there.
            if (!read && !record->answered) *lost = !link.Ping();
            return read ? 1 : 0;
        },
        [this, record, name, index](int read, int error) {
            if (read)
                Store(*record);
            else if (!record->answered || (error >= 0 && error != emptyLocation))
                report_.unread.push_back({name, index, error});
            ReadNext();
        },
        BackgroundWorker::ReadMessage, index);
}

void MessageDownload::Store(SmsRecord& record) {
    tree_.OnHandset(PlaceOfStatus(record.status)).Append(std::make_unique<SmsRecord>(std::move(record)));
}

void MessageDownload::Finish() {
    for (const MessagePlace place : handsetPlaces) {
        MessageFolder& folder = tree_.OnHandset(place);
        const std::lock_guard guard(folder.lock);
        JoinParts(folder.records);
        report_.messages += static_cast<int>(folder.records.size());
    }
    Leave();
}

std::u16string MemoryWords(std::u16string_view name) {
    return name == u"SM" ? std::u16string(Words(Word::MemorySim)) : std::u16string(name);
}

}  // namespace tarnbridge
