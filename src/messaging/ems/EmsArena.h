#pragma once

#include <array>
#include <cstdint>

namespace tarnbridge {

/// The bytes of one message's objects, in blocks that several objects may share. It lies in one piece, so
/// that it is copied by assignment; the pointers into it are then those of the other arena plus their offset.
class EmsArena {
public:
    static constexpr int capacity = 2800;      ///< bytes, headers included
    static constexpr int headerSize = 12;      ///< bytes in front of each block
    static constexpr int largestBlock = 2048;  ///< bytes

    /// A copy of the bytes with one reference, or null when there is no room for it.
    const uint8_t* Store(const uint8_t* bytes, int size);

    /// One more reference to the block that Store gave.
    void Share(const uint8_t* block);

    /// One reference less. When it was the last, the blocks behind move down by the number of bytes returned,
    /// and the caller corrects its pointers; otherwise 0.
    int Drop(const uint8_t* block);

    const uint8_t* begin() const { return bytes_.data(); }

private:
    struct Header;

    Header ReadHeader(const uint8_t* block) const;
    void WriteHeader(const uint8_t* block, const Header& header);

    int used_ = 0;
    std::array<uint8_t, capacity> bytes_;
};

}  // namespace tarnbridge
