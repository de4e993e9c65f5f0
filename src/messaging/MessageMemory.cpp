#include "messaging/MessageMemory.h"

#include <algorithm>

#include <fmt/format.h>

#include "link/HandsetLink.h"
#include "link/WireText.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr const char* prefix = "+CPMS";

void Note(const ATResult& result, Refusal* refusal) {
    if (refusal) *refusal = {result.status == ATResult::Final, result.ErrorNumber()};
}

/// Selects all three under the caller's lock; `current` is what is selected for reading then.
bool Select(HandsetLink& link, const MemorySelection& names, const std::u16string& current,
            Refusal* refusal = nullptr) {
    ATResult result;
    result.prefix = prefix;
    const bool done =
        link.ExecCheckOk(fmt::format("AT+CPMS=\"{}\", \"{}\", \"{}\"\r", names[0], names[1], names[2]),
                         link.commandTimeout, result, true) &&
        result.HasPrefix(prefix);
    link.State().currentMessageStore = done ? current : std::u16string();
    Note(result, refusal);
    return done;
}

}  // namespace

bool SelectMessageMemory(HandsetLink& link, std::u16string_view name, bool force, Refusal* refusal) {
    const auto guard = link.Lock();
    const std::u16string wanted(name);
    if (!force && link.State().currentMessageStore == wanted) return true;
    const std::string narrow = WideToNarrow(wanted, false);
    return Select(link, {narrow, narrow, narrow}, wanted, refusal);
}

bool QueryMessageMemory(HandsetLink& link, std::u16string_view name, MemoryUsage& usage, Refusal* refusal) {
    const auto guard = link.Lock();
    ATResult result;
    result.prefix = prefix;
    const std::string narrow = WideToNarrow(std::u16string(name), false);
    if (!link.ExecCheckOk(fmt::format("AT+CPMS=\"{}\"\r", narrow), link.commandTimeout, result, true) ||
        !result.HasPrefix(prefix)) {
        Note(result, refusal);
        return false;
    }
    usage = {std::max(0, result.GetNumber(0, 2)), std::max(0, result.GetNumber(0, 1))};
    SelectMessageMemory(link, u"ME", true);
    return true;
}

bool GetMessageMemories(HandsetLink& link, MemorySelection& names) {
    ATResult result;
    result.prefix = prefix;
    if (!link.ExecCheckOk("AT+CPMS?\r", link.commandTimeout, result, true)) return false;
    for (size_t i = 0; i < names.size(); ++i) {
        if (!result.GetString(names[i], 0, 1 + 3 * static_cast<int>(i))) return false;
    }
    return true;
}

bool RestoreMessageMemories(HandsetLink& link, const MemorySelection& names) {
    const auto guard = link.Lock();
    return Select(link, names, WidenBytes(names[0]));
}

}  // namespace tarnbridge
