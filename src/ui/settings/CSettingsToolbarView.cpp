#include "ui/settings/CSettingsToolbarView.h"

#include "ui/settings/CSettingsFormView.h"

namespace tarnbridge {

CSettingsToolbarView::CSettingsToolbarView(CSettingsFormView& form) {
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addActions(form.PageActions());
    addSeparator();
    addAction(form.RefreshAction());
}

}  // namespace tarnbridge
