#pragma once

class QDialog;
class QDialogButtonBox;

namespace tarnbridge {

/// OK and Cancel, in the program's language, which accept and reject the dialog.
QDialogButtonBox* MakeOkCancel(QDialog& dialog);

}  // namespace tarnbridge
