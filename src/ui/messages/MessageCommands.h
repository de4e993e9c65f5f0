#pragma once

#include <QObject>
#include <QString>
#include <array>
#include <cstddef>
#include <optional>

#include "core/base/StringTable.h"

class QAction;

namespace tarnbridge {

/// What decides which commands are possible.
struct MessageSituation {
    bool busy = false;             ///< a task runs
    bool connected = false;        ///< the handset answers
    size_t selected = 0;           ///< messages
    bool canSend = false;          ///< one of them was written rather than received
    size_t inFolder = 0;           ///< messages, shown or not
    bool holdsMessages = false;    ///< the folder
    bool mayMakeFolder = false;    ///< in the folder
    bool mayChangeFolder = false;  ///< the user made it
    bool isTrash = false;          ///< the trash can itself
    bool trashHasContent = false;
    bool outboxHasMessages = false;  ///< the PC's
    bool canPaste = false;           ///< messages were cut or copied
};

/// The commands of the messages as actions that menus, tool bar and context menus share. Each knows when it
/// is possible; when it isn't, its tip says why.
class MessageCommands : public QObject {
    Q_OBJECT

public:
    enum Command {
        NewMessage,
        OpenMessage,
        ReplyMessage,
        ForwardMessage,
        SendMessage,
        SendAllMessages,
        ReadMessages,
        SaveText,
        ImportMessages,
        ExportMessages,
        PrintMessage,
        PrintPreview,
        CutMessages,
        CopyMessages,
        PasteMessages,
        MoveMessages,
        CopyMessagesTo,
        DeleteMessages,
        SelectAllMessages,
        FindMessages,
        MakeFolder,
        RenameFolder,
        DeleteFolder,
        CleanTrash,
        Count
    };

    explicit MessageCommands(QObject* parent);

    QAction* Get(Command command) const { return actions_[command]; }

    void Update(const MessageSituation& situation);

    /// Why a command isn't possible; nothing if it is.
    static std::optional<Word> Obstacle(Command command, const MessageSituation& situation);

private:
    std::array<QAction*, Count> actions_{};
    std::array<QString, Count> tips_;
};

}  // namespace tarnbridge
