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

/// An animated GIF of at most four frames of 8 x 8 or 16 x 16 pixels, as the basic animations of 3GPP
/// TS 23.040, 9.2.3.24.10.1.3 and 4 have them. What is darker than half becomes black.
ObjectFile ReadAnimationFile(const std::filesystem::path& path);

/// An iMelody file.
ObjectFile ReadMelodyFile(const std::filesystem::path& path);

}  // namespace tarnbridge
