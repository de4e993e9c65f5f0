#include "simulator/Faults.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <utility>

#include <fmt/format.h>

#include "platform/Text.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

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

/// Noise without CR and LF, which would open or close a line; the same each time.
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

Result<Faults> Faults::Parse(const std::vector<std::string>& specifications) {
    Faults faults;
    for (const std::string& specification : specifications) {
        Result<Fault> fault = Fault::Parse(specification);
        if (!fault) return fault.Failure();
        faults.faults_.push_back(std::move(*fault));
    }
    return faults;
}

const Fault* Faults::Find(const char* name) const {
    const auto found =
        std::find_if(faults_.begin(), faults_.end(), [&](const Fault& fault) { return fault.name == name; });
    return found == faults_.end() ? nullptr : &*found;
}

bool Faults::Hears(const std::string& line) {
    struck_.clear();
    ++commands_;
    const std::string text = WithoutBlanks(line);
    if (EqualIgnoringCase(text, "AT+ESLP=0") || EqualIgnoringCase(text, "AT+ESUO?")) handshakeDone_ = false;
    if (const Fault* fault = Find("silent-after"); fault != nullptr && commands_ > fault->number)
        silent_ = true;
    const bool sleeps = Sleeps(text);
    lastCommand_ = now_;
    return !sleeps && !silent_ && Strike(text.substr(2), false);
}

bool Faults::HearsBody(const Command& command) {
    struck_.clear();
    return !silent_ && Strike(command.text, true);
}

/// Whether the phone is asleep and stays so over this line.
bool Faults::Sleeps(const std::string& text) {
    const bool wakeUp = EqualIgnoringCase(text, "AT+ESLP=0");
    if (const Fault* fault = Find("asleep"); fault != nullptr && wakeUps_ < fault->number) {
        if (wakeUp) ++wakeUps_;
        return true;
    }
    if (const Fault* fault = Find("sleeps-after")) {
        if (lastCommand_ && now_ - *lastCommand_ >= Milliseconds(fault->number)) asleep_ = true;
        if (wakeUp) asleep_ = false;
        if (asleep_) return true;
        asleep_ = EqualIgnoringCase(text, "AT+ESLP=1");
    }
    return false;
}

/// Notes what strikes the command or its reply; false when it isn't even heard.
bool Faults::Strike(const std::string& command, bool body) {
    constexpr std::array<const char*, 7> ofReplies{"lost",      "unheard",    "doubled",    "late",
                                                   "overtaken", "lose-octet", "alter-octet"};
    constexpr std::array<const char*, 3> ofThePhone{"delete-message", "replace-message", "another-phone"};
    for (size_t i = 0; i < faults_.size(); ++i) {
        Fault& fault = faults_[i];
        const auto reply = std::find(ofReplies.begin(), ofReplies.end(), fault.name);
        const auto deed = std::find(ofThePhone.begin(), ofThePhone.end(), fault.name);
        if (reply == ofReplies.end() && deed == ofThePhone.end()) continue;
        if (!fault.Strikes(command, body)) continue;
        if (reply != ofReplies.end()) {
            struck_.push_back(i);
        } else {
            deeds_.push_back({static_cast<Deed::Kind>(deed - ofThePhone.begin()), fault.number});
        }
    }
    return Struck("unheard") == nullptr;
}

const Fault* Faults::Struck(const char* name) const {
    const auto found = std::find_if(struck_.begin(), struck_.end(),
                                    [&](size_t index) { return faults_[index].name == name; });
    return found == struck_.end() ? nullptr : &faults_[*found];
}

std::optional<Answer> Faults::Instead(const Command& command, Stage stage) {
    const bool hasBody =
        (command.name == "+CMGS" || command.name == "+CMGW") && command.form == Command::Form::Set;
    const bool body = stage == Stage::Body;
    for (Fault& fault : faults_) {
        const bool now = fault.name == "refuse"          ? body == fault.ofBody
                         : fault.name == "error"         ? body == hasBody
                         : fault.name == "refuse-prompt" ? hasBody && !body
                         : fault.name == "refuse-body"   ? body
                                                         : false;
        if (!now || !fault.Strikes(command.text, fault.ofBody)) continue;
        return fault.numbered ? ErrorFor(command, fault.number) : Answer::Error();
    }
    return std::nullopt;
}

void Faults::Shape(Features& features) const {
    if (const Fault* fault = Find("empty-location")) features.emptyIsOk = fault->text == "ok";
    if (const Fault* fault = Find("store-query")) {
        features.storeQuery = fault->text == "error" ? "ERROR" : fault->text;
    }
    if (const Fault* fault = Find("channel-mode")) {
        features.channelMode = fault->text == "error" ? -1 : fault->text.front() - '0';
    }
    if (Find("no-escape") != nullptr) features.escapeEndsPrompt = false;
    if (Find("no-sim") != nullptr) features.simInserted = false;
}

