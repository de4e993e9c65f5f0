#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarnbridge {

enum class Answer { Yes, No, Cancel, YesToAll, NoToAll };

/// Which answers a question offers.
enum class AnswerSet { YesNo, YesNoCancel, YesNoAll, YesNoAllCancel };

/// A question that is answered by buttons.
struct Question {
    std::u16string words;
    std::u16string effect{};  ///< a line of its own: what will happen; empty for none
    AnswerSet answers = AnswerSet::YesNo;
    // What the answers do, in place of the plain words where it isn't empty.
    std::u16string yes{};
    std::u16string no{};
    std::u16string cancel{};
    std::optional<Answer> destroys{};  ///< Yes or No where it can't be undone: never chosen by a mere Enter
};

struct TextQuestion {
    std::u16string words;
    std::u16string suggestion{};
    size_t longest = 255;  ///< units of text
};

/// What a choice of files is for.
enum class FilePurpose { Open, OpenSeveral, Save };

struct FileFilter {
    std::u16string name;                ///< what people call such files
    std::vector<std::string> patterns;  ///< such as "*.mid"
};

struct FileQuestion {
    FilePurpose purpose = FilePurpose::Open;
    std::u16string title{};
    std::filesystem::path folder{};  ///< where to begin; empty for wherever
    std::u16string suggestedName{};  ///< for Save
    std::vector<FileFilter> filters{};
};

/// What a folder is, for its drawing.
enum class FolderLook { Own, Handset, Computer, Inbox, Outbox, Sent, Draft, Personal, Trash };

/// A row of a tree of folders, which is offered in the order in which it is shown.
struct FolderRow {
    std::u16string name;
    int depth = 0;                           ///< 0 for a root
    bool selectable = true;                  ///< false: shown for its children only
    std::vector<std::u16string> memories{};  ///< "ME", "SM": where in it a record can go; empty for no choice
    FolderLook look = FolderLook::Own;
};

struct FolderQuestion {
    std::u16string title;
    std::vector<FolderRow> rows{};
    size_t suggestedRow = 0;
    std::u16string suggestedMemory{};
    std::u16string refusal{};  ///< what the user is told while no selectable row is chosen
};

struct FolderChoice {
    size_t row = 0;           ///< index into the rows of the question; a selectable one
    std::u16string memory{};  ///< one of that row's memories, empty if it has none
};

/// Progress of long work as the user sees it, from its making until its end. All operations may be called
/// from any thread.
class Progress {
public:
    virtual ~Progress() = default;

    /// How many steps there are; 0 or less when that isn't known.
    virtual void SetTotal(int steps) = 0;
    virtual void SetDone(int steps) = 0;
    virtual void SetWords(const std::u16string& words) = 0;

    /// Whether the user wants the work to end. Who works asks between two items and leaves things in order.
    virtual bool Cancelled() const = 0;
};

/// What logic needs of the user. Each question waits until it is answered, and may be asked by any thread.
class UserInteraction {
public:
    virtual ~UserInteraction() = default;

    /// One of the answers offered. A question that is closed unanswered is Cancel if that is offered,
    /// otherwise No.
    virtual Answer Ask(const Question& question) = 0;

    /// Waits until the user has taken note.
    virtual void Tell(const std::u16string& words) = 0;

    /// Nothing when the user gave up, as in the following ones.
    virtual std::optional<std::u16string> AskText(const TextQuestion& question) = 0;

    /// Empty, one file, or several for OpenSeveral. A file to be saved may exist: the user has been asked.
    virtual std::vector<std::filesystem::path> ChooseFiles(const FileQuestion& question) = 0;

    virtual std::optional<std::filesystem::path> ChooseDirectory(const std::u16string& title,
                                                                 const std::filesystem::path& start) = 0;

    virtual std::optional<FolderChoice> ChooseFolder(const FolderQuestion& question) = 0;

    /// Shows progress until the object ends; the user can cancel if `canCancel`.
    virtual std::unique_ptr<Progress> ShowProgress(const std::u16string& title, bool canCancel = true) = 0;
};

/// One question for each of many items, asked until an answer holds for all the rest.
class RepeatedQuestion {
public:
    explicit RepeatedQuestion(UserInteraction& user, AnswerSet answers = AnswerSet::YesNoAllCancel)
        : user_(user), answers_(answers) {}

    /// Yes, No or Cancel. Which answers are offered was settled at the beginning.
    Answer Ask(Question question) {
        if (forAll_) return *forAll_;
        question.answers = answers_;
        const Answer answer = user_.Ask(question);
        if (answer == Answer::YesToAll) forAll_ = Answer::Yes;
        if (answer == Answer::NoToAll) forAll_ = Answer::No;
        return forAll_.value_or(answer);
    }

private:
    UserInteraction& user_;
    const AnswerSet answers_;
    std::optional<Answer> forAll_;
};

}  // namespace tarnbridge
