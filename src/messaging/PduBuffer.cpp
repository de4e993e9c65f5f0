#include "messaging/PduBuffer.h"

#include <algorithm>

namespace tarnbridge {
namespace {

uint8_t DigitValue(char digit) {
    static constexpr std::string_view others = "*#pw+";
    const size_t place = others.find(digit);
    return static_cast<uint8_t>(place != std::string_view::npos ? 10 + place : (digit - '0') & 15);
}

char DigitOf(uint8_t value) {
    static constexpr char digits[] = "0123456789*#pw+?";
    return digits[value & 15];
}

/// Eight octets, the first one lowest; written out, it compiles to one load.
uint64_t LoadEight(const uint8_t* octets) {
    const auto at = [octets](int i) { return static_cast<uint64_t>(octets[i]) << (8 * i); };
    return at(0) | at(1) | at(2) | at(3) | at(4) | at(5) | at(6) | at(7);
}

/// The eight septets of the low 56 bits, a byte each.
void StoreSeptets(uint64_t septets, char* out) {
    const auto at = [septets](int i) { return static_cast<char>(septets >> (7 * i) & 0x7F); };
    out[0] = at(0);
    out[1] = at(1);
    out[2] = at(2);
    out[3] = at(3);
    out[4] = at(4);
    out[5] = at(5);
    out[6] = at(6);
    out[7] = at(7);
}

}  // namespace

PduBuffer::PduBuffer(std::span<const uint8_t> octets)
    : end_(static_cast<int>(std::min<size_t>(octets.size(), capacity))) {
    std::copy_n(octets.begin(), end_, bytes_.begin());
}

void PduBuffer::SetBitPosition(int position) {
    if (position > end_ * 8) position = end_ * 8;
    cursor_ = position / 8;
    bitOffset_ = position % 8;
}

void PduBuffer::putBit(bool bit) {
    putBits(bit ? 1 : 0, 1);
}

void PduBuffer::putBits(unsigned value, int count) {
    for (int i = 0; i < count && cursor_ < end_; ++i) {
        bytes_[cursor_] = static_cast<uint8_t>(bytes_[cursor_] | ((value >> i & 1) << bitOffset_));
        SetBitPosition(BitPosition() + 1);
    }
}

bool PduBuffer::getBit() {
    return getBits(1) != 0;
}

unsigned PduBuffer::getBits(int count) {
    unsigned value = 0;
    for (int taken = 0; taken < count;) {
        if (cursor_ >= end_) {
            overrun_ = true;
            break;
        }
        const int here = std::min(8 - bitOffset_, count - taken);
        value |= (bytes_[cursor_] >> bitOffset_ & ((1u << here) - 1)) << taken;
        taken += here;
        SetBitPosition(BitPosition() + here);
    }
    return value;
}

void PduBuffer::align() {
    if (bitOffset_ != 0) SetBitPosition((cursor_ + 1) * 8);
}

void PduBuffer::putOctet(uint8_t octet) {
    align();
    if (cursor_ < end_) bytes_[cursor_++] = octet;
}

uint8_t PduBuffer::getOctet() {
    align();
    if (cursor_ < end_) return bytes_[cursor_++];
    overrun_ = true;
    return 0;
}

void PduBuffer::putOctets(std::string_view octets) {
    align();
    const size_t count = std::min<size_t>(octets.size(), end_ - cursor_);
    std::copy_n(octets.begin(), count, bytes_.begin() + cursor_);
    cursor_ += static_cast<int>(count);
}

void PduBuffer::getOctets(std::span<char> octets) {
    align();
    const size_t count = std::min<size_t>(octets.size(), end_ - cursor_);
    std::copy_n(bytes_.begin() + cursor_, count, octets.begin());
    std::fill(octets.begin() + count, octets.end(), '\0');
    cursor_ += static_cast<int>(count);
    if (count < octets.size()) overrun_ = true;
}

void PduBuffer::markUserData() {
    align();
    mark_ = cursor_;
}

void PduBuffer::alignToSeptet() {
    const int bits = BitPosition() - mark_ * 8;
    SetBitPosition(BitPosition() + (7 - bits % 7) % 7);
}

void PduBuffer::putSeptets(std::string_view text) {
    alignToSeptet();
    if (cursor_ >= end_) return;
    unsigned window = bytes_[cursor_];
    int filled = bitOffset_;
    for (size_t i = 0; i < text.size() && cursor_ < end_; ++i) {
        window |= (static_cast<uint8_t>(text[i]) & 0x7Fu) << filled;
        filled += 7;
        if (filled < 8) continue;
        bytes_[cursor_++] = static_cast<uint8_t>(window);
        window >>= 8;
        filled -= 8;
    }
    if (cursor_ < end_) bytes_[cursor_] = static_cast<uint8_t>(window);
    SetBitPosition(cursor_ * 8 + filled);
}

std::string PduBuffer::getSeptets(int count) {
    std::string septets(count < 1 || count > 512 ? 0 : count, '\0');
    getSeptets(std::span<char>(septets));
    return septets;
}

void PduBuffer::getSeptets(std::span<char> septets) {
    alignToSeptet();
    const int count = static_cast<int>(septets.size());
    const int start = BitPosition();
    const auto octet = [this](int place) -> unsigned { return place < end_ ? bytes_[place] : 0u; };
    int i = 0;
    // Eight septets fill seven octets: as long as eight octets and a shift are there they are taken at once.
    for (; i + 8 <= count && (start + i * 7) / 8 + 8 <= end_; i += 8) {
        const int position = start + i * 7;
        StoreSeptets(LoadEight(bytes_.data() + position / 8) >> position % 8, septets.data() + i);
    }
    for (; i < count; ++i) {
        const int position = start + i * 7;
        const unsigned window = octet(position / 8) | octet(position / 8 + 1) << 8;
        septets[i] = static_cast<char>(window >> (position % 8) & 0x7F);
    }
    const int stop = start + count * 7;
    if (stop > end_ * 8) overrun_ = true;
    SetBitPosition(stop);
}

void PduBuffer::putAddressDigits(std::string_view digits) {
    for (size_t i = 0; i < digits.size(); i += 2) {
        const uint8_t high = i + 1 < digits.size() ? DigitValue(digits[i + 1]) : 15;
        putOctet(static_cast<uint8_t>(DigitValue(digits[i]) | high << 4));
    }
}

std::string PduBuffer::getAddressDigits(int count) {
    std::string digits;
    digits.reserve(count > 0 ? count : 0);
    for (int i = 0; i < count; i += 2) {
        const uint8_t octet = getOctet();
        digits.push_back(DigitOf(octet & 15));
        if (i + 1 < count && octet >> 4 != 15) digits.push_back(DigitOf(octet >> 4));
    }
    return digits;
}

void PduBuffer::putBcdValue(unsigned value, int width) {
    std::string digits = std::to_string(value);
    if (digits.size() < static_cast<size_t>(width)) digits.insert(0, width - digits.size(), '0');
    putAddressDigits(digits);
}

int PduBuffer::getBcd(int count) {
    int value = 0;
    for (int i = 0; i < count; i += 2) {
        const uint8_t octet = getOctet();
        value = value * 10 + (octet & 15);
        if (i + 1 < count && octet >> 4 != 15) value = value * 10 + (octet >> 4);
    }
    return value;
}

void PduBuffer::putZone(unsigned quarters, bool positive) {
    putBcdValue(quarters, 2);
    if (!positive && cursor_ > 0) bytes_[cursor_ - 1] |= 0x08;
}

int PduBuffer::getZone(bool& positive) {
    const uint8_t octet = getOctet();
    positive = (octet & 0x08) == 0;
    return (octet & 7) * 10 + (octet >> 4);
}

std::string PduBuffer::toHex() {
    align();
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string hex(cursor_ * 2, '0');
    char* next = hex.data();
    for (int i = 0; i < cursor_; ++i) {
        *next++ = digits[bytes_[i] >> 4];
        *next++ = digits[bytes_[i] & 15];
    }
    return hex;
}

int PduBuffer::octetCount() {
    align();
    return cursor_;
}

}  // namespace tarnbridge
