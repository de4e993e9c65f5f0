#pragma once

#include <string>
#include <string_view>
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
/// Only `number` is required. A `header` is taken before `concat`, and `data` before `text`.
bool SmsFromJson(const Json& object, SmsRecord& record, std::string& error);

/// A line of `pdu decode`: the object of a hexadecimal PDU with its TP-SCA, or one with the field `error`.
Json DecodePduLine(std::string_view line, Clock& clock);

/// A line of `pdu encode`: the PDU of a JSON object. False, with the reason in `error`, if there is none.
bool EncodePduLine(std::string_view line, std::string& hexText, std::string& error);

/// `sms join`: an object for each message out of the PDUs, one a line, with `parts`, the numbers of its lines
/// from 1. A line that can't be decoded gives an object with `line` and `error`, in front.
std::vector<Json> JoinPduLines(const std::vector<std::string>& lines, Clock& clock);

}  // namespace tarnbridge
