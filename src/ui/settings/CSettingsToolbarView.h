#pragma once

#include "ui/frame/ToolbarView.h"

namespace tarnbridge {

class CSettingsFormView;

/// The tool bar of the settings: its pages, and looking for ports.
class CSettingsToolbarView : public ToolbarView {
    Q_OBJECT

public:
    explicit CSettingsToolbarView(CSettingsFormView& form);
};

}  // namespace tarnbridge
