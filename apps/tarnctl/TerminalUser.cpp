#include "tarnctl/TerminalUser.h"

#include <iostream>
#include <string>

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

}  // namespace

bool TerminalUser::CanAnswer() const {
    return saysYes_ || IsTerminal(StandardStream::Input);
}

Answer TerminalUser::Ask(const std::u16string& words, AnswerSet answers) {
    if (saysYes_) return Answer::Yes;
    if (CanAnswer()) {
        PrintWords(TextToUtf8(words) + " [y/N]");
        std::string line;
        if (std::getline(std::cin, line) && (line == "y" || line == "Y" || line == "yes")) return Answer::Yes;
    }
    return answers == AnswerSet::YesNoCancel || answers == AnswerSet::YesNoAllCancel ? Answer::Cancel
                                                                                     : Answer::No;
}

void TerminalUser::Tell(const std::u16string& words) {
    PrintWords(TextToUtf8(words));
}

std::unique_ptr<Progress> TerminalUser::ShowProgress(const std::u16string&, bool) {
    return std::make_unique<NoProgress>();
}

}  // namespace tarnbridge
