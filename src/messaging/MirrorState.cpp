#include "messaging/MirrorState.h"

#include <fmt/format.h>

#include "core/base/StringTable.h"
#include "messaging/SmsTimestamp.h"
#include "platform/Text.h"

namespace tarnbridge {

std::u16string MirrorState::Words(unsigned sessionNow, const LocalTime& now) const {
    const bool old = IsOld(sessionNow);
    if (!read || (whole && !old)) return {};
    const bool today = readAt.year == now.year && readAt.month == now.month && readAt.day == now.day;
    const std::string moment = today ? fmt::format("{:02}:{:02}", readAt.hour, readAt.minute)
                                     : SmsTimestamp::FromLocal(readAt).ToText();
    const Word word = !old ? Word::MirrorPartly : refuted ? Word::MirrorRefuted : Word::MirrorOld;
    return tarnbridge::Words(word, {WidenBytes(moment)});
}

}  // namespace tarnbridge
