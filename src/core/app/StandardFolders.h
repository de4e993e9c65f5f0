#pragma once

#include <string>

#include "core/app/Profile.h"
#include "messaging/FolderPlaces.h"

namespace tarnbridge {

/// The names of the standard folders.
struct FolderNames {
    /// Those in the language of the program.
    static FolderNames OfProgram();

    std::u16string handsetMessages;  ///< "Handset Folder"
    std::u16string pcMessages;       ///< "PC Folder"
    std::u16string inbox;            ///< the folders below both
    std::u16string outbox;
    std::u16string sent;
    std::u16string draft;
    std::u16string personal;  ///< and those below the second alone
    std::u16string messageTrash;
    std::u16string handsetContacts;  ///< "Handset folder"
    std::u16string pcContacts;       ///< "PC folder"
    std::u16string contactTrash;
};

/// After a load, or where there was no file: makes the standard folders that are missing and names all of
/// them, by their place. Attributes stay as they were read; a folder that came without any gets its own. The
/// user's folders aren't touched.
void EnsureStandardFolders(Profile& profile, const FolderNames& names);

}  // namespace tarnbridge
