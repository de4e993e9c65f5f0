// The import of a message file; what it takes is written and read again.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "messaging/MessageTextFile.h"
#include "messaging/RecordText.h"
#include "messaging/ems/Ems.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace tarnbridge;
    static const EmsResult ready = EmsInit(uint8_t{0});
    if (ready != EmsResult::Done) std::abort();
    const auto read = [](const std::string& file, std::vector<std::unique_ptr<SmsRecord>>& records) {
        std::istringstream in(file);
        return ReadMessageText(in, 60, [&](auto record) { records.push_back(std::move(record)); });
    };
    std::vector<std::unique_ptr<SmsRecord>> records;
    if (!read({reinterpret_cast<const char*>(data), size}, records)) return 0;
    std::erase_if(records, [](const auto& record) { return MessageLineOf(*record).empty(); });
    std::vector<const SmsRecord*> pointers;
    for (const auto& record : records)
        pointers.push_back(record.get());
    std::string file;
    WriteMessageText(pointers, [&](std::string_view piece) { return file += piece, true; });
    std::vector<std::unique_ptr<SmsRecord>> again;
    const auto result = read(file, again);
    if (!result || result->refused != 0 || again.size() != records.size()) std::abort();
    for (size_t i = 0; i < records.size(); ++i) {
        std::u16string text = ShownText(*records[i]);
        std::erase(text, u'\r');  // which isn't written
        if (ShownText(*again[i]) != text || again[i]->dcs != records[i]->dcs) std::abort();
    }
    return 0;
}
