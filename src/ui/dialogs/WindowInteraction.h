#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "core/base/UserInteraction.h"
#include "ui/MessageReceiver.h"

namespace tarnbridge {

/// Asks the user by dialogs over the window that he is in. A question of another thread is carried to the
/// interface thread and waits there for its answer. Made and destroyed on the interface thread; after its end
/// nobody may ask.
class WindowInteraction : public UserInteraction {
public:
    WindowInteraction();

    /// Over which window the dialogs stand when he is in none.
    void SetWindow(QWidget* window) { window_ = window; }

    Answer Ask(const Question& question) override;
    void Tell(const std::u16string& words) override;
    std::optional<std::u16string> AskText(const TextQuestion& question) override;
    std::vector<std::filesystem::path> ChooseFiles(const FileQuestion& question) override;
    std::optional<std::filesystem::path> ChooseDirectory(const std::u16string& title,
                                                         const std::filesystem::path& start) override;
    std::optional<FolderChoice> ChooseFolder(const FolderQuestion& question) override;
    std::unique_ptr<Progress> ShowProgress(const std::u16string& title, bool canCancel) override;

private:
    /// Runs `use` on the interface thread and gives what it returns; `otherwise` when that thread no longer
    /// serves.
    template <typename Type>
    Type InWindow(Type otherwise, const std::function<Type(QWidget* parent)>& use);

    QPointer<QWidget> window_;
    MessageReceiver receiver_;
};

}  // namespace tarnbridge
