#include "tarnctl/EmsJson.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

#include <fmt/format.h>

#include "messaging/GsmAlphabet.h"
#include "messaging/SmsRecord.h"
#include "messaging/ems/Ems.h"
#include "platform/Text.h"
#include "tarnctl/JsonFields.h"

namespace tarnbridge {
namespace {

struct NamedValue {
    const char* name;
    int value;
};

constexpr NamedValue kindNames[] = {
    {"predefinedSound", static_cast<int>(EmsKind::PredefinedSound)},
    {"melody", static_cast<int>(EmsKind::Melody)},
    {"predefinedAnimation", static_cast<int>(EmsKind::PredefinedAnimation)},
    {"animation", static_cast<int>(EmsKind::Animation)},
    {"picture", static_cast<int>(EmsKind::Picture)},
    {"vCard", static_cast<int>(EmsKind::VCard)},
    {"vCalendar", static_cast<int>(EmsKind::VCalendar)},
};
constexpr NamedValue sizeNames[] = {{"normal", 0}, {"large", 4}, {"small", 8}};
constexpr NamedValue alignmentNames[] = {{"left", 0}, {"centre", 1}, {"right", 2}, {"language", 3}};

template <size_t count>
const char* NameOf(const NamedValue (&table)[count], int value) {
    const auto* const found =
        std::find_if(table, table + count, [value](const NamedValue& row) { return row.value == value; });
    return found == table + count ? "" : found->name;
}

template <size_t count>
int ValueIn(const Json& object, const char* field, const NamedValue (&table)[count], const char* otherwise) {
    const std::string name = TextIn(object, field, otherwise);
    const auto* const found =
        std::find_if(table, table + count, [&](const NamedValue& row) { return row.name == name; });
    if (found == table + count) throw std::invalid_argument(fmt::format("unknown {}: {}", field, name));
    return found->value;
}

const Json& ListIn(const Json& object, const char* name) {
    const Json& list = object.at(name);
    if (!list.is_array()) throw std::invalid_argument(fmt::format("{} isn't a list", name));
    return list;
}

bool IsImage(EmsKind kind) {
    return kind == EmsKind::Picture || kind == EmsKind::Animation;
}

bool IsPredefined(EmsKind kind) {
    return kind == EmsKind::PredefinedSound || kind == EmsKind::PredefinedAnimation;
}

/// An operation that the message refused, in the words of its result.
void Must(EmsResult result, bool oneSegmentAllowed = false) {
    if (result != EmsResult::Done)
        throw std::runtime_error(TextToUtf8(EmsResultWord(result, oneSegmentAllowed)));
}

Json ObjectToJson(const EmsObject& object) {
    Json json = {{"kind", NameOf(kindNames, static_cast<int>(object.kind))},
                 {"position", object.position / 2},
                 {"isExtended", object.isExtended != 0},
                 {"isReused", object.isReused != 0}};
    if (IsPredefined(object.kind)) {
        json["number"] = object.number;
        return json;
    }
    const EmsObjectData& data = object.data;
    json["mayBePassedOn"] = (data.flags & 1) == 0;
    if (IsImage(object.kind)) {
        json["width"] = data.width;
        json["height"] = data.height;
        json["depth"] = data.depth;
    }
    if (object.kind == EmsKind::Animation) {
        json["frames"] = data.frames;
        json["animationLow"] = data.animationLow;
        json["animationHigh"] = data.animationHigh;
    }
    json["data"] = BytesToHex({reinterpret_cast<const char*>(data.bytes), data.size});
    return json;
}

Json FormatToJson(const EmsObject& object) {
    const EmsTextFormat& format = object.format;
    return {{"start", object.position / 2},
            {"length", format.length / 2},
            {"size", NameOf(sizeNames, format.size)},
            {"alignment", NameOf(alignmentNames, format.alignment)},
            {"bold", format.bold != 0},
            {"italic", format.italic != 0},
            {"underline", format.underline != 0},
            {"strikethrough", format.strikethrough != 0},
            {"foreground", format.foreground},
            {"background", format.background}};
}

Json MessageToJson(const EmsMessage& message) {
    std::u16string text = EmsText(message);
    if (IsSeptetCoding(message.dcs)) std::transform(text.begin(), text.end(), text.begin(), CharacterOfPart);
    Json json = {{"dcs", message.dcs},
                 {"hasHeader", message.hasHeader != 0},
                 {"text", TextToUtf8(text)},
                 {"objects", ObjectsToJson(message)},
                 {"formats", Json::array()}};
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (node->kind == EmsKind::TextFormat) json["formats"].push_back(FormatToJson(*node));
    }
    if (message.hasPorts) json["ports"] = {{"source", message.sourcePort}, {"destination", message.destPort}};
    json["segmentsUsed"] = message.segmentsUsed;
    return json;
}

/// The bytes of an object live here while it is added.
struct PlacedObject {
    int position = 0;
    EmsKind kind = EmsKind::TextFormat;
    uint8_t number = 0;
    std::string bytes;
    EmsObjectData data;
};

struct PlacedFormat {
    int start = 0;
    int end = 0;
    EmsTextFormat format;
};

/// What is to be written, positions in units.
struct Content {
    std::u16string text;
    std::vector<PlacedObject> objects;
    std::vector<PlacedFormat> formats;

