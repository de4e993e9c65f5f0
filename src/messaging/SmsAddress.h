#pragma once

#include <string>
#include <string_view>

#include "messaging/PduBuffer.h"

namespace tarnbridge {

/// A telephone number or the name of a sender, with the type of number and the numbering plan of 3GPP
/// TS 23.040, 9.1.2.5.
struct SmsAddress {
    static constexpr int unknown = 0;
    static constexpr int international = 1;
    static constexpr int alphanumeric = 5;

    SmsAddress() = default;

    /// Takes the blanks out of `text`. A character other than a digit, `+`, `*`, `#`, `p` or `w`, a blank
    /// among them, makes the type alphanumeric; a leading `+` makes it international, and an international
    /// number without one gets it.
    SmsAddress(std::string_view text, int proposedType);

    bool operator==(const SmsAddress&) const = default;

    int type = unknown;
    int plan = 1;
    std::string number;  ///< with its leading `+` if it is international
};

/// TP-SCA as it stands in front of a PDU: the length counts octets, and nothing follows that of no number.
void WriteServiceCentre(PduBuffer& buffer, const SmsAddress& address);
SmsAddress ReadServiceCentre(PduBuffer& buffer);

/// TP-OA or TP-DA (3GPP TS 23.040, 9.1.2.5): the length counts semi-octets, of letters those that aren't fill
/// bits alone.
void WriteAddress(PduBuffer& buffer, const SmsAddress& address);
SmsAddress ReadAddress(PduBuffer& buffer);

}  // namespace tarnbridge
