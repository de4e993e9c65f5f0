#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "phonebook/Contact.h"

namespace tarnbridge {

/// The vCard (2.1, a subset) in which the details of a contact travel to the handset. Lines end in CR LF. A
/// birthday is left out only if it is 1 January 1900: one that isn't set goes out as zeros.
std::string HandsetVcardOf(const Contact& contact, const CodePage& page = CodePage::System());

/// The same into a file; false when it can't be written.
bool WriteHandsetVcard(const Contact& contact, const std::filesystem::path& path,
                       const CodePage& page = CodePage::System());

/// Fills the details of a contact from the handset's vCard and sets detailsLoaded; name and mobile number
/// come another way. False, with nothing changed, when the bytes don't begin with "BEGIN:VCARD". Keys are
/// found wherever they first stand, at the start of a line or not, and nothing is unescaped. Of each block of
/// 256 bytes what follows a zero byte is lost.
bool ParseHandsetVcard(Contact& contact, std::string_view bytes, const CodePage& page = CodePage::System());

/// The same from a file; false too when it can't be read.
bool ReadHandsetVcard(Contact& contact, const std::filesystem::path& path,
                      const CodePage& page = CodePage::System());

}  // namespace tarnbridge
