#pragma once

#include <string>
#include <vector>

#include "core/base/UserInteraction.h"
#include "messaging/MessageTree.h"

namespace tarnbridge {

/// What the user does to the folders of messages on the PC, with the questions and the refusals. For the
/// thread that owns the folders. Each true means that something has changed.
class MessageFolders {
public:
    /// \param asksAboutTrash  whether the user is asked before something goes to the trash can
    MessageFolders(MessageTree tree, UserInteraction& user, MessageKeeper& keeper, bool asksAboutTrash = true)
        : tree_(tree), user_(user), keeper_(keeper), asksAboutTrash_(asksAboutTrash) {}

    static bool MayMakeFolder(const MessageFolder& under);
    /// Whether the user made it, so that it can be renamed and deleted.
    static bool MayChange(const MessageFolder& folder);

    /// A new folder, called "New Folder" if the name is empty. Where there may be none the user is told so.
    MessageFolder* Make(MessageFolder& under, const std::u16string& name);

    /// An empty name leaves the old one.
    bool Rename(MessageFolder& folder, const std::u16string& name);

    /// A folder with all that is in it goes to the trash can, if the user says Yes to that. Where they say
    /// No, and from the trash can, it goes for good, if they say Yes once more. The folder may be gone
    /// afterwards.
    bool Remove(MessageFolder& folder);

    /// Whether a folder, with all that is in it, can go under another one: the user made it, and the other
    /// one takes folders or is the trash can, hasn't got it already and doesn't lie in it.
    bool MayMove(const MessageFolder& folder, const MessageFolder& under) const;

    /// Puts it there if it can go there.
    bool Move(MessageFolder& folder, MessageFolder& under);

    /// Destroys all that is in the trash can if the user says Yes.
    bool CleanTrash();

    /// Whether messages may go from one folder to the other; if not, the user has been told.
    bool MayTransfer(const MessageFolder& from, const MessageFolder& to, bool move);

    /// Whether the user wants to delete these messages, which must be in the folder. One whose content can't
    /// be decoded goes alone: among several it is left out.
    bool ConfirmDelete(const MessageFolder& folder, std::vector<SmsRecord*>& records);

private:
    const MessageTree tree_;
    UserInteraction& user_;
    MessageKeeper& keeper_;
    const bool asksAboutTrash_;
};

}  // namespace tarnbridge
