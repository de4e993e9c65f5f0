#pragma once

#include <QDialog>
#include <vector>

#include "core/base/UserInteraction.h"

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QModelIndex;
class QStandardItemModel;
class QTreeView;

namespace tarnbridge {

/// Lets the user choose a folder of a tree and, where the folder has a choice, the memory.
class FolderDialog : public QDialog {
    Q_OBJECT

public:
    FolderDialog(const FolderQuestion& question, QWidget* parent);

    /// Once accepted.
    FolderChoice Choice() const;

private:
    void FillTree();
    void ShowMemoriesOf(const QModelIndex& index);

    const FolderQuestion question_;
    QStandardItemModel* const model_;
    QTreeView* const tree_;
    QLabel* const refusal_;
    QLabel* const memoryLabel_;
    QComboBox* const memory_;
    QDialogButtonBox* const buttons_;
};

}  // namespace tarnbridge
