#include "tarnctl/PduJson.h"

#include <stdexcept>

#include <fmt/format.h>

#include "messaging/ConcatHeader.h"
#include "messaging/GsmAlphabet.h"
#include "messaging/JoinParts.h"
#include "messaging/ReferenceCounters.h"
#include "platform/Text.h"
#include "tarnctl/JsonFields.h"

namespace tarnbridge {
namespace {

constexpr int largestUserData = 140;  // octets, or 160 septets
constexpr const char* validityNames[] = {"none", "enhanced", "relative", "absolute"};

std::string_view Trimmed(std::string_view line) {
    return line.substr(0, line.find_last_not_of(" \t\r\n") + 1);
}

std::string ShownText(const std::u16string& text) {
    std::u16string shown = text;
    std::erase(shown, static_cast<char16_t>(gsmEscape));
    return TextToUtf8(shown);
}

std::string LocalToUtf8(std::string_view local) {
    return TextToUtf8(CodePage::System().ToText(local));
}

Json TimestampToJson(const SmsTimestamp& time) {
    return {{"iso", IsoTime(time)},
            {"year", time.year},
            {"month", time.month},
            {"day", time.day},
            {"hour", time.hour},
            {"minute", time.minute},
            {"second", time.second},
            {"zoneMinutes", time.zoneMinutes},
            {"zonePositive", time.zonePositive != 0}};
}

Json ValidityToJson(const SmsRecord& record) {
    Json validity = {{"format", validityNames[record.validityFormat & 3]}};
    if (record.validityFormat == SmsRecord::relativeValidity)
        validity["relative"] = record.validityRelative & 0xFF;
    else if (record.validityFormat == SmsRecord::absoluteValidity)
        validity["absolute"] = TimestampToJson(record.validityTime);
    return validity;
}

/// The user data of all parts without their headers.
std::string DataOf(const SmsRecord& record) {
    std::string data;
    for (const std::string& part : record.rawParts) {
        const size_t start = record.hasHeader && !part.empty() ? 1 + static_cast<uint8_t>(part.front()) : 0;
        if (start < part.size()) data += part.substr(start);
    }
    return data;
}

uint8_t OctetIn(const Json& object, const char* name, int largest = 255) {
    return static_cast<uint8_t>(NumberIn(object, name, 0, largest));
}

uint8_t FlagIn(const Json& object, const char* name) {
    return object.value(name, false) ? 1 : 0;
}

std::string OctetsIn(const Json& object, const char* name) {
    return OctetsOfHex(object.value(name, ""), name);
}

SmsTimestamp TimestampFromJson(const Json& object) {
    SmsTimestamp time;
    const int year = NumberIn(object, "year", 0, 9999);
    time.year = static_cast<uint16_t>(year < 1900 ? year : year < 2001 ? year - 1900 : year - 2000);
    time.month = OctetIn(object, "month", 99);
    time.day = OctetIn(object, "day", 99);
    time.hour = OctetIn(object, "hour", 99);
    time.minute = OctetIn(object, "minute", 99);
    time.second = OctetIn(object, "second", 99);
    time.zoneMinutes = static_cast<uint16_t>(NumberIn(object, "zoneMinutes", 0, 79 * 15));
    time.zonePositive = object.value("zonePositive", true) ? 1 : 0;
    return time;
}

SmsAddress AddressFromJson(const Json& object, const std::string& name) {
    const std::string number = CodePage::System().ToBytes(Utf8ToText(object.value(name, "")));
    SmsAddress address(number, NumberIn(object, (name + "Type").c_str(), SmsAddress::unknown, 7));
    address.plan = NumberIn(object, (name + "Plan").c_str(), 1, 15);
    return address;
}

void ReadValidity(const Json& object, SmsRecord& record) {
    const std::string format = object.value("format", "none");
    if (format == "relative") {
        record.validityFormat = SmsRecord::relativeValidity;
        record.validityRelative = OctetIn(object, "relative");
    } else if (format == "absolute") {
        record.validityFormat = SmsRecord::absoluteValidity;
        record.validityTime = TimestampFromJson(object.at("absolute"));
    } else if (format != "none") {
        throw std::invalid_argument("validity is neither none, relative nor absolute");
    }
}

void ReadHeader(const Json& object, SmsRecord& record) {
    record.userDataHeader = OctetsIn(object, "header");
    if (record.userDataHeader.empty() && object.contains("concat")) {
        const Json& concat = object.at("concat");
        const int reference = NumberIn(concat, "reference", 0, 0xFFFF);
        std::string element = reference > 0xFF ? std::string("\x08\x04") + static_cast<char>(reference >> 8)
                                               : std::string("\0\x03", 2);
        element.push_back(static_cast<char>(reference & 0xFF));
        element.push_back(static_cast<char>(OctetIn(concat, "total")));
        element.push_back(static_cast<char>(OctetIn(concat, "sequence")));
        StoreConcat(record.userDataHeader, element);
    }
    record.hasHeader = record.userDataHeader.empty() ? 0 : 1;
}

void ReadText(const Json& object, SmsRecord& record) {
    const std::u16string text = Utf8ToText(object.value("text", ""));
    if (record.dcs == 8) {
        record.text16 = text;
    } else if (record.dcs == 4 && object.contains("data")) {
        record.text8 = OctetsIn(object, "data");
    } else {
        std::u16string marked;
        for (const char16_t unit : text) {
            if (IsSeptetCoding(record.dcs) && IsGsmExtension(unit)) marked.push_back(gsmEscape);
            marked.push_back(unit);
        }
        record.text8 = CodePage::System().ToBytes(marked);
    }
}

void CheckLength(const SmsRecord& record) {
    const int header = record.userDataHeader.empty() ? 0 : static_cast<int>(record.userDataHeader.size()) + 1;
    const int count = static_cast<int>(record.dcs == 8 ? record.text16.size() * 2 : record.text8.size());
    const bool fits = IsSeptetCoding(record.dcs) ? (header * 8 + 6) / 7 + count <= largestUserData * 8 / 7
                                                 : header + count <= largestUserData;
    if (!fits) throw std::invalid_argument("the text is too long for one PDU");
}

}  // namespace

std::string IsoTime(const SmsTimestamp& time) {
    std::string iso = fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", time.FullYear(), time.month,
                                  time.day, time.hour, time.minute, time.second);
    if (time.zoneMinutes <= 14 * 60)
        iso += fmt::format("{}{:02}:{:02}", time.zonePositive ? '+' : '-', time.zoneMinutes / 60,
                           time.zoneMinutes % 60);
    return iso;
}

