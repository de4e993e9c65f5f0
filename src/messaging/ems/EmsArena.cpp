#include "messaging/ems/EmsArena.h"

#include <algorithm>
#include <cstring>

namespace tarnbridge {

struct EmsArena::Header {
    int32_t size;
    int32_t references;
};

const uint8_t* EmsArena::Store(const uint8_t* bytes, int size) {
    if (size > largestBlock || used_ + headerSize + size > capacity) return nullptr;
    uint8_t* const block = bytes_.data() + used_ + headerSize;
    WriteHeader(block, {size, 1});
    std::copy_n(bytes, size, block);
    used_ += headerSize + size;
    return block;
}

void EmsArena::Share(const uint8_t* block) {
    Header header = ReadHeader(block);
    ++header.references;
    WriteHeader(block, header);
}

int EmsArena::Drop(const uint8_t* block) {
    Header header = ReadHeader(block);
    --header.references;
    if (header.references > 0) {
        WriteHeader(block, header);
        return 0;
    }
    const int freed = headerSize + header.size;
    const int offset = static_cast<int>(block - begin()) - headerSize;
    std::memmove(bytes_.data() + offset, bytes_.data() + offset + freed, used_ - offset - freed);
    used_ -= freed;
    return freed;
}

EmsArena::Header EmsArena::ReadHeader(const uint8_t* block) const {
    static_assert(sizeof(Header) <= headerSize);
    Header header;
    std::memcpy(&header, block - headerSize, sizeof header);
    return header;
}

void EmsArena::WriteHeader(const uint8_t* block, const Header& header) {
    std::memcpy(bytes_.data() + (block - begin()) - headerSize, &header, sizeof header);
}

}  // namespace tarnbridge
