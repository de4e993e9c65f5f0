#include "ui/dialogs/TaskDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr int widthInCharacters = 46;

}  // namespace

TaskDialog::TaskDialog(const QString& title, HandsetTask& task, QWidget* parent)
    : QDialog(parent),
      task_(task),
      content_(new QVBoxLayout),
      words_(new QLabel),
      bar_(new QProgressBar),
      button_(new QPushButton(QWords(Word::Cancel))),
      receiver_([this](Message& message) {
          task_.Take(message);
          return intptr_t{0};
      }) {
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    words_->setObjectName(QStringLiteral("words"));
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    words_->setMinimumWidth(fontMetrics().averageCharWidth() * widthInCharacters);
    bar_->setRange(0, 0);
    bar_->setAccessibleName(title);
    button_->setObjectName(QStringLiteral("button"));
    connect(button_, &QPushButton::clicked, this, &TaskDialog::reject);
    auto* const buttons = new QDialogButtonBox;
    buttons->addButton(button_, QDialogButtonBox::RejectRole);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(content_, 1);
    layout->addWidget(words_);
    layout->addWidget(bar_);
    layout->addWidget(buttons);
}

bool TaskDialog::Start() {
    running_ = true;
    task_.onProgress = [this](const HandsetTask::Standing& standing) { ShowStanding(standing); };
    task_.onEnd = [this] { End(); };
    show();
    if (task_.Start(receiver_.Target())) return true;
    running_ = false;
    hide();
    return false;
}

void TaskDialog::ShowWords(const QString& words) {
    words_->setText(words);
}

void TaskDialog::ShowStanding(const HandsetTask::Standing& standing) {
    const int total = std::max(standing.total, 0);
    bar_->setRange(0, total);
    bar_->setValue(std::clamp(standing.done, 0, total));
    if (!standing.words.empty() && !task_.WasCancelled()) ShowWords(ToQString(standing.words));
}

void TaskDialog::reject() {
    if (!running_) {
        QDialog::reject();
        return;
    }
    task_.Cancel();
    button_->setEnabled(false);
    ShowWords(QWords(Word::Cancelling));
}

void TaskDialog::GiveUp() {
    givenUp_ = true;
    reject();
}

void TaskDialog::End() {
    running_ = false;
    ShowWords({});
    button_->setText(QWords(Word::Ok));
    button_->setEnabled(true);
    button_->setFocus();
    // Work of no steps doesn't leave a bar that still runs.
    bar_->setMaximum(std::max(bar_->maximum(), 1));
    if (!task_.WasCancelled() && !task_.LostHandset()) bar_->setValue(bar_->maximum());
    const bool stays = ShowEnd();
    Q_EMIT ended();
    if (!stays || givenUp_) accept();
}

}  // namespace tarnbridge
