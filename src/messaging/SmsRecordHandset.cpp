// The operations of SmsRecord on the handset (3GPP TS 27.005, clauses 3.4, 3.5 and 4).

#include <algorithm>
#include <functional>

#include <fmt/format.h>

#include "link/HandsetLink.h"
#include "messaging/ConcatHeader.h"
#include "messaging/MessageMemory.h"
#include "messaging/ReferenceCounters.h"
#include "messaging/SmsRecord.h"
#include "messaging/ems/EmsMessage.h"

namespace tarnbridge {
namespace {

constexpr size_t mostParts = 10;
constexpr uint32_t sendTimeout = 50;  // seconds
constexpr char endOfBody = 0x1A;

/// The `stat` of AT+CMGW for a status, 0 if there is none.
int WriteStatOf(int status, bool canStoreReceived) {
    switch (status) {
        case smsUnread:
        case smsRead:
            return canStoreReceived ? 1 : 0;
        case smsDraft:
            return 2;
        case smsSent:
            return 3;
        case smsOutbox:
            return 5;
        case 4:
            return 7;
        default:
            return 0;
    }
}

/// At least one, since none would be no limit.
uint32_t WholeSeconds(uint32_t milliseconds) {
    return std::max<uint32_t>(1, milliseconds / 1000);
}

/// How a plain text is cut: the whole of it up to `single` units, else pieces of `piece` units.
struct PlainSplit {
    size_t length = 0;
    size_t piece = 0;
    size_t count = 1;
};

PlainSplit SplitPlain(const SmsRecord& record) {
    const bool wide = record.dcs == 8;
    const size_t single = wide ? 70 : 160;
    PlainSplit split{wide ? record.text16.size() : record.text8.size(), wide ? 67U : 153U};
    if (split.length > single) split.count = (split.length + split.piece - 1) / split.piece;
    return split;
}

/// Hands each part of a plain text to `put` as a record of its own, until it answers false.
bool ForEachPlainPart(const SmsRecord& record, const std::function<bool(SmsRecord&)>& put) {
    const PlainSplit split = SplitPlain(record);
    if (split.count > mostParts) return false;
    SmsRecord part = record;
    part.rawParts.clear();
    if (split.count == 1) return put(part);
    const uint8_t reference = ReferenceCounters::OfProcess().NextConcatenation();
    for (size_t i = 0; i < split.count; ++i) {
        if (record.dcs == 8)
            part.text16 = record.text16.substr(i * split.piece, split.piece);
        else
            part.text8 = record.text8.substr(i * split.piece, split.piece);
        const char element[] = {0, 3, static_cast<char>(reference), static_cast<char>(split.count),
                                static_cast<char>(i + 1)};
        StoreConcat(part.userDataHeader, {element, sizeof element});
        if (!put(part)) return false;
    }
    return true;
}

/// Hands each segment of the EmsMessage to `put`, as the only raw part of the record, until it answers false.
/// No raw parts are left.
bool ForEachSegment(SmsRecord& record, const std::function<bool(SmsRecord&)>& put) {
    if (!record.PrepareParts()) return false;
    const std::vector<std::string> parts = std::move(record.rawParts);
    const bool done = std::all_of(parts.begin(), parts.end(), [&](const std::string& part) {
        record.rawParts.assign(1, part);
        return put(record);
    });
    record.rawParts.clear();
    return done;
}

/// The octets of a PDU that its command counts.
size_t LengthOf(const SmsRecord& record, const std::string& hexText) {
    return hexText.size() / 2 - static_cast<size_t>(record.serviceCentreLength());
}

/// Where the handset has put a message that it was left to place: locations above those of the SIM are its
/// own. Nothing if it doesn't tell how many the SIM has.
std::u16string_view PlaceOf(HandsetLink& link, const std::vector<int>& locations) {
    MemoryUsage sim;
    if (locations.empty() || !QueryMessageMemory(link, u"SM", sim)) return {};
    return locations.back() > sim.total ? u"ME" : u"SM";
}

}  // namespace

bool SmsRecord::Read(HandsetLink& link, std::u16string_view from, int index, int& error) {
    error = -1;
    answered = false;
    if (index < 0 || from.empty() || !SelectMessageMemory(link, from)) return false;
    ATResult result;
    result.prefix = "+CMGR";
    link.SetChannelMode(false);
    answered = link.ExecCommand(fmt::format("AT+CMGR={}\r", index), link.commandTimeout, true, result);
    if (!answered || result.lines.empty()) return false;
    const ATLine& line = result.lines.front();
    if (line.size() < 4) {
        error = result.ErrorNumber();
        return false;
    }
    if (!result.HasPrefix("+CMGR")) return false;
    decode(line.back().text);
    status = StatusOfStat(result.GetNumber(0, 1));
    handsetIndices.assign(1, index);
    storage = from;
    return true;
}

int SmsRecord::WritePdu(HandsetLink& link, int& error) {
    std::string body;
    if (messageType == submit)
        encodeSubmit(body);
    else if (messageType == deliver)
        encodeDeliver(body);
    else
        return -1;
    const int stat = WriteStatOf(status, link.Features().canStoreReceived);
    if (stat == 0) return -1;
    const std::string command = fmt::format("AT+CMGW={}, {}\r", LengthOf(*this, body), stat);
    body += endOfBody;
    ATResult result;
    result.prefix = "+CMGW";
    if (!link.ExecTwoStage(command, body, WholeSeconds(link.commandTimeout), result)) {
        error = result.ErrorNumber();
        return -1;
    }
    return result.HasPrefix("+CMGW") ? result.GetNumber(0, 1) : -1;
}

bool SmsRecord::Write(HandsetLink& link, std::u16string_view to, int& error) {
    error = -1;
    leftBehind.clear();
    if (!link.EnsureSession()) return false;  // what the handset can do isn't known before
    const bool asReceived = link.Features().canStoreReceived && (status == smsUnread || status == smsRead);
    messageType = asReceived ? deliver : submit;
    serviceCentre = {};
    return emsMessage ? WriteEms(link, to, error) : WritePlain(link, to, error);
}

bool SmsRecord::WritePlain(HandsetLink& link, std::u16string_view to, int& error) {
    if (!SelectMessageMemory(link, u"MT") && !SelectMessageMemory(link, to)) return false;
    handsetIndices.clear();
    const bool done = ForEachPlainPart(*this, [&](SmsRecord& part) {
        const int location = part.WritePdu(link, error);
        if (location >= 0) handsetIndices.push_back(location);
        return location >= 0;
    });
    if (!done) {
        GiveUpWrite(link, to);
        return false;
    }
    const std::u16string_view place = PlaceOf(link, handsetIndices);
    storage = place.empty() ? to : place;
    return true;
}

bool SmsRecord::WriteEms(HandsetLink& link, std::u16string_view to, int& error) {
    const bool hasSim = link.Features().hasSimMemory;
    MemoryUsage sim;
    MemoryUsage own;
    const bool simKnown = hasSim && QueryMessageMemory(link, u"SM", sim);
    const bool ownKnown = QueryMessageMemory(link, u"ME", own);
    if (!simKnown && !ownKnown) return false;
    const int count = emsMessage.Get()->segmentsUsed;
    const bool overflow = (hasSim && to == u"SM" && count + sim.used > sim.total) ||
                          (to == u"ME" && count + own.used > own.total);
    const std::u16string memory(overflow ? u"MT" : to);
    if (!SelectMessageMemory(link, memory)) return false;
    handsetIndices.clear();
    const bool done = ForEachSegment(*this, [&](SmsRecord& segment) {
        const int location = segment.WritePdu(link, error);
        if (location >= 0) handsetIndices.push_back(location);
        return location >= 0;
    });
    if (!done) {
        GiveUpWrite(link, memory);
        return false;
    }
    storage = memory;
    if (memory == u"MT") storage = handsetIndices.back() > sim.total ? u"ME" : u"SM";
    return true;
}

/// Deletes the parts that were written; what can't be deleted is left behind, and isn't the record's.
void SmsRecord::GiveUpWrite(HandsetLink& link, std::u16string_view from) {
    int ignored = -1;
    Delete(link, from, ignored);
    handsetIndices.clear();
}

bool SmsRecord::SendPdu(HandsetLink& link, int& error) {
    std::string body;
    encodeSubmit(body);
    const std::string command = fmt::format("AT+CMGS={}\r", LengthOf(*this, body));
    body += endOfBody;
    ATResult result;
    result.prefix = "+CMGS";
    if (!link.ExecTwoStage(command, body, sendTimeout, result)) {
        if (result.ErrorNumber() >= 0) error = result.ErrorNumber();
        return false;
    }
    status = smsSentFromHere;
    return true;
}

bool SmsRecord::Send(HandsetLink& link, int& error) {
    error = -1;
    leftBehind.clear();
    const auto put = [&](SmsRecord& part) { return part.SendPdu(link, error); };
    if (!emsMessage) timestamp = SmsTimestamp::FromLocal(SystemClock().Local());
    if (!(emsMessage ? ForEachSegment(*this, put) : ForEachPlainPart(*this, put))) return false;
    status = smsSentFromHere;
    return true;
}

bool SmsRecord::Remove(HandsetLink& link, int& error) {
    return Delete(link, std::u16string(storage), error);
}

bool SmsRecord::Delete(HandsetLink& link, std::u16string_view from, int& error) {
    error = -1;
    leftBehind.clear();
    if (handsetIndices.empty()) return true;
    leftBehind = handsetIndices;
    if (!SelectMessageMemory(link, u"MT") && !SelectMessageMemory(link, from)) return false;
    bool done = false;
    for (const int location : handsetIndices) {
        ATResult result;
        if (link.ExecCheckOk(fmt::format("AT+CMGD={}\r", location), link.commandTimeout, result, true)) {
            std::erase(leftBehind, location);
            done = true;
        } else if (result.ErrorNumber() >= 0) {
            error = result.ErrorNumber();
            done = false;
            break;
        }
    }
    if (done)
        handsetIndices.clear();
    else
        handsetIndices = leftBehind;
    return done;
}

bool SmsRecord::Update(HandsetLink& link, int& error) {
    const std::u16string memory = storage;
    if (!Delete(link, memory, error)) return false;
    const std::vector<int> undeleted = leftBehind;
    const bool written = Write(link, memory, error);
    leftBehind.insert(leftBehind.end(), undeleted.begin(), undeleted.end());
    return written;
}

}  // namespace tarnbridge
