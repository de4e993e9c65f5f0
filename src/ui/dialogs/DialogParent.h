#pragma once

#include <QPointer>
#include <QWidget>

namespace tarnbridge {

/// While it lives, dialogs stand over this window, whichever one the user is in. For the interface thread.
class DialogParent {
public:
    explicit DialogParent(QWidget& window);
    DialogParent(const DialogParent&) = delete;
    DialogParent& operator=(const DialogParent&) = delete;
    ~DialogParent();

    /// Over which window a dialog is to stand: one that is open, so that the answer belongs to what the user
    /// does, else the one that was set, else the one that the user is in. `otherwise` if there is none.
    static QWidget* Now(QWidget* otherwise);

private:
    const QPointer<QWidget> before_;
};

}  // namespace tarnbridge