Json SmsToJson(const SmsRecord& record) {
    Json object = {{"kind", record.messageType == SmsRecord::deliver ? "deliver" : "submit"},
                   {"serviceCentre", LocalToUtf8(record.serviceCentre.number)},
                   {"serviceCentreType", record.serviceCentre.type},
                   {"serviceCentrePlan", record.serviceCentre.plan},
                   {"number", LocalToUtf8(record.address.number)},
                   {"numberType", record.address.type},
                   {"numberPlan", record.address.plan},
                   {"protocolId", record.protocolId},
                   {"dcs", record.dcs},
                   {"statusReport", record.statusReport != 0},
                   {"replyPath", record.replyPath != 0},
                   {"hasHeader", record.hasHeader != 0},
                   {"text", ShownText(record.TextAsWide())}};
    if (record.messageType == SmsRecord::deliver) {
        object["moreMessages"] = record.moreMessages != 0;
        object["timestamp"] = TimestampToJson(record.timestamp);
    } else {
        object["rejectDuplicates"] = record.rejectDuplicates != 0;
        object["messageReference"] = record.messageReference;
        object["validity"] = ValidityToJson(record);
    }
    if (record.hasHeader) object["header"] = BytesToHex(record.userDataHeader);
    if (const auto concat = FindConcat(record.userDataHeader))
        object["concat"] = {
            {"reference", concat->reference}, {"total", concat->total}, {"sequence", concat->sequence}};
    if (record.dcs == 4) object["data"] = BytesToHex(DataOf(record));
    object["segments"] = Json::array();
    for (const std::string& part : record.rawParts)
        object["segments"].push_back(BytesToHex(part));
    return object;
}

