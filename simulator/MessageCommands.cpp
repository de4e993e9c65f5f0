#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "simulator/CommandTable.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

using Form = Command::Form;

// Numbers of +CMS ERROR, 3GPP TS 27.005 3.2.5.
constexpr int notAllowed = 302;
constexpr int notSupported = 303;
constexpr int invalidPdu = 304;
constexpr int simMissing = 310;
constexpr int invalidIndex = 321;
constexpr int memoryFull = 322;

constexpr std::array<const char*, 2> memories{"SM", "ME"};

/// Memories whose locations are numbered together: those of the SIM come first.
bool Covers(const std::string& selected, std::string_view memory) {
    return selected == "MT" || selected == memory;
}

/// What is added to a memory's own locations on the wire.
int OffsetOf(const HandsetContent& content, std::string_view memory) {
    const MessageMemory* const sim = content.Messages("SM");
    return memory == "ME" && sim != nullptr ? sim->capacity : 0;
}

bool Exists(const HandsetContent& content, const std::string& name) {
    return name == "MT" || content.Messages(name) != nullptr;
}

std::string Usage(const HandsetContent& content, const std::string& selected) {
    size_t used = 0;
    int total = 0;
    for (const char* name : memories) {
        const MessageMemory* memory = content.Messages(name);
        if (memory == nullptr || !Covers(selected, name)) continue;
        used += memory->items.size();
        total += memory->capacity;
    }
    return fmt::format("{},{}", used, total);
}

/// A location of the selected memory; the memory is null when there is no such location.
struct Place {
    MessageMemory* memory = nullptr;
    int location = 0;

    StoredMessage* Find() const {
        const auto found = memory->items.find(location);
        return found == memory->items.end() ? nullptr : &found->second;
    }
};

Place Locate(HandsetContent& content, const std::string& selected, const Argument& argument) {
    const int location = argument.Number().value_or(0);
    for (const char* name : memories) {
        MessageMemory* memory = content.Messages(name);
        const int own = location - OffsetOf(content, name);
        if (memory != nullptr && Covers(selected, name) && own >= 1 && own <= memory->capacity)
            return {memory, own};
    }
    return {};
}

/// Why there is no such location.
Answer NoPlace(const Call& call) {
    const bool gone = call.session.memories[0] == "SM" && call.content.Messages("SM") == nullptr;
    return Answer::Cms(gone ? simMissing : invalidIndex);
}

size_t TpduLength(const StoredMessage& message) {
    const std::string bytes = BytesOfHex(message.pdu).value_or("");
    return bytes.size() - std::min(bytes.size(), ServiceCentreLength(bytes));
}

void MarkRead(Call& call, StoredMessage& message) {
    if (message.stat != 0) return;
    message.stat = 1;
    call.Changed();
}

Answer Format(Call& call) {
    switch (call.command.form) {
        case Form::Test:
            call.Line("+CMGF: (0)");
            return Answer::Ok();
        case Form::Read:
            call.Line("+CMGF: 0");
            return Answer::Ok();
        case Form::Execute:
            return Answer::Ok();
        case Form::Set:
            return call.command.At(0).text == "0" ? Answer::Ok() : Answer::Cms(notSupported);
    }
    return Answer::Error();
}

/// AT+CPMS, 3.2.2.
Answer Storage(Call& call) {
    const HandsetContent& content = call.content;
    std::array<std::string, 3>& selected = call.session.memories;
    if (call.command.form == Form::Test) {
        std::string names;
        for (const char* name : memories) {
            if (content.Messages(name) != nullptr) names += fmt::format("\"{}\",", name);
        }
        call.Line(fmt::format("+CPMS: ({0}\"MT\"),({0}\"MT\"),({0}\"MT\")", names));
        return Answer::Ok();
    }
    if (call.command.form == Form::Read) {
        std::string line = "+CPMS: ";
        for (const std::string& name : selected) {
            line += fmt::format("{}\"{}\",{}", &name == &selected[0] ? "" : ",", name, Usage(content, name));
        }
        call.Line(line);
        return Answer::Ok();
    }
    if (call.command.form == Form::Execute || call.command.arguments.size() > 3)
        return Answer::Cms(notAllowed);
    std::array<std::string, 3> wanted = selected;
    for (size_t i = 0; i < call.command.arguments.size(); ++i) {
        const Argument& argument = call.command.At(i);
        if (argument.Missing()) continue;
        if (!argument.quoted) return Answer::Cms(notAllowed);
        if (!Exists(content, argument.text))
            return Answer::Cms(argument.text == "SM" ? simMissing : notAllowed);
        wanted[i] = argument.text;
    }
    selected = wanted;
    call.Line(fmt::format("+CPMS: {},{},{}", Usage(content, selected[0]), Usage(content, selected[1]),
                          Usage(content, selected[2])));
    return Answer::Ok();
}

