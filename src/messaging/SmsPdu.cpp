// The PDU operations of SmsRecord (3GPP TS 23.040, 9.2.2.1 and 9.2.2.2).

#include <algorithm>
#include <array>
#include <span>

#include "messaging/GsmAlphabet.h"
#include "messaging/PduBuffer.h"
#include "messaging/ReferenceCounters.h"
#include "messaging/SmsRecord.h"

namespace tarnbridge {
namespace {

constexpr int enhancedValidity = 1;

constexpr std::array<int8_t, 256> MakeHexValues() {
    std::array<int8_t, 256> values{};
    values.fill(-1);
    for (int i = 0; i < 10; ++i)
        values['0' + i] = static_cast<int8_t>(i);
    for (int i = 0; i < 6; ++i)
        values['A' + i] = static_cast<int8_t>(10 + i);
    return values;
}

constexpr std::array<int8_t, 256> hexValues = MakeHexValues();

/// Octets of hexadecimal digits, at most as many as a PduBuffer holds. A last digit alone is a high half, and
/// no digits at all are one octet of zero. -1 on another character.
int HexToOctets(std::string_view hex, std::array<uint8_t, PduBuffer::capacity>& octets) {
    int worst = 0;  // negative as soon as one value is
    const auto valueAt = [&](size_t place) {
        const int value = hexValues[static_cast<uint8_t>(hex[place])];
        worst |= value;
        return value;
    };
    const size_t pairs = std::min(hex.size() / 2, octets.size());
    for (size_t i = 0; i < pairs; ++i) {
        const int high = valueAt(i * 2);
        octets[i] = static_cast<uint8_t>(high << 4 | valueAt(i * 2 + 1));
    }
    for (size_t place = pairs * 2; place < hex.size(); ++place) {
        const int high = valueAt(place);
        if (pairs < octets.size()) octets[pairs] = static_cast<uint8_t>(high << 4);
    }
    if (worst < 0) return -1;
    return static_cast<int>(std::clamp<size_t>((hex.size() + 1) / 2, 1, octets.size()));
}

/// The septets that a header of `length` octets takes, its length octet and the fill bits with it.
int HeaderSeptets(int length) {
    return (length * 8 + 14) / 7;
}

/// Units up to the first zero; an odd last octet is the high half of its unit.
void FromNetworkOrder(std::string_view octets, std::u16string& text) {
    for (size_t i = 0; i < octets.size(); i += 2) {
        const auto high = static_cast<uint8_t>(octets[i]);
        const auto low = static_cast<uint8_t>(i + 1 < octets.size() ? octets[i + 1] : 0);
        const auto unit = static_cast<char16_t>(high << 8 | low);
        if (unit == 0) return;
        text.push_back(unit);
    }
}

}  // namespace

int CodingOf(uint8_t dcsOctet) {
    switch (dcsOctet >> 4) {
        case 0xE:
            return 8;
        case 0xF:
            return dcsOctet & 4;
        default:
            break;
    }
    if (dcsOctet >= 0x80) return 0;
    const int coding = dcsOctet & 0x0C;
    return coding == 0x0C ? 0 : coding;
}

SmsRecord::Payload SmsRecord::TakePayload(const CodePage& page) {
    if (rawParts.size() == 1) {
        const std::string_view part = rawParts.front();
        // A record that was read and not yet edited has no EmsMessage; what was received then decides.
        const bool withHeader = emsMessage ? emsMessage.HasHeader() : hasHeader != 0;
        if (!withHeader || part.empty()) return {{}, part, false, {}};
        const size_t length = std::min<size_t>(static_cast<uint8_t>(part.front()), part.size() - 1);
        userDataHeader = part.substr(1, length);
        return {userDataHeader, part.substr(1 + length), false, {}};
    }
    const std::string_view header = std::string_view(userDataHeader).substr(0, 255);
    if (dcs != 8) return {header, text8, false, {}};
    if (!text16.empty()) return {header, {}, true, {}};
    return {header, {}, false, page.ToText(text8).substr(0, 256)};
}

void SmsRecord::WriteUserData(PduBuffer& buffer, const Payload& payload) const {
    const bool septets = IsSeptetCoding(dcs);
    const int headerLength = static_cast<int>(payload.header.size());
    const std::u16string_view units = payload.isText16 ? text16 : payload.converted;
    int length = static_cast<int>(payload.bytes.size() + units.size() * 2);
    if (headerLength != 0) length += septets ? HeaderSeptets(headerLength) : headerLength + 1;
    buffer.putOctet(static_cast<uint8_t>(length));
    buffer.markUserData();
    if (headerLength != 0) {
        buffer.putOctet(static_cast<uint8_t>(headerLength));
        buffer.putOctets(payload.header);
    }
    if (septets) {
        std::array<char, PduBuffer::capacity * 8 / 7> area;
        const std::span<char> text = std::span(area).first(std::min(payload.bytes.size(), area.size()));
        std::copy_n(payload.bytes.begin(), text.size(), text.begin());
        ToGsmAlphabet(text);
        buffer.putSeptets({text.data(), text.size()});
    } else {
        buffer.putOctets(payload.bytes);
        for (const char16_t unit : units) {
            buffer.putOctet(static_cast<uint8_t>(unit >> 8));
            buffer.putOctet(static_cast<uint8_t>(unit));
        }
    }
}

void SmsRecord::encodeSubmit(std::string& hexText, const CodePage& page) {
    const Payload payload = TakePayload(page);
    messageReference = ReferenceCounters::OfProcess().TakeMessageReference();
    messageType = submit;
    serviceCentre = {};
    statusReport = 0;
    replyPath = 0;
    if (validityFormat != relativeValidity && validityFormat != absoluteValidity) validityFormat = 0;
    if (!payload.header.empty()) hasHeader = 1;

    PduBuffer buffer;
    WriteServiceCentre(buffer, serviceCentre);
    buffer.putBits(submit, 2);
    buffer.putBit(rejectDuplicates != 0);
    buffer.putBits(static_cast<unsigned>(validityFormat), 2);
    buffer.putBit(false);
    buffer.putBit(!payload.header.empty());
    // The receiver's number is one ahead of the record's.
    buffer.putOctet(static_cast<uint8_t>(messageReference + 1));
    WriteAddress(buffer, address);
    buffer.putOctet(protocolId);
    buffer.putOctet(static_cast<uint8_t>(dcs));
    if (validityFormat == absoluteValidity)
        validityTime.Write(buffer);
    else if (validityFormat == relativeValidity)
        buffer.putOctet(static_cast<uint8_t>(validityRelative));
    WriteUserData(buffer, payload);
    hexText = buffer.toHex();
}

void SmsRecord::encodeDeliver(std::string& hexText, const CodePage& page) {
    const Payload payload = TakePayload(page);
    PduBuffer buffer;
    WriteServiceCentre(buffer, serviceCentre);
    buffer.putBits(static_cast<unsigned>(messageType), 2);
    buffer.putBit(moreMessages != 0);
    buffer.putBits(0, 2);
    buffer.putBit(statusReport != 0);
    if (payload.header.empty())
        replyPath = 0;
    else
        hasHeader = 1;
    buffer.putBit(!payload.header.empty());
    buffer.putBit(replyPath != 0);
    WriteAddress(buffer, address);
    buffer.putOctet(protocolId);
    buffer.putOctet(static_cast<uint8_t>(dcs));
    timestamp.Write(buffer);
    WriteUserData(buffer, payload);
    hexText = buffer.toHex();
}

int SmsRecord::serviceCentreLength() const {
    PduBuffer buffer;
    WriteServiceCentre(buffer, serviceCentre);
    return buffer.octetCount();
}

bool SmsRecord::decode(std::string_view hexText) {
    SystemClock clock;
    bool truncated = false;
    return decode(hexText, clock, truncated);
}

bool SmsRecord::decode(std::string_view hexText, Clock& clock, bool& truncated) {
    truncated = false;
    std::array<uint8_t, PduBuffer::capacity> octets{};
    const int count = HexToOctets(hexText, octets);
    if (count < 0) return false;
    PduBuffer buffer({octets.data(), static_cast<size_t>(count)});

    SmsAddress centre = ReadServiceCentre(buffer);
    buffer.align();
    messageType = static_cast<int>(buffer.getBits(2));
    if (messageType != deliver && messageType != submit) return false;
    text8.clear();
    text16.clear();
    userDataHeader.clear();
    serviceCentre = std::move(centre);

    if (messageType == deliver) {
        moreMessages = static_cast<uint8_t>(buffer.getBits(1));
        buffer.getBits(2);
    } else {
        rejectDuplicates = static_cast<uint8_t>(buffer.getBits(1));
        validityFormat = static_cast<int>(buffer.getBits(2));
    }
    statusReport = static_cast<uint8_t>(buffer.getBits(1));
    hasHeader = static_cast<uint8_t>(buffer.getBits(1));
    replyPath = static_cast<uint8_t>(buffer.getBits(1));
    if (messageType == submit) messageReference = buffer.getOctet();
    address = ReadAddress(buffer);
    protocolId = buffer.getOctet();
    dcs = CodingOf(buffer.getOctet());
    if (messageType == deliver) {
        timestamp = SmsTimestamp::Read(buffer);
    } else {
        timestamp = SmsTimestamp::FromLocal(clock.Local());
        validityTime = timestamp;
        std::array<char, 7> enhanced{};  // the format 1, which a record doesn't keep
        if (validityFormat == absoluteValidity)
            validityTime = SmsTimestamp::Read(buffer);
        else if (validityFormat == relativeValidity)
            validityRelative = buffer.getOctet();
        else if (validityFormat == enhancedValidity)
            buffer.getOctets(enhanced);
    }
    ReadUserData(buffer);
    // A digit alone at the end is half of an octet that was read, or wasn't needed.
    truncated = buffer.overrun() || buffer.octetCount() > static_cast<int>(hexText.size() / 2);
    return true;
}

void SmsRecord::ReadUserData(PduBuffer& buffer) {
    const int length = buffer.getOctet();
    buffer.markUserData();
    int count = length;
    if (hasHeader) {
        userDataHeader.resize(buffer.getOctet());
        buffer.getOctets(userDataHeader);
        const int headerLength = static_cast<int>(userDataHeader.size());
        count -= dcs == 0 ? HeaderSeptets(headerLength) : headerLength + 1;
        if (count < 0) count = length;
        if (headerLength == 0) hasHeader = 0;
    }

    std::array<char, 256> area;
    const std::span<char> received = std::span(area).first(count);
    const std::string_view text(received.data(), received.size());
    if (dcs == 0) {
        if (count > 0) buffer.getSeptets(received);
        text8 = text;
        FromGsmAlphabet(std::span<char>(text8));
        FromGsmToPart(received);
    } else {
        buffer.getOctets(received);
        if (dcs == 8) {
            FromNetworkOrder(text, text16);
        } else {
            text8 = text.substr(0, text.find('\0'));
            FromGsmAlphabet(std::span<char>(text8));
        }
    }

    rawParts.resize(1);
    std::string& part = rawParts.front();
    part.clear();
    if (hasHeader) {
        part.push_back(static_cast<char>(userDataHeader.size()));
        part += userDataHeader;
    }
    part += text;
}

}  // namespace tarnbridge
