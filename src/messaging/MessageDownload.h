#pragma once

#include <string>
#include <vector>

#include "messaging/MemoryTask.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

/// Reads every location of the handset's message memories into the mirror, one job and one exchange each, and
/// joins the parts of long messages. A location that can't be read doesn't stop it. What the mirror held goes
/// when the handset has told its memories. A cancel, or a handset that is lost on the way, leaves what was
/// read, joined.
class MessageDownload : public MemoryTask {
public:
    /// A location that couldn't be read although the handset has it.
    struct Unread {
        std::u16string memory;
        int location = 0;
        int error = -1;
    };

    /// What came of it, from the end on.
    struct Report {
        bool noMemory = false;  ///< the handset told of no memory: the mirror is as it was
        int messages = 0;       ///< in the mirror, joined
        std::vector<Unread> unread;
    };

    /// \param only  reads this memory alone; all if empty
    MessageDownload(BackgroundWorker& worker, MessageTree tree, std::u16string only = {});

    const Report& GetReport() const { return report_; }

private:
    struct Memory {
        std::u16string name;
        MemoryUsage usage;
    };
    /// What is to be read.
    struct Memories {
        std::vector<Memory> listed;
        int simOffset = 0;
    };

    void Begin() override;
    void AskMemories();
    static void Ask(HandsetLink& link, const std::u16string& only, Memories& memories);
    void ReadNext();
    void Store(SmsRecord& record);
    void Finish();

    MessageTree tree_;
    const std::u16string only_;
    std::shared_ptr<Memories> memories_;
    size_t memory_ = 0;
    int location_ = 0;  // in the memory, from 1
    int done_ = 0;
    Report report_;
};

/// What the user sees of a memory: "SIM" for "SM", others as they are.
std::u16string MemoryWords(std::u16string_view name);

}  // namespace tarnbridge
