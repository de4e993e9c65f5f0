#include "ui/dialogs/ProgressDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr MessageId progressChanged{1};
constexpr MessageId workEnded{2};
constexpr int widthInCharacters = 46;

void PostTo(const std::weak_ptr<MessageTarget>& window, MessageId id) {
    if (const auto target = window.lock()) target->Post({id});
}

}  // namespace

ProgressDialog::ProgressDialog(const QString& title, bool canCancel, std::shared_ptr<ProgressState> state,
                               QWidget* parent)
    : QDialog(parent),
      state_(std::move(state)),
      canCancel_(canCancel),
      words_(new QLabel),
      bar_(new QProgressBar),
      cancel_(new QPushButton(QWords(Word::Cancel))),
      receiver_([this](Message& message) {
          if (message.id == progressChanged) {
              Refresh();
          } else {
              hide();
              deleteLater();
          }
          return intptr_t{0};
      }) {
    setObjectName(QStringLiteral("progress"));
    setWindowTitle(title);
    setWindowModality(Qt::WindowModal);
    setWindowFlag(Qt::WindowCloseButtonHint, canCancel);
    words_->setTextFormat(Qt::PlainText);
    words_->setText(title);
    words_->setWordWrap(true);
    words_->setMinimumWidth(fontMetrics().averageCharWidth() * widthInCharacters);
    bar_->setRange(0, 0);
    bar_->setAccessibleName(title);
    cancel_->setVisible(canCancel);
    connect(cancel_, &QPushButton::clicked, this, &ProgressDialog::reject);

    auto* const buttons = new QDialogButtonBox;
    buttons->addButton(cancel_, QDialogButtonBox::RejectRole);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(words_);
    layout->addWidget(bar_);
    layout->addWidget(buttons);
}

void ProgressDialog::reject() {
    if (!canCancel_) return;
    state_->cancelled = true;
    cancel_->setEnabled(false);
    words_->setText(QWords(Word::Cancelling));
}

void ProgressDialog::Refresh() {
    state_->told = false;
    const int total = std::max(state_->total.load(), 0);
    bar_->setRange(0, total);
    bar_->setValue(std::clamp(state_->done.load(), 0, total));
    if (state_->cancelled) return;
    const std::lock_guard guard(state_->mutex);
    if (!state_->words.empty()) words_->setText(ToQString(state_->words));
}

ProgressReport::ProgressReport(std::shared_ptr<ProgressState> state) : state_(std::move(state)) {}

ProgressReport::~ProgressReport() {
    PostTo(state_->window, workEnded);
}

void ProgressReport::SetTotal(int steps) {
    state_->total = steps;
    Tell();
}

void ProgressReport::SetDone(int steps) {
    state_->done = steps;
    Tell();
}

void ProgressReport::SetWords(const std::u16string& words) {
    {
        const std::lock_guard guard(state_->mutex);
        state_->words = words;
    }
    Tell();
}

/// Work of many small steps fills Qt's queue with one message, not with thousands.
void ProgressReport::Tell() {
    if (!state_->told.exchange(true)) PostTo(state_->window, progressChanged);
}

}  // namespace tarnbridge
