#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarnbridge {

/// One 8-bit or double-byte code page, by its number: 874, 932, 936, 949, 1250 to 1258. All of its tables are
/// made once, so a CodePage is immutable and may be used from any thread without a lock.
class CodePage {
public:
    /// Nothing when the number isn't one of the above or the system doesn't know it.
    static std::optional<CodePage> Find(int number);

    /// The code page of the system: the ANSI code page on Windows, 1252 elsewhere.
    static const CodePage& System();

    int Number() const { return number_; }

    /// Bytes to text. A byte that the page doesn't define becomes the unit of the same number, a lead byte
    /// without a valid second byte U+FFFD.
    std::u16string ToText(std::string_view bytes) const;

    /// Text to bytes. A unit that the page doesn't hold becomes '?', unless it is a unit below 256 that
    /// ToText makes of an undefined byte.
    std::string ToBytes(std::u16string_view text) const;

private:
    struct Tables;

    CodePage(int number, std::shared_ptr<const Tables> tables);

    int number_;
    std::shared_ptr<const Tables> tables_;
};

}  // namespace tarnbridge
