#pragma once

#include "ui/frame/ToolbarView.h"

namespace tarnbridge {

class CSmsFormView;

/// The tool bar of the messages.
class CSmsToolbarView : public ToolbarView {
    Q_OBJECT

public:
    explicit CSmsToolbarView(CSmsFormView& form);
};

}  // namespace tarnbridge
