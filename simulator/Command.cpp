#include "simulator/Command.h"

#include <algorithm>
#include <cctype>

namespace tarnbridge::simulator {
namespace {

bool IsLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char Upper(char c) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

int HexDigit(char c) {
    if (IsDigit(c)) return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// Reads a command line from left to right.
class LineReader {
public:
    explicit LineReader(std::string_view text) : text_(text) {}

    bool AtEnd() const { return position_ >= text_.size(); }
    char Here() const { return AtEnd() ? '\0' : text_[position_]; }
    void Skip() { ++position_; }
    bool Take(char c) {
        if (AtEnd() || Here() != c) return false;
        Skip();
        return true;
    }
    void SkipBlanks() {
        while (Take(' ')) {
        }
    }
    size_t Position() const { return position_; }
    std::string From(size_t start) const { return std::string(text_.substr(start, position_ - start)); }

    std::optional<Argument> TakeArgument() {
        Argument argument;
        SkipBlanks();
        if (Take('"')) {
            argument.quoted = true;
            for (;; Skip()) {
                if (AtEnd()) return std::nullopt;
                if (Take('"')) break;
                argument.text += TakeQuoted();
            }
            SkipBlanks();
            if (!AtEnd() && Here() != ',' && Here() != ';') return std::nullopt;
            return argument;
        }
        while (!AtEnd() && Here() != ',' && Here() != ';') {
            if (Here() == '"') return std::nullopt;
            argument.text += Here();
            Skip();
        }
        argument.text.erase(argument.text.find_last_not_of(' ') + 1);
        return argument;
    }

private:
    /// The byte at the position, which stays on its last character.
    char TakeQuoted() {
        if (Here() == '\\' && position_ + 2 < text_.size()) {
            const int high = HexDigit(text_[position_ + 1]);
            const int low = HexDigit(text_[position_ + 2]);
            if (high >= 0 && low >= 0) {
                position_ += 2;
                return static_cast<char>(high * 16 + low);
            }
        }
        return Here();
    }

    const std::string_view text_;
    size_t position_ = 0;
};

/// `+NAME`, `+NAME?`, `+NAME=?` or `+NAME=a,b`, ITU-T V.250 5.4.
bool TakeExtended(LineReader& reader, Command& command) {
    command.name += reader.Here();
    reader.Skip();
    while (IsLetter(reader.Here()) || IsDigit(reader.Here())) {
        command.name += Upper(reader.Here());
        reader.Skip();
    }
    reader.SkipBlanks();
    if (reader.Take('?')) {
        command.form = Command::Form::Read;
    } else if (reader.Take('=')) {
        reader.SkipBlanks();
        if (reader.Take('?')) {
            command.form = Command::Form::Test;
        } else {
            command.form = Command::Form::Set;
            do {
                std::optional<Argument> argument = reader.TakeArgument();
                if (!argument) return false;
                command.arguments.push_back(std::move(*argument));
            } while (reader.Take(','));
        }
    }
    reader.SkipBlanks();
    return reader.AtEnd() || reader.Here() == ';';
}

/// A letter with a number, S with a register, D with all that follows, ITU-T V.250 5.3.
bool TakeBasic(LineReader& reader, Command& command) {
    if (reader.Take('&')) command.name = "&";
    if (!IsLetter(reader.Here())) return false;
    command.name += Upper(reader.Here());
    reader.Skip();
    Argument argument;
    const auto takeDigits = [&] {
        while (IsDigit(reader.Here())) {
            argument.text += reader.Here();
            reader.Skip();
        }
    };
    if (command.name == "D") {
        while (!reader.AtEnd()) {
            argument.text += reader.Here();
            reader.Skip();
        }
    } else {
        takeDigits();
    }
    command.arguments.push_back(argument);
    if (command.name == "S") {
        if (reader.Take('?')) {
            command.form = Command::Form::Read;
        } else if (reader.Take('=')) {
            command.form = Command::Form::Set;
            argument.text.clear();
            takeDigits();
            command.arguments.push_back(argument);
        }
    }
    return true;
}

}  // namespace

std::optional<int> Argument::Number() const {
    if (quoted || text.empty() || text.size() > 9 || !std::all_of(text.begin(), text.end(), IsDigit)) {
        return std::nullopt;
    }
    return std::stoi(text);
}

const Argument& Command::At(size_t index) const {
    static const Argument missing;
    return index < arguments.size() ? arguments[index] : missing;
}

std::optional<std::vector<Command>> ParseCommands(std::string_view text) {
    std::vector<Command> commands;
    LineReader reader(text);
    for (reader.SkipBlanks(); !reader.AtEnd(); reader.SkipBlanks()) {
        if (reader.Take(';')) continue;
        Command command;
        const size_t start = reader.Position();
        const bool extended = std::string_view("+*^%$#").find(reader.Here()) != std::string_view::npos;
        if (!(extended ? TakeExtended(reader, command) : TakeBasic(reader, command))) return std::nullopt;
        command.text = reader.From(start);
        commands.push_back(std::move(command));
    }
    return commands;
}

}  // namespace tarnbridge::simulator
