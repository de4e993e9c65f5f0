#include "tarnctl/PduJson.h"

#include <algorithm>
#include <stdexcept>

#include <fmt/format.h>

#include "messaging/ConcatHeader.h"
#include "messaging/GsmAlphabet.h"
#include "messaging/JoinParts.h"
#include "messaging/PduBuffer.h"
#include "messaging/RecordText.h"
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

std::string LocalToUtf8(std::string_view local) {
    return TextToUtf8(CodePage::System().ToText(local));
}

Json TimestampToJson(const SmsTimestamp& time) {
    Json json = Json::object();
    if (time.IsDate()) json["iso"] = IsoTime(time);
    json["year"] = time.year;
    json["month"] = time.month;
    json["day"] = time.day;
    json["hour"] = time.hour;
    json["minute"] = time.minute;
    json["second"] = time.second;
    json["zoneMinutes"] = time.zoneMinutes;
    json["zonePositive"] = time.zonePositive != 0;
    return json;
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

uint8_t BitIn(const Json& object, const char* name) {
    return FlagIn(object, name) ? 1 : 0;
}

std::string OctetsIn(const Json& object, const char* name) {
    return OctetsOfHex(TextIn(object, name), name);
}

/// Throws std::invalid_argument if a text, which `local` is in bytes, won't arrive as it is.
void MustArrive(const char* field, const std::u16string& text, const std::string& local, bool septets) {
    const std::u16string arrived =
        septets ? TextOfPart(AsItArrives(local)) : CodePage::System().ToText(local);
    std::u16string shown = text;
    if (septets) std::erase(shown, static_cast<char16_t>(gsmEscape));
    if (arrived == shown) return;
    std::u16string lost;
    const bool sameLength = arrived.size() == shown.size();
    for (size_t i = 0; i < shown.size(); ++i) {
        const bool isLost = sameLength ? arrived[i] != shown[i] : shown[i] > 127;
        const bool isKnown = lost.find(shown[i]) != std::u16string::npos && (shown[i] & 0xF800) != 0xD800;
        if (isLost && !isKnown) lost.push_back(shown[i]);
    }
    throw std::invalid_argument(
        fmt::format("the coding can't carry these letters of {}: {}", field, TextToUtf8(lost)));
}

SmsTimestamp TimestampFromJson(const Json& object) {
    SmsTimestamp time;
    const int year = NumberIn(object, "year", 0, 9999);
    time.year = static_cast<uint16_t>(year < 1900 ? year : year < 2001 ? year - 1900 : year - 2000);
    time.month = OctetIn(object, "month");
    time.day = OctetIn(object, "day");
    time.hour = OctetIn(object, "hour");
    time.minute = OctetIn(object, "minute");
    time.second = OctetIn(object, "second");
    time.zoneMinutes = static_cast<uint16_t>(NumberIn(object, "zoneMinutes", 0, 85 * 15));
    time.zonePositive = FlagIn(object, "zonePositive", true) ? 1 : 0;
    return time;
}

SmsAddress AddressFromJson(const Json& object, const std::string& name) {
    const std::u16string text = Utf8ToText(TextIn(object, name.c_str()));
    const std::string number = CodePage::System().ToBytes(text);
    SmsAddress address(number, NumberIn(object, (name + "Type").c_str(), SmsAddress::unknown, 7));
    address.plan = NumberIn(object, (name + "Plan").c_str(), 1, 15);
    if (address.type == SmsAddress::alphanumeric) MustArrive(name.c_str(), text, number, true);
    return address;
}

void ReadValidity(const Json& object, SmsRecord& record) {
    const std::string format = TextIn(object, "format", "none");
    if (format == "relative") {
        record.validityFormat = SmsRecord::relativeValidity;
        record.validityRelative = OctetIn(object, "relative");
    } else if (format == "absolute") {
        record.validityFormat = SmsRecord::absoluteValidity;
        record.validityTime = TimestampFromJson(ObjectIn(object, "absolute"));
    } else if (format != "none" && format != "enhanced") {  // which can't be written
        throw std::invalid_argument("format of validity is none of none, enhanced, relative and absolute");
    }
}

void ReadHeader(const Json& object, SmsRecord& record) {
    record.userDataHeader = OctetsIn(object, "header");
    if (record.userDataHeader.empty() && object.contains("concat")) {
        const Json& concat = ObjectIn(object, "concat");
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

/// The text as septets are made of it, with its marks.
std::string PartTextOf(const std::u16string& text) {
    std::string part;
    for (const char16_t unit : text) {
        if (IsGsmExtension(unit)) part.push_back(gsmEscape);
        const char16_t byte = PartOfCharacter(unit);
        part.push_back(byte > 0xFF ? '?' : static_cast<char>(byte));
    }
    return part;
}

/// The coding that is asked for, or else the one that carries the text.
int CodingFor(const Json& object) {
    if (object.contains("dcs")) return NumberIn(object, "dcs", 0, 16);
    const std::u16string text = Utf8ToText(TextIn(object, "text"));
    return TextOfPart(AsItArrives(PartTextOf(text))) == text ? 0 : 8;
}

void ReadText(const Json& object, SmsRecord& record) {
    const std::u16string text = Utf8ToText(TextIn(object, "text"));
    if (record.dcs == 8) {
        record.text16 = text;
    } else if (record.dcs == 4 && object.contains("data")) {
        record.text8 = OctetsIn(object, "data");
    } else {
        const bool septets = IsSeptetCoding(record.dcs);
        record.text8 = septets ? PartTextOf(text) : CodePage::System().ToBytes(text);
        MustArrive("text", text, record.text8, septets);
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
        iso += fmt::format("{}{:02}:{:02}", time.zonePositive || time.zoneMinutes == 0 ? '+' : '-',
                           time.zoneMinutes / 60, time.zoneMinutes % 60);
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
                   {"text", TextToUtf8(ShownText(record))}};
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
    const std::string kind = TextIn(object, "kind", "submit");
    if (kind != "submit" && kind != "deliver")
        throw std::invalid_argument("kind is neither submit nor deliver");
    if (!object.contains("number")) throw std::invalid_argument("number is missing");
    record.messageType = kind == "submit" ? SmsRecord::submit : SmsRecord::deliver;
    record.address = AddressFromJson(object, "number");
    record.serviceCentre = AddressFromJson(object, "serviceCentre");
    record.dcs = CodingFor(object);
    if (record.dcs % 4 != 0 || record.dcs == 12) throw std::invalid_argument("dcs is none of 0, 4, 8 and 16");
    record.protocolId = OctetIn(object, "protocolId");
    record.messageReference = OctetIn(object, "messageReference");
    record.rejectDuplicates = BitIn(object, "rejectDuplicates");
    record.replyPath = BitIn(object, "replyPath");
    record.statusReport = BitIn(object, "statusReport");
    record.moreMessages = BitIn(object, "moreMessages");
    if (object.contains("timestamp")) record.timestamp = TimestampFromJson(ObjectIn(object, "timestamp"));
    if (object.contains("validity")) ReadValidity(ObjectIn(object, "validity"), record);
    ReadHeader(object, record);
    ReadText(object, record);
    CheckLength(record);
    return true;
} catch (const std::exception& failure) {
    error = failure.what();
    return false;
}

Json DecodePduLine(std::string_view line, Clock& clock) {
    if (Trimmed(line).empty()) return {{"error", "an empty line is no PDU"}};
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

std::optional<Json> PduJoiner::Take(std::string_view line) {
    ++lines_;
    line = Trimmed(line);
    SmsRecord record;
    bool truncated = false;
    if (line.empty() || !record.decode(line, clock_, truncated)) {
        Json object = DecodePduLine(line, clock_);
        object["line"] = lines_;
        return object;
    }
    record.handsetIndices = {static_cast<int>(lines_)};
    const auto key = JoinKey(record);
    if (key) {
        const auto group = groups_.try_emplace(*key, groups_.size()).first->second;
        std::string digits(line.substr(0, 2 * PduBuffer::capacity));
        if (digits.size() % 2 != 0) digits.push_back('0');  // a digit alone is a high half
        held_.push_back({group, lines_, OctetsOfHex(digits, "the line")});
        return std::nullopt;
    }
    Json object = SmsToJson(record);
    object["parts"] = record.handsetIndices;
    return object;
}

void PduJoiner::Finish(const std::function<void(const Json& message)>& put) {
    groups_.clear();
    std::stable_sort(held_.begin(), held_.end(),
                     [](const Held& first, const Held& second) { return first.group < second.group; });
    for (size_t i = 0; i < held_.size();) {
        SmsRecordList records;
        for (const uint32_t group = held_[i].group; i < held_.size() && held_[i].group == group; ++i) {
            auto record = std::make_unique<SmsRecord>();
            bool truncated = false;
            std::string pdu = BytesToHex(held_[i].octets);
            record->decode(pdu, clock_, truncated);
            record->handsetIndices = {static_cast<int>(held_[i].line)};
            record->handsetPdus.push_back(std::move(pdu));
            records.push_back(std::move(record));
        }
        JoinParts(records);
        for (const auto& record : records) {
            Json object = SmsToJson(*record);
            object["parts"] = record->handsetIndices;
            put(object);
        }
    }
    held_.clear();
}

}  // namespace tarnbridge
