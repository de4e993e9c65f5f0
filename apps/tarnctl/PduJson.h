#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "messaging/SmsRecord.h"
#include "tarnctl/Output.h"

namespace tarnbridge {

/// A time as ISO 8601 writes it, with its zone unless that is beyond 14 hours.
std::string IsoTime(const SmsTimestamp& time);

/// A message as the JSON object of `pdu decode`, without `truncated`. The field `data`, in hexadecimal,
/// stands beside the text of 8-bit data. `segments` is the user data of its parts as `ems decode` takes it.
Json SmsToJson(const SmsRecord& record);

/// The reverse. False, with the reason in `error`, if a field has the wrong type or an impossible value.
/// Only `number` is required; without `dcs` the coding is UCS2 where the GSM alphabet can't carry the text.
/// Letters that the coding can't carry are named. A `header` is taken before `concat`, and `data` before
/// `text`.
bool SmsFromJson(const Json& object, SmsRecord& record, std::string& error);

/// A line of `pdu decode`: the object of a hexadecimal PDU with its TP-SCA, or one with the field `error`.
Json DecodePduLine(std::string_view line, Clock& clock);

/// A line of `pdu encode`: the PDU of a JSON object. False, with the reason in `error`, if there is none.
bool EncodePduLine(std::string_view line, std::string& hexText, std::string& error);

/// `sms join`: an object for each message out of PDUs, one a line, with `parts`, the numbers of its lines
/// from 1, those of exact doubles last. Only the parts of long messages are held until all is read, as
/// octets.
class PduJoiner {
public:
    explicit PduJoiner(Clock& clock) : clock_(clock) {}

    /// What the next line gives by itself: a message of one part, or the fields `line` and `error` where it
    /// can't be decoded.
    std::optional<Json> Take(std::string_view line);

    /// Hands over the long messages, in the order of the first line of their senders and references.
    void Finish(const std::function<void(const Json& message)>& put);

private:
    struct Held {
        uint32_t group;
        uint32_t line;
        std::string octets;
    };

    Clock& clock_;
    uint32_t lines_ = 0;
    std::unordered_map<std::string, uint32_t> groups_;  ///< by JoinKey
    std::vector<Held> held_;
};

}  // namespace tarnbridge
