#pragma once

#include <vector>

#include "ui/frame/FormView.h"

class QAction;
class QActionGroup;
class QStackedWidget;

namespace tarnbridge {

class CGeneralPage;

/// The settings: a page for each subject. What is changed holds at once.
class CSettingsFormView : public FormView {
    Q_OBJECT

public:
    CSettingsFormView(CTarnbridgeDoc& document, QWidget* parent);

    QList<QMenu*> Menus() override { return {menu_}; }
    void Receive(Message& message) override;

    /// One action a page, of which one is checked.
    QList<QAction*> PageActions() const;
    /// Looks for ports that were plugged in.
    QAction* RefreshAction() const { return refresh_; }

private:
    void AddPage(QWidget* page, const QString& name, const QString& icon);

    QStackedWidget* const pages_;
    QActionGroup* const pageActions_;
    QAction* refresh_ = nullptr;
    QMenu* menu_ = nullptr;
    CGeneralPage* general_ = nullptr;
};

}  // namespace tarnbridge
