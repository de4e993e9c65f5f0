#include "link/ATResult.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tarnbridge {
namespace {

bool IsDigitsOnly(std::string_view token) {
    return std::all_of(token.begin(), token.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

ATParam ATParam::Flat(std::string_view token, bool quoted) {
    ATParam param;
    if (!quoted && token.empty()) return param;
    if (quoted || !IsDigitsOnly(token)) {
        param.type = Text;
        param.text = token;
        return param;
    }
    param.type = Number;
    const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), param.number);
    if (error != std::errc{}) param.number = std::numeric_limits<int32_t>::max();
    return param;
}

ATParam ATParam::Item(std::string_view token, bool quoted) {
    return Flat(token.empty() && !quoted ? "0" : token, quoted);
}

const ATParam* ATResult::Field(int line, int param) const {
    if (line < 0 || static_cast<size_t>(line) >= lines.size()) return nullptr;
    const ATLine& fields = lines[line];
    if (param < 0 || static_cast<size_t>(param) >= fields.size()) return nullptr;
    return &fields[param];
}

bool ATResult::GetString(std::string& out, int line, int param) const {
    const ATParam* field = Field(line, param);
    if (field == nullptr || field->type != ATParam::Text) return false;
    out = field->text;
    return true;
}

bool ATResult::GetText(std::u16string& out, int line, int param, const CodePage& page) const {
    out.clear();
    const ATParam* field = Field(line, param);
    if (field == nullptr || field->type != ATParam::Text) return false;
    out = page.ToText(field->text);
    return true;
}

int32_t ATResult::GetNumber(int line, int param) const {
    const ATParam* field = Field(line, param);
    if (field == nullptr || field->type != ATParam::Number) return -1;
    // The guard that compares the line with the number of fields is meant.
    return static_cast<size_t>(line) < lines[line].size() ? field->number : -1;
}

bool ATResult::HasPrefix(const char* text) const {
    const ATParam* field = Field(0, 0);
    return text != nullptr && field != nullptr && field->IsText(text);
}

bool ATResult::IsOk() const {
    return !lines.empty() && !lines.back().empty() && lines.back()[0].IsText("OK");
}

int32_t ATResult::ErrorNumber() const {
    if (lines.empty() || lines.back().size() < 2) return -1;
    const ATLine& last = lines.back();
    if (!last[0].IsText("+CME ERROR") && !last[0].IsText("+CMS ERROR")) return -1;
    return last[1].type == ATParam::Number ? last[1].number : -1;
}

void ATResult::Clear() {
    prefix.clear();
    lines.clear();
    needsLine = allLines = false;
}

}  // namespace tarnbridge
