#include "messaging/ems/EmsCompression.h"

#include <algorithm>
#include <array>

namespace tarnbridge {
namespace {

constexpr int window = 511;
constexpr int shortestCopy = 3;
constexpr int longestCopy = 63;
constexpr int longestRun = 127;

/// The places of a text where each group of three bytes begins, nearest first: the candidates for a copy.
class Places {
public:
    explicit Places(const uint8_t* bytes) : bytes_(bytes) { newest_.fill(-1); }

    void Add(int at) {
        int16_t& newest = newest_[Hash(at)];
        older_[at & mask] = newest;
        newest = static_cast<int16_t>(at);
    }

    int Nearest(int at) const { return newest_[Hash(at)]; }
    int NextNearest(int place) const { return older_[place & mask]; }

private:
    static constexpr int mask = 511;

    int Hash(int at) const {
        const unsigned group = bytes_[at] << 16 | bytes_[at + 1] << 8 | bytes_[at + 2];
        return static_cast<int>(group * 2654435761U >> 23);
    }

    const uint8_t* bytes_;
    std::array<int16_t, 512> newest_;
    std::array<int16_t, mask + 1> older_;
};

class Output {
public:
    Output(uint8_t* bytes, int capacity) : bytes_(bytes), capacity_(capacity) {}

    void PutRun(const uint8_t* literals, int count) {
        if (count == 0 || !Reserve(count + 1)) return;
        bytes_[size_++] = static_cast<uint8_t>(0x80 | count);
        std::copy_n(literals, count, bytes_ + size_);
        size_ += count;
    }

    void PutCopy(int length, int distance) {
        if (!Reserve(2)) return;
        bytes_[size_++] = static_cast<uint8_t>(length << 1 | distance >> 8);
        bytes_[size_++] = static_cast<uint8_t>(distance);
    }

    int Size() const { return full_ ? -1 : size_; }

private:
    bool Reserve(int count) {
        full_ = full_ || count > capacity_ - size_;
        return !full_;
    }

    uint8_t* bytes_;
    int capacity_;
    int size_ = 0;
    bool full_ = false;
};

}  // namespace

int Compress(const uint8_t* bytes, int size, uint8_t* out, int capacity) {
    if (size > longestCompressInput) return -1;
    Places places(bytes);
    Output output(out, capacity);
    int run = 0;
    for (int at = 0; at < size;) {
        int length = 0;
        int distance = 0;
        const int most = std::min(longestCopy, size - at);
        if (at >= shortestCopy && most >= shortestCopy) {
            for (int place = places.Nearest(at); place >= 0 && at - place <= window;
                 place = places.NextNearest(place)) {
                int same = 0;
                while (same < most && bytes[place + same] == bytes[at + same])
                    ++same;
                if (same <= length) continue;
                length = same;
                distance = at - place;
                if (length == longestCopy) break;
            }
        }
        const int step = length < shortestCopy ? 1 : length;
        if (step == 1) {
            if (++run == longestRun) {
                output.PutRun(bytes + at + 1 - run, run);
                run = 0;
            }
        } else {
            output.PutRun(bytes + at - run, run);
            run = 0;
            output.PutCopy(length, distance);
        }
        for (const int end = at + step; at < end; ++at) {
            if (at + shortestCopy <= size) places.Add(at);
        }
    }
    output.PutRun(bytes + size - run, run);
    return output.Size();
}

int Decompress(const uint8_t* bytes, int size, uint8_t* out, int capacity) {
    int produced = 0;
    for (int at = 0; at < size;) {
        const uint8_t head = bytes[at++];
        if (head & 0x80) {
            const int count = head & 0x7F;
            if (count == 0 || count > size - at || count > capacity - produced) return -1;
            std::copy_n(bytes + at, count, out + produced);
            at += count;
            produced += count;
        } else {
            if (at == size) return -1;
            const int length = head >> 1;
            const int distance = (head & 1) << 8 | bytes[at++];
            if (length < shortestCopy || distance == 0 || distance > produced ||
                length > capacity - produced) {
                return -1;
            }
            // A copy may reach into what it produces itself.
            for (int i = 0; i < length; ++i, ++produced)
                out[produced] = out[produced - distance];
        }
    }
    return produced;
}

}  // namespace tarnbridge
