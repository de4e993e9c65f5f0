// The PDU reader over hexadecimal text; what it reads is written and read again.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "messaging/SmsRecord.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    tarnbridge::SmsRecord record;
    if (!record.decode({reinterpret_cast<const char*>(data), size})) return 0;
    record.timestamp.ToText();
    record.ConcatKey();
    std::string hex;
    record.encodeDeliver(hex);
    if (record.serviceCentreLength() > static_cast<int>(hex.size() / 2)) std::abort();
    record.encodeSubmit(hex);
    if (!record.decode(hex)) std::abort();
    return 0;
}
