#pragma once

#include "messaging/FolderNode.h"
#include "phonebook/Contact.h"

namespace tarnbridge {

/// A folder of contacts: on the PC, the mirror of the handset's phonebook, or that of a desktop address book.
using ContactFolder = FolderNode<Contact>;

}  // namespace tarnbridge
