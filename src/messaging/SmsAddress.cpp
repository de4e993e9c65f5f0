#include "messaging/SmsAddress.h"

#include <algorithm>

#include "messaging/GsmAlphabet.h"

namespace tarnbridge {
namespace {

std::string_view DigitsOf(const SmsAddress& address) {
    std::string_view digits = address.number;
    if (address.type == SmsAddress::international && digits.starts_with('+')) digits.remove_prefix(1);
    return digits;
}

void WriteTypeAndDigits(PduBuffer& buffer, const SmsAddress& address) {
    buffer.putBits(static_cast<unsigned>(address.plan), 4);
    buffer.putBits(static_cast<unsigned>(address.type), 3);
    buffer.putBit(true);
    if (address.type == SmsAddress::alphanumeric) {
        buffer.markUserData();
        buffer.putSeptets(ToGsmAlphabet(address.number));
        buffer.align();
    } else {
        buffer.putAddressDigits(DigitsOf(address));
    }
}

/// What follows the length octet. The number of septets comes from `length` in either field, although that of
/// a service centre counts octets.
SmsAddress ReadTypeAndDigits(PduBuffer& buffer, int length, int digitCount) {
    buffer.align();
    const int plan = static_cast<int>(buffer.getBits(4));
    const int type = static_cast<int>(buffer.getBits(3));
    buffer.getBit();
    std::string number;
    if (type == SmsAddress::alphanumeric) {
        buffer.markUserData();
        number = FromGsmAlphabet(buffer.getSeptets(length * 4 / 7));
        buffer.align();
    } else {
        number = buffer.getAddressDigits(digitCount);
    }
    SmsAddress address(number, type);
    address.plan = plan;
    return address;
}

}  // namespace

SmsAddress::SmsAddress(std::string_view text, int proposedType) : type(proposedType), number(text) {
    if (text.find_first_not_of("0123456789+*#pw") != std::string_view::npos) type = alphanumeric;
    std::erase(number, ' ');
    const bool hasPlus = number.starts_with('+');
    if (hasPlus && type != alphanumeric) type = international;
    if (type == international && !hasPlus) number.insert(0, 1, '+');
}

void WriteServiceCentre(PduBuffer& buffer, const SmsAddress& address) {
    const std::string_view digits = DigitsOf(address);
    if (digits.empty()) {
        buffer.putOctet(0);
        return;
    }
    buffer.putOctet(static_cast<uint8_t>((digits.size() + 1) / 2 + 1));
    WriteTypeAndDigits(buffer, address);
}

SmsAddress ReadServiceCentre(PduBuffer& buffer) {
    const int length = buffer.getOctet();
    if (length == 0) return {};
    return ReadTypeAndDigits(buffer, length, (length - 1) * 2);
}

void WriteAddress(PduBuffer& buffer, const SmsAddress& address) {
    const size_t count = DigitsOf(address).size();
    const size_t length = address.type == SmsAddress::alphanumeric ? (count * 7 + 3) / 4 : count;
    buffer.putOctet(static_cast<uint8_t>(length));
    WriteTypeAndDigits(buffer, address);
}

SmsAddress ReadAddress(PduBuffer& buffer) {
    const int length = buffer.getOctet();
    const int end = buffer.octetCount() + 1 + (length + 1) / 2;
    SmsAddress address = ReadTypeAndDigits(buffer, length, length);
    // Letters may leave an octet of their field over.
    while (buffer.octetCount() < end && !buffer.overrun())
        buffer.getOctet();
    return address;
}

}  // namespace tarnbridge