/// Noise before this piece of a reply.
std::vector<std::string> Faults::LinesBefore(const Piece& piece, int gap) {
    std::vector<std::string> lines;
    const bool pdu = piece.kind == Piece::Kind::Pdu;
    const Fault* const garbage = Find("garbage");
    if (pdu && garbage != nullptr) lines.push_back(Framed(Garbage(garbage->numbered ? garbage->number : 16)));
    for (const Fault& fault : faults_) {
        const bool here = fault.name == "unsolicited-in-message"
                              ? pdu
                              : fault.name == "unsolicited" && fault.With("gap", gap) == gap;
        if (!here) continue;
        const bool all = fault.name == "unsolicited" && (fault.text.empty() || fault.text == "all");
        lines.push_back(Framed(all ? unsolicitedLines[nextUnsolicited_++ % unsolicitedLines.size()]
                               : fault.text.empty() ? "RING"
                                                    : fault.text));
    }
    return lines;
}

/// What single faults do to the bytes of a reply.
void Faults::Spoil(std::vector<Sound>& sounds) const {
    if (Struck("lost") != nullptr) sounds.clear();
    for (const char* name : {"lose-octet", "alter-octet"}) {
        const Fault* const fault = Struck(name);
        if (fault == nullptr) continue;
        auto octet = static_cast<size_t>(fault->number) - 1;
        auto sound = sounds.begin();
        for (; sound != sounds.end() && octet >= sound->bytes.size(); ++sound)
            octet -= sound->bytes.size();
        if (sound == sounds.end()) continue;
        if (fault->name == "lose-octet") {
            sound->bytes.erase(octet, 1);
        } else {
            sound->bytes[octet] = static_cast<char>(sound->bytes[octet] ^ 1);
        }
    }
    if (Struck("doubled") != nullptr) {
        const std::vector<Sound> once = sounds;
        sounds.insert(sounds.end(), once.begin(), once.end());
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
        hangUp_ = HangUp{backAfter < 0 ? std::nullopt : std::optional(Milliseconds(backAfter)),
                         unplug->With("another", 0) != 0};
    }
    return true;
}

/// Gives each sound its moment, and cuts it into pieces if that is wanted.
void Faults::Pace(std::vector<Sound>& sounds, bool handshakeWasDone) const {
    if (const Fault* delay = Find("delay")) {
        const int after = delay->With("after", 0);
        const bool delayed = after == Fault::afterHandshake ? handshakeWasDone : commands_ > after;
        for (Sound& sound : sounds) {
            if (delayed) sound.delay = Milliseconds(delay->number);
        }
    }
    for (const char* name : {"late", "overtaken"}) {
        const Fault* const fault = Struck(name);
        if (fault == nullptr) continue;
        for (Sound& sound : sounds) {
            sound.delay += Milliseconds(fault->number);
            sound.aside = fault->name == "overtaken";
        }
    }
    if (const Fault* split = Find("split")) {
        std::vector<Sound> pieces;
        int count = 0;
        for (const Sound& sound : sounds) {
            for (size_t at = 0; at < sound.bytes.size(); at += static_cast<size_t>(split->number)) {
                pieces.push_back({sound.bytes.substr(at, static_cast<size_t>(split->number)),
                                  sound.delay + Milliseconds(count++ * split->With("gap", 1)), sound.aside});
            }
        }
        sounds = std::move(pieces);
    }
}

std::vector<Faults::Sound> Faults::Apply(std::vector<Piece> pieces) {
    if (silent_) return {};
    const bool handshakeWasDone = handshakeDone_;
    const Fault* const directly = Find("unsolicited-pdu");
    const Fault* const garbage = Find("garbage");
    const bool lowerCase = Find("lower-case") != nullptr;
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
            if (garbage != nullptr) reply.push_back({Garbage(garbage->numbered ? garbage->number : 16)});
            if (directly != nullptr) reply.push_back({DeliveredDirectly(directly->text)});
        }
        if (piece.kind == Piece::Kind::Information || piece.kind == Piece::Kind::Pdu ||
            piece.kind == Piece::Kind::Final) {
            for (std::string& line : LinesBefore(piece, ++gap))
                reply.push_back({std::move(line)});
        }
        if (piece.kind == Piece::Kind::Pdu && lowerCase) {
            std::transform(piece.bytes.begin(), piece.bytes.end(), piece.bytes.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        }
        if (piece.bytes.starts_with("\r\n+CPMS: (")) handshakeDone_ = true;
        finished = finished || piece.kind == Piece::Kind::Final;
        reply.push_back({std::move(piece.bytes)});
    }
    // An echo by itself belongs to a command that hasn't ended yet.
    const bool answers = begun || pieces.empty();
    if (answers) Spoil(reply);
    const bool broken = answers && Break(reply, finished);
    Pace(reply, handshakeWasDone);
    if (answers) struck_.clear();
    echo.insert(echo.end(), std::make_move_iterator(reply.begin()), std::make_move_iterator(reply.end()));
    if (broken && !hangUp_) silent_ = true;
    return echo;
}

std::vector<Faults::Deed> Faults::TakeDeeds() {
    return std::exchange(deeds_, {});
}

std::optional<Faults::HangUp> Faults::TakeHangUp() {
    return std::exchange(hangUp_, std::nullopt);
}

std::optional<Faults::PromptPatience> Faults::Patience() const {
    const Fault* const fault = Find("prompt-timeout");
    if (fault == nullptr) return std::nullopt;
    return PromptPatience{Milliseconds(fault->number), fault->With("mute", 0) != 0};
}

}  // namespace tarnbridge::simulator
