#include "tarnctl/TerminalUser.h"

#include <iostream>
#include <string>

#include "core/base/StringTable.h"
#include "platform/Terminal.h"
#include "platform/Text.h"
#include "tarnctl/Output.h"

namespace tarnbridge {
namespace {

/// Commands show the progress of their tasks themselves.
class NoProgress : public Progress {
public:
    void SetTotal(int) override {}
    void SetDone(int) override {}
    void SetWords(const std::u16string&) override {}
    bool Cancelled() const override { return false; }
};

std::string VerbOf(const std::u16string& verb, Word otherwise) {
    return TextToUtf8(verb.empty() ? Words(otherwise) : verb);
}

}  // namespace

bool TerminalUser::CanAnswer() const {
    return saysYes_ || IsTerminal(StandardStream::Input);
}

Answer TerminalUser::Ask(const Question& question) {
    if (saysYes_) return Answer::Yes;
    const bool canCancel =
        question.answers == AnswerSet::YesNoCancel || question.answers == AnswerSet::YesNoAllCancel;
    const Answer unanswered = canCancel ? Answer::Cancel : Answer::No;
    if (!CanAnswer()) return unanswered;
    PrintWords(TextToUtf8(question.words));
    if (!question.effect.empty()) PrintWords(TextToUtf8(question.effect));
    std::string choice = "y = " + VerbOf(question.yes, Word::Yes);
    if (canCancel) choice += ", n = " + VerbOf(question.no, Word::No);
    PrintWords(choice + ", Enter = " +
               (canCancel ? VerbOf(question.cancel, Word::Cancel) : VerbOf(question.no, Word::No)));
    std::string line;
    if (!std::getline(std::cin, line)) return unanswered;
    if (line == "y" || line == "Y" || line == "yes") return Answer::Yes;
    return line == "n" || line == "N" || line == "no" ? Answer::No : unanswered;
}

void TerminalUser::Tell(const std::u16string& words) {
    PrintWords(TextToUtf8(words));
}

std::unique_ptr<Progress> TerminalUser::ShowProgress(const std::u16string&, bool) {
    return std::make_unique<NoProgress>();
}

}  // namespace tarnbridge
