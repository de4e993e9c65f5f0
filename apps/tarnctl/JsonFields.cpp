#include "tarnctl/JsonFields.h"

#include <charconv>
#include <stdexcept>

#include <fmt/format.h>

namespace tarnbridge {
namespace {

/// Null where the object hasn't the field.
const Json* FieldOf(const Json& object, const char* name) {
    if (!object.is_object()) throw std::invalid_argument(fmt::format("no object holds {}", name));
    const auto field = object.find(name);
    return field == object.end() ? nullptr : &*field;
}

}  // namespace

Json ObjectOfLine(std::string_view line) {
    Json object = Json::parse(line, nullptr, false);
    if (!object.is_object()) throw std::invalid_argument("not a JSON object");
    if (object.contains("error")) {
        const Json& error = object.at("error");
        throw std::invalid_argument(error.is_string() ? error.get<std::string>() : error.dump());
    }
    return object;
}

int NumberIn(const Json& object, const char* name, int otherwise, int largest) {
    const Json* const value = FieldOf(object, name);
    if (!value) return otherwise;
    if (!value->is_number_integer() || *value < 0 || *value > largest)
        throw std::invalid_argument(fmt::format("{} isn't a number from 0 to {}", name, largest));
    return value->get<int>();
}

std::string TextIn(const Json& object, const char* name, const char* otherwise) {
    const Json* const value = FieldOf(object, name);
    if (!value) return otherwise;
    if (!value->is_string()) throw std::invalid_argument(fmt::format("{} isn't a text", name));
    return value->get<std::string>();
}

bool FlagIn(const Json& object, const char* name, bool otherwise) {
    const Json* const value = FieldOf(object, name);
    if (!value) return otherwise;
    if (!value->is_boolean()) throw std::invalid_argument(fmt::format("{} isn't true or false", name));
    return value->get<bool>();
}

const Json& ObjectIn(const Json& object, const char* name) {
    const Json* const value = FieldOf(object, name);
    if (!value || !value->is_object()) throw std::invalid_argument(fmt::format("{} isn't an object", name));
    return *value;
}

std::string OctetsOfHex(std::string_view hex, std::string_view name) {
    std::string octets(hex.size() / 2, '\0');
    bool good = hex.size() % 2 == 0;
    for (size_t i = 0; i < octets.size(); ++i) {
        const char* const start = hex.data() + i * 2;
        unsigned value = 0;
        good = good && std::from_chars(start, start + 2, value, 16).ptr == start + 2;
        octets[i] = static_cast<char>(value);
    }
    if (!good) throw std::invalid_argument(fmt::format("{} isn't hexadecimal", name));
    return octets;
}

}  // namespace tarnbridge
