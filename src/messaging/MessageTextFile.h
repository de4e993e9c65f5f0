#pragma once

#include <filesystem>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "messaging/MessageTextLine.h"
#include "platform/Files.h"

namespace tarnbridge {

// A file of messages, one a line as in MessageTextLine.h, in UTF-16LE with a byte order mark in front, which
// a reader doesn't need.

/// What an export did.
struct MessageExport {
    size_t written = 0;
    size_t skipped = 0;     ///< messages without text
    size_t unreadable = 0;  ///< records that are no messages, left out too
};

/// Hands the file's bytes to the sink, piece by piece, until it can't take more. Nobody changes the records
/// meanwhile.
MessageExport WriteMessageText(std::span<const SmsRecord* const> records, const ByteSink& sink,
                               const CodePage& page = CodePage::System());

/// The same into a file, which is replaced as a whole or, with a failure, stays as it was.
Result<MessageExport> ExportMessages(const std::filesystem::path& path,
                                     std::span<const SmsRecord* const> records,
                                     const CodePage& page = CodePage::System());

/// Takes over a message that was read.
using MessageSink = std::function<void(std::unique_ptr<SmsRecord>)>;

/// What an import did. Lines without anything in them are neither taken nor refused.
struct MessageImport {
    struct RefusedLine {
        size_t number = 0;  ///< from 1
        MessageLineFault fault = MessageLineFault::None;
    };

    static constexpr size_t mostRefusedLines = 1000;

    size_t taken = 0;
    size_t refused = 0;
    std::vector<RefusedLine> refusedLines;  ///< the first mostRefusedLines of them
};

/// A longer line, in UTF-16 units, is refused as TooLong without being kept whole: no text of ten segments
/// comes near it.
inline constexpr size_t longestMessageLine = 65536;

/// Reads to the end of the stream, or until it goes bad. Messages are handed over one by one, in their order,
/// so that the memory needed doesn't grow with the file. A last line without LF is refused. Nothing, and
/// nothing read, if the file begins with the mark of big-endian UTF-16 or of UTF-8. EmsInit comes first.
std::optional<MessageImport> ReadMessageText(std::istream& in, int minutesEastOfUtc, const MessageSink& take,
                                             const CodePage& page = CodePage::System());

/// The same from a file. After a failure in the middle of it, what came before has been handed over.
Result<MessageImport> ImportMessages(const std::filesystem::path& path, int minutesEastOfUtc,
                                     const MessageSink& take, const CodePage& page = CodePage::System());

}  // namespace tarnbridge
