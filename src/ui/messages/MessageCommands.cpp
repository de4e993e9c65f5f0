#include "ui/messages/MessageCommands.h"

#include <QAction>
#include <QKeySequence>
#include <algorithm>
#include <vector>

#include "ui/QtText.h"
#include "ui/messages/Command.h"

namespace tarnbridge {
namespace {

/// What a command needs; it is possible where nothing is missing.
enum Need : unsigned {
    Handset = 1U << 0,
    OneMessage = 1U << 1,
    SomeMessages = 1U << 2,
    FolderWithMessages = 1U << 3,
    PlaceForMessages = 1U << 4,
    PlaceForFolder = 1U << 5,
    OwnFolder = 1U << 6,
    FullTrash = 1U << 7,
    FullOutbox = 1U << 8,
    SomethingCut = 1U << 9,
    Rest = 1U << 10,  ///< no task that runs
    Written = 1U << 11,
};

struct Row {
    MessageCommands::Command command;
    const char* name;
    const char* icon;
    Word words;
    QKeySequence shortcut;
    unsigned needs;
};

const std::vector<Row>& Rows() {
    using C = MessageCommands;
    static const std::vector<Row> rows = {
        {C::NewMessage, "newMessage", "new", Word::CommandNewMessage, QKeySequence::New, 0},
        {C::OpenMessage, "openMessage", "open", Word::CommandOpenMessage, QKeySequence::Open, OneMessage},
        {C::ReplyMessage, "replyMessage", "reply", Word::CommandReplyMessage, Qt::CTRL | Qt::Key_R,
         OneMessage},
        {C::ForwardMessage, "forwardMessage", "forward", Word::CommandForwardMessage, Qt::CTRL | Qt::Key_L,
         OneMessage},
        {C::SendMessage, "sendMessage", "send", Word::CommandSendMessage, Qt::CTRL | Qt::Key_Return,
         Rest | Handset | SomeMessages | Written},
        {C::SendAllMessages, "sendAllMessages", "send-all", Word::CommandSendAllMessages,
         Qt::CTRL | Qt::SHIFT | Qt::Key_Return, Rest | Handset | FullOutbox},
        {C::ReadMessages, "readMessages", "read", Word::CommandReadMessages, QKeySequence::Refresh,
         Rest | Handset},
        {C::SaveText, "saveText", "save", Word::CommandSaveText, QKeySequence::Save, SomeMessages},
        {C::ImportMessages, "importMessages", "import", Word::CommandImport, Qt::CTRL | Qt::Key_I, Rest},
        {C::ExportMessages, "exportMessages", "export", Word::CommandExport, Qt::CTRL | Qt::Key_E,
         FolderWithMessages},
        {C::PrintMessage, "printMessage", "print", Word::CommandPrintMessage, QKeySequence::Print,
         SomeMessages},
        {C::PrintPreview, "printPreview", "print", Word::CommandPrintPreview,
         Qt::CTRL | Qt::SHIFT | Qt::Key_P, SomeMessages},
        {C::CutMessages, "cutMessages", "cut", Word::CommandCut, QKeySequence::Cut, SomeMessages},
        {C::CopyMessages, "copyMessages", "copy", Word::CommandCopy, QKeySequence::Copy, SomeMessages},
        {C::PasteMessages, "pasteMessages", "paste", Word::CommandPaste, QKeySequence::Paste,
         Rest | SomethingCut | PlaceForMessages},
        {C::MoveMessages, "moveMessages", "folder", Word::CommandMoveTo, Qt::CTRL | Qt::SHIFT | Qt::Key_M,
         Rest | SomeMessages},
        {C::CopyMessagesTo, "copyMessagesTo", "copy", Word::CommandCopyTo, Qt::CTRL | Qt::SHIFT | Qt::Key_C,
         Rest | SomeMessages},
        {C::DeleteMessages, "deleteMessages", "delete", Word::CommandDelete, QKeySequence::Delete,
         Rest | SomeMessages},
        {C::SelectAllMessages, "selectAllMessages", "select-all", Word::CommandSelectAll,
         QKeySequence::SelectAll, FolderWithMessages},
        {C::FindMessages, "findMessages", "find", Word::CommandFind, QKeySequence::Find, PlaceForMessages},
        {C::MakeFolder, "makeFolder", "new-folder", Word::CommandNewFolder, Qt::CTRL | Qt::SHIFT | Qt::Key_N,
         Rest | PlaceForFolder},
        {C::RenameFolder, "renameFolder", "rename", Word::CommandRename, Qt::Key_F2, Rest | OwnFolder},
        {C::DeleteFolder, "deleteFolder", "delete", Word::CommandDeleteFolder, QKeySequence::Delete,
         Rest | OwnFolder},
        {C::CleanTrash, "cleanTrash", "trash", Word::CommandCleanTrash, QKeySequence(), Rest | FullTrash},
    };
    return rows;
}

struct Obstacle {
    unsigned need;
    Word words;
    bool (*missing)(const MessageSituation&);
};

/// In the order in which they are told.
constexpr Obstacle obstacles[] = {
    {Rest, Word::ObstacleBusy, [](const MessageSituation& s) { return s.busy; }},
    {Handset, Word::ObstacleNoHandset, [](const MessageSituation& s) { return !s.connected; }},
    {OneMessage, Word::ObstacleNotOneMessage, [](const MessageSituation& s) { return s.selected != 1; }},
    {SomeMessages, Word::ObstacleNoMessage, [](const MessageSituation& s) { return s.selected == 0; }},
    {Written, Word::OnlyReceived, [](const MessageSituation& s) { return !s.canSend; }},
    {FolderWithMessages, Word::ObstacleEmptyFolder,
     [](const MessageSituation& s) { return s.inFolder == 0; }},
    {SomethingCut, Word::ObstacleNothingCut, [](const MessageSituation& s) { return !s.canPaste; }},
    {PlaceForMessages, Word::ObstacleNoPlaceForMessages,
     [](const MessageSituation& s) { return !s.holdsMessages; }},
    {PlaceForFolder, Word::ObstacleNoPlaceForFolder,
     [](const MessageSituation& s) { return !s.mayMakeFolder; }},
    {OwnFolder, Word::ObstacleFixedFolder, [](const MessageSituation& s) { return !s.mayChangeFolder; }},
    {FullTrash, Word::ObstacleEmptyFolder, [](const MessageSituation& s) { return !s.trashHasContent; }},
    {FullOutbox, Word::ObstacleEmptyOutbox, [](const MessageSituation& s) { return !s.outboxHasMessages; }},
};

}  // namespace

MessageCommands::MessageCommands(QObject* parent) : QObject(parent) {
    for (const Row& row : Rows()) {
        QAction* const action = MakeCommand(this, {row.name, row.words, row.icon}, row.shortcut);
        tips_[row.command] = action->toolTip();
        actions_[row.command] = action;
    }
    Update({});
}

std::optional<Word> MessageCommands::Obstacle(Command command, const MessageSituation& situation) {
    const auto row = std::find_if(Rows().begin(), Rows().end(),
                                  [command](const Row& other) { return other.command == command; });
    for (const auto& obstacle : obstacles) {
        if ((row->needs & obstacle.need) != 0 && obstacle.missing(situation)) return obstacle.words;
    }
    return std::nullopt;
}

void MessageCommands::Update(const MessageSituation& situation) {
    for (const Row& row : Rows()) {
        QAction* const action = Get(row.command);
        const auto obstacle = Obstacle(row.command, situation);
        action->setEnabled(!obstacle);
        const QString& tip = tips_[row.command];
        action->setToolTip(obstacle ? tip + u'\n' + QWords(*obstacle) : tip);
    }
    Get(DeleteFolder)->setVisible(!situation.isTrash);
    Get(CleanTrash)->setVisible(situation.isTrash);
}

}  // namespace tarnbridge