    void AddMarks();
    void AddTo(EmsMessage& message, bool oneSegmentAllowed) const;
};

/// A character of the extension table goes out as another letter without its mark.
void Content::AddMarks() {
    std::u16string marked;
    std::vector<int> moved;
    for (const char16_t unit : text) {
        moved.push_back(static_cast<int>(marked.size()));
        if (IsGsmExtension(unit) && (marked.empty() || marked.back() != gsmEscape))
            marked.push_back(gsmEscape);
        marked.push_back(PartOfCharacter(unit));
    }
    moved.push_back(static_cast<int>(marked.size()));
    text = marked;
    for (PlacedObject& object : objects)
        object.position = moved[object.position];
    for (PlacedFormat& format : formats) {
        format.start = moved[format.start];
        format.end = moved[format.end];
    }
}

void Content::AddTo(EmsMessage& message, bool oneSegmentAllowed) const {
    std::vector<const PlacedFormat*> formatAt(text.size() + 1);  // the last one stands for none
    for (const PlacedFormat& format : formats)
        std::fill(formatAt.begin() + format.start, formatAt.begin() + format.end, &format);
    auto object = objects.begin();
    size_t start = 0;
    while (true) {
        for (; object != objects.end() && object->position == static_cast<int>(start); ++object) {
            EmsObjectData data = object->data;
            data.bytes = reinterpret_cast<const uint8_t*>(object->bytes.data());
            Must(AddObject(&message, object->kind, &data, object->number), oneSegmentAllowed);
        }
        if (start == text.size()) return;
        const size_t stop = object == objects.end() ? text.size() : static_cast<size_t>(object->position);
        size_t end = start + 1;
        while (end < stop && formatAt[end] == formatAt[start])
            ++end;
        const EmsTextFormat* const format = formatAt[start] ? &formatAt[start]->format : nullptr;
        Must(AddText(&message, std::u16string_view(text).substr(start, end - start), format),
             oneSegmentAllowed);
        start = end;
    }
}

PlacedObject ObjectFromJson(const Json& json, int textLength) {
    PlacedObject object;
    object.position = NumberIn(json, "position", textLength, textLength);
    if (!json.contains("kind")) throw std::invalid_argument("kind is missing");
    object.kind = static_cast<EmsKind>(ValueIn(json, "kind", kindNames, ""));
    if (IsPredefined(object.kind)) {
        object.number = static_cast<uint8_t>(NumberIn(json, "number", 0, 255));
        return object;
    }
    object.bytes = OctetsOfHex(TextIn(json, "data"), "data");
    if (object.bytes.size() > 0xFFFF) throw std::invalid_argument("data is too long");
    const auto octet = [&](const char* name, int otherwise, int largest = 255) {
        return static_cast<uint8_t>(NumberIn(json, name, otherwise, largest));
    };
    object.data.size = static_cast<uint16_t>(object.bytes.size());
    object.data.flags = FlagIn(json, "mayBePassedOn", true) ? 0 : 1;
    if (IsImage(object.kind)) {
        object.data.width = octet("width", 0);
        object.data.height = octet("height", 0);
        object.data.depth = octet("depth", 1);
    }
    if (object.kind == EmsKind::Animation) {
        object.data.frames = octet("frames", 4);
        object.data.animationLow = octet("animationLow", 0, 15);
        object.data.animationHigh = octet("animationHigh", 0, 15);
    }
    return object;
}

PlacedFormat FormatFromJson(const Json& json, int textLength) {
    PlacedFormat placed;
    placed.start = NumberIn(json, "start", 0, textLength);
    placed.end =
        placed.start + NumberIn(json, "length", textLength - placed.start, textLength - placed.start);
    EmsTextFormat& format = placed.format;
    const auto flag = [&](const char* name) { return static_cast<uint8_t>(FlagIn(json, name) ? 1 : 0); };
    format.size = static_cast<uint8_t>(ValueIn(json, "size", sizeNames, "normal"));
    format.alignment = static_cast<uint8_t>(ValueIn(json, "alignment", alignmentNames, "language"));
    format.bold = flag("bold");
    format.italic = flag("italic");
    format.underline = flag("underline");
    format.strikethrough = flag("strikethrough");
    format.foreground = static_cast<uint8_t>(NumberIn(json, "foreground", format.foreground, 15));
    format.background = static_cast<uint8_t>(NumberIn(json, "background", format.background, 15));
    return placed;
}

Content ContentFromJson(const Json& json, int dcs) {
    Content content;
    content.text = Utf8ToText(TextIn(json, "text"));
    const bool isTooWide = std::any_of(content.text.begin(), content.text.end(), [dcs](char16_t unit) {
        return (IsSeptetCoding(dcs) ? PartOfCharacter(unit) : unit) > 0xFF;
    });
    if (dcs != 8 && isTooWide) throw std::invalid_argument("the text needs dcs 8");
    const int textLength = static_cast<int>(content.text.size());
    if (json.contains("objects")) {
        for (const Json& object : ListIn(json, "objects"))
            content.objects.push_back(ObjectFromJson(object, textLength));
    }
    if (json.contains("formats")) {
        for (const Json& format : ListIn(json, "formats"))
            content.formats.push_back(FormatFromJson(format, textLength));
    }
    std::stable_sort(content.objects.begin(), content.objects.end(),
                     [](const PlacedObject& first, const PlacedObject& second) {
                         return first.position < second.position;
                     });
    if (IsSeptetCoding(dcs)) content.AddMarks();
    return content;
}

std::string OctetsIn(const Json& value, const char* name) {
    if (!value.is_string()) throw std::invalid_argument(fmt::format("{} isn't a text", name));
    return OctetsOfHex(value.get_ref<const std::string&>(), name);
}

Json SegmentsOf(EmsMessage& message) {
    std::array<std::array<uint8_t, emsSegmentBuffer>, emsSegments> areas{};
    std::array<uint8_t*, emsSegments> buffers{};
    std::array<int, emsSegments> lengths{};
    std::transform(areas.begin(), areas.end(), buffers.begin(), [](auto& area) { return area.data(); });
    int count = 0;
    Must(Generate(&message, true, &count, buffers.data(), lengths.data()));
    Json segments = Json::array();
    for (int i = 0; i < count; ++i)
        segments.push_back(
            BytesToHex({reinterpret_cast<const char*>(buffers[i]), static_cast<size_t>(lengths[i])}));
    return segments;
}

}  // namespace

