#pragma once

#include "core/base/UserInteraction.h"

namespace tarnbridge {

/// The user at the terminal, or nobody: then every question is given up, unless they have said yes to all
/// beforehand.
class TerminalUser : public UserInteraction {
public:
    explicit TerminalUser(bool saysYes) : saysYes_(saysYes) {}

    /// Whether a question can be answered.
    bool CanAnswer() const;

    /// Yes, No or, for anything else, the answer that gives the question up.
    Answer Ask(const Question& question) override;
    void Tell(const std::u16string& words) override;

    // Nothing that a command asks for: it takes these from its arguments.
    std::optional<std::u16string> AskText(const TextQuestion&) override { return {}; }
    std::vector<std::filesystem::path> ChooseFiles(const FileQuestion&) override { return {}; }
    std::optional<std::filesystem::path> ChooseDirectory(const std::u16string&,
                                                         const std::filesystem::path&) override {
        return {};
    }
    std::optional<FolderChoice> ChooseFolder(const FolderQuestion&) override { return {}; }
    std::unique_ptr<Progress> ShowProgress(const std::u16string& title, bool canCancel) override;

private:
    const bool saysYes_;
};

}  // namespace tarnbridge
