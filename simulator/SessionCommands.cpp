#include <algorithm>

#include <fmt/format.h>

#include "simulator/CommandTable.h"
#include "simulator/NameCoding.h"

namespace tarnbridge::simulator {
namespace {

using Form = Command::Form;

/// AT+CSCS, 3GPP TS 27.007 5.5, with the private set UCS2_0x81 where the handset has it.
Answer Charset(Call& call) {
    const bool packed = call.features.packedUcs2;
    switch (call.command.form) {
        case Form::Test:
            call.Line(packed ? "+CSCS: (\"IRA\",\"GSM\",\"UCS2\",\"UCS2_0x81\")"
                             : "+CSCS: (\"IRA\",\"GSM\",\"UCS2\")");
            return Answer::Ok();
        case Form::Read:
            call.Line(fmt::format("+CSCS: \"{}\"", call.session.charset));
            return Answer::Ok();
        case Form::Execute:
            return Answer::Error();
        case Form::Set:
            break;
    }
    const std::string& name = call.command.At(0).text;
    const bool known = std::find(std::begin(charsets), std::end(charsets), name) != std::end(charsets);
    if (!call.command.At(0).quoted || !known || (name == "UCS2_0x81" && !packed)) return Answer::Cme(3);
    call.session.charset = name;
    return Answer::Ok();
}

/// AT+ESLP=0 keeps the handset awake, AT+ESLP=1 lets it sleep.
Answer Sleep(Call& call) {
    if (call.command.form != Form::Set) return Answer::Error();
    const auto value = call.command.At(0).Number();
    return value && *value <= 1 ? Answer::Ok() : Answer::Error();
}

/// AT+ESUO: 3 while files go over the channel, 4 otherwise.
Answer ChannelMode(Call& call) {
    if (call.features.channelMode < 0) return Answer::Error();
    if (call.command.form == Form::Read) {
        call.Line(fmt::format("+ESUO: {}", call.session.channelMode));
        return Answer::Ok();
    }
    if (call.command.form != Form::Set || call.features.channelMode == 0) return Answer::Error();
    const auto mode = call.command.At(0).Number();
    if (!mode || (*mode != 3 && *mode != 4)) return Answer::Error();
    call.session.channelMode = *mode;
    return Answer::Ok();
}

/// AT+EFSR without a path ends a transfer.
Answer StopTransfer(Call& call) {
    return call.command.form == Form::Execute ? Answer::Ok() : Answer::Error();
}

Answer ChunkSize(Call& call) {
    if (call.command.form != Form::Read) return Answer::Error();
    call.Line(fmt::format("+EFSW: {}", call.features.chunkSize));
    return Answer::Ok();
}

/// Only the question whether the command exists is answered.
Handler Exists(bool Features::*feature) {
    return [feature](Call& call) {
        return call.command.form == Form::Test && call.features.*feature ? Answer::Ok() : Answer::Error();
    };
}

/// AT+EQUERY=0: which states AT+CMGW may give a message.
Answer Query(Call& call) {
    if (call.command.form != Form::Set || call.command.At(0).text != "0") return Answer::Error();
    if (call.features.storeQuery == "ERROR") return Answer::Error();
    call.Line("+CMGW: " + call.features.storeQuery);
    return Answer::Ok();
}

}  // namespace

void AddSessionCommands(CommandTable& table) {
    table["+CSCS"] = Charset;
    table["+ESLP"] = Sleep;
    table["+ESUO"] = ChannelMode;
    table["+EFSR"] = StopTransfer;
    table["+EFSW"] = ChunkSize;
    table["+EFSC"] = Exists(&Features::fileCount);
    table["+EVCARD"] = Exists(&Features::vcard);
    table["+EQUERY"] = Query;
}

}  // namespace tarnbridge::simulator
