#pragma once

#include "ui/frame/FormView.h"
#include "ui/messages/MessageCommands.h"
#include "ui/messages/MessageEditors.h"
#include "ui/messages/MessageSelection.h"

class QAction;
class QLineEdit;
class QModelIndex;
class QSplitter;
class QStackedWidget;
class QTreeView;

namespace tarnbridge {

class EmptyHint;
struct PrintedMessage;
class MessageListModel;
class MessageOperations;
class MessageReader;
class MessageTreeModel;
class NoteLine;

/// The messages: the folders of the handset and of the PC, the messages of the folder that is chosen, and
/// the one that is selected.
class CSmsFormView : public FormView {
    Q_OBJECT

public:
    CSmsFormView(CTarnbridgeDoc& document, QWidget* parent);
    ~CSmsFormView() override;

    QList<QMenu*> Menus() override { return menus_; }
    void Receive(Message& message) override;
    bool MayLeave() override;
    QString Status() const override;

    MessageCommands& Commands() { return *commands_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void MakeTree();
    void MakeList();
    void MakeMenus();
    void Connect();
    void RestoreState();
    void SaveState();

    void OpenFolder();
    void Refresh();
    void ShowMessages();
    void ShowHint();
    void ShowAge();
    void ShowSelected();
    void UpdateCommands();
    void Find(const QString& text);

    MessageFolder* CurrentFolder() const;
    MessageSelection Selected() const;
    MessageSelection AllInFolder() const;
    const SmsRecord* TheSelected() const;
    bool Receives(const MessageFolder& folder) const;
    void Select(const std::vector<SmsRecord*>& records);

    void GoOnLeaving();

    void MakeFolder();
    std::vector<PrintedMessage> ToPrint() const;

    MessageOperations* const operations_;
    MessageCommands* const commands_;
    MessageTreeModel* const treeModel_;
    MessageListModel* const listModel_;
    QSplitter* const splitter_;
    QSplitter* const messageSplitter_;
    QTreeView* const tree_;
    QLineEdit* const find_;
    NoteLine* const age_;
    QStackedWidget* const stack_;
    QTreeView* const list_;
    MessageReader* const reader_;
    EmptyHint* hint_ = nullptr;
    QList<QMenu*> menus_;
    bool refreshing_ = false;
    bool wasShown_ = false;
    bool leaving_ = false;  // as soon as nothing is under way
    MessageEditors editors_;
};

}  // namespace tarnbridge
