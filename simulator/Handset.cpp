#include "simulator/Handset.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/format.h>

namespace tarnbridge::simulator {
namespace {

constexpr char carriageReturn = '\r';
constexpr char backspace = '\b';
constexpr char bodyEnd = '\x1a';
constexpr char bodyCancel = '\x1b';
/// Longer lines and bodies can't be meant.
constexpr size_t longestLine = 9'000;
constexpr int fileChannel = 3;
constexpr int normalChannel = 4;

/// 3GPP TS 27.007 9.2.
const char* WordsOf(int cmeError) {
    switch (cmeError) {
        case 3:
            return "operation not allowed";
        case 4:
            return "operation not supported";
        case 10:
            return "SIM not inserted";
        case 20:
            return "memory full";
        case 21:
            return "invalid index";
        case 22:
            return "not found";
        case 24:
            return "text string too long";
        case 25:
            return "invalid characters in text string";
        case 26:
            return "dial string too long";
        case 27:
            return "invalid characters in dial string";
        default:
            return "unknown";
    }
}

/// A handset that has channel modes takes the commands of files in one of them, and those of messages and of
/// the phonebook in the other.
bool FitsChannel(std::string_view command, const Features& features, const Session& session) {
    if (features.channelMode != fileChannel && features.channelMode != normalChannel) return true;
    constexpr std::array<std::string_view, 7> normal{"+CMG", "+CPMS",   "+CNMI",  "+CSMS",
                                                     "+CPB", "+EQUERY", "+EVCARD"};
    const auto begins = [&](std::string_view prefix) { return command.starts_with(prefix); };
    if (begins("+EFS")) return session.channelMode == fileChannel;
    return session.channelMode == normalChannel || !std::any_of(normal.begin(), normal.end(), begins);
}

/// What follows AT in a line that begins so, with blanks in front or not. Other lines mean nothing to a
/// phone.
std::optional<std::string_view> AfterAttention(std::string_view line) {
    const size_t start = line.find_first_not_of(' ');
    if (start == std::string_view::npos || line.size() < start + 2) return std::nullopt;
    if ((line[start] | 0x20) != 'a' || (line[start + 1] | 0x20) != 't') return std::nullopt;
    return line.substr(start + 2);
}

}  // namespace

Handset::Handset(HandsetContent content, CommandGate* gate, std::function<LocalTime()> time)
    : content_(std::move(content)), gate_(gate), time_(std::move(time)), table_(MakeCommandTable()) {
    Restart();
}

void Handset::Restart() {
    ShapeFeatures();
    session_ = Session::Begin(content_, features_, session_);
    line_.clear();
    rest_.clear();
    pending_ = Answer::Ok();
}

void Handset::ShapeFeatures() {
    features_ = content_.features;
    if (gate_ != nullptr) gate_->Shape(features_);
    content_.simInserted = features_.simInserted;
}

void Handset::LetGo() {
    if (!Prompts()) line_.clear();
}

void Handset::GiveUpPrompt(bool mute, std::vector<Piece>& said) {
    line_.clear();
    rest_.clear();
    pending_ = Answer::Ok();
    if (!mute) Finish(Answer::Error(), said);
}

void Handset::Exchange(HandsetContent& content) {
    std::swap(content_, content);
    Restart();
    Changed();
}

void Handset::Take(char byte, std::vector<Piece>& said) {
    if (session_.echo) {
        if (said.empty() || said.back().kind != Piece::Kind::Echo) said.push_back({Piece::Kind::Echo, {}});
        said.back().bytes += byte;
    }
    if (Prompts()) {
        if (byte == bodyEnd || (byte == bodyCancel && features_.escapeEndsPrompt)) {
            const Answer asked = std::exchange(pending_, Answer::Ok());
            const std::string body = std::exchange(line_, {});
            if (byte == bodyEnd && gate_ != nullptr && !gate_->HearsBody(rest_.front())) {
                rest_.clear();
                return;
            }
            Answer answer = Answer::Ok();
            Call call(rest_.front(), content_, session_, features_, time_, said);
            if (byte == bodyEnd) {
                const auto instead =
                    gate_ != nullptr ? gate_->Instead(rest_.front(), CommandGate::Stage::Body) : std::nullopt;
                answer = instead ? *instead : asked.takeBody(call, body);
            }
            Finish(answer, said);
            said.insert(said.end(), call.later.begin(), call.later.end());
        } else if (line_.size() < longestLine) {
            line_ += byte;
        }
    } else if (byte == carriageReturn) {
        Execute(std::exchange(line_, {}), said);
    } else if (byte == backspace) {
        if (!line_.empty()) line_.pop_back();
    } else if (byte == bodyCancel || byte == bodyEnd) {
        line_.clear();
    } else if (byte != '\n' && byte != '\0' && line_.size() < longestLine) {
        line_ += byte;
    }
}

void Handset::Execute(const std::string& line, std::vector<Piece>& said) {
    const std::optional<std::string_view> text = AfterAttention(line);
    if (!text) return;
    if (gate_ != nullptr && !gate_->Hears(line)) return;
    if (const auto script = scripts_.find(line); script != scripts_.end()) {
        said.push_back({Piece::Kind::Final, script->second});
        return;
    }
    ShapeFeatures();
    std::optional<std::vector<Command>> commands = ParseCommands(*text);
    if (!commands || line.size() >= longestLine) {
        rest_.clear();
        Finish(Answer::Error(), said);
        return;
    }
    rest_ = std::move(*commands);
    if (rest_.empty()) rest_.emplace_back();  // a bare AT is a command, too
    Continue(said);
}

/// Carries out the commands that are left of the line until one fails, asks for a body or the last is done.
void Handset::Continue(std::vector<Piece>& said) {
    std::vector<Piece> later;
    Answer answer = Answer::Ok();
    for (; !rest_.empty() && answer.kind == Answer::Kind::Ok; rest_.erase(rest_.begin())) {
        const Command& command = rest_.front();
        if (const auto instead =
                gate_ != nullptr ? gate_->Instead(command, CommandGate::Stage::Command) : std::nullopt) {
            answer = *instead;
        } else if (!FitsChannel(command.name, features_, session_)) {
            answer = Answer::Error();
        } else if (const auto handler = table_.find(command.name); handler != table_.end()) {
            Call call(command, content_, session_, features_, time_, said);
            answer = handler->second(call);
            later.insert(later.end(), call.later.begin(), call.later.end());
        } else {
            answer = Answer::Error();
        }
        if (answer.kind == Answer::Kind::Body) {
            said.push_back({Piece::Kind::Prompt, "\r\n> "});
            pending_ = std::move(answer);
            return;
        }
    }
    rest_.clear();
    Finish(answer, said);
    said.insert(said.end(), later.begin(), later.end());
}

void Handset::Finish(const Answer& answer, std::vector<Piece>& said) {
    const auto final = [&](const std::string& text) {
        said.push_back({Piece::Kind::Final, "\r\n" + text + "\r\n"});
    };
    if (answer.kind == Answer::Kind::Ok && rest_.size() > 1) {
        rest_.erase(rest_.begin());
        Continue(said);
        return;
    }
    switch (answer.kind) {
        case Answer::Kind::Ok:
        case Answer::Kind::Body:
            final("OK");
            break;
        case Answer::Kind::Error:
            final("ERROR");
            break;
        case Answer::Kind::CmsError:
            final(fmt::format("+CMS ERROR: {}", answer.number));
            break;
        case Answer::Kind::CmeError:
            if (session_.errorForm == 0) {
                final("ERROR");
            } else if (session_.errorForm == 1) {
                final(fmt::format("+CME ERROR: {}", answer.number));
            } else {
                final(fmt::format("+CME ERROR: {}", WordsOf(answer.number)));
            }
            break;
    }
    rest_.clear();
}

}  // namespace tarnbridge::simulator
