#include "tarnctl/MessageJson.h"

#include <algorithm>

#include <fmt/format.h>

#include "messaging/ConcatHeader.h"
#include "messaging/RecordText.h"
#include "messaging/ShownMessage.h"
#include "platform/CodePage.h"
#include "platform/Text.h"
#include "tarnctl/EmsJson.h"
#include "tarnctl/PduJson.h"

namespace tarnbridge {
namespace {

const char* WordOf(int status) {
    switch (status) {
        case smsUnread:
            return "unread";
        case smsRead:
            return "read";
        case smsSent:
        case smsSentFromHere:
            return "sent";
        case smsOutbox:
            return "outbox";
        case smsComposed:
            return "composed";
        default:
            return "draft";
    }
}

std::string Places(const Json& message) {
    if (message.contains("number"))
        return fmt::format("{} {}", message.at("folder").get<std::string>(),
                           message.at("number").get<size_t>());
    std::string places;
    for (const Json& location : message.at("locations"))
        places += fmt::format("{}{}", places.empty() ? "" : ",", location.get<int>());
    return fmt::format("{} {}", message.at("memory").get<std::string>(), places);
}

std::string TextOf(const Json& message) {
    return message.at(message.contains("unreadable") ? "unreadable" : "text").get<std::string>();
}

/// What the text doesn't tell.
std::string Remarks(const Json& message) {
    std::string remarks;
    if (message.contains("unreadable")) remarks += " [unreadable]";
    if (message.at("parts") != message.at("partsTotal"))
        remarks += fmt::format(" [{} of {} parts]", message.at("parts").get<size_t>(),
                               message.at("partsTotal").get<size_t>());
    for (const Json& object : message.at("objects"))
        remarks += fmt::format(" [{}]", object.at("kind").get<std::string>());
    return remarks;
}

}  // namespace

Json MessageToJson(const SmsRecord& record, const std::string& folder, size_t number) {
    SmsRecord copy = record;
    std::u16string text;
    Json objects = Json::array();
    if (!record.unreadable && copy.EnsureEmsMessage()) {
        text = ShownMessage(*copy.emsMessage.Get()).Text();
        objects = ObjectsToJson(*copy.emsMessage.Get());
        std::erase(text, objectCharacter);
    } else if (!record.unreadable) {
        text = ShownText(record);
    }
    const auto concat = FindConcat(record.userDataHeader);
    const size_t parts = record.PartCount();
    Json json = {{"folder", folder},
                 {"memory", TextToUtf8(record.storage)},
                 {"locations", number == 0 ? Json(record.handsetIndices) : Json::array()},
                 {"status", record.status},
                 {"address", TextToUtf8(CodePage::System().ToText(record.address.number))},
                 {"text", TextToUtf8(text)},
                 {"dcs", record.dcs},
                 {"parts", parts},
                 {"partsTotal", std::max<size_t>(parts, concat ? static_cast<size_t>(concat->total) : 1)},
                 {"objects", objects}};
    if (record.timestamp.IsDate()) json["time"] = IsoTime(record.timestamp);
    if (record.unreadable) json["unreadable"] = TextToUtf8(WidenBytes(*record.unreadable));
    if (number != 0) json["number"] = number;
    return json;
}

std::string MessageToLine(const Json& message) {
    std::string text = TextOf(message);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return fmt::format("{:<12} {:<7} {:<8} {:<17} {:<16.16} {}{}", Places(message),
                       message.contains("number") ? "" : message.at("folder").get<std::string>(),
                       WordOf(message.at("status").get<int>()), message.at("address").get<std::string>(),
                       message.value("time", ""), text, Remarks(message));
}

std::string MessageToPage(const Json& message) {
    return fmt::format("{}{}  {}\n{}  {}{}\n\n{}", Places(message),
                       message.contains("number") ? "" : "  " + message.at("folder").get<std::string>(),
                       WordOf(message.at("status").get<int>()), message.at("address").get<std::string>(),
                       message.value("time", ""), Remarks(message), TextOf(message));
}

}  // namespace tarnbridge
