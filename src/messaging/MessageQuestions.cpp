#include "messaging/MessageQuestions.h"

#include <algorithm>

#include "messaging/Recipients.h"

namespace tarnbridge {
namespace {

/// The sentence for one, or that for several.
std::u16string Counted(Word one, Word several, size_t count) {
    return count == 1 ? Words(one) : Words(several, {static_cast<int64_t>(count)});
}

Question ForGood(Word words, std::u16string effect) {
    return {.words = Words(words),
            .effect = std::move(effect),
            .yes = Words(Word::AnswerDelete),
            .no = Words(Word::Cancel),
            .destroys = Answer::Yes};
}

int64_t CountWithin(const MessageFolder& folder) {
    int64_t count = 0;
    std::vector<const MessageFolder*> pending{&folder};
    while (!pending.empty()) {
        const MessageFolder& next = *pending.back();
        pending.pop_back();
        const std::lock_guard guard(next.lock);
        count += static_cast<int64_t>(next.records.size());
        for (const auto& child : next.children)
            pending.push_back(child.get());
    }
    return count;
}

std::u16string NameOf(const MessageFolder& folder) {
    const std::lock_guard guard(folder.lock);
    return folder.name;
}

}  // namespace

Question DeleteQuestion(const MessageTree& tree, const MessageFolder& folder,
                        const std::vector<SmsRecord*>& messages, size_t leftOut) {
    const size_t count = messages.size();
    std::u16string after;
    if (leftOut > 0) after = u"\n" + Words(Word::UnreadableStay, {static_cast<int64_t>(leftOut)});
    if (tree.IsOnHandset(folder)) {
        if (count == 1 && messages.front()->unreadable) after = u"\n" + Words(Word::UnreadableGoes);
        return ForGood(Word::DeleteMessages,
                       Counted(Word::OneGoneFromPhone, Word::SeveralGoneFromPhone, count) + after);
    }
    if (tree.IsInTrash(folder))
        return ForGood(Word::DeleteMessages,
                       Counted(Word::OneGoneFromTrash, Word::SeveralGoneFromTrash, count) + after);
    return {.words = Words(Word::DeleteMessages),
            .effect = Counted(Word::OneToTrash, Word::SeveralToTrash, count) + after,
            .yes = Words(Word::AnswerToTrash),
            .no = Words(Word::Cancel)};
}

Question FolderToTrashQuestion(const MessageTree& tree, const MessageFolder& folder) {
    return {.words = Words(Word::MoveFolderTo) + u" " + NameOf(tree.OnPc(messageTrashPlace)) + u"?",
            .effect = Words(Word::FolderGoes, {NameOf(folder), CountWithin(folder)}),
            .answers = AnswerSet::YesNoCancel,
            .yes = Words(Word::AnswerToTrash),
            .no = Words(Word::AnswerDelete),
            .destroys = Answer::No};
}

Question FolderForGoodQuestion(const MessageFolder& folder) {
    return ForGood(Word::DeleteForGood, Words(Word::FolderGone, {NameOf(folder), CountWithin(folder)}));
}

Question ReadQuestion() {
    return {.words = Words(Word::DownloadMessages),
            .effect = Words(Word::ReadingEffect),
            .yes = Words(Word::AnswerRead),
            .no = Words(Word::Cancel)};
}

Question SaveQuestion() {
    return {.words = Words(Word::SaveMessage),
            .effect = Words(Word::UnsavedIsLost),
            .answers = AnswerSet::YesNoCancel,
            .yes = Words(Word::AnswerSave),
            .no = Words(Word::AnswerDontSave),
            .destroys = Answer::No};
}

Question SendQuestion(Word words, const std::vector<MessageSending::Waiting>& messages, size_t leftOut) {
    int64_t recipients = 0;
    for (const MessageSending::Waiting& message : messages) {
        const std::lock_guard guard(message.folder->lock);
        recipients += static_cast<int64_t>(NumbersOf(*message.record).size());
    }
    std::u16string effect = Words(Word::SendingEffect, {static_cast<int64_t>(messages.size()), recipients});
    if (leftOut > 0) effect += u"\n" + Words(Word::ReceivedNotSent, {static_cast<int64_t>(leftOut)});
    return {.words = Words(words),
            .effect = std::move(effect),
            .yes = Words(Word::AnswerSend),
            .no = Words(Word::Cancel)};
}

}  // namespace tarnbridge
