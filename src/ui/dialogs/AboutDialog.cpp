#include "ui/dialogs/AboutDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "ui/Icons.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr int pictureSide = 64;
constexpr qreal titleScale = 1.5;

struct Component {
    const char* name;
    const char* licence;
};

constexpr Component components[] = {
    {"Qt " QT_VERSION_STR, "GNU LGPL 3"},
    {"{fmt}", "MIT"},
    {"SimpleIni", "MIT"},
    {"ICU", "Unicode"},
    {"GNU C++ library", "GNU GPL 3, GCC Runtime Library Exception"},
};

}  // namespace

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("aboutDialog"));
    setWindowTitle(QWords(Word::AboutTitle));

    auto* const picture = new QLabel;
    picture->setPixmap(ProgramIcon().pixmap(QSize(pictureSide, pictureSide), devicePixelRatio()));
    auto* const name = new QLabel(QWords(Word::ProgramName));
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * titleScale);
    font.setBold(true);
    name->setFont(font);
    auto* const version =
        new QLabel(QWords(Word::AboutVersion, {ToText(QStringLiteral(TARNBRIDGE_VERSION))}));
    version->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* const purpose = new QLabel(QWords(Word::AboutPurpose));

    auto* const table = new QTableWidget(static_cast<int>(std::size(components)), 2);
    table->setHorizontalHeaderLabels({QWords(Word::AboutBuiltWith), QWords(Word::AboutLicence)});
    table->setAccessibleName(QWords(Word::AboutBuiltWith));
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setItem(row, 0, new QTableWidgetItem(QString::fromLatin1(components[row].name)));
        table->setItem(row, 1, new QTableWidgetItem(QString::fromLatin1(components[row].licence)));
    }
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);

    auto* const buttons = new QDialogButtonBox;
    auto* const close = buttons->addButton(QWords(Word::CommandClose), QDialogButtonBox::RejectRole);
    close->setDefault(true);
    close->setFocus();
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const head = new QGridLayout;
    head->addWidget(picture, 0, 0, 3, 1, Qt::AlignTop);
    head->addWidget(name, 0, 1);
    head->addWidget(version, 1, 1);
    head->addWidget(purpose, 2, 1);
    head->setColumnStretch(1, 1);
    head->setHorizontalSpacing(16);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addSpacing(8);
    layout->addWidget(table);
    layout->addWidget(buttons);
    resize(sizeHint().expandedTo(QSize(460, 340)));
}

}  // namespace tarnbridge
