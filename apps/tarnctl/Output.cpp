#include "tarnctl/Output.h"

#include <cstdio>

#include <fmt/format.h>

#include "platform/CodePage.h"
#include "platform/Terminal.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

std::string Utf8OfBytes(std::string_view bytes) {
    return TextToUtf8(CodePage::System().ToText(bytes));
}

}  // namespace

void PrintRecord(const Json& record) {
    PrintLine(record.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void PrintLine(std::string_view line) {
    const std::string bytes = fmt::format("{}\n", line);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fflush(stdout);
}

bool OutputFailed() {
    return std::ferror(stdout) != 0;
}

void PrintWords(std::string_view words) {
    fmt::print(stderr, "{}\n", words);
}

ProgressLine::ProgressLine() : visible_(IsTerminal(StandardStream::Error)) {}

ProgressLine::~ProgressLine() {
    if (visible_) fmt::print(stderr, "\r\x1B[K");
}

void ProgressLine::Show(std::string_view words) {
    if (visible_) fmt::print(stderr, "\r\x1B[K{}", words);
}

Json FieldToJson(const ATParam& field) {
    Json json;
    const auto items = [&] {
        Json list = Json::array();
        for (const ATParam& item : field.items)
            list.push_back(FieldToJson(item));
        return list;
    };
    switch (field.type) {
        case ATParam::Empty:
            json["type"] = "empty";
            break;
        case ATParam::Text:
            json["type"] = "text";
            json["value"] = Utf8OfBytes(field.text);
            break;
        case ATParam::Number:
            json["type"] = "number";
            json["value"] = field.number;
            break;
        case ATParam::Range:
            json["type"] = "range";
            json["low"] = field.rangeLow;
            json["high"] = field.rangeHigh;
            json["items"] = items();
            break;
        case ATParam::List:
            json["type"] = "list";
            json["items"] = items();
            break;
    }
    return json;
}

std::string FieldToWords(const ATParam& field) {
    switch (field.type) {
        case ATParam::Empty:
            return "";
        case ATParam::Text:
            return fmt::format("\"{}\"", Utf8OfBytes(field.text));
        case ATParam::Number:
            return std::to_string(field.number);
        case ATParam::Range:
            return fmt::format("({}-{})", field.rangeLow, field.rangeHigh);
        case ATParam::List:
            break;
    }
    std::string items;
    for (const ATParam& item : field.items)
        items += (items.empty() ? "" : ",") + FieldToWords(item);
    return "(" + items + ")";
}

}  // namespace tarnbridge
