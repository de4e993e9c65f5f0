#pragma once

#include <string_view>

#include "messaging/ems/EmsMessage.h"
#include "tarnctl/Output.h"

namespace tarnbridge {

// Positions and lengths are in UTF-16 units of the text, which holds its marks (0x1B). EmsInit comes first.

/// The objects of a message but for the text formats, as `ems decode` gives them.
Json ObjectsToJson(const EmsMessage& message);

/// A line of `ems decode`: an object with `dcs`, `hasHeader` and `segments` in hexadecimal, a missing one
/// being null. Gives the content, and `error` with the words of a result other than Done.
Json DecodeEmsLine(std::string_view line);

/// A line of `ems encode`: the reverse. A mark that the text lacks is put in, and positions follow. Gives
/// `dcs`, `hasHeader` and `segments`, or `error`.
Json EncodeEmsLine(std::string_view line);

}  // namespace tarnbridge
