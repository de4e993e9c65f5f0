#include "messaging/ems/EmsCompression.h"
#include "messaging/ems/EmsSupport.h"
#include "platform/Text.h"

namespace tarnbridge {
namespace {

std::string Compressed(const std::string& bytes, int capacity = 20000) {
    std::string out(capacity, '\0');
    const int size = Compress(reinterpret_cast<const uint8_t*>(bytes.data()), static_cast<int>(bytes.size()),
                              reinterpret_cast<uint8_t*>(out.data()), capacity);
    return size < 0 ? "too long" : out.substr(0, size);
}

std::string Decompressed(const std::string& bytes, int capacity = 20000) {
    std::string out(capacity, '\0');
    const std::vector<uint8_t> input(bytes.begin(), bytes.end());
    const int size = Decompress(input.data(), static_cast<int>(input.size()),
                                reinterpret_cast<uint8_t*>(out.data()), capacity);
    return size < 0 ? "malformed" : out.substr(0, size);
}

/// The coder as its rule reads: every distance tried, from the nearest on.
std::string CompressedByTheRule(const std::string& bytes) {
    std::string out;
    std::string run;
    const auto flush = [&] {
        if (!run.empty()) out += static_cast<char>(128 + run.size()) + run;
        run.clear();
    };
    for (size_t at = 0; at < bytes.size();) {
        size_t best = 0;
        size_t bestDistance = 0;
        for (size_t distance = 1; at >= 3 && distance <= std::min<size_t>(at, 511) && best < 63; ++distance) {
            size_t same = 0;
            while (same < 63 && at + same < bytes.size() && bytes[at + same] == bytes[at + same - distance])
                ++same;
            if (same > best) {
                best = same;
                bestDistance = distance;
            }
        }
        if (best < 3) {
            run += bytes[at++];
            if (run.size() == 127) flush();
            continue;
        }
        flush();
        out += static_cast<char>(best << 1 | bestDistance >> 8);
        out += static_cast<char>(bestDistance);
        at += best;
    }
    flush();
    return out;
}

TEST(EmsCompression, KnownBlocks) {
    struct Row {
        const char* rule;
        std::string bytes;
        std::string coded;
    };
    const Row rows[] = {
        {"nothing", "", ""},
        {"literals only", "abcdef", "86616263646566"},
        {"copies begin at the fourth byte", "aaaaaa", "836161610601"},
        {"length in bits 6 to 1, distance behind it", "abcdabcd", "84616263640804"},
        {"the nearest of equal matches", "abc1abc2abc",
         "84616263310604"
         "81320604"},
        {"127 literals close a run", std::string("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"),
         "A4" + BytesToHex("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ")},
        {"a copy of 63 ends the search", std::string(70, 'z'),
         "837A7A7A"
         "7E01"
         "0801"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(BytesToHex(Compressed(row.bytes)), row.coded) << row.rule;
        EXPECT_EQ(Decompressed(FromHex(row.coded)), row.bytes) << row.rule;
    }
}

TEST(EmsCompression, SameAsTheRuleAndReversible) {
    std::mt19937 random(3);
    for (int trial = 0; trial < 300; ++trial) {
        std::string bytes(random() % 1500, '\0');
        const unsigned letters = 1 + random() % 6;
        for (size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<char>(trial % 3 == 0 && i > 40 && random() % 20 ? bytes[i - 37]
                                                                                   : random() % letters);
        }
        const std::string coded = Compressed(bytes);
        ASSERT_EQ(coded, CompressedByTheRule(bytes)) << trial;
        ASSERT_EQ(Decompressed(coded), bytes) << trial;
        ASSERT_EQ(Compressed(bytes, static_cast<int>(coded.size())), coded);
        if (!coded.empty()) {
            ASSERT_EQ(Compressed(bytes, static_cast<int>(coded.size()) - 1), "too long");
            if (!bytes.empty()) {
                ASSERT_EQ(Decompressed(coded, static_cast<int>(bytes.size()) - 1), "malformed");
            }
        }
    }
}

TEST(EmsCompression, MalformedBlocks) {
    struct Row {
        const char* fault;
        std::string coded;
    };
    const Row rows[] = {
        {"empty run", "80"},
        {"run beyond the end", "8461"},
        {"copy without its second octet", "8361626306"},
        {"distance 0", "836162630600"},
        {"distance beyond the start", "836162630604"},
        {"copy at the start", "0601"},
        {"length below 3", "836162630401"},
        {"distance of 9 bits beyond the start", "836162630701"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Decompressed(FromHex(row.coded)), "malformed") << row.fault;
}

}  // namespace
}  // namespace tarnbridge
