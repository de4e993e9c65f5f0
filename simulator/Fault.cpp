#include "simulator/Fault.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include <fmt/format.h>

#include "platform/Text.h"

namespace tarnbridge::simulator {
namespace {

/// What may stand after the equals sign of a fault. A place is the beginning of a command.
enum class Value { None, Number, Text, Place, PlaceAndNumber, PlaceAndMayBeNumber };

struct Kind {
    const char* name;
    Value value;
    bool optional = false;                         ///< the value may be missing
    std::vector<std::string_view> modifiers = {};  ///< beside those of a place
    std::vector<std::string_view> words = {};      ///< if only these are known
};

const std::vector<Kind>& Kinds() {
    static const std::vector<Kind> kinds{
        {"silent-after", Value::Number},
        {"silent-midline", Value::Number, false, {"bytes"}},
        {"lost", Value::Place, true},
        {"unheard", Value::Place, true},
        {"doubled", Value::Place, true},
        {"late", Value::PlaceAndNumber},
        {"overtaken", Value::PlaceAndNumber},
        {"lose-octet", Value::PlaceAndNumber},
        {"alter-octet", Value::PlaceAndNumber},
        {"refuse", Value::Place, true},
        {"error", Value::PlaceAndNumber},
        {"refuse-prompt", Value::PlaceAndMayBeNumber, true},
        {"refuse-body", Value::PlaceAndMayBeNumber, true},
        {"delete-message", Value::PlaceAndNumber},
        {"replace-message", Value::PlaceAndNumber},
        {"another-phone", Value::Place, true},
        {"garbage", Value::Number, true},
        {"unsolicited", Value::Text, true, {"gap"}},
        {"unsolicited-in-message", Value::Text, true},
        {"unsolicited-pdu", Value::Text, false, {}, {"+CMT", "+CBM", "+CDS"}},
        {"split", Value::Number, false, {"gap"}},
        {"delay", Value::Number, false, {"after"}},
        {"asleep", Value::Number},
        {"sleeps-after", Value::Number},
        {"prompt-timeout", Value::Number, false, {"mute"}},
        {"unplug-after", Value::Number, false, {"bytes", "for", "another"}},
        {"empty-location", Value::Text, false, {}, {"ok", "321"}},
        {"store-query", Value::Text, false, {}, {"(0-3)", "3", "error"}},
        {"channel-mode", Value::Text, false, {}, {"0", "3", "4", "error"}},
        {"lower-case", Value::None},
        {"no-escape", Value::None},
        {"no-sim", Value::None},
        {"echo-lost", Value::None},
    };
    return kinds;
}

/// No answer of the handshake's first commands may take longer.
constexpr int handshakePatience = 40;

bool HasPlace(const Kind& kind) {
    return kind.value == Value::Place || kind.value == Value::PlaceAndNumber ||
           kind.value == Value::PlaceAndMayBeNumber;
}

bool Knows(const Kind& kind, std::string_view modifier) {
    const auto among = [&](const auto& names) {
        return std::find(std::begin(names), std::end(names), modifier) != std::end(names);
    };
    constexpr std::array<std::string_view, 3> ofPlaces{"after", "times", "each"};
    return among(kind.modifiers) || (HasPlace(kind) && among(ofPlaces));
}

std::optional<int> WholeNumber(std::string_view text) {
    const bool digits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!digits || text.empty() || text.size() > 9) return std::nullopt;
    return std::stoi(std::string(text));
}

/// Takes the value apart as its kind asks; a word of what is wrong, or nothing.
std::string ReadValue(const Kind& kind, std::string value, Fault& fault) {
    if (kind.value == Value::Text) {
        const auto& words = kind.words;
        if (!words.empty() && std::find(words.begin(), words.end(), value) == words.end()) {
            return "its value isn't one of those that it knows";
        }
        fault.text = std::move(value);
        return {};
    }
    if (kind.value != Value::Place) {
        const size_t colon = HasPlace(kind) ? value.rfind(':') : std::string::npos;
        const bool place = colon != std::string::npos;
        const auto number = WholeNumber(place ? std::string_view(value).substr(colon + 1) : value);
        const bool mustHave = kind.value != Value::PlaceAndMayBeNumber;
        if (mustHave && !number)
            return HasPlace(kind) ? "it wants COMMAND:NUMBER" : "its value isn't a number";
        if (place && colon == 0) return "it wants COMMAND:NUMBER";
        fault.numbered = number.has_value();
        fault.number = number.value_or(0);
        if (number) value.erase(place ? colon : 0);
    }
    fault.text = WithoutBlanks(std::move(value));
    if (HasPlace(kind) && fault.text.ends_with('>')) {
        fault.text.pop_back();
        fault.ofBody = true;
    }
    return {};
}

}  // namespace

