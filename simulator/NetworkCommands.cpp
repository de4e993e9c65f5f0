#include <fmt/format.h>

#include "simulator/CommandTable.h"

namespace tarnbridge::simulator {
namespace {

using Form = Command::Form;

/// A command that names something of the phone: `AT+CGMI` gives the bare text, `AT+CGMI=?` nothing.
Handler Names(std::string Identity::*field) {
    return [field](Call& call) {
        if (call.command.form == Form::Test) return Answer::Ok();
        if (call.command.form != Form::Execute) return Answer::Error();
        call.Line(call.content.identity.*field);
        return Answer::Ok();
    };
}

Answer SignalQuality(Call& call) {
    if (call.command.form == Form::Test) {
        call.Line("+CSQ: (0-31,99),(0-7,99)");
    } else if (call.command.form == Form::Execute) {
        call.Line("+CSQ: 18,99");
    } else {
        return Answer::Error();
    }
    return Answer::Ok();
}

Answer BatteryCharge(Call& call) {
    if (call.command.form == Form::Test) {
        call.Line("+CBC: (0-3),(0-100)");
    } else if (call.command.form == Form::Execute) {
        call.Line("+CBC: 0,80");
    } else {
        return Answer::Error();
    }
    return Answer::Ok();
}

Answer Registration(Call& call) {
    switch (call.command.form) {
        case Form::Test:
            call.Line("+CREG: (0-2)");
            return Answer::Ok();
        case Form::Read:
            call.Line(call.session.registrationReports == 2
                          ? "+CREG: 2,1,\"00C3\",\"1A2B\""
                          : fmt::format("+CREG: {},1", call.session.registrationReports));
            return Answer::Ok();
        case Form::Execute:
            call.session.registrationReports = 0;
            return Answer::Ok();
        case Form::Set:
            break;
    }
    const auto reports = call.command.At(0).Number();
    if (!reports || *reports > 2) return Answer::Error();
    call.session.registrationReports = *reports;
    return Answer::Ok();
}

/// 3GPP TS 27.007 7.3: the name in the long form, or the number of the test network.
Answer Operator(Call& call) {
    const std::string& name = call.content.identity.operatorName;
    switch (call.command.form) {
        case Form::Test:
            call.Line(fmt::format("+COPS: (2,\"{}\",\"{}\",\"00101\"),,(0-4),(0-2)", name, name));
            return Answer::Ok();
        case Form::Read:
            if (call.session.operatorFormat == 2) {
                call.Line("+COPS: 0,2,\"00101\"");
            } else {
                call.Line(fmt::format("+COPS: 0,{},\"{}\"", call.session.operatorFormat, name));
            }
            return Answer::Ok();
        case Form::Execute:
            return Answer::Error();
        case Form::Set:
            break;
    }
    const auto mode = call.command.At(0).Number();
    const auto format =
        call.command.At(1).Missing() ? call.session.operatorFormat : call.command.At(1).Number();
    if (!mode || (*mode != 0 && *mode != 3) || !format || *format > 2) return Answer::Cme(3);
    if (*mode == 3) call.session.operatorFormat = *format;
    return Answer::Ok();
}

Answer Pin(Call& call) {
    if (call.command.form == Form::Read) call.Line("+CPIN: READY");
    if (call.command.form == Form::Set) return Answer::Cme(3);
    return call.command.form == Form::Execute ? Answer::Error() : Answer::Ok();
}

Answer Functionality(Call& call) {
    if (call.command.form == Form::Read) call.Line("+CFUN: 1");
    if (call.command.form == Form::Test) call.Line("+CFUN: (1),(0)");
    if (call.command.form == Form::Set && call.command.At(0).text != "1") return Answer::Cme(3);
    return call.command.form == Form::Execute ? Answer::Error() : Answer::Ok();
}

Answer ServiceCentre(Call& call) {
    switch (call.command.form) {
        case Form::Test:
            return Answer::Ok();
        case Form::Read: {
            const std::string& number = call.content.identity.serviceCentre;
            call.Line(fmt::format("+CSCA: \"{}\",{}", number, number.starts_with('+') ? 145 : 129));
            return Answer::Ok();
        }
        case Form::Execute:
            return Answer::Error();
        case Form::Set:
            break;
    }
    const Argument& number = call.command.At(0);
    if (!number.quoted || number.text.size() > 21) return Answer::Cms(304);
    if (number.text.find_first_not_of("+0123456789") != std::string::npos) return Answer::Cms(304);
    call.content.identity.serviceCentre = number.text;
    call.Changed();
    return Answer::Ok();
}

Answer OwnNumber(Call& call) {
    if (call.command.form == Form::Test) return Answer::Ok();
    if (call.command.form != Form::Execute) return Answer::Error();
    const std::string& number = call.content.identity.ownNumber;
    call.Line(fmt::format("+CNUM: ,\"{}\",{}", number, number.starts_with('+') ? 145 : 129));
    return Answer::Ok();
}

Answer ClockTime(Call& call) {
    if (call.command.form == Form::Test) return Answer::Ok();
    if (call.command.form != Form::Read) return Answer::Error();
    const LocalTime now = call.Now();
    const int quarters = now.minutesEastOfUtc / 15;
    call.Line(fmt::format("+CCLK: \"{:02}/{:02}/{:02},{:02}:{:02}:{:02}{:+03}\"", now.year % 100, now.month,
                          now.day, now.hour, now.minute, now.second, quarters));
    return Answer::Ok();
}

}  // namespace

void AddNetworkCommands(CommandTable& table) {
    table["+CGMI"] = table["+GMI"] = Names(&Identity::maker);
    table["+CGMM"] = table["+GMM"] = Names(&Identity::model);
    table["+CGMR"] = table["+GMR"] = Names(&Identity::revision);
    table["+CGSN"] = table["+GSN"] = Names(&Identity::imei);
    table["+CIMI"] = Names(&Identity::imsi);
    table["+CSQ"] = SignalQuality;
    table["+CBC"] = BatteryCharge;
    table["+CREG"] = Registration;
    table["+COPS"] = Operator;
    table["+CPIN"] = Pin;
    table["+CFUN"] = Functionality;
    table["+CSCA"] = ServiceCentre;
    table["+CNUM"] = OwnNumber;
    table["+CCLK"] = ClockTime;
}

}  // namespace tarnbridge::simulator
