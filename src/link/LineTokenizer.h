#pragma once

#include <atomic>
#include <string>
#include <string_view>

#include "link/ATResult.h"
#include "platform/Event.h"

namespace tarnbridge {

/// What breaks off the parsing of a line: either of the two.
struct ParseStop {
    const std::atomic<bool>& abortParse;
    const Event& cancel;

    bool Requested() const { return abortParse.load(std::memory_order_acquire) || cancel.IsSet(); }
};

/// A line cut into fields, before anyone has decided what the line is. The last field isn't among `fields`
/// yet: it stands in `token`, since how it is appended depends on that decision.
struct TokenizedLine {
    ATLine fields;             ///< `{Text, key}` first if the line has a prefix
    std::string key;           ///< the prefix, or without one the last token
    bool hasColon = false;     ///< whether `key` came from a prefix
    std::string token;         ///< the text of the last field
    bool quoted = false;       ///< whether that field was quoted
    bool emptyQuoted = false;  ///< whether any field was an empty quoted text

    /// Ready for the next line; keeps the memory of the texts.
    void Clear();
};

/// Cuts one line of handset text, without its line end, into fields. `out` is cleared first. A zero byte ends
/// the line.
///
/// True when the end of the line was reached. False for an unterminated quoted text, for a line that ends
/// right after the colon of its prefix, and when `stop` was requested: such a line means nothing.
bool TokenizeLine(std::string_view line, const ParseStop& stop, TokenizedLine& out);

}  // namespace tarnbridge