Answer ReadMessage(Call& call) {
    if (call.command.form == Form::Test) return Answer::Ok();
    if (call.command.form != Form::Set) return Answer::Error();
    const Place place = Locate(call.content, call.session.memories[0], call.command.At(0));
    if (place.memory == nullptr) return NoPlace(call);
    StoredMessage* message = place.Find();
    if (message == nullptr) return call.features.emptyIsOk ? Answer::Ok() : Answer::Cms(invalidIndex);
    call.Line(fmt::format("+CMGR: {},,{}", message->stat, TpduLength(*message)));
    call.Pdu(message->pdu);
    MarkRead(call, *message);
    return Answer::Ok();
}

/// AT+CMGL in PDU mode, 4.1: the states by number, 4 is all of them.
Answer ListMessages(Call& call) {
    if (call.command.form == Form::Test) {
        call.Line("+CMGL: (0-5,7)");
        return Answer::Ok();
    }
    if (call.command.form == Form::Read) return Answer::Error();
    const auto stat = call.command.form == Form::Execute ? 0 : call.command.At(0).Number();
    if (!stat || *stat > 7 || *stat == 6) return Answer::Cms(invalidPdu);
    for (const char* name : memories) {
        MessageMemory* memory = call.content.Messages(name);
        if (memory == nullptr || !Covers(call.session.memories[0], name)) continue;
        for (auto& [location, message] : memory->items) {
            if (*stat != 4 && *stat != message.stat) continue;
            call.Line(fmt::format("+CMGL: {},{},,{}", location + OffsetOf(call.content, name), message.stat,
                                  TpduLength(message)));
            call.Pdu(message.pdu);
            MarkRead(call, message);
        }
    }
    return Answer::Ok();
}

/// The PDU of a body, or nothing if a strict handset refuses it.
std::optional<PduFields> Accept(const std::string& body, int length) {
    const auto bytes = BytesOfHex(body);
    return bytes ? ReadPdu(*bytes, static_cast<size_t>(length)) : std::nullopt;
}

/// The location on the wire of a new message in the selected memory, or 0 when it is full.
int Store(Call& call, const std::string& selected, int stat, const std::string& pdu) {
    for (const char* name : memories) {
        if (call.content.Messages(name) == nullptr || !Covers(selected, name)) continue;
        const int location = call.content.Add(name, stat, pdu);
        if (location == 0) continue;
        call.Changed();
        return location + OffsetOf(call.content, name);
    }
    return 0;
}

Answer WriteMessage(Call& call) {
    if (call.command.form == Form::Test) return Answer::Ok();
    if (call.command.form != Form::Set) return Answer::Error();
    const int length = call.command.At(0).Number().value_or(0);
    const int stat = call.command.At(1).Missing() ? 2 : call.command.At(1).Number().value_or(-1);
    if (length == 0 || call.command.arguments.size() > 2) return Answer::Cms(invalidPdu);
    if (stat < 0 || stat > 7 || stat == 4 || stat == 6) return Answer::Cms(invalidPdu);
    if (stat < 2 && call.features.storeQuery == "ERROR") return Answer::Cms(notAllowed);
    return Answer::Body([length, stat](Call& later, const std::string& body) {
        const auto pdu = Accept(body, length);
        if (!pdu || pdu->submit == (stat < 2)) return Answer::Cms(invalidPdu);
        const int location = Store(later, later.session.memories[1], stat, body);
        if (location == 0) return Answer::Cms(memoryFull);
        later.Line(fmt::format("+CMGW: {}", location));
        return Answer::Ok();
    });
}

/// A message to the phone's own number comes back as an unread one, if there is room for it.
void Deliver(Call& call, const PduFields& pdu) {
    const Identity& identity = call.content.identity;
    if (identity.ownNumber.empty() || !IsAddressOf(pdu.address, identity.ownNumber)) return;
    const std::string& memory = call.session.memories[2];
    const int location =
        Store(call, memory, 0, WriteDelivered(pdu, identity.ownNumber, identity.serviceCentre, call.Now()));
    if (location != 0 && call.session.indications[1] == 1) {
        call.Later(fmt::format("+CMTI: \"{}\",{}", memory, location));
    }
}

