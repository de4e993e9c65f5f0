#pragma once

#include <QAction>
#include <QLineEdit>
#include <QMimeData>
#include <QTreeView>

#include "messaging/MessageTree.h"
#include "ui/QtText.h"
#include "ui/Window.h"
#include "ui/messages/CSmsFormView.h"
#include "ui/messages/MessageListModel.h"
#include "ui/messages/MessageTreeModel.h"

namespace tarnbridge::test {

/// The program with its messages open, and a handset with the demonstration content.
class MessagesView : public Window {
protected:
    MessagesView();
    ~MessagesView() override;

    /// Starts, with the handset connected.
    void Open();
    /// Makes the view anew, so that it shows what was put into folders behind its back.
    void Reopen();
    /// Reads all messages of the handset.
    void ReadAll();

    QTreeView& Tree() { return Find<QTreeView>(QStringLiteral("folders")); }
    QTreeView& List() { return Find<QTreeView>(QStringLiteral("messages")); }
    MessageTreeModel& Folders() { return static_cast<MessageTreeModel&>(*Tree().model()); }
    MessageListModel& Messages() { return static_cast<MessageListModel&>(*List().model()); }
    MessageTree Content() { return MessageTree(Document().Content().messageRoot); }
    QAction& Command(const char* name) { return Find<QAction>(QString::fromLatin1(name)); }

    /// Triggers an enabled command and waits until nothing runs any more. What dialogs of work say at their
    /// end goes to `told`, and they are closed.
    void Do(const char* command);
    bool AwaitRest();

    void OpenFolder(const MessageFolder& chosen);
    void SelectRows(const std::vector<int>& rows);
    /// The row whose text begins so; -1 if there is none.
    int RowOf(const QString& text);
    QStringList Column(int column);

    /// A message in a folder of the PC.
    SmsRecord& Put(MessageFolder& to, const std::u16string& text, int status = smsRead,
                   const std::string& number = "+4670123");

    /// Drops rows of the list, or a folder, on a folder.
    void Drop(QMimeData* data, const MessageFolder& on, Qt::DropAction action = Qt::MoveAction);
    QMimeData* DraggedRows(const std::vector<int>& rows);

    size_t CountOn(const std::string& memory);

    QStringList told;
    VirtualHandset handset{{.demo = true, .faults = {}}};
};

/// The texts of a folder's messages.
std::vector<std::u16string> TextsIn(const MessageFolder& folder);

}  // namespace tarnbridge::test
