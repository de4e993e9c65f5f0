// The reader of the vCards of desktop address books, over UTF-8 and over units as they come.

#include "phonebook/DesktopVcard.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "platform/Text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    tarnbridge::ImportDesktopVcards(tarnbridge::Utf8ToText({reinterpret_cast<const char*>(data), size}));
    std::u16string units(size / 2, u'\0');
    if (!units.empty()) std::memcpy(units.data(), data, units.size() * 2);
    tarnbridge::ImportDesktopVcards(units);
    return 0;
}
