#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace tarnbridge {

/// Puts the fields of a profile one behind the other: numbers with the low byte first, texts with a count, in
/// front, of their units and a terminating zero, and with that zero.
class ProfileWriter {
public:
    /// Hands the bytes on in pieces, the last one by Flush. The sink must outlive the writer; whether it
    /// could write is its own affair.
    explicit ProfileWriter(const ByteSink& sink) : sink_(sink) {}

    void U8(uint8_t number) { Number<1>(number); }
    void U16(uint16_t number) { Number<2>(number); }
    void U32(uint32_t number) { Number<4>(number); }
    void Count(size_t count) { U32(static_cast<uint32_t>(count)); }
    void Raw(std::string_view bytes);
    void Bytes(std::string_view text);
    void Wide(std::u16string_view text);
    void Flush();

private:
    template <size_t size>
    void Number(uint32_t number) {
        char bytes[size];
        for (size_t i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(number >> 8 * i);
        if (buffer_.size() - used_ < size) Flush();
        std::copy_n(bytes, size, buffer_.data() + used_);
        used_ += size;
    }

    const ByteSink& sink_;
    std::array<char, 65536> buffer_;
    size_t used_ = 0;
};

/// Takes the fields of a profile from a stream that may hold anything. The stream fails at the first field
/// that isn't there whole: a number is 0 then, a text what there is of it, and all that follows is 0 and
/// empty. No field takes more memory than there are bytes.
class ProfileReader {
public:
    /// The bytes must outlive the reader.
    explicit ProfileReader(std::string_view stream) : left_(stream) {}

    bool Good() const { return good_; }
    size_t Left() const { return left_.size(); }
    /// Fails the stream if no byte is left. Whether it's good.
    bool HasMore();

    uint8_t U8() { return static_cast<uint8_t>(Number<1>()); }
    uint16_t U16() { return static_cast<uint16_t>(Number<2>()); }
    uint32_t U32() { return Number<4>(); }
    std::string_view Raw(uint64_t size);
    /// The terminating zero isn't a part of the text; a last unit that isn't zero is.
    std::string_view Bytes();
    std::u16string Wide();

private:
    template <size_t size>
    uint32_t Number() {
        const std::string_view bytes = Raw(size);
        if (bytes.size() < size) return 0;
        uint32_t number = 0;
        for (size_t i = 0; i < size; ++i)
            number |= static_cast<uint32_t>(static_cast<uint8_t>(bytes[i])) << 8 * i;
        return number;
    }

    std::string_view left_;
    bool good_ = true;
};

}  // namespace tarnbridge
