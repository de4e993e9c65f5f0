#include "simulator/CommandTable.h"

namespace tarnbridge::simulator {
namespace {

/// A command whose number may be 0 or 1 and doesn't change anything here.
Answer Ignore(Call&) {
    return Answer::Ok();
}

Answer SetEcho(Call& call) {
    const int value = call.command.At(0).Number().value_or(0);
    if (value > 1) return Answer::Error();
    call.session.echo = value == 1;
    return Answer::Ok();
}

/// Numbers in place of words, and no results at all, aren't offered.
Answer SetVerbose(Call& call) {
    return call.command.At(0).text == "1" ? Answer::Ok() : Answer::Error();
}

Answer SetQuiet(Call& call) {
    return call.command.At(0).Number().value_or(0) == 0 ? Answer::Ok() : Answer::Error();
}

Answer Reset(Call& call) {
    call.session = Session::Begin(call.content, call.features, call.session);
    return Answer::Ok();
}

Answer Register(Call& call) {
    if (call.command.form == Command::Form::Read) call.Line("000");
    return Answer::Ok();
}

Answer Identify(Call& call) {
    const Identity& identity = call.content.identity;
    switch (call.command.At(0).Number().value_or(0)) {
        case 0:
        case 3:
            call.Line(identity.model);
            return Answer::Ok();
        case 9:
            call.Line(identity.maker);
            return Answer::Ok();
        default:
            return Answer::Error();
    }
}

/// AT+CMEE, 3GPP TS 27.007 9.1.
Answer ErrorForm(Call& call) {
    switch (call.command.form) {
        case Command::Form::Test:
            call.Line("+CMEE: (0-2)");
            return Answer::Ok();
        case Command::Form::Read:
            call.Line("+CMEE: " + std::to_string(call.session.errorForm));
            return Answer::Ok();
        case Command::Form::Execute:
            call.session.errorForm = 0;
            return Answer::Ok();
        case Command::Form::Set:
            break;
    }
    const auto form = call.command.At(0).Number();
    if (!form || *form > 2) return Answer::Error();
    call.session.errorForm = *form;
    return Answer::Ok();
}

}  // namespace

void AddBasicCommands(CommandTable& table) {
    table[""] = Ignore;
    table["E"] = SetEcho;
    table["V"] = SetVerbose;
    table["Q"] = SetQuiet;
    table["Z"] = Reset;
    table["&F"] = Reset;
    table["S"] = Register;
    table["I"] = Identify;
    table["H"] = Ignore;
    table["X"] = Ignore;
    table["&C"] = Ignore;
    table["&D"] = Ignore;
    table["+CMEE"] = ErrorForm;
}

}  // namespace tarnbridge::simulator
