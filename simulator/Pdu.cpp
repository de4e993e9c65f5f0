#include "simulator/Pdu.h"

#include "platform/Text.h"
#include "simulator/GsmAlphabet.h"

namespace tarnbridge::simulator {
namespace {

constexpr std::string_view semiOctets = "0123456789*#abc";
constexpr int longestUserData = 140;

char Octet(int value) {
    return static_cast<char>(value & 0xff);
}

int ValueOf(char octet) {
    return static_cast<unsigned char>(octet);
}

/// Two digits an octet, the first one low; an odd count ends with 0xF.
std::string PackDigits(std::string_view digits) {
    std::string packed;
    for (size_t i = 0; i < digits.size(); i += 2) {
        const auto low = static_cast<int>(semiOctets.find(digits[i]));
        const auto high = i + 1 < digits.size() ? static_cast<int>(semiOctets.find(digits[i + 1])) : 15;
        packed += Octet(low | high << 4);
    }
    return packed;
}

/// Septets from bit `start` of an octet string on, whose bits before are 0.
std::string PackSeptets(std::string_view septets, size_t start) {
    std::string packed((start + septets.size() * 7 + 7) / 8, '\0');
    for (size_t i = 0; i < septets.size(); ++i) {
        for (size_t bit = 0; bit < 7; ++bit) {
            const size_t position = start + i * 7 + bit;
            if ((septets[i] >> bit & 1) != 0) {
                packed[position / 8] = Octet(ValueOf(packed[position / 8]) | 1 << position % 8);
            }
        }
    }
    return packed;
}

/// TP-OA or TP-DA, 9.1.2.5.
std::string AddressField(const std::string& number) {
    const bool international = number.starts_with('+');
    const std::string digits = number.substr(international ? 1 : 0);
    if (digits.find_first_not_of("0123456789*#") == std::string::npos) {
        return std::string{Octet(static_cast<int>(digits.size())), Octet(international ? 0x91 : 0x81)} +
               PackDigits(digits);
    }
    const std::string name = PackSeptets(TextToSeptets(Utf8ToText(number)).value_or("?"), 0);
    const auto septets = TextToSeptets(Utf8ToText(number)).value_or("?").size();
    return std::string{Octet(static_cast<int>((septets * 7 + 3) / 4)), Octet(0xd0)} + name;
}

std::string ServiceCentreField(const std::string& number) {
    if (number.empty()) return std::string(1, '\0');
    const bool international = number.starts_with('+');
    const std::string digits = PackDigits(std::string_view(number).substr(international ? 1 : 0));
    return std::string{Octet(static_cast<int>(digits.size()) + 1), Octet(international ? 0x91 : 0x81)} +
           digits;
}

/// 9.2.3.11: each field's two decimal digits swapped, then the zone in quarters of an hour.
std::string TimeField(const LocalTime& time) {
    const auto swapped = [](int value) { return Octet(value / 10 % 10 | value % 10 << 4); };
    const int quarters = time.minutesEastOfUtc / 15;
    const char zone = swapped(quarters < 0 ? -quarters : quarters);
    return {swapped(time.year % 100),
            swapped(time.month),
            swapped(time.day),
            swapped(time.hour),
            swapped(time.minute),
            swapped(time.second),
            Octet(ValueOf(zone) | (quarters < 0 ? 0x08 : 0))};
}

/// TP-DCS, TP-UDL and TP-UD; the coding stands before the other two, with what is between them.
std::string CodedText(const MessageText& message, const std::string& between) {
    std::string header;
    if (!message.elements.empty())
        header = Octet(static_cast<int>(message.elements.size())) + message.elements;
    const int classBits = message.messageClass < 0 ? 0 : 0x10 | message.messageClass;
    const auto septets = message.ucs2 ? std::nullopt : TextToSeptets(message.text);
    if (septets) {
        const size_t first = (header.size() * 8 + 6) / 7;
        std::string userData = PackSeptets(*septets, first * 7);
        userData.replace(0, header.size(), header);
        return Octet(classBits) + between + Octet(static_cast<int>(first + septets->size())) + userData;
    }
    std::string userData = header;
    for (const char16_t unit : message.text) {
        userData += Octet(unit >> 8);
        userData += Octet(unit);
    }
    return Octet(classBits | 0x08) + between + Octet(static_cast<int>(userData.size())) + userData;
}

/// The coding groups of 3GPP TS 23.038 clause 4, as far as the length of the text depends on them.
bool IsSevenBit(char coding) {
    const int value = ValueOf(coding);
    if ((value & 0x80) == 0) return (value & 0x0c) == 0 || (value & 0x0c) == 0x0c;
    if ((value & 0xf0) == 0xe0) return false;
    if ((value & 0xf0) == 0xf0) return (value & 0x04) == 0;
    return true;
}

}  // namespace

std::optional<std::string> BytesOfHex(std::string_view hex) {
    if (hex.size() % 2 != 0) return std::nullopt;
    const auto digit = [](char c) {
        if (c >= '0' && c <= '9') return c - '0';
        return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    };
    std::string bytes;
    for (size_t i = 0; i < hex.size(); i += 2) {
        const int high = digit(hex[i]);
        const int low = digit(hex[i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        bytes += Octet(high << 4 | low);
    }
    return bytes;
}

size_t ServiceCentreLength(std::string_view bytes) {
    return bytes.empty() ? 0 : 1 + static_cast<size_t>(ValueOf(bytes[0]));
}

std::optional<PduFields> ReadPdu(std::string_view bytes, size_t tpduLength) {
    const size_t start = ServiceCentreLength(bytes);
    if (start == 0 || start > 12 || bytes.size() < start || bytes.size() - start != tpduLength)
        return std::nullopt;
    size_t position = start;
    bool complete = true;
    const auto take = [&](size_t count) {
        if (!complete || bytes.size() - position < count) {
            complete = false;
            return std::string(count, '\0');
        }
        position += count;
        return std::string(bytes.substr(position - count, count));
    };

    PduFields fields;
    const int first = ValueOf(take(1)[0]);
    if ((first & 0x03) > 1) return std::nullopt;
    fields.submit = (first & 0x03) == 1;
    fields.hasHeader = (first & 0x40) != 0;
    if (fields.submit) take(1);
    fields.address = take(2);
    const int digits = ValueOf(fields.address[0]);
    if (digits > 20) return std::nullopt;
    fields.address += take(static_cast<size_t>(digits + 1) / 2);
    fields.protocol = take(1)[0];
    fields.coding = take(1)[0];
    if (fields.submit) {
        const int validity = first >> 3 & 0x03;
        take(validity == 0 ? 0 : validity == 2 ? 1 : 7);
    } else {
        fields.time = take(7);
    }
    fields.length = ValueOf(take(1)[0]);
    const int octets = IsSevenBit(fields.coding) ? (fields.length * 7 + 7) / 8 : fields.length;
    if (octets > longestUserData) return std::nullopt;
    fields.userData = take(static_cast<size_t>(octets));
    if (!complete || position != bytes.size()) return std::nullopt;
    if (fields.hasHeader && (octets == 0 || ValueOf(fields.userData[0]) >= octets)) return std::nullopt;
    return fields;
}

std::string WriteDeliver(const MessageText& message, const std::string& serviceCentre) {
    const char first = Octet(0x04 | (message.elements.empty() ? 0 : 0x40));
    return BytesToHex(ServiceCentreField(serviceCentre) + first + AddressField(message.number) + '\0' +
                      CodedText(message, TimeField(message.time)));
}

std::string WriteSubmit(const MessageText& message) {
    const char first = Octet(0x01 | (message.elements.empty() ? 0 : 0x40));
    return BytesToHex(std::string(1, '\0') + first + Octet(message.reference) + AddressField(message.number) +
                      '\0' + CodedText(message, {}));
}

std::string WriteDelivered(const PduFields& submit, const std::string& sender,
                           const std::string& serviceCentre, const LocalTime& time) {
    const char first = Octet(0x04 | (submit.hasHeader ? 0x40 : 0));
    return BytesToHex(ServiceCentreField(serviceCentre) + first + AddressField(sender) + submit.protocol +
                      submit.coding + TimeField(time) + Octet(submit.length) + submit.userData);
}

bool IsAddressOf(const std::string& address, const std::string& number) {
    return address == AddressField(number);
}

}  // namespace tarnbridge::simulator
