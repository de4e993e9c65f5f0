#include "simulator/Faults.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <initializer_list>
#include <iterator>
#include <utility>

#include <fmt/format.h>

#include "platform/Text.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

/// What may stand after the equals sign of a fault.
enum class Value { None, MayBeNumber, Number, MayBeText, Text };

struct Kind {
    const char* name;
    Value value;
    std::initializer_list<std::string_view> modifiers;
};

const std::array<Kind, 18>& Kinds() {
    static const std::array<Kind, 18> kinds{{
        {"silent-after", Value::Number, {}},
        {"silent-midline", Value::Number, {"bytes"}},
        {"garbage", Value::MayBeNumber, {}},
        {"unsolicited", Value::MayBeText, {"gap"}},
        {"unsolicited-in-message", Value::MayBeText, {}},
        {"unsolicited-pdu", Value::Text, {}},
        {"split", Value::Number, {"gap"}},
        {"delay", Value::Number, {"after"}},
        {"refuse", Value::Text, {"after", "times"}},
        {"error", Value::Text, {"after", "times"}},
        {"refuse-prompt", Value::MayBeNumber, {"after", "times"}},
        {"refuse-body", Value::MayBeNumber, {"after", "times"}},
        {"asleep", Value::Number, {}},
        {"unplug-after", Value::Number, {"bytes", "for"}},
        {"empty-location", Value::Text, {}},
        {"store-query", Value::Text, {}},
        {"channel-mode", Value::Text, {}},
        {"echo-lost", Value::None, {}},
    }};
    return kinds;
}

/// All the words that a PC must expect between two lines.
constexpr std::array<const char*, 10> unsolicitedLines{"RING",
                                                       "NO CARRIER",
                                                       "+CMTI: \"SM\",3",
                                                       "+CBMI: \"BM\",1",
                                                       "+CDSI: \"SR\",2",
                                                       "+CLIP: \"+15550100300\",145",
                                                       "+EADC: 1,2",
                                                       "+GPIOS: 1,0",
                                                       "+EKPDS: 1",
                                                       "+BATS: 3"};

constexpr int afterHandshake = -1;
/// No answer of the handshake's first commands may take longer.
constexpr int handshakePatience = 40;

std::optional<int> WholeNumber(std::string_view text) {
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (text.empty() || text.size() > 8 || !digits) return std::nullopt;
    return std::stoi(std::string(text));
}

std::string WithoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

std::string Framed(const std::string& text) {
    return "\r\n" + text + "\r\n";
}

/// An unsolicited line with the message that it announces.
std::string DeliveredDirectly(const std::string& word) {
    const std::string pdu =
        WriteDeliver({"+15550100300", u"On my way", {}, false, {2007, 3, 14, 15, 9, 26, 60}}, {});
    return fmt::format("\r\n{}: ,{}\r\n{}\r\n", word, pdu.size() / 2 - 1, pdu);
}

Answer ErrorFor(const Command& command, int number) {
    const bool message = command.name.starts_with("+CM") || command.name == "+CPMS" ||
                         command.name == "+CNMI" || command.name == "+CSMS" || command.name == "+CSCA";
    return message && command.name != "+CMEE" ? Answer::Cms(number) : Answer::Cme(number);
}

/// Bytes that no reply holds, and no CR or LF that would open or close a line. The same ones each time.
std::string Garbage(int count) {
    std::string bytes;
    unsigned state = 0x5eed;
    while (static_cast<int>(bytes.size()) < count) {
        state = state * 1'103'515'245 + 12'345;
        const auto byte = static_cast<char>(state >> 16);
        if (byte != '\r' && byte != '\n') bytes += byte;
    }
    return bytes;
}

}  // namespace

