#include "simulator/HandsetContent.h"

#include <stdexcept>

#include <fmt/format.h>

#include "platform/Text.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

using nlohmann::json;

constexpr const char* formatName = "virtual-handset";
constexpr int formatVersion = 1;
constexpr int largestCapacity = 10'000;
/// Deeper files aren't ours, and writing them back would cost a stack frame a level.
constexpr int deepestNesting = 100;

/// What is wrong with a state file. Doesn't leave this file.
class BadState : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One object of the file, named for the messages. Keys that are taken leave it; what stays is unknown.
class Reader {
public:
    Reader(json object, std::string where) : object_(std::move(object)), where_(std::move(where)) {
        if (!object_.is_object()) throw BadState(where_ + " isn't an object");
    }

    std::string Text(const char* key, std::string otherwise) {
        const auto value = Take(key);
        if (!value) return otherwise;
        if (!value->is_string()) throw BadState(fmt::format("{} of {} isn't a text", key, where_));
        return value->get<std::string>();
    }

    bool Flag(const char* key, bool otherwise) {
        const auto value = Take(key);
        if (!value) return otherwise;
        if (!value->is_boolean()) throw BadState(fmt::format("{} of {} isn't true or false", key, where_));
        return value->get<bool>();
    }

    int Number(const char* key, std::optional<int> otherwise, int lowest, int highest) {
        const auto value = Take(key);
        if (!value && otherwise) return *otherwise;
        if (!value || !value->is_number_integer() || *value < lowest || *value > highest) {
            throw BadState(
                fmt::format("{} of {} isn't a number from {} to {}", key, where_, lowest, highest));
        }
        return value->get<int>();
    }

    Reader Object(const char* key) {
        auto value = Take(key);
        return {value ? std::move(*value) : json::object(), fmt::format("{} of {}", key, where_)};
    }

    std::vector<Reader> Objects(const char* key) {
        auto value = Take(key);
        std::vector<Reader> objects;
        if (!value) return objects;
        if (!value->is_array()) throw BadState(fmt::format("{} of {} isn't a list", key, where_));
        for (json& item : *value) {
            objects.emplace_back(std::move(item), fmt::format("{}[{}] of {}", key, objects.size(), where_));
        }
        return objects;
    }

    const std::string& Where() const { return where_; }
    json Rest() { return std::move(object_); }

private:
    std::optional<json> Take(const char* key) {
        const auto found = object_.find(key);
        if (found == object_.end()) return std::nullopt;
        json value = std::move(*found);
        object_.erase(found);
        return value;
    }

    json object_;
    std::string where_;
};

MessageMemory ReadMessages(Reader reader) {
    MessageMemory memory;
    memory.capacity = reader.Number("capacity", std::nullopt, 0, largestCapacity);
    for (Reader& item : reader.Objects("items")) {
        StoredMessage message;
        const int location = item.Number("location", std::nullopt, 1, memory.capacity);
        message.stat = item.Number("stat", std::nullopt, 0, 7);
        message.pdu = item.Text("pdu", "");
        if (message.pdu.empty() || !BytesOfHex(message.pdu)) {
            throw BadState("pdu of " + item.Where() + " isn't upper-case hex");
        }
        message.other = item.Rest();
        if (!memory.items.emplace(location, std::move(message)).second) {
            throw BadState("location of " + item.Where() + " is there twice");
        }
    }
    memory.other = reader.Rest();
    return memory;
}