Json ObjectsToJson(const EmsMessage& message) {
    Json objects = Json::array();
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (node->kind != EmsKind::TextFormat) objects.push_back(ObjectToJson(*node));
    }
    return objects;
}

Json DecodeEmsLine(std::string_view line) try {
    const Json json = ObjectOfLine(line);
    if (!json.contains("segments") || !json.at("segments").is_array() || json.at("segments").empty())
        throw std::invalid_argument("segments are missing");
    std::vector<std::string> segments;
    std::vector<const uint8_t*> buffers;
    std::vector<int> lengths;
    for (const Json& segment : json.at("segments"))
        segments.push_back(segment.is_null() ? "" : OctetsIn(segment, "a segment"));
    for (size_t i = 0; i < segments.size(); ++i) {
        const bool isThere = !json.at("segments")[i].is_null();
        buffers.push_back(isThere ? reinterpret_cast<const uint8_t*>(segments[i].data()) : nullptr);
        lengths.push_back(static_cast<int>(segments[i].size()));
    }
    const std::vector<uint8_t> codings(segments.size(), static_cast<uint8_t>(NumberIn(json, "dcs", 0, 255)));
    EmsMessage message;
    Must(EmsCreate(&message, 0));
    const EmsResult result = Parse(&message, FlagIn(json, "hasHeader"), static_cast<int>(segments.size()),
                                   buffers.data(), lengths.data(), codings.data());
    Json answer = MessageToJson(message);
    if (result != EmsResult::Done) answer["error"] = TextToUtf8(EmsResultWord(result));
    return answer;
} catch (const std::exception& failure) {
    return {{"error", failure.what()}};
}

Json EncodeEmsLine(std::string_view line) try {
    const Json json = ObjectOfLine(line);
    const int dcs = NumberIn(json, "dcs", 0, 255);
    EmsMessage message;
    Must(EmsCreate(&message, static_cast<uint8_t>(dcs)));
    const int segmentsAllowed = NumberIn(json, "segmentsAllowed", emsSegments, emsSegments);
    Must(EmsAllowSegments(&message, segmentsAllowed));
    Must(EmsSetCompression(&message, FlagIn(json, "compression", true)));
    if (json.contains("ports")) {
        const Json& ports = ObjectIn(json, "ports");
        Must(EmsSetPorts(&message, true, static_cast<uint16_t>(NumberIn(ports, "source", 0, 0xFFFF)),
                         static_cast<uint16_t>(NumberIn(ports, "destination", 0, 0xFFFF))));
    }
    ContentFromJson(json, dcs).AddTo(message, segmentsAllowed == 1);
    const Json segments = SegmentsOf(message);
    return {{"dcs", message.dcs}, {"hasHeader", message.hasHeader != 0}, {"segments", segments}};
} catch (const std::exception& failure) {
    return {{"error", failure.what()}};
}

}  // namespace tarnbridge
