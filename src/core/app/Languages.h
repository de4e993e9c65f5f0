#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnbridge {

/// A language that the program may be translated into.
struct Language {
    int32_t id;            ///< as Windows numbers languages; 1033 is English
    const char* locale;    ///< as locales name it: "de", "pt_BR"
    const char16_t* name;  ///< its own name for itself
};

/// Always there.
inline constexpr int32_t builtInLanguage = 1033;

/// Whether there are words for a language id.
using HasLanguage = std::function<bool(int32_t id)>;

/// The file with a translation, `Lang%04x.qm` by the id.
std::string LanguageFileName(int32_t id);

/// The same for the help, `%04x.html`.
std::string HelpFileName(int32_t id);

/// The id of what a locale ("de_AT.UTF-8", "pt-BR") speaks; nothing if it isn't known.
std::optional<int32_t> LanguageOfLocale(std::string_view locale);

/// The first of the wanted languages that is there, or the one that is built in.
int32_t ChooseLanguage(std::span<const int32_t> wanted, const HasLanguage& has);

/// The languages that are there, the one that is built in first.
std::vector<Language> AvailableLanguages(const HasLanguage& has);

}  // namespace tarnbridge
