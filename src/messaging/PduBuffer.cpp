#include "messaging/PduBuffer.h"

#include <algorithm>

#include "platform/Text.h"

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
    for (int i = 0; i < count; ++i) {
        if (cursor_ >= end_) {
            overrun_ = true;
            break;
        }
        value |= static_cast<unsigned>(bytes_[cursor_] >> bitOffset_ & 1) << i;
        SetBitPosition(BitPosition() + 1);
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
    for (const char c : text) {
        const int position = BitPosition();
        if (position >= end_ * 8) break;
        const unsigned septet = (static_cast<uint8_t>(c) & 0x7Fu) << bitOffset_;
        bytes_[cursor_] = static_cast<uint8_t>(bytes_[cursor_] | septet);
        if (septet > 0xFF && cursor_ + 1 < end_) bytes_[cursor_ + 1] = static_cast<uint8_t>(septet >> 8);
        SetBitPosition(position + 7);
    }
}

std::string PduBuffer::getSeptets(int count) {
    alignToSeptet();
    if (count < 1 || count > 512) return {};
    std::string septets(count, '\0');
    const int start = BitPosition();
    const auto octet = [this](int place) -> unsigned { return place < end_ ? bytes_[place] : 0u; };
    int i = 0;
    // Eight septets fill seven octets: as long as eight octets and a shift are there they are taken at once.
    for (; i + 8 <= count && (start + i * 7) / 8 + 8 <= end_; i += 8) {
        const int position = start + i * 7;
        uint64_t window = 0;
        for (int k = 0; k < 8; ++k)
            window |= static_cast<uint64_t>(bytes_[position / 8 + k]) << (8 * k);
        window >>= position % 8;
        for (int k = 0; k < 8; ++k)
            septets[i + k] = static_cast<char>(window >> (7 * k) & 0x7F);
    }
    for (; i < count; ++i) {
        const int position = start + i * 7;
        const unsigned window = octet(position / 8) | octet(position / 8 + 1) << 8;
        septets[i] = static_cast<char>(window >> (position % 8) & 0x7F);
    }
    const int stop = start + count * 7;
    if (stop > end_ * 8) overrun_ = true;
    SetBitPosition(stop);
    return septets;
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
    return BytesToHex({reinterpret_cast<const char*>(bytes_.data()), static_cast<size_t>(cursor_)});
}

int PduBuffer::octetCount() {
    align();
    return cursor_;
}

}  // namespace tarnbridge
