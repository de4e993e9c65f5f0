#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"

namespace tarnbridge {

/// One field of a response line (3GPP TS 27.007, clause 5.3). Texts are the handset's bytes; nothing here
/// decodes a character set.
struct ATParam {
    enum Type : int32_t { Empty = 0, Text = 1, Range = 2, Number = 3, List = 4 };

    Type type = Empty;
    int32_t number = 0;    ///< Number; a value beyond 32 bits is the largest of them
    int32_t rangeLow = 0;  ///< Range: the ends of `(a-b)`
    int32_t rangeHigh = 0;
    std::string text;            ///< Text
    std::vector<ATParam> items;  ///< Range and List: the parts of a field in parentheses

    /// The rule for a field outside parentheses: text if it was quoted, else empty, a number if all are
    /// digits, or text.
    static ATParam Flat(std::string_view token, bool quoted);

    /// The rule inside parentheses: the same, but an empty part that wasn't quoted is the number 0.
    static ATParam Item(std::string_view token, bool quoted);

    bool IsText(std::string_view wanted) const { return type == Text && text == wanted; }

    bool operator==(const ATParam&) const = default;
};

using ATLine = std::vector<ATParam>;

/// The whole response to one command.
struct ATResult {
    enum Status : int32_t {
        Final = 0,     ///< a final result came
        NoResult = 1,  ///< none came in time, or the wait was broken off
        NotSent = 2    ///< the command wasn't sent, or not wholly
    };

    // Set before the exchange.
    std::string prefix;      ///< the awaited prefix without its colon, such as `+CMGR`; empty for none
    bool needsLine = false;  ///< a final result before the first line of that prefix is passed over
    bool allLines = false;   ///< lines without that prefix are kept too, each as one text

    // Given by it.
    int32_t status = Final;
    uint32_t finals = 0;    ///< final results that the port has seen, with that of this exchange
    bool bodySent = false;  ///< of a command in two stages: the body went out, wholly or in part
    std::vector<ATLine>
        lines;  ///< the lines of the awaited prefix in their order; the final result is the last

    /// The text of a field; false unless the field is there and is text.
    bool GetString(std::string& out, int line, int param) const;

    /// The same, widened by a code page. `out` is emptied first.
    bool GetText(std::u16string& out, int line, int param, const CodePage& page = CodePage::System()) const;

    /// The number of a field, or -1. A `line` at or beyond the number of fields of that line gives -1 too:
    /// who walks a long result reads the fields themselves.
    int32_t GetNumber(int line, int param) const;

    /// Whether the first field of the first line is this text. Null gives false.
    bool HasPrefix(const char* text) const;

    /// Whether the final result is "OK".
    bool IsOk() const;

    /// The number of `+CME ERROR` or `+CMS ERROR` if that is the final result (3GPP TS 27.007
    /// clause 9.2, 27.005 clause 3.2.5), otherwise -1.
    int32_t ErrorNumber() const;

    /// Empties `prefix` and `lines`, and clears the two flags; `status` is left alone.
    void Clear();

private:
    const ATParam* Field(int line, int param) const;
};

}  // namespace tarnbridge
