// The PDU reader over hexadecimal text, one PDU a line; what it reads is written and read again, and all of
// it is joined, of which nothing may get lost.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "messaging/Arrival.h"
#include "messaging/JoinParts.h"
#include "messaging/RecordText.h"

namespace {

using namespace tarnbridge;

void WriteAndReadAgain(SmsRecord record) {
    record.timestamp.ToText();
    ShownText(record);
    KeepAsSent(record);
    std::string hex;
    record.encodeDeliver(hex);
    if (record.serviceCentreLength() > static_cast<int>(hex.size() / 2)) std::abort();
    record.encodeSubmit(hex);
    if (!record.decode(hex)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    SmsRecordList records;
    for (int location = 1; !rest.empty(); ++location) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        auto record = std::make_unique<SmsRecord>();
        if (!record->decode(line)) continue;
        WriteAndReadAgain(*record);
        record->handsetIndices = {location};
        record->handsetPdus = {std::string(line)};
        records.push_back(std::move(record));
    }
    const size_t count = records.size();
    JoinParts(records);
    size_t locations = 0;
    for (const auto& record : records) {
        if (record->handsetIndices.size() != record->handsetPdus.size()) std::abort();
        if (record->PartCount() > record->handsetIndices.size()) std::abort();
        locations += record->handsetIndices.size();
    }
    if (locations != count) std::abort();
    return 0;
}
