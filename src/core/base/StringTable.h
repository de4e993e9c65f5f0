#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace tarnbridge {

/// The keys of all that the program shows; EnglishWords.inc has them with their English words.
enum class Word : int {
#define WORD(key, words) key,
#include "core/base/EnglishWords.inc"
#undef WORD
    Count
};

/// The words of one language, English at first. All operations may be called from any thread.
class StringTable {
public:
    /// By key.
    using Translation = std::map<std::string, std::u16string>;

    StringTable();

    std::u16string Get(Word word) const;

    /// Replaces all the words by those of a translation; a key that it hasn't stands in English, and one that
    /// isn't known is passed over.
    void Replace(const Translation& translation);

    /// The keys in the order of Word.
    static const std::vector<std::string>& Keys();

private:
    using Words = std::vector<std::u16string>;

    static const Words& English();

    mutable std::mutex mutex_;
    std::shared_ptr<const Words> words_;
};

/// The program's one table.
StringTable& ProgramWords();

/// The program's words for a key.
inline std::u16string Words(Word word) {
    return ProgramWords().Get(word);
}

/// A text or a number that goes into a sentence.
class WordArgument {
public:
    WordArgument(std::u16string_view text) : text_(text) {}      // NOLINT(google-explicit-constructor)
    WordArgument(const std::u16string& text) : text_(text) {}    // NOLINT(google-explicit-constructor)
    WordArgument(const char16_t* text) : text_(text) {}          // NOLINT(google-explicit-constructor)
    WordArgument(int64_t number);                                // NOLINT(google-explicit-constructor)
    WordArgument(int number) : WordArgument(int64_t{number}) {}  // NOLINT(google-explicit-constructor)

    const std::u16string& Text() const { return text_; }

private:
    std::u16string text_;
};

/// Puts the arguments in order in the places of `%s` and `%d`, whichever it is; `%%` is one `%`. A
/// translation is data: a place without an argument, and any other use of `%`, stays as it stands.
std::u16string FormatWords(std::u16string_view sentence, std::initializer_list<WordArgument> arguments);

/// The program's sentence for a key, filled in.
inline std::u16string Words(Word word, std::initializer_list<WordArgument> arguments) {
    return FormatWords(Words(word), arguments);
}

/// Replaces `\n`, `\t` and `\\` by what they stand for. A backslash before anything else stays.
std::u16string UnescapeWords(std::u16string_view text);

/// Reads a translation: UTF-8, `Key = words` a line, with the escapes of UnescapeWords, and `#` before
/// remarks. Other lines are passed over.
StringTable::Translation ReadTranslation(std::string_view utf8);

}  // namespace tarnbridge
