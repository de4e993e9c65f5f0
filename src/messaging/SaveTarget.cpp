#include "messaging/SaveTarget.h"

#include "core/base/StringTable.h"

namespace tarnbridge {

std::optional<SaveTarget> AskSaveTarget(const MessageTree& tree, const SaveOffer& offer,
                                        UserInteraction& user) {
    FolderQuestion question{.title = Words(Word::SaveMessageTo),
                            .suggestedMemory = offer.preferredMemory,
                            .refusal = Words(Word::ChooseFolderToSave)};
    std::vector<MessageFolder*> folders;

    struct Waiting {
        MessageFolder* folder;
        int depth;
    };
    std::vector<Waiting> waiting = {{&tree.PcRoot(), 0}};
    if (!offer.memories.empty()) waiting.push_back({&tree.HandsetRoot(), 0});
    while (!waiting.empty()) {
        const auto [folder, depth] = waiting.back();
        waiting.pop_back();
        if (folder == offer.suggested) question.suggestedRow = folders.size();
        folders.push_back(folder);
        const bool inMemory = folder->parent == &tree.HandsetRoot();
        const std::lock_guard guard(folder->lock);
        question.rows.push_back({folder->name, depth, tree.HoldsMessages(*folder),
                                 inMemory ? offer.memories : std::vector<std::u16string>(),
                                 tree.LookOf(*folder)});
        for (auto child = folder->children.rbegin(); child != folder->children.rend(); ++child)
            waiting.push_back({child->get(), depth + 1});
    }
    const auto choice = user.ChooseFolder(question);
    if (!choice || choice->row >= folders.size() || !question.rows[choice->row].selectable)
        return std::nullopt;
    return SaveTarget{folders[choice->row], choice->memory};
}

}  // namespace tarnbridge
