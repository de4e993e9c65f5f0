#pragma once

#include <cstdint>

namespace tarnbridge {

/// What a folder is, as the first field of that name says.
enum FolderKind : uint32_t {
    handsetFolder = 0,
    pcFolder = 1,
    trashFolder = 2,
    addressBookFolder = 5,  ///< filled from a desktop address book
    madeByUser = 8,
};

/// What the tree knows of a folder beside its name. Every field is kept through a load and a save, also those
/// that nothing here reads.
struct FolderAttributes {
    bool operator==(const FolderAttributes&) const = default;

    /// Those of a folder that the user makes under a folder with these.
    FolderAttributes OfUserFolder() const {
        FolderAttributes made = *this;
        made.folderKind = madeByUser;
        made.imageIndex = madeByUser;
        made.allowsSubfolders = 1;
        made.userFolder = 1;
        return made;
    }

    uint32_t systemKind = 0;
    uint32_t readOnly = 0;  ///< 1: nothing may be pasted, created or deleted
    uint32_t folderKind = handsetFolder;
    uint32_t imageIndex = 0;       ///< the picture in the tree
    uint8_t allowsSubfolders = 0;  ///< 1: "New Folder" is possible here
    uint8_t userFolder = 0;        ///< 1: may be renamed and deleted
    uint8_t flag2 = 0;
    uint8_t flag3 = 0;
    uint8_t flag4 = 0;
};

}  // namespace tarnbridge
