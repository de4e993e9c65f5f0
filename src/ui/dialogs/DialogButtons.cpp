#include "ui/dialogs/DialogButtons.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

#include "ui/QtText.h"

namespace tarnbridge {

QDialogButtonBox* MakeOkCancel(QDialog& dialog) {
    auto* const box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    box->button(QDialogButtonBox::Ok)->setText(QWords(Word::Ok));
    box->button(QDialogButtonBox::Cancel)->setText(QWords(Word::Cancel));
    QObject::connect(box, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return box;
}

}  // namespace tarnbridge
