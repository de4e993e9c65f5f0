#pragma once

#include <QToolBar>

namespace tarnbridge {

/// The upper right pane: the commands of the form view below it, which are the form's own actions. Its
/// buttons can be reached by the keyboard.
class ToolbarView : public QToolBar {
    Q_OBJECT

public:
    ToolbarView();

protected:
    /// Every button that an action gets takes part in the order of the Tab key.
    void actionEvent(QActionEvent* event) override;
};

}  // namespace tarnbridge