Answer SendMessage(Call& call) {
    if (call.command.form == Form::Test) return Answer::Ok();
    if (call.command.form != Form::Set) return Answer::Error();
    const int length = call.command.At(0).Number().value_or(0);
    if (length == 0 || call.command.arguments.size() > 1) return Answer::Cms(invalidPdu);
    if (!call.content.HasSim()) return Answer::Cms(simMissing);
    return Answer::Body([length](Call& later, const std::string& body) {
        const auto pdu = Accept(body, length);
        if (!pdu || !pdu->submit) return Answer::Cms(invalidPdu);
        later.session.messageReference = (later.session.messageReference + 1) % 256;
        later.Line(fmt::format("+CMGS: {}", later.session.messageReference));
        Deliver(later, *pdu);
        return Answer::Ok();
    });
}

/// AT+CMGD, 3.5.4: a location, or with a flag of 1 to 4 more and more of the memory.
Answer DeleteMessage(Call& call) {
    const std::string& selected = call.session.memories[0];
    if (call.command.form == Form::Test) {
        std::string locations;
        for (const char* name : memories) {
            const MessageMemory* memory = call.content.Messages(name);
            if (memory == nullptr || !Covers(selected, name)) continue;
            for (const auto& item : memory->items) {
                locations += fmt::format("{}{}", locations.empty() ? "" : ",",
                                         item.first + OffsetOf(call.content, name));
            }
        }
        call.Line(fmt::format("+CMGD: ({}),(0-4)", locations));
        return Answer::Ok();
    }
    if (call.command.form != Form::Set || call.command.arguments.size() > 2) return Answer::Error();
    const int flag = call.command.At(1).Missing() ? 0 : call.command.At(1).Number().value_or(-1);
    if (flag < 0 || flag > 4) return Answer::Cms(notAllowed);
    if (flag == 0) {
        const Place place = Locate(call.content, selected, call.command.At(0));
        if (place.memory == nullptr || place.memory->items.erase(place.location) == 0) return NoPlace(call);
        call.Changed();
        return Answer::Ok();
    }
    constexpr std::array<std::array<bool, 8>, 5> goes{{{},
                                                       {false, true},
                                                       {false, true, false, true},
                                                       {false, true, true, true, false, true, false, true},
                                                       {true, true, true, true, true, true, true, true}}};
    for (const char* name : memories) {
        MessageMemory* memory = call.content.Messages(name);
        if (memory == nullptr || !Covers(selected, name)) continue;
        std::erase_if(memory->items, [&](const auto& item) {
            return goes[static_cast<size_t>(flag)][static_cast<size_t>(item.second.stat & 7)];
        });
    }
    call.Changed();
    return Answer::Ok();
}

Answer Indications(Call& call) {
    std::array<int, 5>& values = call.session.indications;
    constexpr std::array<int, 5> highest{2, 1, 0, 1, 1};
    switch (call.command.form) {
        case Form::Test:
            call.Line("+CNMI: (0-2),(0,1),(0),(0,1),(0,1)");
            return Answer::Ok();
        case Form::Read:
            call.Line(
                fmt::format("+CNMI: {},{},{},{},{}", values[0], values[1], values[2], values[3], values[4]));
            return Answer::Ok();
        case Form::Execute:
            values = {};
            return Answer::Ok();
        case Form::Set:
            break;
    }
    if (call.command.arguments.size() > values.size()) return Answer::Cms(notAllowed);
    std::array<int, 5> wanted = values;
    for (size_t i = 0; i < call.command.arguments.size(); ++i) {
        if (call.command.At(i).Missing()) continue;
        wanted[i] = call.command.At(i).Number().value_or(-1);
        if (wanted[i] < 0 || wanted[i] > highest[i]) return Answer::Cms(notSupported);
    }
    values = wanted;
    return Answer::Ok();
}

Answer Service(Call& call) {
    switch (call.command.form) {
        case Form::Test:
            call.Line("+CSMS: (0,1)");
            return Answer::Ok();
        case Form::Read:
            call.Line(fmt::format("+CSMS: {},1,1,1", call.session.messageService));
            return Answer::Ok();
        case Form::Execute:
            return Answer::Error();
        case Form::Set:
            break;
    }
    const auto service = call.command.At(0).Number();
    if (!service || *service > 1) return Answer::Cms(notSupported);
    call.session.messageService = *service;
    call.Line("+CSMS: 1,1,1");
    return Answer::Ok();
}

}  // namespace

void AddMessageCommands(CommandTable& table) {
    table["+CMGF"] = Format;
    table["+CPMS"] = Storage;
    table["+CMGR"] = ReadMessage;
    table["+CMGL"] = ListMessages;
    table["+CMGW"] = WriteMessage;
    table["+CMGS"] = SendMessage;
    table["+CMGD"] = DeleteMessage;
    table["+CNMI"] = Indications;
    table["+CSMS"] = Service;
}

}  // namespace tarnbridge::simulator
