#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "phonebook/Contact.h"

namespace tarnbridge {

/// The contacts of the vCards that a desktop address book hands over, in their order, with the storage "PC".
/// Lines end in LF; one without it at the end isn't read, and one that is nothing else ends the reading, as a
/// BEGIN of something other than VCARD does. Only the keys that the address books write are known. A card
/// without a name and a number gives no contact.
std::vector<std::unique_ptr<Contact>> ImportDesktopVcards(std::u16string_view text,
                                                          const CodePage& page = CodePage::System());

}  // namespace tarnbridge
