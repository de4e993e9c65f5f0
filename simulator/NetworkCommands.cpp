#include <chrono>
#include <cstdio>

#include <fmt/format.h>

#include "simulator/CommandTable.h"

namespace tarnbridge::simulator {
namespace {

using Form = Command::Form;

constexpr int notAllowed = 3;
constexpr int simMissing = 10;
constexpr int messageSimMissing = 310;  // as an error of messages

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

/// AT+CREG of calls and AT+CGREG of packets, 3GPP TS 27.007 7.2 and 10.1.20.
Handler Registration(int Session::*reports) {
    return [reports](Call& call) {
        int& kept = call.session.*reports;
        const std::string& name = call.command.name;
        const int state = call.content.HasSim() ? 1 : 0;
        switch (call.command.form) {
            case Form::Test:
                call.Line(name + ": (0-2)");
                return Answer::Ok();
            case Form::Read:
                call.Line(fmt::format("{}: {},{}{}", name, kept, state,
                                      kept == 2 && state == 1 ? ",\"00C3\",\"1A2B\"" : ""));
                return Answer::Ok();
            case Form::Execute:
                kept = 0;
                return Answer::Ok();
            case Form::Set:
                break;
        }
        const auto wanted = call.command.At(0).Number();
        if (!wanted || *wanted > 2) return Answer::Error();
        kept = *wanted;
        return Answer::Ok();
    };
}

/// AT+CGATT, 3GPP TS 27.007 10.1.9.
Answer PacketService(Call& call) {
    if (call.command.form == Form::Test) call.Line("+CGATT: (0,1)");
    if (call.command.form == Form::Read) {
        call.Line(fmt::format("+CGATT: {}", call.content.HasSim() && call.session.packetService ? 1 : 0));
    }
    if (call.command.form == Form::Execute) return Answer::Error();
    if (call.command.form != Form::Set) return Answer::Ok();
    const auto wanted = call.command.At(0).Number();
    if (!wanted || *wanted > 1 || !call.content.HasSim()) return Answer::Cme(notAllowed);
    call.session.packetService = *wanted == 1;
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
            if (!call.content.HasSim()) {
                call.Line("+COPS: 0");
            } else if (call.session.operatorFormat == 2) {
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
    if (!call.content.HasSim()) return Answer::Cme(simMissing);
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
    if (!call.content.HasSim()) return Answer::Cms(messageSimMissing);
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
    if (!call.content.HasSim()) return Answer::Cme(simMissing);
    const std::string& number = call.content.identity.ownNumber;
    call.Line(fmt::format("+CNUM: ,\"{}\",{}", number, number.starts_with('+') ? 145 : 129));
    return Answer::Ok();
}

/// The seconds of a calendar time since 1970.
std::chrono::sys_seconds SecondsOf(const LocalTime& time) {
    using namespace std::chrono;
    const sys_days day = year(time.year) / time.month / time.day;
    return day + hours(time.hour) + minutes(time.minute) + seconds(time.second);
}

/// AT+CCLK, 3GPP TS 27.007 8.15.
Answer ClockTime(Call& call) {
    if (call.command.form == Form::Test) return Answer::Ok();
    if (call.command.form == Form::Execute) return Answer::Error();
    const LocalTime now = call.Now();
    if (call.command.form == Form::Read) {
        const int quarters = now.minutesEastOfUtc / 15;
        call.Line(fmt::format("+CCLK: \"{:02}/{:02}/{:02},{:02}:{:02}:{:02}{:+03}\"", now.year % 100,
                              now.month, now.day, now.hour, now.minute, now.second, quarters));
        return Answer::Ok();
    }
    LocalTime wanted;
    char sign = '+';
    int quarters = 0;
    const std::string& text = call.command.At(0).text;
    const int fields =
        std::sscanf(text.c_str(), "%2d/%2d/%2d,%2d:%2d:%2d%c%2d", &wanted.year, &wanted.month, &wanted.day,
                    &wanted.hour, &wanted.minute, &wanted.second, &sign, &quarters);
    wanted.year += wanted.year < 80 ? 2000 : 1900;
    const auto date = std::chrono::year(wanted.year) / wanted.month / wanted.day;
    const bool timeOk = wanted.hour >= 0 && wanted.hour < 24 && wanted.minute >= 0 && wanted.minute < 60 &&
                        wanted.second >= 0 && wanted.second < 60;
    const bool zoneOk = fields == 6 || (fields == 8 && (sign == '+' || sign == '-') && quarters >= 0);
    if (!call.command.At(0).quoted || !zoneOk || !timeOk || !date.ok() || quarters > 56)
        return Answer::Cme(notAllowed);
    call.session.clockAhead += SecondsOf(wanted) - SecondsOf(now);
    if (fields == 8) call.session.minutesEastOfUtc = (sign == '-' ? -15 : 15) * quarters;
    return Answer::Ok();
}

}  // namespace

void AddNetworkCommands(CommandTable& table) {
    table["+CGMI"] = table["+GMI"] = Names(&Identity::maker);
    table["+CGMM"] = table["+GMM"] = Names(&Identity::model);
    table["+CGMR"] = table["+GMR"] = Names(&Identity::revision);
    table["+CGSN"] = table["+GSN"] = Names(&Identity::imei);
    table["+CIMI"] = [names = Names(&Identity::imsi)](Call& call) {
        return call.content.HasSim() ? names(call) : Answer::Cme(simMissing);
    };
    table["+CSQ"] = SignalQuality;
    table["+CBC"] = BatteryCharge;
    table["+CREG"] = Registration(&Session::registrationReports);
    table["+CGREG"] = Registration(&Session::packetReports);
    table["+CGATT"] = PacketService;
    table["+COPS"] = Operator;
    table["+CPIN"] = Pin;
    table["+CFUN"] = Functionality;
    table["+CSCA"] = ServiceCentre;
    table["+CNUM"] = OwnNumber;
    table["+CCLK"] = ClockTime;
}

}  // namespace tarnbridge::simulator
