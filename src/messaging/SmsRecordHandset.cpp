// The operations of SmsRecord on the handset (3GPP TS 27.005, clauses 3.4, 3.5 and 4).

#include <algorithm>
#include <charconv>
#include <functional>

#include <fmt/format.h>

#include "link/HandsetLink.h"
#include "messaging/ConcatHeader.h"
#include "messaging/MessageMemory.h"
#include "messaging/PlainSplit.h"
#include "messaging/ReferenceCounters.h"
#include "messaging/SmsRecord.h"
#include "messaging/ems/EmsMessage.h"
#include "platform/Text.h"

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

constexpr int emptyLocation = 321;  // 3GPP TS 27.005 clause 3.2.5: invalid memory index

/// What AT+CMGR gives of a location.
struct StoredPdu {
    std::string text;  ///< as it came; not always hexadecimal
    int stat = -1;
    int tpduLength = -1;  ///< octets, as the handset counts them; -1 if it doesn't
};

SmsRecord::Reading ReadLocation(HandsetLink& link, int index, StoredPdu& stored, int& error) {
    error = -1;
    ATResult result;
    result.prefix = "+CMGR";
    link.SetChannelMode(false);
    if (!link.ExecCommand(fmt::format("AT+CMGR={}\r", index), link.commandTimeout, true, result))
        return SmsRecord::Reading::NoAnswer;
    const ATLine& line = result.lines.front();
    if (line.size() < 4 || !result.HasPrefix("+CMGR")) {
        error = result.ErrorNumber();
        const bool empty = result.IsOk() || error == emptyLocation;
        return empty ? SmsRecord::Reading::Empty : SmsRecord::Reading::Refused;
    }
    const ATParam& length = line[line.size() - 2];
    stored = {line.back().text, result.GetNumber(0, 1), length.type == ATParam::Number ? length.number : -1};
    return SmsRecord::Reading::Found;
}

/// The octet that a hexadecimal text begins with; 0 if it begins with none.
unsigned FirstOctet(std::string_view hex) {
    unsigned octet = 0;
    std::from_chars(hex.data(), hex.data() + std::min<size_t>(2, hex.size()), octet, 16);
    return octet;
}

/// The octets of a PDU without those of its TP-SCA, in hexadecimal.
std::string_view TpduOf(std::string_view pdu) {
    return pdu.substr(std::min(pdu.size(), 2 + 2 * size_t{FirstOctet(pdu)}));
}

/// Whether two PDUs, as written and as read, are one message: a handset may put its own service centre in
/// front, and its own reference into a message that is to be sent.
bool IsSamePdu(std::string_view known, std::string_view read) {
    if (known == read) return true;
    const std::string_view a = TpduOf(known);
    const std::string_view b = TpduOf(read);
    if (a.size() < 4 || a.size() != b.size()) return false;
    const size_t reference = (FirstOctet(a) & 3) == SmsRecord::submit ? 2 : 0;  // its digits, to be left out
    return EqualIgnoringCase(a.substr(0, 2), b.substr(0, 2)) &&
           EqualIgnoringCase(a.substr(2 + reference), b.substr(2 + reference));
}

/// At least one, since none would be no limit.
uint32_t WholeSeconds(uint32_t milliseconds) {
    return std::max<uint32_t>(1, milliseconds / 1000);
}