const char* Fault::Help() {
    return R"(A fault is NAME, NAME=VALUE, or either with modifiers behind it: NAME=VALUE,MODIFIER=NUMBER...
Several faults work together. N and K are counts, MS is milliseconds. TEXT is the beginning of a
command behind AT (+CMGR, +CMGR=7), and TEXT> the body that follows its prompt; without TEXT any
command line is meant, and > alone is any body.

Faults that strike single commands:
  lost[=TEXT]               carried out, but not answered
  unheard[=TEXT]            neither carried out nor answered
  doubled[=TEXT]            answered twice
  late=[TEXT:]MS            answered MS later; the commands that follow wait for that
  overtaken=[TEXT:]MS       answered MS later; the replies that follow are in time and overtake it
  lose-octet=[TEXT:]K       octet K of the reply, from 1, is missing
  alter-octet=[TEXT:]K      octet K of the reply arrives with its lowest bit changed
  refuse[=TEXT]             ERROR
  error=[TEXT:]E            error number E, for those with a body after the body
  refuse-prompt[=E]         ERROR, or error number E, in place of the prompt
  refuse-body[=E]           ERROR, or error number E, after the body
  delete-message=[TEXT:]L   before the command the message at location L is gone (numbered as in MT)
  replace-message=[TEXT:]L  before the command another one, unread, stands at location L
  another-phone[=TEXT]      before the command another phone stands behind the port (see --other-state)
      [,after=N][,times=T][,each=K]   for all of these: not the first N such commands; only T times (the
                            messages and the phone: once); only each K-th of them

Faults of the line:
  silent-after=N            answers N commands and then nothing any more
  silent-midline=N          breaks off in the middle of the first line that answers command N (or after
      [,bytes=K]            K bytes of it) and then says nothing any more
  garbage[=K]               K bytes of noise (16) before each reply, and as a line before each PDU
  unsolicited=TEXT          this line before every line of a reply, a PDU among them (or only before line
      [,gap=G]              G of each, from 1); without TEXT or with `all`: RING, NO CARRIER, +CMTI,
                            +CBMI ... in turn
  unsolicited-in-message=TEXT   this line between +CMGR: or +CMGL: and its PDU
  unsolicited-pdu=+CMT      a message that is delivered directly before each reply: +CMT, +CBM or +CDS
  split=K[,gap=MS]          replies cut into pieces of K bytes, 1 ms (or MS) apart
  delay=MS[,after=N]        each reply comes MS later, from command N + 1 on, and the next command waits
                            for it; `after=handshake` begins when AT+CPMS=? has been answered, as does
                            every delay above 40 ms without `after`
  asleep=N                  answers nothing until AT+ESLP=0 has come N times
  sleeps-after=MS           falls asleep after MS without a command, and after AT+ESLP=1; then answers
                            nothing until AT+ESLP=0
  prompt-timeout=MS         gives a prompt up after MS without a byte, with ERROR (or with mute=1 without
      [,mute=1]             a word)
  unplug-after=N            hangs up on command N + 1, after K bytes of its reply (0), and comes back
      [,bytes=K][,for=MS]   after MS (or never), with another=1 as another phone (see --other-state)
      [,another=1]

And manners in which handsets differ:
  empty-location=ok|321     what AT+CMGR answers for an empty location
  store-query=V             what AT+EQUERY=0 answers: (0-3), 3 or error
  channel-mode=V            what AT+ESUO? answers: 3, 4, 0 (nothing can be set) or error
  lower-case                its PDUs are in lower-case digits
  no-escape                 Escape doesn't end a prompt
  no-sim                    says what a phone without a SIM says
  echo-lost                 the echo doesn't reach the PC
)";
}

std::string WithoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

int Fault::With(const char* key, int otherwise) const {
    const auto found = with.find(key);
    return found == with.end() ? otherwise : found->second;
}

bool Fault::Strikes(const std::string& command, bool body) {
    if (body != ofBody) return false;
    if (!EqualIgnoringCase(WithoutBlanks(command).substr(0, text.size()), text)) return false;
    const int passed = met++ - With("after", 0);
    const int each = With("each", 1);
    const bool once = name.ends_with("-message") || name == "another-phone";
    return passed >= 0 && (passed + 1) % each == 0 && passed / each < With("times", once ? 1 : INT32_MAX);
}

Result<Fault> Fault::Parse(const std::string& specification) {
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

    const auto& kinds = Kinds();
    const auto kind =
        std::find_if(kinds.begin(), kinds.end(), [&](const Kind& entry) { return entry.name == fault.name; });
    if (kind == kinds.end()) return bad("there is no such fault");
    for (const auto& [modifier, number] : fault.with) {
        if (!Knows(*kind, modifier)) return bad(fmt::format("it takes no {}", modifier));
        if (number == afterHandshake && fault.name != "delay") return bad("after wants a number");
    }
    if (kind->value == Value::None && equals != std::string::npos) return bad("it takes no value");
    if (kind->value != Value::None && !kind->optional && !given) return bad("it wants a value");
    if (given) {
        if (const std::string why = ReadValue(*kind, rest.substr(equals + 1), fault); !why.empty())
            return bad(why);
    }
    if (fault.name.starts_with("refuse-")) fault.ofBody = fault.name == "refuse-body";
    if (fault.name == "split" && fault.number == 0) return bad("pieces of no bytes never end");
    if (fault.name.ends_with("-octet") && fault.number == 0) return bad("octets are counted from 1");
    if (fault.With("each", 1) == 0) return bad("each wants 1 or more");
    if (fault.name == "delay" && !fault.with.contains("after") && fault.number > handshakePatience) {
        fault.with["after"] = afterHandshake;
    }
    return fault;
}

}  // namespace tarnbridge::simulator
