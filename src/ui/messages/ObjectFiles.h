#pragma once

#include <QString>
#include <filesystem>
#include <optional>

#include "messaging/MessageObject.h"

namespace tarnbridge {

/// What a file gives for a message: an object, or the words for why it gives none.
struct ObjectFile {
    std::optional<MessageObject> object{};
    QString fault{};
};

/// A wireless bitmap or an .EMS file.
ObjectFile ReadPictureFile(const std::filesystem::path& path);

/// An iMelody file.
ObjectFile ReadMelodyFile(const std::filesystem::path& path);

}  // namespace tarnbridge