/// Hands each part of a plain text to `put` as a record of its own, until it answers false.
bool ForEachPlainPart(const SmsRecord& record, const std::function<bool(SmsRecord&)>& put) {
    const bool wide = record.dcs == 8;
    const auto units = wide ? SplitUnits(record.text16) : std::vector<std::u16string_view>();
    const auto bytes = wide ? std::vector<std::string_view>() : SplitBytes(record.text8);
    const size_t count = wide ? units.size() : bytes.size();
    if (count > mostParts) return false;
    SmsRecord part = record;
    part.rawParts.clear();
    if (count == 1) return put(part);
    const uint8_t reference = ReferenceCounters::OfProcess().NextConcatenation();
    for (size_t i = 0; i < count; ++i) {
        if (wide)
            part.text16 = units[i];
        else
            part.text8 = bytes[i];
        const char element[] = {0, 3, static_cast<char>(reference), static_cast<char>(count),
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
    reading = Reading::Refused;
    if (index < 0 || from.empty()) return false;
    const HandsetLink::OneSession session(link);
    Refusal refusal;
    if (!SelectMessageMemory(link, from, false, &refusal)) {
        error = refusal.error;
        if (!refusal.answered) reading = Reading::NoAnswer;
        return false;
    }
    // What can't be decoded may have been spoilt on its way: it is read once more.
    StoredPdu stored;
    for (int i = 0; i < 2 && (i == 0 || unreadable); ++i) {
        reading = ReadLocation(link, index, stored, error);
        if (reading != Reading::Found) return false;
        const bool whole = stored.stat >= 0 && stored.tpduLength >= 0 &&
                           static_cast<int>(TpduOf(stored.text).size() / 2) >= stored.tpduLength;
        unreadable.reset();
        if (!whole || stored.text.empty() || !decode(stored.text)) unreadable = stored.text;
    }
    if (messageType == submit) timestamp = {};
    status = StatusOfStat(stored.stat);
    handsetIndices.assign(1, index);
    handsetPdus.assign(1, stored.text);
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
    ATResult result;
    result.prefix = "+CMGW";
    const bool done = link.ExecTwoStage(command, body + endOfBody, WholeSeconds(link.commandTimeout), result);
    const int location = done && result.HasPrefix("+CMGW") ? result.GetNumber(0, 1) : -1;
    if (location >= 0) handsetPdus.assign(1, std::move(body));
    if (!done) error = result.ErrorNumber();
    unconfirmed = result.bodySent && location < 0 && (done || result.status != ATResult::Final);
    return location;
}

bool SmsRecord::Write(HandsetLink& link, std::u16string_view to, int& error) {
    error = -1;
    leftBehind.clear();
    unconfirmed = false;
    const HandsetLink::OneSession session(link);
    if (!session) return false;  // what the handset can do isn't known before
    const bool asReceived = link.Features().canStoreReceived && (status == smsUnread || status == smsRead);
    messageType = asReceived ? deliver : submit;
    serviceCentre = {};
    return emsMessage ? WriteEms(link, to, error) : WritePlain(link, to, error);
}

/// Writes a part, which may be this record itself, and notes where it lies.
bool SmsRecord::PutPart(HandsetLink& link, SmsRecord& part, std::vector<std::string>& pdus, int& error) {
    const int location = part.WritePdu(link, error);
    unconfirmed = part.unconfirmed;
    if (location < 0) return false;
    handsetIndices.push_back(location);
    pdus.push_back(part.handsetPdus.front());
    return true;
}

bool SmsRecord::WritePlain(HandsetLink& link, std::u16string_view to, int& error) {
    if (!SelectMessageMemory(link, u"MT") && !SelectMessageMemory(link, to)) return false;
    handsetIndices.clear();
    std::vector<std::string> pdus;
    const bool done =
        ForEachPlainPart(*this, [&](SmsRecord& part) { return PutPart(link, part, pdus, error); });
    handsetPdus = std::move(pdus);
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
    std::vector<std::string> pdus;
    const bool done =
        ForEachSegment(*this, [&](SmsRecord& part) { return PutPart(link, part, pdus, error); });
    handsetPdus = std::move(pdus);
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
    handsetPdus.clear();
}

bool SmsRecord::SendPdu(HandsetLink& link, int& error) {
    std::string body;
    encodeSubmit(body);
    const std::string command = fmt::format("AT+CMGS={}\r", LengthOf(*this, body));
    body += endOfBody;
    ATResult result;
    result.prefix = "+CMGS";
    const bool sent = link.ExecTwoStage(command, body, sendTimeout, result);
    unconfirmed = result.bodySent && result.status != ATResult::Final;
    if (!sent) {
        if (result.ErrorNumber() >= 0) error = result.ErrorNumber();
        return false;
    }
    status = smsSentFromHere;
    return true;
}

bool SmsRecord::Send(HandsetLink& link, int& error) {
    error = -1;
    leftBehind.clear();
    unconfirmed = false;
    const auto put = [&](SmsRecord& part) {
        const bool sent = part.SendPdu(link, error);
        unconfirmed = part.unconfirmed;
        return sent;
    };
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
    replaced = false;
    if (handsetIndices.empty()) return true;
    leftBehind = handsetIndices;
    const HandsetLink::OneSession session(link);
    if (!SelectMessageMemory(link, u"MT") && !SelectMessageMemory(link, from)) return false;
    if (!StandsAsKnown(link, error)) return false;
    bool done = false;
    for (const int location : handsetIndices) {
        ATResult result;
        bool freed =
            link.ExecCheckOk(fmt::format("AT+CMGD={}\r", location), link.commandTimeout, result, true);
        if (!freed && result.status == ATResult::NoResult) {
            // The handset may have done it without saying so.
            StoredPdu stored;
            int ignored = -1;
            freed = ReadLocation(link, location, stored, ignored) == Reading::Empty;
        }
        if (freed) {
            std::erase(leftBehind, location);
            done = true;
        } else if (result.ErrorNumber() >= 0) {
            error = result.ErrorNumber();
            done = false;
            break;
        }
    }
    std::vector<std::string> pdus;
    for (size_t i = 0; i < std::min(handsetIndices.size(), handsetPdus.size()); ++i) {
        const bool stays =
            std::find(leftBehind.begin(), leftBehind.end(), handsetIndices[i]) != leftBehind.end();
        if (stays) pdus.push_back(std::move(handsetPdus[i]));
    }
    handsetIndices = leftBehind;
    handsetPdus = std::move(pdus);
    return done;
}

/// Whether each location holds the PDU that is known of it. What was read by its number alone isn't known.
bool SmsRecord::StandsAsKnown(HandsetLink& link, int& error) {
    for (size_t i = 0; i < handsetIndices.size(); ++i) {
        const bool known = unreadable || (i < handsetPdus.size() && !handsetPdus[i].empty());
        if (!known) continue;
        StoredPdu stored;
        const Reading found = ReadLocation(link, handsetIndices[i], stored, error);
        if (found == Reading::NoAnswer || found == Reading::Refused) return false;
        replaced =
            found == Reading::Empty || !IsSamePdu(unreadable ? *unreadable : handsetPdus[i], stored.text);
        if (replaced) error = -1;
        if (replaced) return false;
    }
    return true;
}

bool SmsRecord::Update(HandsetLink& link, SmsRecord& old, int& error) {
    const HandsetLink::OneSession session(link);
    return old.Remove(link, error) && Write(link, old.storage, error);
}

}  // namespace tarnbridge
