#include "core/app/Profile.h"

namespace tarnbridge {
namespace {

template <typename Folder>
bool IsHandset(const Folder* folder) {
    const Folder* const root = folder ? folder->parent : nullptr;
    return root && !root->parent && root->Child(0) == folder;
}

template <typename Record>
void EmptyMirror(FolderNode<Record>& folder) {
    const Mirrored mirrored = MirroredIn(folder);
    if (mirrored.records) folder.RemoveRecords();
    if (mirrored.children) folder.RemoveChildren();
}

}  // namespace

Mirrored MirroredIn(const MessageFolder& folder) {
    return {.records = IsHandset(folder.parent), .children = false};
}

Mirrored MirroredIn(const ContactFolder& folder) {
    if (IsHandset(&folder)) return {.records = true, .children = true};
    const std::lock_guard guard(folder.lock);
    const bool belowRoot = folder.parent && !folder.parent->parent;
    return {.records = belowRoot && folder.attributes.folderKind == addressBookFolder, .children = false};
}

void EmptyMirrors(Profile& profile) {
    if (const MessageFolder* const handset = profile.messageRoot.Child(0)) {
        for (size_t i = 0; MessageFolder* const folder = handset->Child(i); ++i)
            EmptyMirror(*folder);
    }
    for (size_t i = 0; ContactFolder* const folder = profile.contactRoot.Child(i); ++i)
        EmptyMirror(*folder);
}

}  // namespace tarnbridge
