#include "ui/dialogs/WindowInteraction.h"

#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/dialogs/DialogParent.h"
#include "ui/dialogs/FolderDialog.h"
#include "ui/dialogs/ProgressDialog.h"
#include "ui/dialogs/TextDialog.h"

namespace tarnbridge {
namespace {

constexpr MessageId runInWindow{1};
constexpr int pictureSide = 32;

using Work = std::function<void()>;

struct AnswerButton {
    Answer answer;
    Word words;
    QMessageBox::ButtonRole role;
};

constexpr AnswerButton answerButtons[] = {
    {Answer::Yes, Word::Yes, QMessageBox::YesRole},
    {Answer::YesToAll, Word::YesToAll, QMessageBox::YesRole},
    {Answer::No, Word::No, QMessageBox::NoRole},
    {Answer::NoToAll, Word::NoToAll, QMessageBox::NoRole},
    {Answer::Cancel, Word::Cancel, QMessageBox::RejectRole},
};

bool Offers(AnswerSet set, Answer answer) {
    switch (answer) {
        case Answer::Yes:
        case Answer::No:
            return true;
        case Answer::Cancel:
            return set == AnswerSet::YesNoCancel || set == AnswerSet::YesNoAllCancel;
        case Answer::YesToAll:
        case Answer::NoToAll:
            break;
    }
    return set == AnswerSet::YesNoAll || set == AnswerSet::YesNoAllCancel;
}

/// A dialog over a window that may go while it is open, and the dialog with it.
template <typename Dialog>
class Opened {
public:
    explicit Opened(Dialog* dialog) : dialog_(dialog) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { delete dialog_; }

    Dialog* operator->() const { return dialog_; }
    Dialog& operator*() const { return *dialog_; }

