#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarnbridge {

/// A cursor over the octets of one PDU (3GPP TS 23.040, clause 9) in a fixed area: nothing of it is on the
/// heap. Bits run from the least significant upward. Writing past the end does nothing, reading past it gives
/// zero bits. Every octet-wise operation aligns first.
class PduBuffer {
public:
    static constexpr int capacity = 512;

    /// An empty buffer to write into.
    PduBuffer() : end_(capacity) {}

    /// A buffer to read from. Octets beyond the capacity are left out.
    explicit PduBuffer(std::span<const uint8_t> octets);

    void putBit(bool bit);
    /// The `count` low bits of `value`, lowest first.
    void putBits(unsigned value, int count);
    bool getBit();
    /// As many bits as `count`, at most 32, the first one lowest.
    unsigned getBits(int count);

    void align();
    void putOctet(uint8_t octet);
    uint8_t getOctet();
    void putOctets(std::string_view octets);
    /// Exactly `octets.size()` octets.
    void getOctets(std::span<char> octets);

    /// Aligns, and lets septets be counted from here.
    void markUserData();
    /// Steps over zero bits to the next septet boundary from the mark: the fill bits after a header.
    void alignToSeptet();
    /// Aligns to a septet, then takes the low 7 bits of each byte.
    void putSeptets(std::string_view text);
    /// Aligns to a septet, then gives `count` septets, each as a byte. A count outside 1 to 512 gives none.
    std::string getSeptets(int count);
    /// The same into an area of as many bytes.
    void getSeptets(std::span<char> septets);

    /// Semi-octets, the first digit in the low half; an odd count is filled up with 15. `*`, `#`, `p`, `w`
    /// and
    /// `+` are the values 10 to 14.
    void putAddressDigits(std::string_view digits);
    /// At most `count` digits out of (count + 1) / 2 octets; a high half of 15 gives no digit.
    std::string getAddressDigits(int count);

    /// A decimal number as semi-octets, padded in front with zeros to `width` digits.
    void putBcdValue(unsigned value, int width);
    /// A number of `count` digits, of which a high half of 15 is left out.
    int getBcd(int count);

    /// A time zone in quarter hours, with the sign in bit 3.
    void putZone(unsigned quarters, bool positive);
    /// Its quarter hours; `positive` is whether it is at or east of UTC.
    int getZone(bool& positive);

    /// Two upper-case digits for each octet up to the cursor.
    std::string toHex();
    /// Aligns, and gives the number of octets before the cursor.
    int octetCount();
    /// Whether more was read than there is.
    bool overrun() const { return overrun_; }

private:
    int BitPosition() const { return cursor_ * 8 + bitOffset_; }
    void SetBitPosition(int position);

    std::array<uint8_t, capacity> bytes_{};
    int cursor_ = 0;
    int end_;
    int mark_ = 0;
    int bitOffset_ = 0;
    bool overrun_ = false;
};

}  // namespace tarnbridge