const char* Faults::Help() {
    return R"(A fault is NAME, NAME=VALUE, or either with modifiers behind it: NAME=VALUE,MODIFIER=NUMBER...
Several faults work together. N counts command lines from the start, MS is milliseconds.

  silent-after=N            answers N commands and then nothing any more
  silent-midline=N          breaks off in the middle of the first line that answers command N (or after
      [,bytes=K]            K bytes of it) and then says nothing any more
  garbage[=K]               K bytes of noise (16) before each reply
  unsolicited=TEXT          this line before every line of a reply (or only before line G of each, from 1);
      [,gap=G]              without TEXT or with `all`: RING, NO CARRIER, +CMTI, +CBMI ... in turn
  unsolicited-in-message=TEXT   this line between +CMGR: or +CMGL: and its PDU
  unsolicited-pdu=+CMT      a message that is delivered directly before each reply: +CMT, +CBM or +CDS
  split=K[,gap=MS]          replies cut into pieces of K bytes, 1 ms (or MS) apart
  delay=MS[,after=N]        replies come MS later, from command N + 1 on; `after=handshake` begins when
                            AT+CPMS=? has been answered, as does every delay above 40 ms without `after`
  refuse=TEXT               commands that begin with TEXT (behind AT) answer ERROR
  error=TEXT:E              the same with error number E, for those with a body after the body
  refuse-prompt[=E]         ERROR, or error number E, in place of the prompt
  refuse-body[=E]           ERROR, or error number E, after the body
      [,after=N][,times=T]  for these four: not the first N such commands, and only T of them
  asleep=N                  answers nothing until AT+ESLP=0 has come N times
  unplug-after=N            hangs up on command N + 1, after K bytes of its reply (0), and comes back
      [,bytes=K][,for=MS]   after MS (or never)

And manners in which handsets differ:
  empty-location=ok|321     what AT+CMGR answers for an empty location
  store-query=V             what AT+EQUERY=0 answers: (0-3), 3 or error
  channel-mode=V            what AT+ESUO? answers: 3, 4, 0 (nothing can be set) or error
  echo-lost                 the echo doesn't reach the PC
)";
}

int Faults::Fault::With(const char* key, int otherwise) const {
    const auto found = with.find(key);
    return found == with.end() ? otherwise : found->second;
}

Result<Faults> Faults::Parse(const std::vector<std::string>& specifications) {
    Faults faults;
    for (const std::string& specification : specifications) {
        const auto bad = [&](const std::string& why) {
            return SystemFailure{0, fmt::format("fault \"{}\": {}", specification, why)};
        };
        // Modifiers are peeled off the end, so that the value may hold commas and equals signs of its own.
        Fault fault;
        std::string rest = specification;
        for (;;) {
            const size_t comma = rest.rfind(',');
            const size_t equals = comma == std::string::npos ? comma : rest.find('=', comma);
            if (equals == std::string::npos || equals == comma + 1) break;
            const std::string key = rest.substr(comma + 1, equals - comma - 1);
            if (!std::all_of(key.begin(), key.end(), [](char c) { return c >= 'a' && c <= 'z'; })) break;
            const std::string value = rest.substr(equals + 1);
            const auto number = key == "after" && value == "handshake" ? afterHandshake : WholeNumber(value);
            if (!number) return bad(key + " wants a number");
            fault.with[key] = *number;
            rest.erase(comma);
        }
        const size_t equals = rest.find('=');
        fault.name = rest.substr(0, equals);
        const bool given = equals != std::string::npos && equals + 1 < rest.size();
        if (given) fault.value = rest.substr(equals + 1);

        const auto& kinds = Kinds();
        const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                       [&](const Kind& entry) { return entry.name == fault.name; });
        if (kind == kinds.end()) return bad("there is no such fault");
        for (const auto& modifier : fault.with) {
            const auto& known = kind->modifiers;
            if (std::find(known.begin(), known.end(), modifier.first) == known.end()) {
                return bad(fmt::format("it takes no {}", modifier.first));
            }
            if (modifier.second == afterHandshake && fault.name != "delay")
                return bad("after wants a number");
        }
        const bool mustHave = kind->value == Value::Number || kind->value == Value::Text;
        if (mustHave && !given) return bad("it wants a value");
        if (kind->value == Value::None && equals != std::string::npos) return bad("it takes no value");
        if (kind->value == Value::Number || (kind->value == Value::MayBeNumber && given)) {
            const auto number = WholeNumber(fault.value);
            if (!number) return bad("its value isn't a number");
            fault.number = *number;
        }
        if (fault.name == "split" && fault.number == 0) return bad("pieces of no bytes never end");
        if (fault.name == "error") {
            const size_t colon = fault.value.rfind(':');
            const auto number =
                colon == std::string::npos ? std::nullopt : WholeNumber(fault.value.substr(colon + 1));
            if (!number || colon == 0) return bad("it wants COMMAND:NUMBER");
            fault.number = *number;
            fault.value.erase(colon);
        }
        const auto oneOf = [&](std::initializer_list<const char*> words) {
            return std::find(words.begin(), words.end(), fault.value) != words.end();
        };
        if ((fault.name == "empty-location" && !oneOf({"ok", "321"})) ||
            (fault.name == "store-query" && !oneOf({"(0-3)", "3", "error"})) ||
            (fault.name == "channel-mode" && !oneOf({"0", "3", "4", "error"})) ||
            (fault.name == "unsolicited-pdu" && !oneOf({"+CMT", "+CBM", "+CDS"}))) {
            return bad("its value isn't one of those that it knows");
        }
        if (fault.name == "delay" && !fault.with.contains("after") && fault.number > handshakePatience) {
            fault.with["after"] = afterHandshake;
        }
        fault.value = fault.name.starts_with("unsolicited") ? fault.value : WithoutBlanks(fault.value);
        faults.faults_.push_back(std::move(fault));
    }
    return faults;
}

