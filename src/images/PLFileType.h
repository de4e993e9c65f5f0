#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace tarnbridge {

/// The types of picture files that are recognised.
enum class PLFileType : int {
    Unknown = 0,
    Bmp = 1,
    Pict = 2,
    Tga = 3,
    Tiff = 4,
    Jpeg = 5,
    Png = 6,
    EpsPreview = 7,  ///< a TIFF inside an EPS file
    Wmf = 8,
    Emf = 9,
    Pcx = 10,
    Pgm = 11,
    Gif = 12,
    Ppm = 13,
    Psd = 14,
    Wbmp = 15,
    Ems = 16,
};

/// .WMF, .EMF, .WBMP or .EMS anywhere in the last component of the name, in this order and any letter case,
/// decides; otherwise the content does, of which the first 541 bytes are enough.
PLFileType RecognisePicture(const std::filesystem::path& name, std::span<const uint8_t> content);

}  // namespace tarnbridge
