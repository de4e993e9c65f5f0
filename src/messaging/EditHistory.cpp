#include "messaging/EditHistory.h"

#include <utility>

namespace tarnbridge {

bool EditHistory::GoesOnTyping(int position, std::u16string_view character) {
    const bool isLineEnd = character == u"\n";
    const bool isBlank = isLineEnd || character == u" ";
    const bool goesOn = step_.kind == Kind::Typing && step_.position == position && !isLineEnd &&
                        (isBlank || !step_.wasBlank) && step_.characters < longestTypingStep;
    step_ = {.kind = Kind::Typing,
             .position = position + static_cast<int>(character.size()),
             .characters = goesOn ? step_.characters + 1 : 1,
             .wasBlank = isBlank};
    return goesOn;
}

bool EditHistory::GoesOnDeleting(int from, int to) {
    const bool goesOn = step_.kind == Kind::Deleting && (step_.position == to || step_.position == from);
    step_ = {.kind = Kind::Deleting, .position = from};
    return goesOn;
}

void EditHistory::Add(EditState before) {
    ForgetUndone();
    if (done_.size() == depth) done_.pop_front();
    done_.push_back(std::move(before));
}

EditState EditHistory::Undo(EditState present) {
    EndStep();
    undone_.push_back(std::move(present));
    EditState state = std::move(done_.back());
    done_.pop_back();
    return state;
}

EditState EditHistory::Redo(EditState present) {
    EndStep();
    done_.push_back(std::move(present));
    EditState state = std::move(undone_.back());
    undone_.pop_back();
    return state;
}

EmsHandle EditHistory::GiveUpOldest() {
    if (done_.empty()) return {};
    EmsHandle message = std::move(done_.front().message);
    done_.pop_front();
    return message;
}

}  // namespace tarnbridge