const Faults::Fault* Faults::Find(const char* name) const {
    const auto found =
        std::find_if(faults_.begin(), faults_.end(), [&](const Fault& fault) { return fault.name == name; });
    return found == faults_.end() ? nullptr : &*found;
}

bool Faults::Hears(const std::string& line) {
    ++commands_;
    const std::string text = WithoutBlanks(line);
    const bool wakeUp = EqualIgnoringCase(text, "AT+ESLP=0");
    if (wakeUp || EqualIgnoringCase(text, "AT+ESUO?")) handshakeDone_ = false;
    if (const Fault* fault = Find("silent-after"); fault != nullptr && commands_ > fault->number)
        silent_ = true;
    if (const Fault* fault = Find("asleep"); fault != nullptr && wakeUps_ < fault->number) {
        if (wakeUp) ++wakeUps_;
        return false;
    }
    return !silent_;
}

/// Whether a fault for a named command strikes this time.
bool Faults::Strikes(Fault& fault, const Command& command) {
    if (!fault.name.starts_with("refuse-") &&
        !EqualIgnoringCase(WithoutBlanks(command.text).substr(0, fault.value.size()), fault.value)) {
        return false;
    }
    const int passed = fault.met++ - fault.With("after", 0);
    return passed >= 0 && passed < fault.With("times", INT32_MAX);
}

std::optional<Answer> Faults::Instead(const Command& command, Stage stage) {
    const bool hasBody =
        (command.name == "+CMGS" || command.name == "+CMGW") && command.form == Command::Form::Set;
    for (Fault& fault : faults_) {
        const bool now = fault.name == "refuse"          ? stage == Stage::Command
                         : fault.name == "error"         ? (stage == Stage::Body) == hasBody
                         : fault.name == "refuse-prompt" ? hasBody && stage == Stage::Command
                         : fault.name == "refuse-body"   ? hasBody && stage == Stage::Body
                                                         : false;
        if (!now || !Strikes(fault, command)) continue;
        const bool numbered = fault.name != "refuse" && (fault.name == "error" || !fault.value.empty());
        return numbered ? ErrorFor(command, fault.number) : Answer::Error();
    }
    return std::nullopt;
}

void Faults::Shape(Features& features) const {
    if (const Fault* fault = Find("empty-location")) features.emptyIsOk = fault->value == "ok";
    if (const Fault* fault = Find("store-query")) {
        features.storeQuery = fault->value == "error" ? "ERROR" : fault->value;
    }
    if (const Fault* fault = Find("channel-mode")) {
        features.channelMode = fault->value == "error" ? -1 : fault->number;
        if (const auto mode = WholeNumber(fault->value)) features.channelMode = *mode;
    }
}

