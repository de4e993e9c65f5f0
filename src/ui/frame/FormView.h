#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include "core/base/MessageTarget.h"

class QMenu;

namespace tarnbridge {

class CTarnbridgeDoc;

/// One feature of the program: what fills the lower right pane of the frame. It is made when the user chooses
/// the feature and destroyed when he chooses another one; what is to be kept, it keeps in the settings or in
/// the document. Its commands are actions that its menus, its tool bar and its context menus share.
class FormView : public QWidget {
    Q_OBJECT

public:
    FormView(CTarnbridgeDoc& document, QWidget* parent) : QWidget(parent), document_(document) {}

    /// Stand in the frame's menu bar while the view is shown. They belong to the view.
    virtual QList<QMenu*> Menus() { return {}; }

    /// A message that the frame passes on: FormNotice, FormUpdate, HandsetConnected, HandsetDisconnected,
    /// LinkStepDone.
    virtual void Receive(Message& /*message*/) {}

    /// Called before the view goes, by choice of another feature or at the end. False keeps it: the user has
    /// been asked and wants to stay, or something has to end first, when readyToLeave is said.
    virtual bool MayLeave() { return true; }

    /// What the frame's status bar says of the view at first.
    virtual QString Status() const { return {}; }

Q_SIGNALS:
    /// What the last MayLeave had to wait for has ended.
    void readyToLeave();
    /// What the status bar says of the view from now on.
    void statusChanged(const QString& words);
    /// The phone model has changed: other features may be offered.
    void modelChanged();
    /// The user wants the program to start again, in another language.
    void restartWanted();

protected:
    CTarnbridgeDoc& Document() const { return document_; }

private:
    CTarnbridgeDoc& document_;
};

}  // namespace tarnbridge