    /// Runs it to its end. False if it has gone.
    bool Run() {
        dialog_->exec();
        return !dialog_.isNull();
    }
    bool RunToOk() { return Run() && dialog_->result() == QDialog::Accepted; }

private:
    QPointer<Dialog> dialog_;
};

void Fill(QMessageBox& box, const std::u16string& words, const QString& icon) {
    box.setWindowTitle(QWords(Word::ProgramName));
    // What a handset or a file says may look like markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString(words));
    box.setIconPixmap(ThemedIcon(icon).pixmap(QSize(pictureSide, pictureSide), box.devicePixelRatio()));
}

std::u16string VerbOf(const Question& question, const AnswerButton& offered) {
    std::u16string verb;
    if (offered.answer == Answer::Yes) verb = question.yes;
    if (offered.answer == Answer::No) verb = question.no;
    if (offered.answer == Answer::Cancel) verb = question.cancel;
    return verb.empty() ? Words(offered.words) : verb;
}

/// A line of its own below the words.
void ShowEffect(QMessageBox& box, const std::u16string& effect) {
    if (effect.empty()) return;
    box.setInformativeText(ToQString(effect));
    for (QLabel* const label : box.findChildren<QLabel*>()) {
        if (label->text() == box.informativeText()) label->setTextFormat(Qt::PlainText);
    }
}

Answer Unanswered(AnswerSet set) {
    return Offers(set, Answer::Cancel) ? Answer::Cancel : Answer::No;
}

Answer AskIn(QWidget* parent, const Question& question) {
    Opened box(new QMessageBox(parent));
    const bool warns = question.destroys == Answer::Yes;
    Fill(*box, question.words, warns ? QStringLiteral("warning") : QStringLiteral("help"));
    ShowEffect(*box, question.effect);
    box->setObjectName(QStringLiteral("question"));
    const Answer unanswered = Unanswered(question.answers);
    const Answer enter = warns ? unanswered : Answer::Yes;
    for (const AnswerButton& offered : answerButtons) {
        if (!Offers(question.answers, offered.answer)) continue;
        QPushButton* const button = box->addButton(ToQString(VerbOf(question, offered)), offered.role);
        button->setProperty("answer", static_cast<int>(offered.answer));
        if (offered.answer == enter) box->setDefaultButton(button);
        if (offered.answer == unanswered) box->setEscapeButton(button);
    }
    const QAbstractButton* const clicked = box.Run() ? box->clickedButton() : nullptr;
    return clicked ? static_cast<Answer>(clicked->property("answer").toInt()) : unanswered;
}

QString FilterLine(const std::vector<FileFilter>& filters) {
    QStringList lines;
    for (const FileFilter& filter : filters) {
        QStringList patterns;
        for (const std::string& pattern : filter.patterns)
            patterns << QString::fromStdString(pattern);
        lines << QStringLiteral("%1 (%2)").arg(ToQString(filter.name), patterns.join(u' '));
    }
    return lines.join(QStringLiteral(";;"));
}

/// Asks about the file that is there already, by the name that it will have.
bool MayReplace(QWidget* parent, const std::vector<std::filesystem::path>& chosen) {
    std::error_code ignored;
    if (chosen.empty() || !std::filesystem::exists(chosen.front(), ignored)) return true;
    const std::u16string name = ToText(PathToQString(chosen.front().filename()));
    const Question question{.words = Words(Word::ReplaceFile, {name}),
                            .effect = Words(Word::ReplaceEffect),
                            .yes = Words(Word::AnswerReplace),
                            .no = Words(Word::Cancel),
                            .destroys = Answer::Yes};
    return AskIn(parent, question) == Answer::Yes;
}

std::vector<std::filesystem::path> ChooseIn(QWidget* parent, const FileQuestion& question) {
    Opened dialog(new QFileDialog(parent, ToQString(question.title), PathToQString(question.folder),
                                  FilterLine(question.filters)));
    dialog->setObjectName(QStringLiteral("files"));
    if (question.purpose == FilePurpose::Save) {
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setOption(QFileDialog::DontConfirmOverwrite);
        dialog->setFileMode(QFileDialog::AnyFile);
        dialog->selectFile(ToQString(question.suggestedName));
        if (!question.filters.empty() && !question.filters[0].patterns.empty()) {
            const std::string& pattern = question.filters[0].patterns[0];
            if (pattern.starts_with("*."))
                dialog->setDefaultSuffix(QString::fromStdString(pattern.substr(2)));
        }
    } else {
        dialog->setFileMode(question.purpose == FilePurpose::OpenSeveral ? QFileDialog::ExistingFiles
                                                                         : QFileDialog::ExistingFile);
    }
    for (;;) {
        std::vector<std::filesystem::path> chosen;
        if (!dialog.RunToOk()) return chosen;
        for (const QString& name : dialog->selectedFiles())
            chosen.push_back(ToPath(name));
        if (question.purpose != FilePurpose::Save || MayReplace(parent, chosen)) return chosen;
    }
}

}  // namespace

WindowInteraction::WindowInteraction()
    : receiver_([](Message& message) {
          if (const Work* const work = message.payload.Get<Work>()) (*work)();
          return intptr_t{0};
      }) {}

template <typename Type>
Type WindowInteraction::InWindow(Type otherwise, const std::function<Type(QWidget* parent)>& use) {
    Type answer = std::move(otherwise);
    const Work work = [&] { answer = use(DialogParent::Now(window_)); };
    // Sending to the own thread runs the work at once.
    if (const auto target = receiver_.Target().lock())
        target->Send({runInWindow, 0, 0, MessagePayload::Of(work)});
    return answer;
}

Answer WindowInteraction::Ask(const Question& question) {
    return InWindow<Answer>(Unanswered(question.answers),
                            [&](QWidget* parent) { return AskIn(parent, question); });
}

void WindowInteraction::Tell(const std::u16string& words) {
    InWindow<bool>(false, [&](QWidget* parent) {
        Opened box(new QMessageBox(parent));
        Fill(*box, words, QStringLiteral("info"));
        box->setObjectName(QStringLiteral("note"));
        box->addButton(QWords(Word::Ok), QMessageBox::AcceptRole);
        return box.Run();
    });
}

std::optional<std::u16string> WindowInteraction::AskText(const TextQuestion& question) {
    return InWindow<std::optional<std::u16string>>({}, [&](QWidget* parent) -> std::optional<std::u16string> {
        Opened dialog(new TextDialog(question, parent));
        if (!dialog.RunToOk()) return {};
        return dialog->Text();
    });
}

std::vector<std::filesystem::path> WindowInteraction::ChooseFiles(const FileQuestion& question) {
    return InWindow<std::vector<std::filesystem::path>>(
        {}, [&](QWidget* parent) { return ChooseIn(parent, question); });
}

std::optional<std::filesystem::path> WindowInteraction::ChooseDirectory(const std::u16string& title,
                                                                        const std::filesystem::path& start) {
    return InWindow<std::optional<std::filesystem::path>>(
        {}, [&](QWidget* parent) -> std::optional<std::filesystem::path> {
            Opened dialog(new QFileDialog(parent, ToQString(title), PathToQString(start)));
            dialog->setFileMode(QFileDialog::Directory);
            dialog->setOption(QFileDialog::ShowDirsOnly);
            if (!dialog.RunToOk()) return {};
            return ToPath(dialog->selectedFiles().front());
        });
}

std::optional<FolderChoice> WindowInteraction::ChooseFolder(const FolderQuestion& question) {
    return InWindow<std::optional<FolderChoice>>({}, [&](QWidget* parent) -> std::optional<FolderChoice> {
        Opened dialog(new FolderDialog(question, parent));
        if (!dialog.RunToOk()) return {};
        return dialog->Choice();
    });
}

std::unique_ptr<Progress> WindowInteraction::ShowProgress(const std::u16string& title, bool canCancel) {
    const auto state = std::make_shared<ProgressState>();
    InWindow<bool>(false, [&](QWidget* parent) {
        auto* const dialog = new ProgressDialog(ToQString(title), canCancel, state, parent);
        state->window = dialog->Target();
        dialog->show();
        return true;
    });
    return std::make_unique<ProgressReport>(state);
}

}  // namespace tarnbridge
