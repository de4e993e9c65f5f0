#pragma once

#include <string>
#include <vector>

#include "dialup/ConnectionEntry.h"
#include "messaging/MessageFolder.h"
#include "phonebook/ContactFolder.h"

namespace tarnbridge {

/// The document: what the user keeps on the PC, with mirrors of what others keep. The first folder below the
/// root of each tree is the handset's, the second the PC's. The folders have locks of their own; all else
/// belongs to the interface thread.
struct Profile {
    MessageFolder messageRoot;
    ContactFolder contactRoot;
    bool lotusNotesOn = false;  ///< these address books are shown
    bool outlookOn = false;
    bool outlookExpressOn = false;
    std::u16string lotusNotesPath;
    std::vector<ConnectionEntry> connections;
};

/// What of a folder mirrors the handset or an address book, and so isn't stored.
struct Mirrored {
    bool records = false;
    bool children = false;
};

/// Takes the locks of the folder and of its root, one after the other.
Mirrored MirroredIn(const MessageFolder& folder);
Mirrored MirroredIn(const ContactFolder& folder);

/// Destroys what the mirrors hold in memory: at the close of the program.
void EmptyMirrors(Profile& profile);

}  // namespace tarnbridge
