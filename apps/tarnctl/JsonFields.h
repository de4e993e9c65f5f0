#pragma once

#include <string>
#include <string_view>

#include "tarnctl/Output.h"

namespace tarnbridge {

/// The JSON object of a line. Throws std::invalid_argument, with words for the user, on anything else, and on
/// an object with the field `error`, which tells that another verb couldn't read what it stands for.
Json ObjectOfLine(std::string_view line);

/// A whole number from 0 to `largest`, or `otherwise` where the object hasn't the field. Throws
/// std::invalid_argument, with words for the user, on anything else.
int NumberIn(const Json& object, const char* name, int otherwise, int largest);

/// The same for a text in UTF-8, for true or false, and for an object, which must be there.
std::string TextIn(const Json& object, const char* name, const char* otherwise = "");
bool FlagIn(const Json& object, const char* name, bool otherwise = false);
const Json& ObjectIn(const Json& object, const char* name);

/// The octets of hexadecimal digits of either case. Throws std::invalid_argument, with words that call them
/// `name`, on anything else.
std::string OctetsOfHex(std::string_view hex, std::string_view name);

}  // namespace tarnbridge