/// Cuts the reply to the command that a break strikes; true when the break has come.
bool Faults::Break(std::vector<Sound>& sounds, bool finished) {
    const Fault* const midline = Find("silent-midline");
    const Fault* const unplug = Find("unplug-after");
    const bool breaks = midline != nullptr && commands_ == midline->number;
    const bool unplugs = unplug != nullptr && commands_ == unplug->number + 1;
    if (broken_ || (!breaks && !unplugs)) return false;
    if (bytesLeft_ < 0) {
        const int half = sounds.empty() ? 0 : static_cast<int>(sounds.front().bytes.size() / 2);
        bytesLeft_ = unplugs ? unplug->With("bytes", 0) : midline->With("bytes", half);
    }
    for (Sound& sound : sounds) {
        sound.bytes.resize(std::min(sound.bytes.size(), static_cast<size_t>(bytesLeft_)));
        bytesLeft_ -= static_cast<int>(sound.bytes.size());
    }
    std::erase_if(sounds, [](const Sound& sound) { return sound.bytes.empty(); });
    if (bytesLeft_ > 0 && !finished) return false;
    broken_ = true;
    if (unplugs) {
        const int backAfter = unplug->With("for", -1);
        hangUp_ = HangUp{backAfter < 0 ? std::nullopt : std::optional(Milliseconds(backAfter))};
    }
    return true;
}

/// Gives each sound its moment, and cuts it into pieces if that is wanted.
void Faults::Pace(std::vector<Sound>& sounds, bool handshakeWasDone) const {
    if (const Fault* delay = Find("delay")) {
        const int after = delay->With("after", 0);
        const bool delayed = after == afterHandshake ? handshakeWasDone : commands_ > after;
        for (Sound& sound : sounds) {
            if (delayed) sound.delay = Milliseconds(delay->number);
        }
    }
    if (const Fault* split = Find("split")) {
        std::vector<Sound> pieces;
        int count = 0;
        for (const Sound& sound : sounds) {
            for (size_t at = 0; at < sound.bytes.size(); at += static_cast<size_t>(split->number)) {
                pieces.push_back({sound.bytes.substr(at, static_cast<size_t>(split->number)),
                                  sound.delay + Milliseconds(count++ * split->With("gap", 1))});
            }
        }
        sounds = std::move(pieces);
    }
}

std::vector<Faults::Sound> Faults::Apply(std::vector<Piece> pieces) {
    if (silent_) return {};
    const bool handshakeWasDone = handshakeDone_;
    const Fault* const inMessage = Find("unsolicited-in-message");
    const Fault* const directly = Find("unsolicited-pdu");
    const Fault* const garbage = Find("garbage");
    std::vector<Sound> echo;
    std::vector<Sound> reply;
    int gap = 0;
    bool begun = false;
    bool finished = pieces.empty();
    for (Piece& piece : pieces) {
        if (piece.kind == Piece::Kind::Echo) {
            if (Find("echo-lost") == nullptr) echo.push_back({std::move(piece.bytes)});
            continue;
        }
        if (!std::exchange(begun, true)) {
            if (garbage != nullptr) reply.push_back({Garbage(garbage->value.empty() ? 16 : garbage->number)});
            if (directly != nullptr) reply.push_back({DeliveredDirectly(directly->value)});
        }
        if (piece.kind == Piece::Kind::Information || piece.kind == Piece::Kind::Final) {
            ++gap;
            for (const Fault& fault : faults_) {
                if (fault.name != "unsolicited" || fault.With("gap", gap) != gap) continue;
                const bool all = fault.value.empty() || fault.value == "all";
                reply.push_back({Framed(all ? unsolicitedLines[nextUnsolicited_++ % unsolicitedLines.size()]
                                            : fault.value)});
            }
        }
        if (piece.kind == Piece::Kind::Pdu && inMessage != nullptr) {
            reply.push_back({Framed(inMessage->value.empty() ? "RING" : inMessage->value)});
        }
        if (piece.bytes.starts_with("\r\n+CPMS: (")) handshakeDone_ = true;
        finished = finished || piece.kind == Piece::Kind::Final;
        reply.push_back({std::move(piece.bytes)});
    }
    // An echo by itself belongs to a command that hasn't ended yet.
    const bool answers = begun || pieces.empty();
    const bool broken = answers && Break(reply, finished);
    Pace(reply, handshakeWasDone);
    echo.insert(echo.end(), std::make_move_iterator(reply.begin()), std::make_move_iterator(reply.end()));
    if (broken && !hangUp_) silent_ = true;
    return echo;
}

std::optional<Faults::HangUp> Faults::TakeHangUp() {
    return std::exchange(hangUp_, std::nullopt);
}

}  // namespace tarnbridge::simulator