bool SmsFromJson(const Json& object, SmsRecord& record, std::string& error) try {
    record = {};
    const std::string kind = object.value("kind", "submit");
    if (kind != "submit" && kind != "deliver")
        throw std::invalid_argument("kind is neither submit nor deliver");
    if (!object.contains("number")) throw std::invalid_argument("number is missing");
    record.messageType = kind == "submit" ? SmsRecord::submit : SmsRecord::deliver;
    record.address = AddressFromJson(object, "number");
    record.serviceCentre = AddressFromJson(object, "serviceCentre");
    record.dcs = NumberIn(object, "dcs", 0, 16);
    if (record.dcs % 4 != 0 || record.dcs == 12) throw std::invalid_argument("dcs is none of 0, 4, 8 and 16");
    record.protocolId = OctetIn(object, "protocolId");
    record.messageReference = OctetIn(object, "messageReference");
    record.rejectDuplicates = FlagIn(object, "rejectDuplicates");
    record.replyPath = FlagIn(object, "replyPath");
    record.statusReport = FlagIn(object, "statusReport");
    record.moreMessages = FlagIn(object, "moreMessages");
    if (object.contains("timestamp")) record.timestamp = TimestampFromJson(object.at("timestamp"));
    if (object.contains("validity")) ReadValidity(object.at("validity"), record);
    ReadHeader(object, record);
    ReadText(object, record);
    CheckLength(record);
    return true;
} catch (const std::exception& failure) {
    error = failure.what();
    return false;
}

Json DecodePduLine(std::string_view line, Clock& clock) {
    SmsRecord record;
    bool truncated = false;
    if (!record.decode(Trimmed(line), clock, truncated))
        return {{"error", record.messageType > SmsRecord::submit ? "neither SMS-DELIVER nor SMS-SUBMIT"
                                                                 : "a character other than 0-9 and A-F"}};
    Json object = SmsToJson(record);
    if (truncated) object["truncated"] = true;
    return object;
}

bool EncodePduLine(std::string_view line, std::string& hexText, std::string& error) try {
    const Json object = ObjectOfLine(line);
    SmsRecord record;
    if (!SmsFromJson(object, record, error)) return false;
    if (record.messageType == SmsRecord::deliver) {
        record.encodeDeliver(hexText);
        return true;
    }
    if (object.contains("messageReference"))
        ReferenceCounters::OfProcess().SetMessageReference(static_cast<uint8_t>(record.messageReference - 1));
    record.encodeSubmit(hexText);
    return true;
} catch (const std::exception& failure) {
    error = failure.what();
    return false;
}

std::vector<Json> JoinPduLines(const std::vector<std::string>& lines, Clock& clock) {
    std::vector<Json> objects;
    SmsRecordList records;
    for (size_t i = 0; i < lines.size(); ++i) {
        auto record = std::make_unique<SmsRecord>();
        bool truncated = false;
        if (record->decode(Trimmed(lines[i]), clock, truncated)) {
            record->handsetIndices = {static_cast<int>(i) + 1};
            records.push_back(std::move(record));
        } else {
            objects.push_back(DecodePduLine(lines[i], clock));
            objects.back()["line"] = i + 1;
        }
    }
    JoinParts(records);
    for (const auto& record : records) {
        objects.push_back(SmsToJson(*record));
        objects.back()["parts"] = record->handsetIndices;
    }
    return objects;
}

}  // namespace tarnbridge
