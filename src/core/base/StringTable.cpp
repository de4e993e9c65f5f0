#include "core/base/StringTable.h"

#include <algorithm>

#include "platform/Text.h"

namespace tarnbridge {
namespace {

std::string_view Trim(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

}  // namespace

const StringTable::Words& StringTable::English() {
    static const Words words = {
#define WORD(key, words) words,
#include "core/base/EnglishWords.inc"
#undef WORD
    };
    return words;
}

const std::vector<std::string>& StringTable::Keys() {
    static const std::vector<std::string> keys = {
#define WORD(key, words) #key,
#include "core/base/EnglishWords.inc"
#undef WORD
    };
    return keys;
}

StringTable::StringTable() : words_(std::make_shared<Words>(English())) {}

std::u16string StringTable::Get(Word word) const {
    const std::lock_guard guard(mutex_);
    const auto index = static_cast<size_t>(word);
    return index < words_->size() ? (*words_)[index] : std::u16string();
}

void StringTable::Replace(const Translation& translation) {
    const auto words = std::make_shared<Words>(English());
    for (size_t index = 0; index < words->size(); ++index) {
        const auto found = translation.find(Keys()[index]);
        if (found != translation.end()) (*words)[index] = found->second;
    }
    const std::lock_guard guard(mutex_);
    words_ = words;
}

StringTable& ProgramWords() {
    static StringTable table;
    return table;
}

WordArgument::WordArgument(int64_t number) : text_(WidenBytes(std::to_string(number))) {}

std::u16string FormatWords(std::u16string_view sentence, std::initializer_list<WordArgument> arguments) {
    std::u16string text;
    auto next = arguments.begin();
    for (size_t place = 0; place < sentence.size(); ++place) {
        const char16_t kind = place + 1 < sentence.size() ? sentence[place + 1] : u'\0';
        if (sentence[place] != u'%' || (kind != u'%' && kind != u's' && kind != u'd')) {
            text += sentence[place];
        } else if (kind == u'%') {
            text += u'%';
            ++place;
        } else if (next != arguments.end()) {
            text += next++->Text();
            ++place;
        } else {
            text += u'%';
        }
    }
    return text;
}

std::u16string UnescapeWords(std::u16string_view text) {
    std::u16string result;
    for (size_t place = 0; place < text.size(); ++place) {
        constexpr std::u16string_view letters = u"nt\\";
        constexpr std::u16string_view meanings = u"\n\t\\";
        const bool escape = text[place] == u'\\' && place + 1 < text.size();
        const size_t found = escape ? letters.find(text[place + 1]) : letters.npos;
        if (found != letters.npos) ++place;
        result += found == letters.npos ? text[place] : meanings[found];
    }
    return result;
}

StringTable::Translation ReadTranslation(std::string_view utf8) {
    StringTable::Translation translation;
    while (!utf8.empty()) {
        const size_t end = std::min(utf8.find('\n'), utf8.size());
        const std::string_view line = Trim(utf8.substr(0, end));
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
        const size_t equals = line.find('=');
        if (equals == line.npos || line.starts_with('#')) continue;
        translation[std::string(Trim(line.substr(0, equals)))] =
            UnescapeWords(Utf8ToText(Trim(line.substr(equals + 1))));
    }
    return translation;
}

}  // namespace tarnbridge
