#pragma once

#include <atomic>
#include <deque>
#include <mutex>

#include <gtest/gtest.h>

#include "core/base/UserInteraction.h"

namespace tarnbridge::test {

/// A user whose answers a test gives beforehand, in the order in which they will be needed. What is asked
/// without an answer left is a failure of the test, and is given up. The test touches the members while no
/// other thread asks.
class ScriptedUser : public UserInteraction {
public:
    std::deque<Answer> answers;
    std::deque<std::optional<std::u16string>> texts;
    std::deque<std::vector<std::filesystem::path>> files;
    std::deque<std::optional<std::filesystem::path>> directories;
    std::deque<std::optional<FolderChoice>> folders;
    int cancelAfter = -1;  ///< steps of progress after which the user cancels; -1: never

    /// What the user was asked, told, or shown as the title of progress or of a choice, in order.
    std::vector<std::u16string> heard;

    /// The whole of what `heard` has the words of.
    std::vector<Question> questions;

    Answer Ask(const Question& question) override {
        questions.push_back(question);
        return Next(answers, question.words, Answer::Cancel);
    }

    void Tell(const std::u16string& words) override {
        const std::lock_guard guard(mutex_);
        heard.push_back(words);
    }

    std::optional<std::u16string> AskText(const TextQuestion& question) override {
        return Next(texts, question.words, {});
    }

    std::vector<std::filesystem::path> ChooseFiles(const FileQuestion& question) override {
        return Next(files, question.title, {});
    }

    std::optional<std::filesystem::path> ChooseDirectory(const std::u16string& title,
                                                         const std::filesystem::path&) override {
        return Next(directories, title, {});
    }

    std::optional<FolderChoice> ChooseFolder(const FolderQuestion& question) override {
        return Next(folders, question.title, {});
    }

    std::unique_ptr<Progress> ShowProgress(const std::u16string& title, bool) override {
        Tell(title);
        return std::make_unique<ScriptedProgress>(cancelAfter);
    }

private:
    class ScriptedProgress : public Progress {
    public:
        explicit ScriptedProgress(int cancelAfter) : cancelAfter_(cancelAfter) {}
        void SetTotal(int) override {}
        void SetDone(int steps) override { done_ = steps; }
        void SetWords(const std::u16string&) override {}
        bool Cancelled() const override { return cancelAfter_ >= 0 && done_ >= cancelAfter_; }

    private:
        const int cancelAfter_;
        std::atomic<int> done_{0};
    };

    template <typename Type>
    Type Next(std::deque<Type>& given, const std::u16string& words, Type otherwise) {
        const std::lock_guard guard(mutex_);
        heard.push_back(words);
        if (given.empty()) {
            ADD_FAILURE() << "a question without an answer";
            return otherwise;
        }
        Type next = std::move(given.front());
        given.pop_front();
        return next;
    }

    std::mutex mutex_;
};

}  // namespace tarnbridge::test
