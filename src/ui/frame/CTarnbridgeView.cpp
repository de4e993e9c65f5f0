#include "ui/frame/CTarnbridgeView.h"

#include <QButtonGroup>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/base/PhoneModelInfo.h"
#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/frame/ViewTable.h"

namespace tarnbridge {
namespace {

constexpr int columnWidth = 131;
constexpr int iconSide = 32;

}  // namespace

CTarnbridgeView::CTarnbridgeView(QWidget* parent) : QWidget(parent), buttons_(new QButtonGroup(this)) {
    setObjectName(QStringLiteral("features"));
    setAccessibleName(QWords(Word::FeaturesName));
    setFixedWidth(columnWidth);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(2);
    for (const ViewEntry& view : Views()) {
        auto* const button = new QToolButton;
        button->setObjectName(QStringLiteral("feature%1").arg(view.number));
        button->setText(QWords(view.name));
        button->setIcon(ThemedIcon(QString::fromLatin1(view.icon)));
        button->setIconSize({iconSide, iconSide});
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        buttons_->addButton(button, view.number);
        layout->addWidget(button);
    }
    layout->addStretch(1);
    connect(buttons_, &QButtonGroup::idClicked, this, &CTarnbridgeView::chosen);
}

void CTarnbridgeView::ShowFeaturesOf(const PhoneModelInfo& model) {
    for (const ViewEntry& view : Views())
        buttons_->button(view.number)->setVisible(view.offered(model));
}

void CTarnbridgeView::SetCurrent(int number) {
    if (QAbstractButton* const button = buttons_->button(number)) button->setChecked(true);
}

void CTarnbridgeView::FocusCurrent() {
    if (QAbstractButton* const button = buttons_->checkedButton()) button->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace tarnbridge
