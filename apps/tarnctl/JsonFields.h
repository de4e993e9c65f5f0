#pragma once

#include "tarnctl/Output.h"

namespace tarnbridge {

/// A whole number from 0 to `largest`, or `otherwise` where the object hasn't the field. Throws
/// std::invalid_argument, with words for the user, on anything else.
int NumberIn(const Json& object, const char* name, int otherwise, int largest);

}  // namespace tarnbridge
