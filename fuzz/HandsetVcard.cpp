// The reader of the handset's vCard; what it reads is written and read again.

#include "phonebook/HandsetVcard.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    tarnbridge::Contact contact;
    if (!ParseHandsetVcard(contact, {reinterpret_cast<const char*>(data), size})) return 0;
    if (!ParseHandsetVcard(contact, HandsetVcardOf(contact))) std::abort();
    return 0;
}
