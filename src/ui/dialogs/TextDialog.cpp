#include "ui/dialogs/TextDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "ui/QtText.h"
#include "ui/dialogs/DialogButtons.h"

namespace tarnbridge {

TextDialog::TextDialog(const TextQuestion& question, QWidget* parent)
    : QDialog(parent), edit_(new QLineEdit(ToQString(question.suggestion))) {
    setObjectName(QStringLiteral("text"));
    setWindowTitle(QWords(Word::ProgramName));
    auto* const label = new QLabel(ToQString(question.words));
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(edit_);
    edit_->setMaxLength(
        static_cast<int>(std::min<size_t>(question.longest, std::numeric_limits<int16_t>::max())));
    edit_->setAccessibleName(label->text());
    edit_->selectAll();
    edit_->setMinimumWidth(fontMetrics().averageCharWidth() * 40);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(edit_);
    layout->addWidget(MakeOkCancel(*this));
}

std::u16string TextDialog::Text() const {
    return ToText(edit_->text());
}

}  // namespace tarnbridge
