#include "link/LineTokenizer.h"

#include <algorithm>

namespace tarnbridge {
namespace {

/// Walks one line. `At` gives a zero at the line's end, as a terminated text would.
class Walk {
public:
    Walk(std::string_view line, const ParseStop& stop, TokenizedLine& out)
        : line_(line), stop_(stop), out_(out) {}

    bool Run();

private:
    char At(size_t position) const { return position < line_.size() ? line_[position] : '\0'; }

    void TakeRun();
    size_t FindQuote(size_t begin) const;
    bool ReadQuoted();
    void ReadParenthesised();
    void ParseParenthesised(ATParam& field);
    bool ParseRange(ATParam& field);
    void SkipToComma();

    std::string_view line_;
    const ParseStop& stop_;
    TokenizedLine& out_;
    size_t position_ = 0;
    bool restart_ = false;  // the next character but a blank begins the token anew
};

bool IsNumber(std::string_view token) {
    return !token.empty() &&
           std::all_of(token.begin(), token.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool Walk::Run() {
    for (; position_ <= line_.size(); ++position_) {
        if (stop_.Requested()) return false;
        const char c = At(position_);
        switch (c) {
            case '\0':
                if (!out_.hasColon) out_.key = out_.token;
                return true;
            case '"':
                if (!ReadQuoted()) return false;
                continue;
            case '(':
                ReadParenthesised();
                continue;
            case ',':
                out_.fields.push_back(ATParam::Flat(out_.token, out_.quoted));
                out_.token.clear();
                out_.quoted = false;
                restart_ = true;
                continue;
            case ':':
                if (!out_.fields.empty()) break;
                out_.key = out_.token;
                out_.hasColon = true;
                out_.fields.push_back(ATParam::Flat(out_.key, true));
                out_.token.clear();
                restart_ = true;
                ++position_;  // the character after the colon is skipped, whatever it is
                continue;
            default:
                break;
        }
        if (restart_ && c == ' ') continue;
        if (restart_) out_.token.clear();
        restart_ = false;
        out_.token.push_back(c);
        TakeRun();
    }
    return false;
}

/// Letters and digits mean nothing but themselves.
void Walk::TakeRun() {
    const auto isPlain = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    const size_t begin = position_ + 1;
    size_t end = begin;
    while (end < line_.size() && isPlain(line_[end]))
        ++end;
    out_.token.append(line_.substr(begin, end - begin));
    position_ = end - 1;
}

/// The position of the quote that ends a text; where the line ends, or its zero byte, without one.
size_t Walk::FindQuote(size_t begin) const {
    const size_t quote = line_.find('"', begin);
    const size_t limit = std::min(quote, line_.size());
    const size_t zero = line_.substr(0, limit).find('\0', begin);
    return zero == std::string_view::npos ? limit : zero;
}

bool Walk::ReadQuoted() {
    const size_t begin = position_ + 1;
    const size_t end = FindQuote(begin);
    if (At(end) != '"') return false;
    out_.token.assign(line_.substr(begin, end - begin));
    out_.emptyQuoted |= out_.token.empty();
    out_.quoted = true;
    position_ = end;
    return true;
}

/// The token of the last item stays: if the line ends here, it is read once more as a field of its own.
void Walk::ReadParenthesised() {
    ATParam field;
    field.type = ATParam::List;
    ParseParenthesised(field);
    out_.fields.push_back(std::move(field));
    SkipToComma();
}

/// Leaves the position on the closing bracket, or where the field failed; a field that failed is kept as it
/// stands. A list within the list gives no items of its own, only the walk through it.
void Walk::ParseParenthesised(ATParam& field) {
    std::string& token = out_.token;
    token.clear();
    bool quoted = false;
    size_t depth = 1;
    const auto endItem = [&] {
        if (depth == 1) field.items.push_back(ATParam::Item(token, quoted));
        quoted = false;
    };
    for (++position_;; ++position_) {
        switch (const char c = At(position_)) {
            case '\0':
                return;
            case '"': {
                const size_t end = FindQuote(position_ + 1);
                if (At(end) != '"') {
                    position_ = end;
                    return;
                }
                token.assign(line_.substr(position_ + 1, end - position_ - 1));
                quoted = true;
                position_ = end;
                break;
            }
            case '(':
                ++depth;
                token.clear();
                quoted = false;
                break;
            case ',':
                endItem();
                token.clear();
                break;
            case '-': {
                ATParam nested;
                if (!ParseRange(depth == 1 ? field : nested)) return;
                [[fallthrough]];
            }
            case ')':
                endItem();
                if (--depth == 0) return;
                break;
            default:
                token.push_back(c);
        }
    }
}

/// At the hyphen; on success the position is on the closing bracket and the token holds the upper end.
bool Walk::ParseRange(ATParam& field) {
    std::string& token = out_.token;
    field.type = ATParam::Range;
    if (!IsNumber(token)) return false;
    field.rangeLow = ATParam::Flat(token, false).number;
    const size_t end = line_.find_first_of(std::string_view(")\0", 2), position_);
    if (end == std::string_view::npos || line_[end] != ')') {
        position_ = std::min(end, line_.size());
        return false;
    }
    token.assign(line_.substr(position_ + 1, end - position_ - 1));
    position_ = end;
    if (!IsNumber(token)) return false;
    field.rangeHigh = ATParam::Flat(token, false).number;
    return true;
}

/// Past the comma that follows a field in parentheses, or to the last character of the line.
void Walk::SkipToComma() {
    const size_t end = std::min(line_.find('\0'), line_.size());
    const size_t comma = line_.substr(0, end).find(',', std::min(position_, end));
    if (comma == std::string_view::npos) {
        position_ = end == 0 ? 0 : end - 1;
        return;
    }
    position_ = comma;
    out_.token.clear();
    restart_ = true;
}

}  // namespace

void TokenizedLine::Clear() {
    fields.clear();
    key.clear();
    hasColon = false;
    token.clear();
    quoted = false;
    emptyQuoted = false;
}

bool TokenizeLine(std::string_view line, const ParseStop& stop, TokenizedLine& out) {
    out.Clear();
    return Walk(line, stop, out).Run();
}

}  // namespace tarnbridge
