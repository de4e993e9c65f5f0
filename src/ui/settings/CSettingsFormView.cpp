#include "ui/settings/CSettingsFormView.h"

#include <QAction>
#include <QActionGroup>
#include <QFrame>
#include <QMenu>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/settings/CGeneralPage.h"
#include "ui/settings/CSmsSetting.h"

namespace tarnbridge {
namespace {

/// Fields that are wider only lead the eye astray.
constexpr int widestPage = 110;  // average characters

}  // namespace

CSettingsFormView::CSettingsFormView(CTarnbridgeDoc& document, QWidget* parent)
    : FormView(document, parent), pages_(new QStackedWidget), pageActions_(new QActionGroup(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pages_);
    setFocusProxy(pages_);

    general_ = new CGeneralPage(document);
    connect(general_, &CGeneralPage::modelChanged, this, &FormView::modelChanged);
    connect(general_, &CGeneralPage::restartWanted, this, &FormView::restartWanted);
    AddPage(general_, QWords(Word::SettingsGeneral), QStringLiteral("settings"));
    AddPage(new CSmsSetting(document), QWords(Word::SettingsMessages), QStringLiteral("messages"));
    pageActions_->actions().constFirst()->setChecked(true);

    refresh_ = new QAction(ThemedIcon(QStringLiteral("refresh")), QWords(Word::SettingsRefresh), this);
    refresh_->setShortcut(QKeySequence::Refresh);
    refresh_->setToolTip(TipWithKey(refresh_->text(), refresh_->shortcut()));
    connect(refresh_, &QAction::triggered, general_, &CGeneralPage::ShowPorts);

    menu_ = new QMenu(QWords(Word::MenuSettings), this);
    menu_->addActions(PageActions());
    menu_->addSeparator();
    menu_->addAction(refresh_);
}

void CSettingsFormView::AddPage(QWidget* page, const QString& name, const QString& icon) {
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(page);
    area->setFocusPolicy(Qt::NoFocus);
    area->setFocusProxy(page);
    page->setAccessibleName(name);
    page->setMaximumWidth(page->fontMetrics().averageCharWidth() * widestPage);
    const int place = pages_->addWidget(area);
    QAction* const action = pageActions_->addAction(ThemedIcon(icon), name);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, place] { pages_->setCurrentIndex(place); });
}

QList<QAction*> CSettingsFormView::PageActions() const {
    return pageActions_->actions();
}

void CSettingsFormView::Receive(Message& /*message*/) {
    general_->ShowState();
}

}  // namespace tarnbridge
