#include "tarnctl/JsonFields.h"

#include <stdexcept>

#include <fmt/format.h>

namespace tarnbridge {

int NumberIn(const Json& object, const char* name, int otherwise, int largest) {
    if (!object.is_object()) throw std::invalid_argument(fmt::format("no object holds {}", name));
    if (!object.contains(name)) return otherwise;
    const auto& value = object.at(name);
    if (!value.is_number_integer() || value < 0 || value > largest)
        throw std::invalid_argument(fmt::format("{} isn't a number from 0 to {}", name, largest));
    return value.get<int>();
}

}  // namespace tarnbridge
