#include "core/app/Languages.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

namespace tarnbridge {
namespace {

constexpr std::array<Language, 30> languages = {{
    {builtInLanguage, "en", u"English"},
    {0x0401, "ar", u"العربية"},
    {0x0402, "bg", u"Български"},
    {0x0404, "zh_TW", u"繁體中文"},
    {0x0804, "zh", u"简体中文"},
    {0x0405, "cs", u"Čeština"},
    {0x0406, "da", u"Dansk"},
    {0x0407, "de", u"Deutsch"},
    {0x0408, "el", u"Ελληνικά"},
    {0x040a, "es", u"Español"},
    {0x040b, "fi", u"Suomi"},
    {0x040c, "fr", u"Français"},
    {0x040d, "he", u"עברית"},
    {0x040e, "hu", u"Magyar"},
    {0x0410, "it", u"Italiano"},
    {0x0411, "ja", u"日本語"},
    {0x0412, "ko", u"한국어"},
    {0x0413, "nl", u"Nederlands"},
    {0x0414, "nb", u"Norsk"},
    {0x0415, "pl", u"Polski"},
    {0x0416, "pt_BR", u"Português (Brasil)"},
    {0x0816, "pt", u"Português"},
    {0x0418, "ro", u"Română"},
    {0x0419, "ru", u"Русский"},
    {0x041d, "sv", u"Svenska"},
    {0x041e, "th", u"ไทย"},
    {0x041f, "tr", u"Türkçe"},
    {0x0421, "id", u"Bahasa Indonesia"},
    {0x0422, "uk", u"Українська"},
    {0x042a, "vi", u"Tiếng Việt"},
}};

}  // namespace

std::string LanguageFileName(int32_t id) {
    return fmt::format("Lang{:04x}.qm", static_cast<uint32_t>(id));
}

std::string HelpFileName(int32_t id) {
    return fmt::format("{:04x}.html", static_cast<uint32_t>(id));
}

std::optional<int32_t> LanguageOfLocale(std::string_view locale) {
    std::string name(locale.substr(0, locale.find_first_of(".@")));
    std::replace(name.begin(), name.end(), '-', '_');
    // The language with its country first, then the language alone.
    for (;; name.resize(name.find('_'))) {
        for (const Language& language : languages) {
            if (name == language.locale) return language.id;
        }
        if (name.find('_') == std::string::npos) return std::nullopt;
    }
}

int32_t ChooseLanguage(std::span<const int32_t> wanted, const HasLanguage& has) {
    for (const int32_t id : wanted) {
        if (id == builtInLanguage || has(id)) return id;
    }
    return builtInLanguage;
}

std::vector<Language> AvailableLanguages(const HasLanguage& has) {
    std::vector<Language> available;
    for (const Language& language : languages) {
        if (language.id == builtInLanguage || has(language.id)) available.push_back(language);
    }
    return available;
}

}  // namespace tarnbridge
