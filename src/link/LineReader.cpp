#include "link/LineReader.h"

#include <algorithm>
#include <utility>

namespace tarnbridge {
namespace {

constexpr char lineTerminator = 13;
constexpr char lineFeed = 10;

bool IsFinalWord(std::string_view word) {
    return word == "OK" || word == "ERROR" || word == "CONNECT";
}

bool IsErrorKey(std::string_view key) {
    return key == "+CME ERROR" || key == "+CMS ERROR";
}

/// Unsolicited lines that hand over a message, and so are followed by a raw line.
bool CarriesMessage(std::string_view word) {
    return word == "+CMT" || word == "+CBM" || word == "+CDS";
}

bool IsHexadecimal(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

bool IsUnsolicitedWord(std::string_view word) {
    static constexpr std::string_view words[] = {"RING",  "NO CARRIER", "+CMTI",  "+CBMI",  "+CDSI",
                                                 "+CLIP", "+EADC",      "+GPIOS", "+EKPDS", "+BATS"};
    return CarriesMessage(word) || std::find(std::begin(words), std::end(words), word) != std::end(words);
}

}  // namespace

LineReader::LineReader(LineReaderHost& host, const ParseStop& stop) : host_(host), stop_(stop) {
    lineBuffer.reserve(longestLine);
}

void LineReader::SetExpected(const ATResult& result) {
    const std::lock_guard guard(leaf_);
    collecting.prefix = result.prefix;
    collecting.needsLine = result.needsLine;
    collecting.allLines = result.allLines;
}

void LineReader::SetLineFilter(LineFilter filter) {
    const std::lock_guard guard(leaf_);
    lineFilter = std::move(filter);
}

void LineReader::SetUrcCallback(UrcCallback callback) {
    const std::lock_guard guard(leaf_);
    urcCallback = std::move(callback);
}

void LineReader::FetchResult(ATResult& result) {
    const std::lock_guard guard(leaf_);
    result.prefix = collecting.prefix;
    result.status = collecting.status;
    result.finals = finals_;
    result.lines = std::move(collecting.lines);
    collecting.lines.clear();
}

void LineReader::BreakOff(ATResult::Status status) {
    collecting.lines.clear();
    collecting.status = status;
}

void LineReader::Reset() {
    state_ = FrameState::CarriageReturn;
    lineBuffer.clear();
    header_.reset();
    strangeLine_.clear();
    awaitPrompt = false;
    promptSign_ = false;
    const std::lock_guard guard(leaf_);
    collecting.Clear();
}

void LineReader::Feed(std::span<const char> bytes) {
    pending_ = bytes;
    while (!pending_.empty() && !stop_.cancel.IsSet()) {
        if ((state_ == FrameState::Line && !awaitPrompt) || state_ == FrameState::RawLine) TakeRun();
        if (pending_.empty()) break;
        const char byte = pending_.front();
        pending_ = pending_.subspan(1);
        FeedByte(byte);
    }
    pending_ = {};
}

/// All bytes up to the end of the line, in one step: most of what comes is the inside of long lines.
void LineReader::TakeRun() {
    const auto end = std::find(pending_.begin(), pending_.end(), lineTerminator);
    const auto length = static_cast<size_t>(end - pending_.begin());
    lineBuffer.append(pending_.data(), std::min(length, longestLine - lineBuffer.size()));
    pending_ = pending_.subspan(length);
}

void LineReader::FeedByte(char byte) {
    switch (state_) {
        case FrameState::CarriageReturn:
            if (byte == lineTerminator) state_ = FrameState::LineFeed;
            break;
        case FrameState::LineFeed:
            if (byte != lineFeed) break;
            lineBuffer.clear();
            promptSign_ = false;
            state_ = FrameState::Line;
            break;
        case FrameState::Line:
            if (awaitPrompt) {
                RecognisePrompt(byte);
            } else if (byte == lineTerminator) {
                // The second CRLF of a pair is the first of the next line.
                state_ = lineBuffer.size() < 2 ? FrameState::LineFeed : FrameState::LineEnd;
            }
            break;
        case FrameState::LineEnd:
            if (byte != lineFeed || awaitPrompt) break;
            state_ = FrameState::CarriageReturn;
            ParseLine();
            lineBuffer.clear();
            break;
        case FrameState::RawLine:
            if (byte == lineTerminator) state_ = FrameState::RawLineEnd;
            break;
        case FrameState::RawLineEnd:
            if (byte != lineFeed) break;
            state_ = FrameState::RawLine;
            TakeRawLine();
            lineBuffer.clear();
            break;
    }
}

/// The sign and the blank after it; a sign with anything else behind it is dropped together with that.
void LineReader::RecognisePrompt(char byte) {
    const bool afterSign = std::exchange(promptSign_, byte == '>' && !promptSign_);
    if (!afterSign || byte != ' ') return;
    awaitPrompt = false;
    state_ = FrameState::CarriageReturn;
    host_.OnPrompt();
}

void LineReader::TakeRawLine() {
    if (lineBuffer.empty()) return;
    if (IsHexadecimal(lineBuffer)) {
        state_ = FrameState::CarriageReturn;
        EndPduWait(lineBuffer);
        return;
    }
    if (ParseLine() == LineUse::None && strangeLine_.empty()) strangeLine_ = lineBuffer;
}

LineReader::LineUse LineReader::ParseLine() {
    if (!TokenizeLine(lineBuffer, stop_, line_)) return LineUse::None;
    const bool isWholeLine = !line_.hasColon && line_.fields.empty() && !line_.quoted;

    if (isWholeLine && IsFinalWord(line_.key)) {
        line_.fields.push_back(ATParam::Flat(line_.key, true));
        EndCommand();
        return LineUse::Final;
    }
    if (IsErrorKey(line_.key) && (line_.hasColon || isWholeLine)) {
        if (!line_.hasColon) line_.fields.push_back(ATParam::Flat(line_.key, true));
        ATParam number;
        number.type = ATParam::Number;
        // A handset that sends words instead of a number gives 0.
        const size_t digits = std::min(line_.token.find_first_not_of("0123456789"), line_.token.size());
        if (digits > 0) number = ATParam::Flat(std::string_view(line_.token).substr(0, digits), false);
        line_.fields.push_back(std::move(number));
        EndCommand();
        return LineUse::Final;
    }
    if (IsUnsolicited()) {
        HandleUnsolicited();
        return LineUse::Unsolicited;
    }
    if (MatchesPrefix()) {
        HandleResponseLine();
        return LineUse::Response;
    }
    if (WantsAllLines()) Keep({ATParam::Flat(lineBuffer, true)});
    return LineUse::None;
}

void LineReader::EndCommand() {
    ++finals_;
    if (header_) {
        state_ = FrameState::CarriageReturn;
        EndPduWait(strangeLine_);
    }
    {
        const std::lock_guard guard(leaf_);
        if (collecting.needsLine && collecting.lines.empty()) return;
    }
    collecting.status = ATResult::Final;
    collecting.lines.push_back(std::move(line_.fields));
    host_.OnCommandEnd();
}

bool LineReader::IsUnsolicited() const {
    if (line_.key == "RING") return true;
    return !line_.fields.empty() && line_.fields[0].type == ATParam::Text &&
           IsUnsolicitedWord(line_.fields[0].text);
}

void LineReader::HandleUnsolicited() {
    line_.fields.push_back(ATParam::Flat(line_.token, false));
    if (CarriesMessage(line_.key)) {
        // The message itself isn't read: the handset is never asked to hand messages over, and one that does
        // it all the same is heard again only on the next connection.
        host_.SwallowUntilStopped();
        line_.fields.push_back(ATParam::Flat("", true));
    }
    UrcCallback callback;
    {
        const std::lock_guard guard(leaf_);
        callback = urcCallback;
    }
    if (!callback) return;
    ATResult urcResult;
    urcResult.lines.push_back(std::move(line_.fields));
    callback(urcResult);
}

bool LineReader::MatchesPrefix() const {
    if (line_.key.empty()) return false;
    const std::lock_guard guard(leaf_);
    return line_.key == collecting.prefix;
}

bool LineReader::WantsAllLines() const {
    const std::lock_guard guard(leaf_);
    return collecting.allLines;
}

void LineReader::HandleResponseLine() {
    ATLine fields = std::move(line_.fields);
    if (!line_.token.empty() || line_.emptyQuoted) fields.push_back(ATParam::Flat(line_.token, line_.quoted));
    if (!expectPduLine) {
        Keep(std::move(fields));
        return;
    }
    expectPduLine = false;
    header_ = std::move(fields);
    state_ = FrameState::RawLine;
}

/// The response line that waits for its PDU gets it, or what is known in its place.
void LineReader::EndPduWait(std::string_view text) {
    header_->push_back(ATParam::Flat(text, true));
    Keep(*std::exchange(header_, std::nullopt));
    strangeLine_.clear();
}

void LineReader::Keep(ATLine line) {
    LineFilter filter;
    {
        const std::lock_guard guard(leaf_);
        filter = lineFilter;
    }
    if (filter && filter(line)) return;
    collecting.lines.push_back(std::move(line));
}

}  // namespace tarnbridge
