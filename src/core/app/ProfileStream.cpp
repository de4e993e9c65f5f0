#include "core/app/ProfileStream.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tarnbridge {

void ProfileWriter::Raw(std::string_view bytes) {
    if (buffer_.size() - used_ < bytes.size()) {
        Flush();
        if (buffer_.size() < bytes.size()) {
            sink_(bytes);
            return;
        }
    }
    std::copy(bytes.begin(), bytes.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(used_));
    used_ += bytes.size();
}

void ProfileWriter::Flush() {
    if (used_ > 0) sink_({buffer_.data(), used_});
    used_ = 0;
}

void ProfileWriter::Bytes(std::string_view text) {
    Count(text.size() + 1);
    Raw(text);
    U8(0);
}

void ProfileWriter::Wide(std::u16string_view text) {
    Count(text.size() + 1);
    if constexpr (std::endian::native == std::endian::little) {
        Raw({reinterpret_cast<const char*>(text.data()), text.size() * 2});
    } else {
        for (const char16_t unit : text)
            U16(unit);
    }
    U16(0);
}

bool ProfileReader::HasMore() {
    if (left_.empty()) good_ = false;
    return good_;
}

std::string_view ProfileReader::Raw(uint64_t size) {
    if (size > left_.size()) good_ = false;
    const std::string_view taken = left_.substr(0, size);
    left_.remove_prefix(taken.size());
    return taken;
}

std::string_view ProfileReader::Bytes() {
    std::string_view text = Raw(U32());
    if (text.ends_with('\0')) text.remove_suffix(1);
    return text;
}

std::u16string ProfileReader::Wide() {
    std::string_view bytes = Raw(uint64_t{2} * U32());
    if (bytes.size() % 2 != 0) bytes.remove_suffix(1);
    if (bytes.ends_with(std::string_view("\0\0", 2))) bytes.remove_suffix(2);
    std::u16string text(bytes.size() / 2, u'\0');
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(text.data(), bytes.data(), bytes.size());
    } else {
        ProfileReader units(bytes);
        for (char16_t& unit : text)
            unit = units.U16();
    }
    return text;
}

}  // namespace tarnbridge