ContactStorage ReadContacts(Reader reader) {
    ContactStorage storage;
    storage.capacity = reader.Number("capacity", std::nullopt, 0, largestCapacity);
    storage.numberLength = reader.Number("numberLength", storage.numberLength, 1, 255);
    storage.nameLength = reader.Number("nameLength", storage.nameLength, 1, 255);
    for (Reader& item : reader.Objects("items")) {
        StoredContact contact;
        const int slot = item.Number("slot", std::nullopt, 1, storage.capacity);
        contact.number = item.Text("number", "");
        if (contact.number.find_first_not_of("+0123456789*#pwPW") != std::string::npos) {
            throw BadState("number of " + item.Where() + " can't be dialled");
        }
        contact.name = Utf8ToText(item.Text("name", ""));
        contact.other = item.Rest();
        if (!storage.items.emplace(slot, std::move(contact)).second) {
            throw BadState("slot of " + item.Where() + " is there twice");
        }
    }
    storage.other = reader.Rest();
    return storage;
}

json WriteMessages(const MessageMemory& memory) {
    json object = memory.other;
    object["capacity"] = memory.capacity;
    json& items = object["items"] = json::array();
    for (const auto& [location, message] : memory.items) {
        json item = message.other;
        item["location"] = location;
        item["stat"] = message.stat;
        item["pdu"] = message.pdu;
        items.push_back(std::move(item));
    }
    return object;
}

json WriteContacts(const ContactStorage& storage) {
    json object = storage.other;
    object["capacity"] = storage.capacity;
    object["numberLength"] = storage.numberLength;
    object["nameLength"] = storage.nameLength;
    json& items = object["items"] = json::array();
    for (const auto& [slot, contact] : storage.items) {
        json item = contact.other;
        item["slot"] = slot;
        item["number"] = contact.number;
        item["name"] = TextToUtf8(contact.name);
        items.push_back(std::move(item));
    }
    return object;
}

Identity ReadIdentity(Reader reader) {
    Identity identity;
    identity.maker = reader.Text("maker", identity.maker);
    identity.model = reader.Text("model", identity.model);
    identity.revision = reader.Text("revision", identity.revision);
    identity.imei = reader.Text("imei", identity.imei);
    identity.imsi = reader.Text("imsi", identity.imsi);
    identity.ownNumber = reader.Text("ownNumber", identity.ownNumber);
    identity.serviceCentre = reader.Text("serviceCentre", identity.serviceCentre);
    identity.operatorName = reader.Text("operator", identity.operatorName);
    identity.other = reader.Rest();
    return identity;
}

json WriteIdentity(const Identity& identity) {
    json object = identity.other;
    object["maker"] = identity.maker;
    object["model"] = identity.model;
    object["revision"] = identity.revision;
    object["imei"] = identity.imei;
    object["imsi"] = identity.imsi;
    object["ownNumber"] = identity.ownNumber;
    object["serviceCentre"] = identity.serviceCentre;
    object["operator"] = identity.operatorName;
    return object;
}

Features ReadFeatures(Reader reader) {
    Features features;
    features.storeQuery = reader.Text("storeQuery", features.storeQuery);
    features.emptyIsOk = reader.Flag("emptyIsOk", features.emptyIsOk);
    features.channelMode = reader.Number("channelMode", features.channelMode, -1, 9);
    features.packedUcs2 = reader.Flag("packedUcs2", features.packedUcs2);
    features.fileCount = reader.Flag("fileCount", features.fileCount);
    features.vcard = reader.Flag("vcard", features.vcard);
    features.chunkSize = reader.Number("chunkSize", features.chunkSize, 1, 65'536);
    features.escapeEndsPrompt = reader.Flag("escapeEndsPrompt", features.escapeEndsPrompt);
    features.simInserted = reader.Flag("simInserted", features.simInserted);
    features.other = reader.Rest();
    return features;
}

json WriteFeatures(const Features& features) {
    json object = features.other;
    object["storeQuery"] = features.storeQuery;
    object["emptyIsOk"] = features.emptyIsOk;
    object["channelMode"] = features.channelMode;
    object["packedUcs2"] = features.packedUcs2;
    object["fileCount"] = features.fileCount;
    object["vcard"] = features.vcard;
    object["chunkSize"] = features.chunkSize;
    object["escapeEndsPrompt"] = features.escapeEndsPrompt;
    object["simInserted"] = features.simInserted;
    return object;
}

HandsetContent ReadContent(json document) {
    Reader reader(std::move(document), "the state");
    if (reader.Text("format", "") != formatName) throw BadState("it isn't the state of a virtual handset");
    if (reader.Number("version", 0, 0, INT32_MAX) != formatVersion) throw BadState("its version isn't known");
    HandsetContent content;
    content.identity = ReadIdentity(reader.Object("identity"));
    content.features = ReadFeatures(reader.Object("features"));
    Reader messages = reader.Object("messages");
    content.simMessages = ReadMessages(messages.Object("SM"));
    content.phoneMessages = ReadMessages(messages.Object("ME"));
    Reader contacts = reader.Object("contacts");
    content.simContacts = ReadContacts(contacts.Object("SM"));
    content.phoneContacts = ReadContacts(contacts.Object("ME"));
    content.other = reader.Rest();
    content.other["messages"] = messages.Rest();
    content.other["contacts"] = contacts.Rest();
    return content;
}

}  // namespace

