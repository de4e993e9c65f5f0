#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

#include "messaging/EmsHandle.h"

namespace tarnbridge {

/// A message as it was at some time.
struct EditState {
    EmsHandle message;
    int caret = 0;          ///< in positions of the shown text
    uint64_t revision = 0;  ///< equal for equal states of one editor
};

/// The states of a message that an undo and a redo go back to. Typing is undone word by word, and deleting
/// character by character is undone in one.
class EditHistory {
public:
    static constexpr size_t depth = 50;           ///< steps
    static constexpr int longestTypingStep = 20;  ///< characters

    /// Whether a change of one character, which has been made, belongs to the step before; otherwise its
    /// state before is for Add.
    bool GoesOnTyping(int position, std::u16string_view character);
    bool GoesOnDeleting(int from, int to);

    /// The next change begins a new step.
    void EndStep() { step_ = {}; }

    /// Takes the state before a change, which forgets what could be done again.
    void Add(EditState before);
    void ForgetUndone() { undone_.clear(); }

    bool CanUndo() const { return !done_.empty(); }
    bool CanRedo() const { return !undone_.empty(); }

    /// The state to go to, in exchange for the present one; there must be one.
    EditState Undo(EditState present);
    EditState Redo(EditState present);

    /// The message of the oldest step, which is forgotten; none where there is no step.
    EmsHandle GiveUpOldest();

private:
    enum class Kind { Other, Typing, Deleting };

    struct Step {
        Kind kind = Kind::Other;
        int position = 0;
        int characters = 0;
        bool wasBlank = false;
    };

    Step step_;
    std::deque<EditState> done_;
    std::vector<EditState> undone_;
};

}  // namespace tarnbridge
