#include "ui/dialogs/DialogParent.h"

#include <QApplication>

namespace tarnbridge {
namespace {

QPointer<QWidget>& Set() {
    static QPointer<QWidget> window;
    return window;
}

}  // namespace

DialogParent::DialogParent(QWidget& window) : before_(Set()) {
    Set() = &window;
}

DialogParent::~DialogParent() {
    Set() = before_;
}

QWidget* DialogParent::Now(QWidget* otherwise) {
    for (QWidget* const window :
         {QApplication::activeModalWidget(), Set().data(), QApplication::activeWindow()}) {
        if (window && window->isVisible()) return window;
    }
    return otherwise;
}

}  // namespace tarnbridge
