#include "ui/dialogs/FolderDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/dialogs/DialogButtons.h"

namespace tarnbridge {
namespace {

constexpr int rowRole = Qt::UserRole;

QString NameOfMemory(const std::u16string& memory) {
    if (memory == u"SM") return QWords(Word::MemorySim);
    if (memory == u"ME") return QWords(Word::MemoryPhone);
    return ToQString(memory);
}

}  // namespace

FolderDialog::FolderDialog(const FolderQuestion& question, QWidget* parent)
    : QDialog(parent),
      question_(question),
      model_(new QStandardItemModel(this)),
      tree_(new QTreeView),
      refusal_(new QLabel(ToQString(question.refusal))),
      memoryLabel_(new QLabel(QWords(Word::MemoryLabel))),
      memory_(new QComboBox),
      buttons_(MakeOkCancel(*this)) {
    setObjectName(QStringLiteral("folders"));
    setWindowTitle(ToQString(question.title));
    tree_->setModel(model_);
    tree_->setHeaderHidden(true);
    tree_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree_->setAccessibleName(ToQString(question.title));
    memoryLabel_->setBuddy(memory_);
    refusal_->setTextFormat(Qt::PlainText);
    refusal_->setWordWrap(true);

    auto* const memoryRow = new QHBoxLayout;
    memoryRow->addWidget(memoryLabel_);
    memoryRow->addWidget(memory_, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(tree_, 1);
    layout->addWidget(refusal_);
    layout->addLayout(memoryRow);
    layout->addWidget(buttons_);
    resize(sizeHint().expandedTo(QSize(380, 360)));

    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &FolderDialog::ShowMemoriesOf);
    connect(tree_, &QTreeView::activated, this, [this](const QModelIndex& index) {
        if (index.flags().testFlag(Qt::ItemIsSelectable)) accept();
    });
    FillTree();
}

void FolderDialog::FillTree() {
    std::vector<QStandardItem*> path;  // the last row of each depth so far
    QStandardItem* suggested = nullptr;
    for (size_t i = 0; i < question_.rows.size(); ++i) {
        const FolderRow& row = question_.rows[i];
        auto* const item = new QStandardItem(FolderIcon(row.look), ToQString(row.name));
        item->setData(static_cast<int>(i), rowRole);
        item->setSelectable(row.selectable);
        const size_t depth = std::min(static_cast<size_t>(std::max(row.depth, 0)), path.size());
        (depth == 0 ? model_->invisibleRootItem() : path[depth - 1])->appendRow(item);
        path.resize(depth);
        path.push_back(item);
        if (i == question_.suggestedRow && row.selectable) suggested = item;
    }
    tree_->expandAll();
    if (suggested) tree_->setCurrentIndex(suggested->index());
    ShowMemoriesOf(tree_->currentIndex());
}

void FolderDialog::ShowMemoriesOf(const QModelIndex& index) {
    const bool selectable = index.isValid() && index.flags().testFlag(Qt::ItemIsSelectable);
    memory_->clear();
    if (selectable) {
        for (const std::u16string& memory : question_.rows[index.data(rowRole).toUInt()].memories) {
            memory_->addItem(NameOfMemory(memory), ToQString(memory));
            if (memory == question_.suggestedMemory) memory_->setCurrentIndex(memory_->count() - 1);
        }
    }
    memory_->setEnabled(memory_->count() > 0);
    memoryLabel_->setEnabled(memory_->isEnabled());
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(selectable);
    refusal_->setVisible(!selectable && !question_.refusal.empty());
}

FolderChoice FolderDialog::Choice() const {
    return {tree_->currentIndex().data(rowRole).toUInt(), ToText(memory_->currentData().toString())};
}

}  // namespace tarnbridge