int MessageMemory::Free() const {
    int location = 1;
    while (items.contains(location))
        ++location;
    return location <= capacity ? location : 0;
}

HandsetContent HandsetContent::Empty() {
    HandsetContent content;
    content.simMessages.capacity = 25;
    content.phoneMessages.capacity = 200;
    content.simContacts.capacity = 100;
    content.simContacts.numberLength = 20;
    content.phoneContacts.capacity = 250;
    content.phoneContacts.nameLength = 30;
    return content;
}

Result<HandsetContent> HandsetContent::FromJson(std::string_view text) {
    try {
        const auto watchDepth = [](int depth, json::parse_event_t, json&) {
            if (depth > deepestNesting) throw BadState("it is nested too deep");
            return true;
        };
        return ReadContent(json::parse(text, watchDepth));
    } catch (const BadState& bad) {
        return SystemFailure{0, bad.what()};
    } catch (const json::exception& bad) {
        return SystemFailure{0, bad.what()};
    }
}

std::string HandsetContent::ToJson() const {
    json document = other;
    document["format"] = formatName;
    document["version"] = formatVersion;
    document["identity"] = WriteIdentity(identity);
    document["features"] = WriteFeatures(features);
    document["messages"]["SM"] = WriteMessages(simMessages);
    document["messages"]["ME"] = WriteMessages(phoneMessages);
    document["contacts"]["SM"] = WriteContacts(simContacts);
    document["contacts"]["ME"] = WriteContacts(phoneContacts);
    return document.dump(1, ' ', false, json::error_handler_t::replace) + "\n";
}

MessageMemory* HandsetContent::Messages(std::string_view name) {
    if (name == "SM" && simInserted && simMessages.capacity > 0) return &simMessages;
    if (name == "ME" && phoneMessages.capacity > 0) return &phoneMessages;
    return nullptr;
}

const MessageMemory* HandsetContent::Messages(std::string_view name) const {
    if (name == "SM" && simInserted && simMessages.capacity > 0) return &simMessages;
    if (name == "ME" && phoneMessages.capacity > 0) return &phoneMessages;
    return nullptr;
}

ContactStorage* HandsetContent::Contacts(std::string_view name) {
    if (name == "SM" && simInserted && simContacts.capacity > 0) return &simContacts;
    if (name == "ME" && phoneContacts.capacity > 0) return &phoneContacts;
    return nullptr;
}

int HandsetContent::Add(std::string_view memory, int stat, std::string pdu) {
    MessageMemory* const wanted = Messages(memory);
    const int location = wanted == nullptr ? 0 : wanted->Free();
    if (location != 0) {
        StoredMessage& message = wanted->items[location];
        message.stat = stat;
        message.pdu = std::move(pdu);
    }
    return location;
}

}  // namespace tarnbridge::simulator
