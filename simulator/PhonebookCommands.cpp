#include <fmt/format.h>

#include "simulator/CommandTable.h"
#include "simulator/NameCoding.h"

namespace tarnbridge::simulator {
namespace {

using Form = Command::Form;

// Numbers of +CME ERROR, 3GPP TS 27.007 9.2.1.
constexpr int notAllowed = 3;
constexpr int simMissing = 10;
constexpr int memoryFull = 20;
constexpr int invalidIndex = 21;
constexpr int textTooLong = 24;
constexpr int invalidText = 25;
constexpr int numberTooLong = 26;
constexpr int invalidNumber = 27;

constexpr int international = 145;
constexpr int national = 129;

Answer SelectStorage(Call& call) {
    if (call.command.form == Form::Test) {
        const bool sim = call.content.Contacts("SM") != nullptr;
        call.Line(sim ? "+CPBS: (\"SM\",\"ME\")" : "+CPBS: (\"ME\")");
        return Answer::Ok();
    }
    if (call.command.form == Form::Read) {
        const ContactStorage* storage = call.content.Contacts(call.session.storage);
        if (storage == nullptr) return Answer::Cme(simMissing);
        call.Line(fmt::format("+CPBS: \"{}\",{},{}", call.session.storage, storage->items.size(),
                              storage->capacity));
        return Answer::Ok();
    }
    if (call.command.form != Form::Set || !call.command.At(0).quoted) return Answer::Error();
    const std::string& name = call.command.At(0).text;
    if (call.content.Contacts(name) == nullptr) return Answer::Cme(name == "SM" ? simMissing : notAllowed);
    call.session.storage = name;
    return Answer::Ok();
}

/// AT+CPBR, 8.12. An empty slot gives no line and no error.
Answer ReadContacts(Call& call) {
    const ContactStorage* storage = call.content.Contacts(call.session.storage);
    if (storage == nullptr) return Answer::Cme(simMissing);
    if (call.command.form == Form::Test) {
        call.Line(fmt::format("+CPBR: (1-{}),{},{}", storage->capacity, storage->numberLength,
                              storage->nameLength));
        return Answer::Ok();
    }
    if (call.command.form != Form::Set || call.command.arguments.size() > 2) return Answer::Error();
    const int first = call.command.At(0).Number().value_or(0);
    const int last = call.command.At(1).Missing() ? first : call.command.At(1).Number().value_or(0);
    if (first < 1 || last < first || last > storage->capacity) return Answer::Cme(invalidIndex);
    for (auto item = storage->items.lower_bound(first); item != storage->items.end() && item->first <= last;
         ++item) {
        const auto& [slot, contact] = *item;
        call.Line(fmt::format("+CPBR: {},\"{}\",{},\"{}\"", slot, contact.number,
                              contact.number.starts_with('+') ? international : national,
                              NameToWire(call.session.charset, contact.name)));
    }
    return Answer::Ok();
}

/// AT+CPBW, 8.14. A slot alone empties it; no slot is the first free one.
Answer WriteContact(Call& call) {
    ContactStorage* storage = call.content.Contacts(call.session.storage);
    if (storage == nullptr) return Answer::Cme(simMissing);
    const Command& command = call.command;
    if (command.form == Form::Test) {
        call.Line(fmt::format("+CPBW: (1-{}),{},({},{}),{}", storage->capacity, storage->numberLength,
                              national, international, storage->nameLength));
        return Answer::Ok();
    }
    if (command.form != Form::Set || command.arguments.size() > 4) return Answer::Error();

    int slot = command.At(0).Number().value_or(0);
    if (command.At(0).Missing()) {
        if (command.arguments.size() < 2) return Answer::Error();
        for (slot = 1; storage->items.contains(slot);)
            ++slot;
        if (slot > storage->capacity) return Answer::Cme(memoryFull);
    }
    if (slot < 1 || slot > storage->capacity) return Answer::Cme(invalidIndex);
    if (command.arguments.size() == 1) {
        if (storage->items.erase(slot) > 0) call.Changed();
        return Answer::Ok();
    }

    StoredContact contact;
    contact.number = command.At(1).text;
    const int type = command.At(2).Missing() ? (contact.number.starts_with('+') ? international : national)
                                             : command.At(2).Number().value_or(0);
    if (!command.At(1).quoted || (type & 0x80) == 0 || type > 255) return Answer::Cme(notAllowed);
    const size_t plus = contact.number.starts_with('+') ? 1 : 0;
    if (contact.number.find_first_not_of("0123456789*#pwPW", plus) != std::string::npos) {
        return Answer::Cme(invalidNumber);
    }
    if (contact.number.size() - plus > static_cast<size_t>(storage->numberLength))
        return Answer::Cme(numberTooLong);
    if ((type & 0x70) == 0x10 && plus == 0) contact.number.insert(0, 1, '+');

    const auto name = NameFromWire(call.session.charset, command.At(3).text);
    if (!name) return Answer::Cme(invalidText);
    if (StoredLength(*name) > static_cast<size_t>(storage->nameLength)) return Answer::Cme(textTooLong);
    contact.name = *name;
    StoredContact& place = storage->items[slot];
    contact.other = std::move(place.other);
    place = std::move(contact);
    call.Changed();
    return Answer::Ok();
}

}  // namespace

void AddPhonebookCommands(CommandTable& table) {
    table["+CPBS"] = SelectStorage;
    table["+CPBR"] = ReadContacts;
    table["+CPBW"] = WriteContact;
}

}  // namespace tarnbridge::simulator
