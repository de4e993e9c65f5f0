#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "messaging/MemoryTask.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

/// Reads every location of the handset's message memories into the mirror, one job and one exchange each, and
/// joins the parts of long messages. A location that can't be read doesn't stop it, and one that wasn't
/// answered is asked once more. What the mirror held goes when the handset has told its memories, but for
/// what the reading doesn't get to: that stays as it was. A message that was unread, and still stands where
/// it stood, stays unread although reading it has made it a read one for the handset. A cancel, or a handset
/// that is lost on the way, leaves what was read, joined.
class MessageDownload : public MemoryTask {
public:
    /// A location that couldn't be read although the handset has it.
    struct Unread {
        std::u16string memory;
        int location = 0;
        int error = -1;
        bool answered = false;  ///< whether the handset said anything
    };

    /// What came of it, from the end on.
    struct Report {
        bool noMemory = false;                ///< the handset told of no memory: the mirror is as it was
        int messages = 0;                     ///< in the mirror, joined
        int missing = 0;                      ///< how many locations fewer were found than the handset counts
        std::vector<std::u16string> refused;  ///< memories that the handset has and didn't open
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
        std::vector<std::u16string> refused{};
        int simOffset = 0;
        bool unanswered = false;
    };

    void Begin() override;
    void AskMemories();
    static void Ask(HandsetLink& link, const std::u16string& only, Memories& memories);
    void ReadNext();
    void ReadLocation(bool again);
    void EmptyMirror();
    void PutBack();
    void Store(SmsRecord& record);
    void Finish();

    MessageTree tree_;
    const std::u16string only_;
    std::shared_ptr<Memories> memories_;
    size_t memory_ = 0;
    int location_ = 0;  // in the memory, from 1
    int done_ = 0;
    int found_ = 0;                                                         // locations that hold something
    std::vector<std::pair<MessagePlace, std::unique_ptr<SmsRecord>>> old_;  // the mirror as it was
    std::unordered_set<int> answered_;            // locations that were read, or found empty
    std::unordered_set<std::string> unreadPdus_;  // of the mirror as it was
    Report report_;
};

/// What the user sees of a memory: "SIM" for "SM", others as they are.
std::u16string MemoryWords(std::u16string_view name);

}  // namespace tarnbridge
