#include "core/base/Settings.h"

#include <algorithm>

#include "core/base/IniScan.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

constexpr size_t longestHistory = 10;

/// The texts that end with a comma each. What stands after the last comma is no item.
std::vector<std::u16string> SplitItems(std::u16string_view text) {
    std::vector<std::u16string> items;
    for (size_t comma; (comma = text.find(u',')) != text.npos; text.remove_prefix(comma + 1))
        items.emplace_back(text.substr(0, comma));
    return items;
}

std::u16string JoinItems(const std::vector<std::u16string>& items) {
    std::u16string text;
    for (const std::u16string& item : items)
        text += item + u',';
    return text;
}

std::u16string JoinNumbers(const std::vector<int32_t>& numbers) {
    std::u16string text;
    for (const int32_t number : numbers)
        text += WidenBytes(std::to_string(number)) + u',';
    return text;
}

}  // namespace

struct Settings::Row {
    const char* section;
    const char* entry;
    Value standard;
};

const std::vector<Settings::Row>& Settings::Rows() {
    const auto text = [](const char16_t* value) { return Value(std::u16string(value)); };
    const Value list = std::vector<int32_t>();
    const Value history = std::vector<std::u16string>();
    // "Meoldy" is how the entries have always been spelled in users' stores.
    static const std::vector<Row> rows = {
        {"Option", "Select", 0},
        {"Option", "Port", 1},
        {"Option", "Phone", text(u"ZVK4100")},
        {"Option", "LangID", 1033},
        {"Column", "Sms", list},
        {"Column", "Phonebook", list},
        {"Column", "Images", list},
        {"Column", "Meoldy", list},
        {"Column", "Mms", list},
        {"Column", "File", list},
        {"FindHistory", "Phonebook", history},
        {"FindHistory", "EmsSound", history},
        {"Splitter", "Sms", list},
        {"Splitter", "Phonebook", list},
        {"Splitter", "Images", list},
        {"Splitter", "Melody", list},
        {"Splitter", "Mms", list},
        {"Splitter", "File", list},
        {"Memory", "Sms", text(u"ME")},
        {"Mms", "Images", text(u"")},
        {"Mms", "Meoldy", text(u"")},
        {"Mms", "Video", text(u"")},
        {"File", "Path", text(u"")},
        {"Image", "Path", text(u"")},
        {"Melody", "Path", text(u"")},
        {"Mms", "Path", text(u"")},
        {"LongSms", "Sms", text(u"TRUE")},
        {"7Bit", "Sms", text(u"FALSE")},
        {"Folder", "Sms", list},
        {"Sorting", "Sms", list},
        {"Ask", "Trash", text(u"TRUE")},
    };
    return rows;
}

Settings::Settings(EntryStore& store) : store_(store) {
    for (const Row& row : Rows())
        values_.push_back(row.standard);
    values_.resize(static_cast<size_t>(SettingIndex::Count), -1);
}

void Settings::Load() {
    const std::lock_guard guard(mutex_);
    for (size_t index = 0; index < Rows().size(); ++index) {
        const Row& row = Rows()[index];
        Value& value = values_[index];
        if (auto* number = std::get_if<int32_t>(&value)) {
            *number = store_.GetNumber(row.section, row.entry).value_or(*number);
            continue;
        }
        auto stored = store_.GetText(row.section, row.entry);
        if (!stored) continue;
        if (auto* list = std::get_if<std::vector<int32_t>>(&value)) {
            list->clear();
            for (const std::u16string& item : SplitItems(*stored))
                list->push_back(ScanNumber(TextToUtf8(item)));
        } else if (auto* history = std::get_if<std::vector<std::u16string>>(&value)) {
            *history = SplitItems(*stored);
            history->resize(std::min(history->size(), longestHistory));
        } else {
            value = *std::move(stored);
        }
    }
}

template <typename Type>
Type Settings::Get(SettingIndex index, Type otherwise) const {
    const std::lock_guard guard(mutex_);
    const auto place = static_cast<size_t>(index);
    const auto* value = place < values_.size() ? std::get_if<Type>(&values_[place]) : nullptr;
    return value ? *value : otherwise;
}

template <typename Type, typename Write>
Outcome Settings::Set(SettingIndex index, Type value, Write write) {
    const std::lock_guard guard(mutex_);
    const auto place = static_cast<size_t>(index);
    auto* current = place < Rows().size() ? std::get_if<Type>(&values_[place]) : nullptr;
    if (!current) return SystemFailure{0, "there is no such setting"};
    *current = std::move(value);
    const Row& row = Rows()[place];
    return write(row.section, row.entry, *current);
}

int32_t Settings::GetNumber(SettingIndex index) const {
    return Get<int32_t>(index, -1);
}

Outcome Settings::SetNumber(SettingIndex index, int32_t value) {
    return Set(index, value, [this](const char* section, const char* entry, int32_t number) {
        return store_.SetNumber(section, entry, number);
    });
}

std::u16string Settings::GetText(SettingIndex index) const {
    return Get<std::u16string>(index, {});
}

Outcome Settings::SetText(SettingIndex index, std::u16string_view value) {
    return Set(index, std::u16string(value),
               [this](const char* section, const char* entry, const std::u16string& text) {
                   return store_.SetText(section, entry, text);
               });
}

std::vector<int32_t> Settings::GetList(SettingIndex index) const {
    return Get<std::vector<int32_t>>(index, {});
}

Outcome Settings::SetList(SettingIndex index, std::vector<int32_t> value) {
    return Set(index, std::move(value),
               [this](const char* section, const char* entry, const std::vector<int32_t>& numbers) {
                   return store_.SetText(section, entry, JoinNumbers(numbers));
               });
}

std::vector<std::u16string> Settings::GetHistory(SettingIndex index) const {
    return Get<std::vector<std::u16string>>(index, {});
}

Outcome Settings::SetHistory(SettingIndex index, std::vector<std::u16string> value) {
    value.resize(std::min(value.size(), longestHistory));
    return Set(index, std::move(value),
               [this](const char* section, const char* entry, const std::vector<std::u16string>& texts) {
                   return store_.SetText(section, entry, JoinItems(texts));
               });
}

}  // namespace tarnbridge
