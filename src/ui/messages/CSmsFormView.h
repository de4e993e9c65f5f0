#pragma once

#include "ui/frame/FormView.h"

namespace tarnbridge {

/// The messages.
class CSmsFormView : public FormView {
    Q_OBJECT

public:
    CSmsFormView(CTarnbridgeDoc& document, QWidget* parent);
};

}  // namespace tarnbridge
