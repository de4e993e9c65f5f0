#pragma once

#include <string_view>

#include "core/app/Profile.h"
#include "platform/Files.h"

namespace tarnbridge {

// The profile as one binary stream. Numbers are little-endian, nothing is aligned; WStr and BStr are a u32
// count of units or bytes, with the terminating zero, and these.
//
//   profile     "TARNBRIDGE PROFILE", u32 version 2, u32 reserved 0, Folder of messages, Folder of contacts,
//               u32 lotusNotesOn, u32 outlookOn, u32 outlookExpressOn, WStr lotusNotesPath,
//               u32 connection count, connections of WStr name, WStr operator name, WStr apn
//   Folder      "MFOL", u32 version 1, u32 reserved 0, WStr name, 21 bytes of attributes, u32 record count,
//               records, u32 folder count, Folders
//   attributes  u32 systemKind, readOnly, folderKind, imageIndex; u8 allowsSubfolders, userFolder, flag2 to
//   flag4
//
// The records stand in ProfileRecords. There is no size and no checksum, so a reader can only go on from
// field to field.

/// How far a stream was a profile.
enum class ProfileLoad {
    Foreign,  ///< another kind, another version, or a reserved word that isn't 0: nothing was taken from it
    Damaged,  ///< what could be read was; the rest, or what stands behind the end, was not
    Whole,    ///< all of it was read
};

/// Hands the profile to the sink, piece by piece. The mirrors are written empty and stay in memory as they
/// are. Called on the thread that makes and removes folders; others may change the records of a folder under
/// its lock meanwhile.
void SaveProfile(Profile& profile, const ByteSink& sink);

/// Fills a new profile. A stream that ends early leaves what came before its end. A root with another tag
/// isn't read, and what follows its tag is taken for the next field; a folder with another tag stays empty at
/// its place. Time and memory are bounded by the size of the stream, whatever its counts say.
ProfileLoad LoadProfile(std::string_view stream, Profile& profile);

/// The first bytes of a profile, and of a folder in it.
inline constexpr std::string_view profileMagic = "TARNBRIDGE PROFILE";
inline constexpr std::string_view folderTag = "MFOL";
inline constexpr uint32_t profileVersion = 2;
inline constexpr uint32_t folderVersion = 1;

}  // namespace tarnbridge
