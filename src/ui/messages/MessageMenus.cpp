#include "ui/messages/MessageMenus.h"

#include <QMenu>
#include <initializer_list>

#include "ui/QtText.h"
#include "ui/messages/MessageCommands.h"

namespace tarnbridge {

MessageMenus MakeMessageMenus(const MessageCommands& commands, QWidget* view) {
    using C = MessageCommands;
    constexpr int separator = C::Count;
    const auto make = [&](Word words, const char* name, std::initializer_list<int> entries) {
        auto* const menu = new QMenu(QWords(words), view);
        menu->setObjectName(QString::fromLatin1(name));
        menu->setToolTipsVisible(true);
        for (const int command : entries) {
            if (command == separator)
                menu->addSeparator();
            else
                menu->addAction(commands.Get(static_cast<C::Command>(command)));
        }
        return menu;
    };
    MessageMenus menus;
    menus.inBar = {
        make(Word::MenuEdit, "editMenu",
             {C::CutMessages, C::CopyMessages, C::PasteMessages, separator, C::MoveMessages,
              C::CopyMessagesTo, C::DeleteMessages, separator, C::SelectAllMessages, C::FindMessages}),
        make(Word::MenuMessage, "messageMenu",
             {C::NewMessage, C::OpenMessage, C::ReplyMessage, C::ForwardMessage, separator, C::SendMessage,
              C::SendAllMessages, C::ReadMessages, separator, C::SaveText, C::ImportMessages,
              C::ExportMessages, separator, C::PrintMessage, C::PrintPreview}),
        make(Word::MenuFolder, "folderMenu",
             {C::MakeFolder, C::RenameFolder, C::DeleteFolder, C::CleanTrash}),
    };
    menus.ofList =
        make(Word::MenuMessage, "listMenu",
             {C::OpenMessage, C::ReplyMessage, C::ForwardMessage, C::SendMessage, separator, C::CutMessages,
              C::CopyMessages, C::PasteMessages, C::MoveMessages, C::CopyMessagesTo, C::DeleteMessages,
              separator, C::SelectAllMessages, separator, C::SaveText, C::PrintMessage});
    menus.ofTree = make(Word::MenuFolder, "treeMenu",
                        {C::MakeFolder, C::RenameFolder, C::DeleteFolder, C::CleanTrash, separator,
                         C::PasteMessages, separator, C::ImportMessages, C::ExportMessages});
    return menus;
}

}  // namespace tarnbridge
