#include "messaging/MessageTextFile.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <utility>

namespace tarnbridge {
namespace {

constexpr char16_t byteOrderMark = 0xFEFF;
/// The first unit where the file is UTF-16BE or UTF-8 and says so.
constexpr char16_t bigEndianMark = 0xFFFE;
constexpr char16_t utf8Mark = 0xBBEF;

constexpr size_t pieceSize = 65536;  ///< bytes

void AppendLittleEndian(std::string& bytes, std::u16string_view text) {
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit);
        bytes += static_cast<char>(unit >> 8);
    }
}

/// Makes lines out of units, and messages out of lines.
class LineCollector {
public:
    LineCollector(int minutesEastOfUtc, const MessageSink& take, const CodePage& page)
        : minutesEastOfUtc_(minutesEastOfUtc), take_(take), page_(page) {}

    void Add(char16_t unit) {
        if (line_.size() < longestMessageLine)
            line_ += unit;
        else
            isTooLong_ = true;
        if (unit == u'\n') EndLine();
    }

    /// `isCut`: half a unit is left over.
    MessageImport Finish(bool isCut) {
        ++number_;
        if (!line_.empty() || isCut) Refuse(MessageLineFault::Malformed);
        return std::move(result_);
    }

private:
    void EndLine() {
        ++number_;
        const bool isBlank = line_ == u"\n" || line_ == u"\r\n";
        if (isTooLong_) {
            Refuse(MessageLineFault::TooLong);
        } else if (!isBlank) {
            auto record = std::make_unique<SmsRecord>();
            const MessageLineFault fault = ReadMessageLine(line_, minutesEastOfUtc_, *record, page_);
            if (fault == MessageLineFault::None) {
                ++result_.taken;
                take_(std::move(record));
            } else {
                Refuse(fault);
            }
        }
        line_.clear();
        isTooLong_ = false;
    }

    void Refuse(MessageLineFault fault) {
        if (result_.refused++ < MessageImport::mostRefusedLines)
            result_.refusedLines.push_back({number_, fault});
    }

    const int minutesEastOfUtc_;
    const MessageSink& take_;
    const CodePage& page_;
    MessageImport result_;
    std::u16string line_;
    bool isTooLong_ = false;  ///< units of the line were left out
    size_t number_ = 0;
};

}  // namespace

MessageExport WriteMessageText(std::span<const SmsRecord* const> records, const ByteSink& sink,
                               const CodePage& page) {
    MessageExport result;
    std::string piece;
    AppendLittleEndian(piece, {&byteOrderMark, 1});
    for (const SmsRecord* const record : records) {
        const std::u16string line = MessageLineOf(*record, page);
        ++(record->unreadable ? result.unreadable : line.empty() ? result.skipped : result.written);
        AppendLittleEndian(piece, line);
        if (piece.size() < pieceSize) continue;
        if (!sink(piece)) return result;
        piece.clear();
    }
    sink(piece);
    return result;
}

Result<MessageExport> ExportMessages(const std::filesystem::path& path,
                                     std::span<const SmsRecord* const> records, const CodePage& page) {
    // A mistyped folder isn't made.
    std::error_code error;
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    if (!std::filesystem::is_directory(folder, error))
        return SystemFailure{ENOENT, folder.string() + ": there is no such folder"};
    MessageExport result;
    const Outcome outcome = WriteFileAtomically(
        path, [&](const ByteSink& sink) { result = WriteMessageText(records, sink, page); });
    if (!outcome) return outcome.Failure();
    return result;
}

std::optional<MessageImport> ReadMessageText(std::istream& in, int minutesEastOfUtc, const MessageSink& take,
                                             const CodePage& page) {
    LineCollector lines(minutesEastOfUtc, take, page);
    std::array<char, pieceSize> piece;
    bool isCut = false;
    for (bool isFirst = true; in;) {
        in.read(piece.data(), piece.size());
        const auto size = static_cast<size_t>(in.gcount());
        for (size_t i = 0; i + 1 < size; i += 2) {
            const auto unit = static_cast<char16_t>(static_cast<uint8_t>(piece[i]) |
                                                    static_cast<uint8_t>(piece[i + 1]) << 8);
            if (isFirst && (unit == bigEndianMark || unit == utf8Mark)) return std::nullopt;
            if (!isFirst || unit != byteOrderMark) lines.Add(unit);
            isFirst = false;
        }
        isCut = size % 2 != 0;  // only the last piece isn't full
    }
    return lines.Finish(isCut);
}

Result<MessageImport> ImportMessages(const std::filesystem::path& path, int minutesEastOfUtc,
                                     const MessageSink& take, const CodePage& page) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return LastSystemFailure("open", path);
    std::optional<MessageImport> result = ReadMessageText(in, minutesEastOfUtc, take, page);
    if (in.bad()) return LastSystemFailure("read", path);
    if (!result) {
        errno = EILSEQ;
        return LastSystemFailure("read", path);
    }
    return std::move(*result);
}

}  // namespace tarnbridge
